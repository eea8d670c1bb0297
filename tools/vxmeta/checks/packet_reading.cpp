#include "checks/packet_reading.h"

#include <fmt/format.h>
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

bool continuesCharacter(char c) { return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U; }

}  // namespace

std::string quoted(const std::string& text) {
  constexpr std::size_t kLongest = 60;
  if (text.size() <= kLongest) return '"' + text + '"';
  std::size_t end = kLongest;
  while (end > 0 && continuesCharacter(text[end])) --end;
  return '"' + text.substr(0, end) + "...\"";
}

std::string counted(std::size_t count, const char* thing) {
  return fmt::format("{} {}{}", count, thing, count == 1 ? "" : "s");
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

const std::vector<StoredNode>& itemsOf(const StoredNode* list) {
  static const std::vector<StoredNode> kNone;
  return list == nullptr || list->form != StoredNode::Form::list ? kNone : list->children;
}

}  // namespace vxmeta
