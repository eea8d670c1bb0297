// SPDX-License-Identifier: Apache-2.0
#include "model/reading.h"

#include <XMP_Const.h>

#include <algorithm>
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
  if (isFilm) passOver(kCoverage);
  return inks_.emplace(std::move(both));
}

std::vector<ForeignSchema> Reading::foreign() {
  std::vector<ForeignSchema> schemas;
  for (const StoredNode& property : stored().properties) {
    if (!isForeign(stored(), property.name)) continue;
    const std::string prefix(prefixOf(property.name));
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

std::vector<UnreadPart> Reading::unread(const Document& document) {
  std::vector<UnreadPart> parts = unreadInLists(xmp_, inks().film.has_value(), stored());
  const auto add = [&](std::vector<UnreadPart> more) {
    parts.insert(parts.end(), more.begin(), more.end());
  };
  for (const std::string& property : passedOver_) {
    const StoredNode* list = stored().property(property);
    const auto part = list == nullptr ? std::nullopt : unreadBeside(stored(), *list);
    if (!part) continue;
    std::erase_if(parts, [&](const UnreadPart& one) { return one.property == property; });
    parts.push_back(*part);
  }
  add(unreadValues(stored(), document, errors_));
  add(unreadSeparations(stored(), separations_));
  return parts;
}

}  // namespace vxmeta
