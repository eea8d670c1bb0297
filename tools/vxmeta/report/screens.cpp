// SPDX-License-Identifier: Apache-2.0
// Screens by group, linked to their curves.
#include <fmt/format.h>

#include <map>

#include "report/parts.h"
#include "report/rose.h"
#include "report/tables.h"

namespace vxmeta {
namespace {

struct CurveUse {
  const char* label;
  std::string XMPlScreen::*name;
};

constexpr CurveUse kUses[] = {
    {"single press", &XMPlScreen::singlepressDGC},
    {"plate requested", &XMPlScreen::autoplateDGCreq},
    {"plate LW", &XMPlScreen::autoplateDGCLW},
    {"plate CT", &XMPlScreen::autoplateDGCCT},
    {"press requested", &XMPlScreen::autopressDGCreq},
    {"press LW", &XMPlScreen::autopressDGCLW},
    {"press CT", &XMPlScreen::autopressDGCCT},
    {"total LW", &XMPlScreen::totalDGCLW},
    {"total CT", &XMPlScreen::totalDGCCT},
    {"gamma", &XMPlScreen::gamma},
};

using CurveIds = std::map<std::string, std::string, std::less<>>;  // of the stored curves, by name

CurveIds curveIdsOf(const Document& document, Place& place) {
  CurveIds ids;
  if (!document.dgcs) return ids;
  for (std::size_t i = 0; i < document.dgcs->size(); ++i) {
    ids.emplace((*document.dgcs)[i].name, place.mark(fmt::format("dgcs[{}]", i)));
  }
  return ids;
}

// The uses of each curve that the screen names, in the order of the first one.
std::vector<std::pair<std::string, std::string>> usesOf(const XMPlScreen& screen) {
  std::vector<std::pair<std::string, std::string>> uses;
  for (const CurveUse& use : kUses) {
    const std::string& name = screen.*use.name;
    if (name.empty()) continue;
    auto at = uses.begin();
    while (at != uses.end() && at->first != name) ++at;
    if (at == uses.end()) at = uses.insert(at, {name, ""});
    at->second += (at->second.empty() ? "" : ", ") + std::string(use.label);
  }
  return uses;
}

// A curve that a screen names need not be stored: none may be.
Markup curveCell(const XMPlScreen& screen, const CurveIds& ids) {
  Markup curves;
  for (const auto& [name, uses] : usesOf(screen)) {
    const auto stored = ids.find(name);
    const bool isMissing = !ids.empty() && stored == ids.end();
    Markup curve = link(stored == ids.end() ? "" : stored->second, value(name));
    if (isMissing) curve += plain(" ") + element("span", {{"class", "badge"}}, plain("not stored"));
    curve += plain(" ") + element("small", plain(uses));
    curves += element("div", curve);
  }
  return curves;
}

// What is used, and behind it what was requested where that is another one.
Markup usedCell(double used, double requested, const char* unit) {
  const std::string shown = fmt::format("{}{}", used, unit);
  if (used == requested) return plain(shown);
  return plain(shown + " ") + element("small", plain(fmt::format("({}{})", requested, unit)));
}

Markup usedCell(const std::string& used, const std::string& requested) {
  if (used == requested || requested.empty()) return value(used);
  return value(used) + plain(" ") + element("small", plain("(") + value(requested) + plain(")"));
}

// A dot's own name, where it is not the shape's.
Markup dotCell(const XMPlScreen& screen) {
  const bool isNamed = !screen.dotname.empty() && screen.dotname != screen.dotshape;
  return usedCell(screen.dotshape, screen.dotshapereq) +
         (isNamed ? element("div", value(screen.dotname)) : Markup{});
}

ReportRow rowOf(const XMPlScreen& screen, std::size_t index, const CurveIds& ids) {
  ReportRow row{"", {plain(std::to_string(index)), value(screen.usedrefs)}};
  if (screen.hasScreening) {
    row.cells.push_back(usedCell(screen.frequency, screen.frequencyreq, ""));
    row.cells.push_back(usedCell(screen.angle, screen.anglereq, "°"));
    row.cells.push_back(dotCell(screen));
  } else {
    row.cells.resize(5);
  }
  row.cells.push_back(curveCell(screen, ids));
  return row;
}

Markup groupTable(const std::vector<XMPlScreen>& group, const std::string& path,
                  const CurveIds& ids, Place& place) {
  ReportTable table{"Screens of " + path,
                    {{"screen", "its place in the group, from 0", true},
                     {"used by", "the references that use the screen"},
                     {"ruling", "used (requested, where it differs)", true},
                     {"angle", "used (requested, where it differs), taken as degrees", true},
                     {"dot", "shape used (requested, where it differs), name"},
                     {"curves", "DGC curves by name, and what for"}},
                    {}};
  for (std::size_t i = 0; i < group.size(); ++i) {
    table.rows.push_back(rowOf(group[i], i, ids));
    table.rows.back().id = place.mark(fmt::format("{}[{}]", path, i));
  }
  return tableMarkup(std::move(table));
}

Markup roseOfGroup(const std::vector<XMPlScreen>& group) {
  std::vector<Spoke> spokes;
  for (std::size_t i = 0; i < group.size(); ++i) {
    if (!group[i].hasScreening) continue;
    const std::string name = group[i].usedrefs.empty() ? std::to_string(i) : group[i].usedrefs;
    spokes.push_back({name, group[i].angle, ""});
  }
  return spokes.size() < 2 ? Markup{} : roseOf("Angles of the group", spokes);
}

Markup groupMarkup(const Document& document, std::size_t index, const CurveIds& ids, Place& place) {
  constexpr std::size_t kMostRoses = 12;
  const std::vector<XMPlScreen>& group = (*document.screens)[index];
  const std::string path = fmt::format("screens[{}]", index);
  const Markup title = plain(fmt::format("Group {}", index));
  const Markup content =
      group.empty() ? element("p", plain("no screens")) : groupTable(group, path, ids, place);
  return element(
      "div", {{"id", place.mark(path)}},
      place.heading(1, title) + content + (index < kMostRoses ? roseOfGroup(group) : Markup{}));
}

}  // namespace

Markup screensPart(const Document& document, Place& place) {
  constexpr std::size_t kMost = 24;
  if (!document.screens) return {};
  const CurveIds ids = curveIdsOf(document, place);
  Markup shown, folded;
  for (std::size_t i = 0; i < document.screens->size(); ++i) {
    (i < kMost ? shown : folded) += groupMarkup(document, i, ids, place);
  }
  if (!folded.empty()) {
    const std::size_t rest = document.screens->size() - kMost;
    shown +=
        element("details", element("summary", plain(fmt::format("{} more groups", rest))) + folded);
  }
  return place.section("screens", "Screens", shown);
}

}  // namespace vxmeta
