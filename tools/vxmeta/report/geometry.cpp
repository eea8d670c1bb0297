// SPDX-License-Identifier: Apache-2.0
// The page and the film to scale, and how the document is registered on its CAD drawing.
#include <fmt/format.h>

#include <algorithm>
#include <cmath>

#include "report/parts.h"
#include "report/scale.h"
#include "report/svg.h"
#include "report/tables.h"

namespace vxmeta {
namespace {

struct Margins {
  double top = 0, bottom = 0, left = 0, right = 0;
};

struct Sheet {
  std::string title;
  double width = 0, height = 0;
  std::string units;
  std::optional<Margins> margins;
};

constexpr Point kCorner = {60, 34};
constexpr double kLeastMiddle = 90;  // room for the measure of a narrow side

bool fits(const Margins& margins, const Sheet& sheet) {
  const bool isAny =
      margins.top != 0 || margins.bottom != 0 || margins.left != 0 || margins.right != 0;
  const bool isInside = std::min({margins.top, margins.bottom, margins.left, margins.right}) >= 0 &&
                        margins.left + margins.right < sheet.width &&
                        margins.top + margins.bottom < sheet.height;
  return isAny && isInside;
}

Markup marginBox(const Sheet& sheet, double scale) {
  if (!sheet.margins || !fits(*sheet.margins, sheet)) return {};
  const Margins& m = *sheet.margins;
  const std::string title = fmt::format("margins: top {}, bottom {}, left {}, right {} {}", m.top,
                                        m.bottom, m.left, m.right, isolated(sheet.units));
  return box({kCorner.x + m.left * scale, kCorner.y + m.top * scale},
             (sheet.width - m.left - m.right) * scale, (sheet.height - m.top - m.bottom) * scale,
             "margin", "", title);
}

Markup measures(const Sheet& sheet, double width, double height) {
  const double right = kCorner.x + width;
  const double bottom = kCorner.y + height;
  const std::string units = isolated(shortened(sheet.units, 12));
  return line({kCorner.x, kCorner.y - 10}, {right, kCorner.y - 10}, "measure") +
         label({std::max(kCorner.x + width / 2, kLeastMiddle), kCorner.y - 16}, "middle",
               fmt::format("{} {}", sheet.width, units)) +
         line({kCorner.x - 10, kCorner.y}, {kCorner.x - 10, bottom}, "measure") +
         turnedLabel({kCorner.x - 16, std::max(kCorner.y + height / 2, kLeastMiddle)}, "middle",
                     fmt::format("{} {}", sheet.height, units));
}

// The registered origin, where it lies on the sheet: from its lower left corner, in its unit.
Markup registrationMark(const Sheet& sheet, const XMPlCadReg& cad, double scale) {
  const bool isOnSheet =
      cad.orgX >= 0 && cad.orgX <= sheet.width && cad.orgY >= 0 && cad.orgY <= sheet.height;
  if (!isOnSheet) return {};
  const Point at = {kCorner.x + cad.orgX * scale, kCorner.y + (sheet.height - cad.orgY) * scale};
  const std::string title =
      fmt::format("CAD registration: {}, {}; orientation {}", cad.orgX, cad.orgY, cad.orientation);
  return element("g", {{"class", "mark"}},
                 titleOf(title) +
                     single("circle", {{"cx", number(at.x)}, {"cy", number(at.y)}, {"r", "7"}}) +
                     line({at.x - 12, at.y}, {at.x + 12, at.y}, "") +
                     line({at.x, at.y - 12}, {at.x, at.y + 12}, ""));
}

std::string captionOf(const Sheet& sheet, bool hasMark) {
  std::string caption = sheet.title + " to scale.";
  if (sheet.margins && fits(*sheet.margins, sheet)) caption += " Dashed: margins.";
  if (hasMark) {
    caption +=
        " Cross: CAD registration origin, drawn from the lower left corner in the page's unit.";
  }
  return caption;
}

Markup sheetFigure(const Sheet& sheet, const std::optional<XMPlCadReg>& cad) {
  const double scale = scaleToFit(sheet.width, sheet.height, {360, 320});
  if (scale == 0) return {};
  const double width = sheet.width * scale;
  const double height = sheet.height * scale;
  const Markup mark = cad ? registrationMark(sheet, *cad, scale) : Markup{};
  const std::string title =
      fmt::format("{}: {} × {} {}", sheet.title, sheet.width, sheet.height, isolated(sheet.units));
  const Markup content = box(kCorner, width, height, "sheet") + marginBox(sheet, scale) +
                         measures(sheet, width, height) + mark;
  return element("figure",
                 drawing(std::max(kCorner.x + width + 16, 2 * kLeastMiddle),
                         std::max(kCorner.y + height + 16, 2 * kLeastMiddle), title, content) +
                     element("figcaption", plain(captionOf(sheet, !mark.empty()))));
}

Sheet sheetOf(const XMPlDimDat& page) {
  return {"Page", page.hsize, page.vsize, page.units,
          Margins{page.margtop, page.margbot, page.margleft, page.margright}};
}

Sheet sheetOf(const XMPlDimDatDigFilm& film) {
  Sheet sheet{"Film", film.hsize, film.vsize, film.units, std::nullopt};
  if (film.hasMargins) {
    sheet.margins = Margins{film.margtop, film.margbot, film.margleft, film.margright};
  }
  return sheet;
}

Markup beside(const Markup& figure, const Markup& cards) {
  return element("div", {{"class", "beside"}}, figure + element("div", cards));
}

template <class Record>
Markup cardOf(std::string_view path, std::string_view title, const std::optional<Record>& record,
              Place& place) {
  if (!record) return {};
  const Markup content = card(title, definitions(path, viewOf(*record), place));
  return content.empty() ? content : element("div", {{"id", place.mark(path)}}, content);
}

Markup pageMarkup(const Document& document, Place& place) {
  const Markup cards =
      cardOf("page", "Page", document.page, place) +
      cardOf("cadRegistration", "CAD registration", document.cadRegistration, place);
  if (cards.empty()) return {};
  const Markup figure =
      document.page ? sheetFigure(sheetOf(*document.page), document.cadRegistration) : Markup{};
  return beside(figure, cards);
}

Markup filmMarkup(const Document& document, Place& place) {
  if (!document.film) return {};
  const Film& film = *document.film;
  const Markup cards = cardOf("film.version", "Film version", film.version, place) +
                       cardOf("film.dimensions", "Film", film.dimensions, place);
  if (cards.empty()) return {};
  return beside(film.dimensions ? sheetFigure(sheetOf(*film.dimensions), std::nullopt) : Markup{},
                cards);
}

}  // namespace

double scaleToFit(double width, double height, Point room) {
  const bool isDrawable = std::isfinite(width) && std::isfinite(height) && width > 0 && height > 0;
  if (!isDrawable) return 0;
  const double scale = std::min(room.x / width, room.y / height);
  return std::isnormal(scale) ? scale : 0;
}

Markup geometryPart(const Document& document, Place& place) {
  return place.section("geometry", "Page geometry",
                       pageMarkup(document, place) + filmMarkup(document, place));
}

}  // namespace vxmeta
