// SPDX-License-Identifier: Apache-2.0
// Separations of a film, and what no record covers.
#include <fmt/format.h>

#include "report/colours.h"
#include "report/parts.h"
#include "report/tables.h"

namespace vxmeta {
namespace {

Markup inkCell(const XMPlInkDigFilm& ink) {
  const std::vector<XMPlInkDigFilm> one = {ink};
  return swatch(coloursOf(viewOf(one))[0]) + plain(" ") + value(ink.name);
}

Markup sizeCell(const XMPlDimDatDigFilm& size) {
  return plain(fmt::format("{} × {} ", size.hsize, size.vsize)) + value(size.units);
}

Markup resolutionCell(const XMPlDimDatDigFilm& size) {
  return plain(fmt::format("{} × {}", size.hresolution, size.vresolution));
}

Markup rulingsCell(const std::vector<XMPlScreen>& screens) {
  std::string all;
  for (const XMPlScreen& screen : screens) {
    if (!screen.hasScreening) continue;
    all += fmt::format("{}{} at {}°", all.empty() ? "" : ", ", screen.frequency, screen.angle);
  }
  return plain(all);
}

ReportRow rowOf(const XMPlMetaDataDigFilm& separation) {
  return {"",
          {inkCell(separation.ink), value(separation.ink.type), sizeCell(separation.dimdata),
           resolutionCell(separation.dimdata), rulingsCell(separation.screens),
           plain(std::to_string(separation.screens.size())),
           plain(std::to_string(separation.uRefs.size()))}};
}

Markup unreadTable(const std::vector<UnreadPart>& unread, Place& place) {
  if (unread.empty()) return {};
  return place.heading(1, plain("Not read")) +
         element("p", {{"class", "note"}},
                 plain("What reading leaves out, and writing a list again would delete.")) +
         tableMarkup(recordTable("unread", "Not read", viewOf(unread), place));
}

Markup foreignTable(const std::vector<ForeignSchema>& foreign, Place& place) {
  if (foreign.empty()) return {};
  return place.heading(1, plain("Other schemas")) +
         tableMarkup(
             recordTable("foreign", "Schemas of other applications", viewOf(foreign), place));
}

}  // namespace

Markup separationsPart(const Document& document, Place& place) {
  if (!document.film || !document.film->metadata) return {};
  ReportTable table{"Separations of the film",
                    {{"ink", "name and display colour"},
                     {"type", "the application's word"},
                     {"size", "width and height"},
                     {"resolution", "horizontal and vertical"},
                     {"screening", "ruling and angle"},
                     {"screens", "number of screens", true},
                     {"references", "number of references that use them", true}},
                    {}};
  for (const XMPlMetaDataDigFilm& separation : *document.film->metadata) {
    table.rows.push_back(rowOf(separation));
    table.rows.back().id = place.mark(fmt::format("film.metadata[{}]", table.rows.size() - 1));
  }
  return place.section("film.metadata", "Separations", tableMarkup(std::move(table)));
}

Markup leftOverPart(const Document& document, Place& place) {
  return place.section("others", "What else the packet holds",
                       unreadTable(document.unread, place) + foreignTable(document.foreign, place));
}

}  // namespace vxmeta
