// SPDX-License-Identifier: Apache-2.0
#include "report/colours.h"

#include "text/cells.h"

namespace vxmeta {
namespace {

template <class Ink>
std::vector<DrawnInk> drawn(const std::vector<Ink>& inks) {
  const std::vector<std::string> colours = coloursOf(viewOf(inks));
  std::vector<DrawnInk> all;
  for (std::size_t i = 0; i < inks.size(); ++i) {
    all.push_back({inks[i].name, colours[i], inks[i].attribute == "omask"});
  }
  return all;
}

}  // namespace

std::vector<std::string> coloursOf(const View& inks) {
  const double scale = colourScale(inks);
  std::vector<std::string> colours;
  for (std::size_t i = 0; i < inks.size(); ++i) {
    const Cell cell = colourCell(inks.item(i), scale);
    colours.push_back(cell.swatch ? cell.text : "");
  }
  return colours;
}

std::vector<DrawnInk> drawnInks(const Document& document) {
  if (document.inks) return drawn(*document.inks);
  if (document.film && document.film->inks) return drawn(*document.film->inks);
  return {};
}

}  // namespace vxmeta
