// SPDX-License-Identifier: Apache-2.0
#include "model/reading.h"

#include <XMP_Const.h>

#include <algorithm>
#include <array>
#include <stdexcept>

#include "model/sections.h"

namespace vxmeta {
namespace {

constexpr std::string_view kInks = "vxGr:inks";
constexpr std::string_view kCoverage = "vxInkCovL:coverage";

std::string messageOf(const XMP_Error& error) {
  const char* message = error.GetErrMsg();
  return message != nullptr && *message != '\0' ? message : "XMP error";
}

UnreadPart unreadItems(std::string list, std::int32_t stored, std::int32_t read,
                       std::string reason) {
  UnreadPart part;
  part.list = std::move(list);
  part.stored = stored;
  part.read = read;
  part.reason = std::move(reason);
  return part;
}

UnreadPart unreadField(const XMPlUnreadField& row) {
  UnreadPart part;
  part.list = pathOfList(row.list);
  if (row.item > 0) part.item = row.item - 1;
  part.field = row.field;
  return part;
}

// Whether a record of simple properties, all of them required, is stored in part.
UnreadPart partOf(const StoredProperties& stored, const std::string& section,
                  const std::string& prefix, const Type& record) {
  UnreadPart part = unreadItems(section, 0, 0, "");
  for (const Field& field : record.fields) {
    const std::string name = prefix + std::string(field.name);
    if (stored.property(name) != nullptr) {
      ++*part.stored;
    } else if (part.reason->empty()) {
      part.reason = name;
    }
  }
  return part;
}

}  // namespace

std::string Reading::errorOf(const std::function<void()>& call) const {
  try {
    call();
    return xmp_.ErrStr();
  } catch (const XMP_Error& error) {
    return messageOf(error);
  } catch (const std::logic_error& error) {  // runs of files, and DGC curves
    return error.what();
  }
}

void Reading::noteError(const std::string& path, std::string reason) {
  errors_.push_back(unreadItems(path, 1, 0, std::move(reason)));
}

const StoredProperties& Reading::stored() {
  if (stored_) return *stored_;
  const std::string& xml = xmp_.GetXML();
  if (xml.empty()) throw FileError("the metadata cannot be looked through: " + xmp_.ErrStr());
  return stored_.emplace(readStored(xml));
}

void Reading::expand(std::vector<XMPlExtRef>& refs) const {
  try {
    refs = xmp_.ExpandExtRefs(refs);
  } catch (const std::logic_error& error) {
    throw FileError("a run of numbered files cannot be expanded: " + std::string(error.what()) +
                    "; without --expand it is read as stored");
  }
}

bool Reading::isLossless(bool asFilmInks) const {
  const auto isOfInks = [](const auto& row) { return row.list == kInks || row.list == kCoverage; };
  std::vector<XMPlUnreadItems> items;
  xmp_.GetUnreadItems(items, asFilmInks);
  if (std::any_of(items.begin(), items.end(), isOfInks)) return false;
  std::vector<XMPlUnreadField> fields;
  xmp_.GetUnreadFields(fields, asFilmInks);
  return std::none_of(fields.begin(), fields.end(), isOfInks);
}

bool Reading::areFilmInks(const std::vector<XMPlInk>& asDocument,
                          const std::vector<XMPlInkDigFilm>& asFilm) const {
  // A reading that finds nothing where the other finds something loses that.
  if (asFilm.empty()) return false;
  if (asDocument.empty()) return true;
  const bool isDocumentWhole = isLossless(false);
  const bool isFilmWhole = isLossless(true);
  return isDocumentWhole == isFilmWhole ? asFilm.size() > asDocument.size() : isFilmWhole;
}

const InkList& Reading::inks() {
  if (inks_) return *inks_;
  InkList both;
  list(kInks, static_cast<bool (XMPlib::*)(std::vector<XMPlInk>&) const>(&XMPlib::GetInks),
       both.document);
  if (both.document) list(kInks, &XMPlib::GetInksDigFilm, both.film);
  const bool isFilm = both.document && areFilmInks(*both.document, *both.film);
  isFilm ? both.document.reset() : both.film.reset();
  return inks_.emplace(std::move(both));
}

std::vector<ForeignSchema> Reading::foreign() {
  std::vector<ForeignSchema> schemas;
  for (const StoredNode& property : stored().properties) {
    if (!sectionOf(property.name).empty()) continue;
    const std::string prefix = property.name.substr(0, property.name.find(':'));
    const auto known = std::find_if(schemas.begin(), schemas.end(),
                                    [&](const ForeignSchema& one) { return one.prefix == prefix; });
    if (known != schemas.end()) {
      ++known->properties;
      continue;
    }
    schemas.push_back({stored().uriOf(prefix), prefix, 1});
  }
  return schemas;
}

// Of the records that the library reads whole or not at all: those stored in part. Film dimensions
// that are read explain page dimensions that are not.
void Reading::noteIncompleteRecords() {
  XMPlDimDat page;
  XMPlDimDatDigFilm film;
  bool isRead = false;
  (void)errorOf([&] { isRead = xmp_.GetDimDat(page) || xmp_.GetDimDatDigFilm(film); });
  const auto note = [&](UnreadPart part) {
    if (*part.stored > 0 && !part.reason->empty()) errors_.push_back(std::move(part));
  };
  if (!isRead) note(partOf(stored(), "page", "vxGr:", typeOf<XMPlDimDat>()));
  note(partOf(stored(), "cadRegistration", "vxCadReg:", typeOf<XMPlCadReg>()));
}

std::vector<UnreadPart> Reading::unread() {
  std::vector<UnreadPart> parts;
  const bool asFilmInks = inks().film.has_value();
  std::vector<XMPlUnreadItems> items;
  xmp_.GetUnreadItems(items, asFilmInks);
  parts.reserve(items.size());
  for (XMPlUnreadItems& row : items) {
    parts.push_back(unreadItems(pathOfList(row.list), row.stored, row.read, std::move(row.reason)));
  }
  std::vector<XMPlUnreadField> fields;
  xmp_.GetUnreadFields(fields, asFilmInks);
  std::transform(fields.begin(), fields.end(), std::back_inserter(parts), unreadField);
  noteIncompleteRecords();
  parts.insert(parts.end(), errors_.begin(), errors_.end());
  return parts;
}

}  // namespace vxmeta
