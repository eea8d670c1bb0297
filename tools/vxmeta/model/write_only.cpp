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

// Fills the fields that the structure has under `prefix` and their own name.
template <class Record>
void fill(Record& record, const StoredNode* structure, const std::string& prefix) {
  if (structure == nullptr) return;
  for (const Field& field : typeOf<Record>().fields) {
    const StoredNode* stored = structure->field(prefix + std::string(field.name));
    if (stored != nullptr) setFromText(*field.type, field.slot(&record), stored->text);
  }
}

XMPlDimDatDigFilm dimensionsOf(const StoredNode* structure) {
  XMPlDimDatDigFilm dimensions;
  fill(dimensions, structure, "vxGr:");
  if (structure == nullptr) return dimensions;
  dimensions.basicOnly = structure->field("vxGr:vdist") == nullptr;
  dimensions.hasMargins = structure->field("vxGr:margtop") != nullptr;
  return dimensions;
}

XMPlInkDigFilm inkOf(const StoredNode* structure) {
  XMPlInkDigFilm ink;
  fill(ink, structure, "vxInk:");
  if (structure == nullptr) return ink;
  // Under another name than in the list of film inks.
  const StoredNode* number = structure->field("vxInk:nrinksoriginal");
  if (number != nullptr) ink.inknrsoriginal = number->text;
  return ink;
}

XMPlScreen screenOf(const StoredNode& item) {
  XMPlScreen screen;
  const StoredNode* structure = item.field("vxDigFilmMetaData:screen");
  fill(screen, structure, "vxScreen:");
  screen.hasScreening = structure != nullptr && structure->field("vxScreen:frequency") != nullptr;
  return screen;
}

XMPlUsedRef referenceOf(const StoredNode& item) {
  XMPlUsedRef reference;
  fill(reference, item.field("vxDigFilmMetaData:uRef"), "vxUsedF:");
  return reference;
}

template <class Make>
auto itemsOf(const StoredNode* list, const Make& make) {
  std::vector<decltype(make(*list))> items;
  if (list == nullptr || list->form != StoredNode::Form::list) return items;
  for (const StoredNode& item : list->children) items.push_back(make(item));
  return items;
}

XMPlMetaDataDigFilm separationOf(const StoredNode& item) {
  XMPlMetaDataDigFilm separation;
  separation.dimdata = dimensionsOf(item.field("vxDigFilmMetaData:dimdata"));
  separation.ink = inkOf(item.field("vxDigFilmMetaData:ink"));
  separation.screens = itemsOf(item.field("vxDigFilmMetaData:screens"), screenOf);
  separation.uRefs = itemsOf(item.field("vxDigFilmMetaData:uRefs"), referenceOf);
  return separation;
}

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
  return itemsOf(list, separationOf);
}

}  // namespace vxmeta
