// SPDX-License-Identifier: Apache-2.0
#include "checks/reading.h"

#include <algorithm>

namespace vxmeta {
namespace {

bool isInkList(const std::string& list) {
  return list == "vxGr:inks" || list == "vxInkCovL:coverage";
}

bool isWhole(const XMPlib& packet, bool asFilmInks) {
  const auto isOfInks = [](const auto& row) { return isInkList(row.list); };
  std::vector<XMPlUnreadItems> items;
  packet.GetUnreadItems(items, asFilmInks);
  if (std::any_of(items.begin(), items.end(), isOfInks)) return false;
  std::vector<XMPlUnreadField> fields;
  packet.GetUnreadFields(fields, asFilmInks);
  return std::none_of(fields.begin(), fields.end(), isOfInks);
}

}  // namespace

std::string indexed(const char* list, std::size_t index) {
  return std::string(list) + '[' + std::to_string(index) + ']';
}

std::vector<XMPlInkBasic> readInks(const XMPlib& packet) {
  if (holdsFilmInks(packet)) {
    std::vector<XMPlInkDigFilm> films;
    packet.GetInksDigFilm(films);
    return {films.begin(), films.end()};
  }
  std::vector<XMPlInk> documents;
  isRead([&] { return packet.GetInks(documents); });
  return {documents.begin(), documents.end()};
}

bool holdsFilmInks(const XMPlib& packet) {
  std::vector<XMPlInkDigFilm> asFilm;
  isRead([&] { return packet.GetInksDigFilm(asFilm); });
  if (asFilm.empty()) return false;
  std::vector<XMPlInk> asDocument;
  packet.GetInks(asDocument);
  if (asDocument.empty()) return true;
  const bool isFilmWhole = isWhole(packet, true);
  const bool isDocumentWhole = isWhole(packet, false);
  return isFilmWhole == isDocumentWhole ? asFilm.size() > asDocument.size() : isFilmWhole;
}

const char* inksPath(const XMPlib& packet) { return holdsFilmInks(packet) ? "film.inks" : "inks"; }

}  // namespace vxmeta
