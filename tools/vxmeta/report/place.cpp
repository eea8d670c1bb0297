// SPDX-License-Identifier: Apache-2.0
#include "report/place.h"

#include <fmt/format.h>

#include <algorithm>

namespace vxmeta {

// "inks[2].angle" is "d1-inks-2-angle".
std::string Place::idOf(std::string_view path) const {
  std::string id = fmt::format("d{}", number_);
  if (!path.empty()) id += '-';
  for (const char sign : path) {
    if (sign == ']') continue;
    const bool isPlain = (sign >= '0' && sign <= '9') || (sign >= 'a' && sign <= 'z') ||
                         (sign >= 'A' && sign <= 'Z');
    id += isPlain ? sign : '-';
  }
  return id;
}

std::string Place::mark(std::string_view path) {
  std::string id = idOf(path);
  marked_.insert(id);
  return id;
}

std::string Place::nearest(std::string_view path) const {
  while (!path.empty()) {
    std::string id = idOf(path);
    if (marked_.contains(id)) return id;
    const std::size_t end = path.find_last_of(".[");
    path = path.substr(0, end == std::string_view::npos ? 0 : end);
  }
  return "";
}

Markup Place::heading(int below, const Markup& title) const {
  return element(fmt::format("h{}", std::min(level_ + below, 6)), title);
}

Markup Place::section(std::string_view path, std::string_view title, const Markup& content) {
  if (content.empty()) return {};
  return element("section", {{"id", mark(path)}}, heading(0, plain(title)) + content);
}

}  // namespace vxmeta
