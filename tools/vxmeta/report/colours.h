// SPDX-License-Identifier: Apache-2.0
// Display colours of inks.
#pragma once

#include <string>
#include <vector>

#include "model/document.h"

namespace vxmeta {

// An ink of the document or of the film, as far as drawings need it.
struct DrawnInk {
  std::string name;
  std::string colour;  // "#rrggbb"; "": it has none
  bool isMask = false;
};

std::vector<DrawnInk> drawnInks(const Document& document);

// "#rrggbb" of each ink of the list; "" for numbers that are no colour.
std::vector<std::string> coloursOf(const View& inks);

}  // namespace vxmeta
