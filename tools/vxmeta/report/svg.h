// SPDX-License-Identifier: Apache-2.0
// Inline drawings. Lengths are in units of the drawing, 1 px unless it is made smaller.
#pragma once

#include <string>
#include <string_view>

#include "report/html.h"

namespace vxmeta {

struct Point {
  double x = 0;
  double y = 0;
};

std::string number(double length);  // two decimals at most; 0 for what is no number

// A drawing with its title for those who do not see it.
Markup drawing(double width, double height, std::string_view title, const Markup& content);

Markup line(Point from, Point to, std::string_view style, const std::string& colour = "");
Markup box(Point corner, double width, double height, std::string_view style,
           const std::string& fill = "", std::string_view title = "");
Markup label(Point at, std::string_view style, std::string_view text);
Markup turnedLabel(Point at, std::string_view style, std::string_view text);  // reads upwards
Markup titleOf(std::string_view text);  // shown when the pointer rests on the element around it

// At most that many characters of a text, "…" for the others.
std::string shortened(std::string_view text, std::size_t most);

}  // namespace vxmeta
