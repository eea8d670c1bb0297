// SPDX-License-Identifier: Apache-2.0
// A table in aligned columns.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "text/terminal.h"

namespace vxmeta {

struct Rgb {
  std::uint8_t r = 0;
  std::uint8_t g = 0;
  std::uint8_t b = 0;
};

struct Cell {
  std::string text;           // visible text
  std::optional<Rgb> swatch;  // a patch of the colour, in front of the text
  Style style = Style::plain;
};

struct Column {
  std::string heading;
  bool isNumeric = false;  // to the right, decimal points below each other
};

struct Table {
  std::vector<Column> columns;
  std::vector<std::vector<Cell>> rows;  // a cell for each column
};

// The table's lines, each behind `indent` blanks. Columns without any text are left out. Where it
// is wider than the screen, texts are cut, the longest first, but no numbers; then whole columns
// are left out, texts first. What is too wide still is cut line by line.
std::string formatTable(const Table& table, const Screen& screen, std::size_t indent);

// A line of styled parts. Where it is wider than the screen it is cut, with "…" at its end.
class Line {
 public:
  explicit Line(const Screen& screen) : screen_(screen) {}
  Line& add(Style style, std::string_view visibleText);
  Line& swatch(const Rgb& colour);
  std::string end() const;

 private:
  struct Part {
    std::string text;
    Style style = Style::plain;
    std::optional<Rgb> colour;
  };

  std::string formatted(const Part& part, const std::string& text) const;

  const Screen& screen_;
  std::vector<Part> parts_;
  std::size_t width_ = 0;
};

}  // namespace vxmeta
