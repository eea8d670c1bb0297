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

// The table's lines, each behind `indent` blanks. Columns without any text are left out; what is
// wider than the screen is cut, long texts first.
std::string formatTable(const Table& table, const Screen& screen, std::size_t indent);

// A line of styled parts, cut to the screen.
class Line {
 public:
  explicit Line(const Screen& screen) : screen_(screen) {}
  Line& add(Style style, std::string_view visibleText);
  Line& swatch(const Rgb& colour);
  std::string end();

 private:
  bool isFull() const { return screen_.width > 0 && used_ >= screen_.width; }

  const Screen& screen_;
  std::string text_;
  std::size_t used_ = 0;
};

}  // namespace vxmeta
