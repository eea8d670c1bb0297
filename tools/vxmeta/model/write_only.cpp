// SPDX-License-Identifier: Apache-2.0
// What the library writes and has no Get for, read from the packet as it is stored: the data for
// other tools, and the separations of a digital film. Numbers and truth values are read in the form
// that a Set writes; any other text leaves the field as a new record has it.
#include <array>
#include <charconv>

#include "model/reading.h"

namespace vxmeta {
namespace {

template <class Number>
bool parse(const std::string& text, void* into) {
  Number number{};
  const char* end = text.data() + text.size();
  const auto [rest, error] = std::from_chars(text.data(), end, number);
  if (error != std::errc() || rest != end) return false;
  *static_cast<Number*>(into) = number;
  return true;
}

bool parseTruth(const std::string& text, void* into) {
  if (text != "True" && text != "False") return false;
  *static_cast<bool*>(into) = text == "True";
  return true;
}

bool setFromText(const Type& type, void* into, const std::string& text) {
  switch (type.kind) {
    case Kind::text:
      return *static_cast<std::string*>(into) = text, true;
    case Kind::integer:
      return parse<std::int32_t>(text, into);
    case Kind::longInteger:
      return parse<std::int64_t>(text, into);
    case Kind::real:
      return parse<double>(text, into);
    case Kind::truth:
      return parseTruth(text, into);
    default:
      return false;
  }
}

// Reads the separations of a film. Notes which nodes it has read, of those that a Set writes.
class SeparationReader {
 public:
  explicit SeparationReader(ReadNodes& read) : read_(read) {}

  std::vector<XMPlMetaDataDigFilm> separations(const StoredNode* list) {
    return itemsOf(list, &SeparationReader::separationOf);
  }

 private:
  template <class Record>
  std::vector<Record> itemsOf(const StoredNode* list,
                              Record (SeparationReader::*make)(const StoredNode& item)) {
    std::vector<Record> items;
    if (list == nullptr || list->form != StoredNode::Form::list) return items;
    for (const StoredNode& item : list->children) {
      if (item.form == StoredNode::Form::structure) read_.insert(&item);
      items.push_back((this->*make)(item));
    }
    return items;
  }

  const StoredNode* structureIn(const StoredNode& item, std::string_view name) {
    return noted(item.field(name), StoredNode::Form::structure);
  }
  const StoredNode* listIn(const StoredNode& item, std::string_view name) {
    return noted(item.field(name), StoredNode::Form::list);
  }
  const StoredNode* noted(const StoredNode* node, StoredNode::Form form) {
    if (node == nullptr || node->form != form) return nullptr;
    read_.insert(node);
    return node;
  }

  void fillField(const Type& record, void* into, const Field& field, const StoredNode* stored) {
    if (stored == nullptr || stored->form != StoredNode::Form::text) return;
    const bool isSet = setFromText(*field.type, field.slot(into), stored->text);
    if (isSet && isValid({&record, into}, field)) read_.insert(stored);
  }

  // Fills the fields that the structure has under `prefix` and their own name. Flags come before.
  template <class Record>
  void fill(Record& record, const StoredNode* structure, const std::string& prefix) {
    if (structure == nullptr) return;
    const Type& type = typeOf<Record>();
    for (const Field& field : type.fields) {
      if (!field.isStored || isFlag(type, field)) continue;
      fillField(type, &record, field, structure->field(prefix + std::string(field.name)));
    }
  }

  XMPlDimDatDigFilm dimensionsOf(const StoredNode* structure) {
    XMPlDimDatDigFilm dimensions;
    if (structure == nullptr) return dimensions;
    dimensions.basicOnly = structure->field("vxGr:vdist") == nullptr;
    dimensions.hasMargins = !dimensions.basicOnly && structure->field("vxGr:margtop") != nullptr;
    fill(dimensions, structure, "vxGr:");
    return dimensions;
  }

  // Fewer fields than in the list of film inks, and one under another name.
  XMPlInkDigFilm inkOf(const StoredNode* structure) {
    constexpr std::string_view kFields[] = {"name", "type", "attribute", "r", "g", "b", "opacity"};
    XMPlInkDigFilm ink;
    if (structure == nullptr) return ink;
    const Type& type = typeOf<XMPlInkDigFilm>();
    for (const std::string_view name : kFields) {
      fillField(type, &ink, *type.field(name), structure->field("vxInk:" + std::string(name)));
    }
    fillField(type, &ink, *type.field("inknrsoriginal"), structure->field("vxInk:nrinksoriginal"));
    return ink;
  }

  XMPlScreen screenOf(const StoredNode& item) {
    XMPlScreen screen;
    const StoredNode* structure = structureIn(item, "vxDigFilmMetaData:screen");
    screen.hasScreening = structure != nullptr && structure->field("vxScreen:frequency") != nullptr;
    fill(screen, structure, "vxScreen:");
    return screen;
  }

  XMPlUsedRef referenceOf(const StoredNode& item) {
    XMPlUsedRef reference;
    fill(reference, structureIn(item, "vxDigFilmMetaData:uRef"), "vxUsedF:");
    return reference;
  }

  XMPlMetaDataDigFilm separationOf(const StoredNode& item) {
    XMPlMetaDataDigFilm separation;
    separation.dimdata = dimensionsOf(structureIn(item, "vxDigFilmMetaData:dimdata"));
    separation.ink = inkOf(structureIn(item, "vxDigFilmMetaData:ink"));
    separation.screens =
        itemsOf(listIn(item, "vxDigFilmMetaData:screens"), &SeparationReader::screenOf);
    separation.uRefs =
        itemsOf(listIn(item, "vxDigFilmMetaData:uRefs"), &SeparationReader::referenceOf);
    return separation;
  }

  ReadNodes& read_;
};

struct StoredText {
  std::string_view property;
  std::string_view field;
};

// Fills the texts; answers whether there is any.
template <class Record, std::size_t kCount>
bool fillTexts(Record& record, const StoredProperties& stored,
               const std::array<StoredText, kCount>& texts) {
  bool isAny = false;
  for (const StoredText& one : texts) {
    const std::string* text = textOf(stored.property(one.property));
    if (text == nullptr) continue;
    const Field& field = *typeOf<Record>().field(one.field);
    isAny = setFromText(*field.type, field.slot(&record), *text) || isAny;
  }
  return isAny;
}

constexpr std::array<StoredText, 3> kPdfTexts = {{
    {"pdf:Producer", "producer"},
    {"dc:title", "title"},
    {"pdfxid:GTS_PDFXVersion", "pdfxVersion"},
}};
constexpr std::array<StoredText, 1> kPdfTrapped = {{{"pdf:Trapped", "trapped"}}};
constexpr std::array<StoredText, 4> kMediaTexts = {{
    {"xmpMM:DocumentID", "documentID"},
    {"xmpMM:VersionID", "versionID"},
    {"xmpMM:DerivedFrom", "derivedFrom"},
    {"xmpMM:RenditionClass", "renditionClass"},
}};

}  // namespace

std::optional<XMPlPDFData> Reading::pdfData() {
  XMPlPDFData data;
  const bool hasTexts = fillTexts(data, stored(), kPdfTexts);
  data.trappedValid = fillTexts(data, stored(), kPdfTrapped);
  return hasTexts || data.trappedValid ? std::optional(data) : std::nullopt;
}

std::optional<XMPlMMData> Reading::mmData() {
  XMPlMMData data;
  return fillTexts(data, stored(), kMediaTexts) ? std::optional(data) : std::nullopt;
}

std::optional<std::vector<XMPlMetaDataDigFilm>> Reading::filmMetadata() {
  const StoredNode* list = stored().property("vxDigFilmMetaDataList:metadataList");
  if (list == nullptr) return std::nullopt;
  return SeparationReader(separations_).separations(list);
}

}  // namespace vxmeta
