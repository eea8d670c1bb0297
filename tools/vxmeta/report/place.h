// SPDX-License-Identifier: Apache-2.0
// One document's part of the page: its ids and the level of its headings.
#pragma once

#include <cstddef>
#include <set>
#include <string>
#include <string_view>

#include "report/html.h"

namespace vxmeta {

class Place {
 public:
  // `number`: of the document in the page, from 1; `level`: of the headings of its sections.
  Place(std::size_t number, int level) : number_(number), level_(level) {}

  // The id of what shows that part of the document, which links may go to from now on.
  std::string mark(std::string_view path);

  // The id of what shows the part, or the least part around it that is shown; "" for none.
  std::string nearest(std::string_view path) const;

  // A section under its heading; nothing without content. Its id is that of the path.
  Markup section(std::string_view path, std::string_view title, const Markup& content);
  Markup heading(int below, const Markup& title) const;

  std::size_t number() const { return number_; }

 private:
  std::string idOf(std::string_view path) const;

  std::size_t number_;
  int level_;
  std::set<std::string, std::less<>> marked_;
};

}  // namespace vxmeta
