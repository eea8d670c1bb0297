// SPDX-License-Identifier: Apache-2.0
// DGC curves: the plot, and their values in a table.
#include <fmt/format.h>

#include "report/parts.h"
#include "report/plot.h"
#include "report/tables.h"
#include "text/cells.h"

namespace vxmeta {
namespace {

Markup valuesCell(const std::vector<double>& values) {
  constexpr std::size_t kMost = 32;
  Markup all = plain(shownValue(viewOf(values)));
  if (values.size() <= kMost) return all;
  return element("details",
                 element("summary", plain(counted(values.size(), "value"))) + element("p", all));
}

Markup curveTable(const std::vector<XMPlDgcc>& curves, Place& place) {
  ReportTable table{"Values of the DGC curves",
                    {{"curve", "name, and its line in the plot"},
                     {"values", "number of values", true},
                     {"from the first to the last", "as stored, in the application's range"}},
                    {}};
  for (std::size_t i = 0; i < curves.size(); ++i) {
    table.rows.push_back(
        {place.mark(fmt::format("dgcs[{}]", i)),
         {sampleOf(i) + plain(" ") + value(curves[i].name),
          plain(std::to_string(curves[i].values.size())), valuesCell(curves[i].values)}});
  }
  return tableMarkup(std::move(table));
}

Markup figureOf(const std::vector<XMPlDgcc>& curves) {
  Markup plot = plotOf(curves);
  if (plot.empty()) return plot;
  const std::string drawn =
      curves.size() <= kMostDrawnCurves
          ? ""
          : fmt::format(" The first {} of {} are drawn.", kMostDrawnCurves, curves.size());
  const Markup caption =
      element("figcaption", plain("DGC curves; dashed: no gain. What the values stand for is the "
                                  "application's." +
                                  drawn));
  return element("figure", plot + caption);
}

}  // namespace

Markup curvesPart(const Document& document, Place& place) {
  if (!document.dgcs || document.dgcs->empty()) return {};
  return place.section("dgcs", "DGC curves",
                       figureOf(*document.dgcs) + curveTable(*document.dgcs, place));
}

}  // namespace vxmeta
