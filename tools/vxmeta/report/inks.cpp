// SPDX-License-Identifier: Apache-2.0
// Inks: what they look like, how they are screened, how much they cover.
#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <map>

#include "report/colours.h"
#include "report/parts.h"
#include "report/rose.h"
#include "report/svg.h"
#include "report/tables.h"

namespace vxmeta {
namespace {

Markup nameCell(const XMPlInk& ink, const std::string& colour) {
  Markup cell = swatch(colour) + plain(" ") + value(ink.name);
  if (ink.attribute == "omask") {
    cell += plain(" ") + element("span", {{"class", "badge"}}, plain("opaque mask"));
  }
  return cell;
}

// A bar from 0 to 100 percent in the ink's colour.
Markup coverageBar(double percent, const std::string& colour) {
  const double shown = std::isfinite(percent) ? std::clamp(percent, 0.0, 100.0) : 0;
  const std::string style = fmt::format("width:{}%;background:{}", number(shown),
                                        colour.empty() ? "currentColor" : colour);
  return element("span", {{"class", "bar"}}, element("span", {{"style", style}}));
}

Markup coverageCell(const XMPlInk& ink, const std::string& colour) {
  if (!ink.coverageValid) return {};
  return coverageBar(ink.pct, colour) +
         element("span", {{"class", "share"}}, plain(fmt::format("{} %", ink.pct)));
}

Markup areaCell(const XMPlInk& ink) {
  return ink.coverageValid ? plain(fmt::format("{} mm²", ink.mm2)) : Markup{};
}

// An ink without ruling has no screen, so that its angle says nothing.
bool isScreened(const XMPlInk& ink) { return ink.frequency > 0 && ink.attribute != "omask"; }

Markup screenCell(const XMPlInk& ink, double number, std::string_view unit) {
  return isScreened(ink) ? plain(fmt::format("{}{}", number, unit)) : Markup{};
}

ReportRow rowOf(const XMPlInk& ink, const std::string& colour) {
  const bool hasMethod = ink.printingmethod != "unknown";
  return {
      "",
      {nameCell(ink, colour), coverageCell(ink, colour), areaCell(ink), value(ink.type),
       screenCell(ink, ink.frequency, ""), screenCell(ink, ink.angle, "°"), value(ink.dotshape),
       value(hasMethod ? ink.printingmethod : ""),
       value(ink.attribute == "omask" ? "" : ink.attribute), value(ink.book), value(ink.vxname)}};
}

Markup inkTable(const std::vector<XMPlInk>& inks, Place& place) {
  ReportTable table{"Inks of the document",
                    {{"ink", "name and display colour"},
                     {"coverage", "of the page, in percent", true},
                     {"area", "coverage in square millimetres", true},
                     {"type", "the application's word"},
                     {"ruling", "screen ruling, lines for a length of the application's", true},
                     {"angle", "screen angle, taken as degrees", true},
                     {"dot", "dot shape"},
                     {"printed by", "printing method"},
                     {"attribute", "the application's word"},
                     {"book", "colour book that the ink comes from"},
                     {"system name", "name in the system's own naming"}},
                    {}};
  const std::vector<std::string> colours = coloursOf(viewOf(inks));
  for (std::size_t i = 0; i < inks.size(); ++i) {
    table.rows.push_back(rowOf(inks[i], colours[i]));
    table.rows.back().id = place.mark(fmt::format("inks[{}]", i));
  }
  return tableMarkup(std::move(table));
}

// One rose for each printing method: inks of one run on one another.
Markup rosesOf(const std::vector<XMPlInk>& inks) {
  const std::vector<std::string> colours = coloursOf(viewOf(inks));
  std::map<std::string, std::vector<Spoke>> groups;
  for (std::size_t i = 0; i < inks.size(); ++i) {
    if (!isScreened(inks[i])) continue;
    groups[inks[i].printingmethod].push_back({inks[i].name, inks[i].angle, colours[i]});
  }
  Markup roses;
  for (const auto& [method, spokes] : groups) {
    if (spokes.size() < 2) continue;
    const bool isNamed = groups.size() > 1 && method != "unknown";
    roses += roseOf(isNamed ? "Screen angles, " + isolated(method) : "Screen angles", spokes);
  }
  return roses;
}

template <class List>
Markup plainTable(const std::optional<List>& list, const char* path, const char* caption,
                  Place& place) {
  return list ? tableMarkup(recordTable(path, caption, viewOf(*list), place)) : Markup{};
}

Markup titled(const Place& place, const char* title, const Markup& content) {
  return content.empty() ? content : place.heading(1, plain(title)) + content;
}

}  // namespace

Markup inksPart(const Document& document, Place& place) {
  Markup content;
  if (document.inks) content = inkTable(*document.inks, place) + rosesOf(*document.inks);
  const Markup properties =
      plainTable(document.inkProperties, "inkProperties", "Ink properties", place);
  const Markup filmInks =
      document.film ? plainTable(document.film->inks, "film.inks", "Inks of the film", place)
                    : Markup{};
  content += titled(place, "Inks of the film", filmInks);
  content += titled(place, "Ink properties", properties);
  return place.section("inks", "Inks", content);
}

}  // namespace vxmeta
