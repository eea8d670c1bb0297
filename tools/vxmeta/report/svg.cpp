// SPDX-License-Identifier: Apache-2.0
#include "report/svg.h"

#include <fmt/format.h>

#include <cmath>

#include "text/characters.h"

namespace vxmeta {

std::string number(double length) {
  if (!std::isfinite(length)) return "0";
  std::string text = fmt::format("{:.2f}", length);
  text.erase(text.find_last_not_of('0') + 1);
  if (text.back() == '.') text.pop_back();
  return text == "-0" ? "0" : text;
}

Markup titleOf(std::string_view text) {
  return text.empty() ? Markup{} : element("title", plain(text));
}

Markup drawing(double width, double height, std::string_view title, const Markup& content) {
  const std::string wide = number(std::ceil(width));  // whole pixels: some readers take no others
  const std::string high = number(std::ceil(height));
  return element("svg",
                 {{"xmlns", "http://www.w3.org/2000/svg"},
                  {"role", "img"},
                  {"aria-label", std::string(title)},
                  {"width", wide},
                  {"height", high},
                  {"viewBox", fmt::format("0 0 {} {}", wide, high)}},
                 element("title", plain(title)) + content);
}

Markup line(Point from, Point to, std::string_view style, const std::string& colour) {
  return single("line", {{"class", std::string(style)},
                         {"stroke", colour},
                         {"x1", number(from.x)},
                         {"y1", number(from.y)},
                         {"x2", number(to.x)},
                         {"y2", number(to.y)}});
}

Markup box(Point corner, double width, double height, std::string_view style,
           const std::string& fill, std::string_view title) {
  return element("rect",
                 {{"class", std::string(style)},
                  {"fill", fill},
                  {"x", number(corner.x)},
                  {"y", number(corner.y)},
                  {"width", number(width)},
                  {"height", number(height)}},
                 titleOf(title));
}

Markup label(Point at, std::string_view style, std::string_view text) {
  return element("text", {{"class", std::string(style)}, {"x", number(at.x)}, {"y", number(at.y)}},
                 plain(text));
}

Markup turnedLabel(Point at, std::string_view style, std::string_view text) {
  const std::string place = fmt::format("translate({} {}) rotate(-90)", number(at.x), number(at.y));
  return element("text", {{"class", std::string(style)}, {"transform", place}}, plain(text));
}

std::string shortened(std::string_view text, std::size_t most) {
  std::size_t bytes = 0;
  for (std::size_t count = 0; bytes < text.size(); ++count) {
    if (count == most) return std::string(text.substr(0, bytes)) + "…";
    bytes += firstOf(text.substr(bytes)).bytes;
  }
  return std::string(text);
}

}  // namespace vxmeta
