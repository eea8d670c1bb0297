// SPDX-License-Identifier: Apache-2.0
// Step and repeat: each placement to scale, front and back.
#include <fmt/format.h>

#include <algorithm>

#include "report/parts.h"
#include "report/scale.h"
#include "report/svg.h"
#include "report/tables.h"

namespace vxmeta {
namespace {

constexpr Point kRoom = {300, 200};
constexpr Point kCorner = {8, 28};

// The size of one copy; square where the document says none.
struct Copy {
  double width = 1;
  double height = 1;
  std::string units;  // "": the size is not known
};

Copy copyOf(const Document& document) {
  if (!document.page) return {};
  const XMPlDimDat& page = *document.page;
  if (scaleToFit(page.hsize, page.vsize, kRoom) == 0) return {};
  return {page.hsize, page.vsize, page.units};
}

struct Grid {
  int columns = 1;
  int rows = 1;
};

Grid gridOf(const XMPlRepeat& repeat) {
  return repeat.type == "grid" ? Grid{repeat.hnr, repeat.vnr} : Grid{};
}

// One side of the sheet.
struct Side {
  const char* name;
  const char* style;
  const std::string& file;
  int page;
};

Markup linesOf(const Grid& grid, double width, double height) {
  constexpr int kMostLines = 120;  // more are no longer lines
  Markup lines;
  for (int i = 1; i < grid.columns && grid.columns <= kMostLines; ++i) {
    const double x = kCorner.x + width * i / grid.columns;
    lines += line({x, kCorner.y}, {x, kCorner.y + height}, "cut");
  }
  for (int i = 1; i < grid.rows && grid.rows <= kMostLines; ++i) {
    const double y = kCorner.y + height * i / grid.rows;
    lines += line({kCorner.x, y}, {kCorner.x + width, y}, "cut");
  }
  return lines;
}

// Each copy's page in its middle, where there is room for it.
Markup pagesOf(const Grid& grid, const Side& side, double width, double height) {
  Markup pages;
  const double cell = std::min(width / grid.columns, height / grid.rows);
  if (cell < 16 || side.page <= 0) return pages;
  for (int row = 0; row < grid.rows; ++row) {
    for (int column = 0; column < grid.columns; ++column) {
      pages += label({kCorner.x + width * (column + 0.5) / grid.columns,
                      kCorner.y + height * (row + 0.5) / grid.rows + 4},
                     "middle", std::to_string(side.page));
    }
  }
  return pages;
}

Markup sideDrawing(const Grid& grid, const Copy& copy, const Side& side) {
  const double scale = scaleToFit(copy.width * grid.columns, copy.height * grid.rows, kRoom);
  if (scale == 0) return {};
  const double width = copy.width * grid.columns * scale;
  const double height = copy.height * grid.rows * scale;
  const std::string title = fmt::format("{}: {} × {} copies of {}, page {}", side.name,
                                        grid.columns, grid.rows, isolated(side.file), side.page);
  const std::string head = fmt::format("{}: {}", side.name, isolated(shortened(side.file, 24)));
  return drawing(std::max(width + 2 * kCorner.x, 210.0), height + kCorner.y + 8, title,
                 label({kCorner.x, 18}, "", head) + box(kCorner, width, height, side.style) +
                     linesOf(grid, width, height) + pagesOf(grid, side, width, height));
}

// The net size of all copies: gaps between them are not in the record.
std::string netSize(const Grid& grid, const Copy& copy) {
  if (copy.units.empty()) return "";
  return fmt::format(" Net {:.10g} × {:.10g} {}.", copy.width * grid.columns,
                     copy.height * grid.rows, isolated(copy.units));
}

std::string captionOf(const XMPlRepeat& repeat, const Grid& grid, const Copy& copy) {
  std::string caption = fmt::format("{} ({})", isolated(repeat.name), isolated(repeat.type));
  if (repeat.type == "grid")
    caption += fmt::format(": {} across, {} down.", grid.columns, grid.rows);
  if (repeat.type == "die") caption += fmt::format(": station {}.", isolated(repeat.stationname));
  return caption + netSize(grid, copy) + fmt::format(" Copies: {}.", repeat.count);
}

Markup figureOf(const XMPlRepeat& repeat, const Copy& copy) {
  const Grid grid = gridOf(repeat);
  if (grid.columns < 1 || grid.rows < 1) return {};
  Markup sides = sideDrawing(grid, copy, {"front", "sheet", repeat.front, repeat.frontpage});
  if (!repeat.back.empty()) {
    sides += sideDrawing(grid, copy, {"back", "sheet back", repeat.back, repeat.backpage});
  }
  if (sides.empty()) return {};
  return element("figure", element("div", {{"class", "sides"}}, sides) +
                               element("figcaption", plain(captionOf(repeat, grid, copy))));
}

Markup figuresOf(const std::vector<XMPlRepeat>& repeats, const Copy& copy) {
  constexpr std::size_t kMost = 8;
  Markup figures;
  for (std::size_t i = 0; i < repeats.size() && i < kMost; ++i) {
    figures += figureOf(repeats[i], copy);
  }
  if (repeats.size() > kMost) {
    figures += element("p", {{"class", "note"}},
                       plain(fmt::format("The first {} of {} are drawn.", kMost, repeats.size())));
  }
  return element("div", {{"class", "figures"}}, figures);
}

}  // namespace

Markup repeatsPart(const Document& document, Place& place) {
  if (!document.repeats || document.repeats->empty()) return {};
  const ReportTable table =
      recordTable("repeats", "Step and repeat", viewOf(*document.repeats), place);
  return place.section("repeats", "Step and repeat",
                       figuresOf(*document.repeats, copyOf(document)) + tableMarkup(table));
}

}  // namespace vxmeta
