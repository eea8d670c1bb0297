#include "checks/reading.h"

namespace vxmeta {
namespace {

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
  std::vector<XMPlInk> documents;
  std::vector<XMPlInkDigFilm> films;
  const bool hasList = isRead([&] { return packet.GetInks(documents); });
  isRead([&] { return packet.GetInksDigFilm(films); });
  inks = films.size() > documents.size() ? named(films, "film.inks") : named(documents, "inks");
  return hasList;
}

}  // namespace vxmeta
