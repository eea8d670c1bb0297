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

template <class Ink>
std::vector<NamedInk> named(const std::vector<Ink>& inks, const char* list) {
  std::vector<NamedInk> result;
  for (std::size_t i = 0; i < inks.size(); ++i) {
    result.push_back({inks[i].name, indexed(list, i), inks[i].attribute == "omask"});
  }
  return result;
}

}  // namespace

std::string indexed(const char* list, std::size_t index) {
  return std::string(list) + '[' + std::to_string(index) + ']';
}

bool readInks(const XMPlib& packet, std::vector<NamedInk>& inks) {
  if (holdsFilmInks(packet)) {
    std::vector<XMPlInkDigFilm> films;
    packet.GetInksDigFilm(films);
    inks = named(films, "film.inks");
    return true;
  }
  std::vector<XMPlInk> documents;
  const bool hasList = isRead([&] { return packet.GetInks(documents); });
  inks = named(documents, "inks");
  return hasList;
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
