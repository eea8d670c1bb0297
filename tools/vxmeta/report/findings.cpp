// SPDX-License-Identifier: Apache-2.0
// What `check` finds.
#include <fmt/format.h>

#include <algorithm>

#include "report/parts.h"
#include "report/tables.h"

namespace vxmeta {
namespace {

constexpr Severity kSeverities[] = {Severity::error, Severity::warning, Severity::note};

// Checks write paths and names of the document between their own words: isolated as a whole.
Markup itemOf(const Finding& finding, const Place& place) {
  const std::string severity = nameOf(finding.severity);
  const Markup sign = element("strong", {{"class", "severity " + severity}}, plain(severity));
  const std::string target = place.nearest(finding.path);
  const Markup where = finding.path.empty() ? Markup{}
                                            : element("span", {{"class", "where"}},
                                                      link(target, value(finding.path)));
  const Markup what = element("p", sign + plain(" ") + value(finding.message));
  const Markup hint = finding.hint.empty() ? Markup{} : value(finding.hint);
  const Markup id = element("span", {{"class", "id"}}, plain(finding.id));
  return element(
      "li", what + element("p", {{"class", "hint"}}, where + plain(" ") + hint + plain(" ") + id));
}

Markup listOf(const std::vector<Markup>& items, std::size_t first, std::size_t last) {
  Markup all;
  for (std::size_t i = first; i < last; ++i) all += items[i];
  return element("ul", {{"class", "findings"}}, all);
}

Markup folded(const std::vector<Markup>& items) {
  constexpr std::size_t kMost = 20;
  if (items.size() <= kMost) return listOf(items, 0, items.size());
  const Markup summary =
      element("summary", plain(fmt::format("{} more findings", items.size() - kMost)));
  return listOf(items, 0, kMost) + element("details", summary + listOf(items, kMost, items.size()));
}

}  // namespace

Markup findingsPart(const std::vector<Finding>& findings, Place& place) {
  if (findings.empty()) return {};
  std::vector<Markup> items;
  for (const Severity severity : kSeverities) {
    for (const Finding& finding : findings) {
      if (finding.severity == severity) items.push_back(itemOf(finding, place));
    }
  }
  return place.section("findings", "Findings: " + countsOf(findings), folded(items));
}

std::string countsOf(const std::vector<Finding>& findings) {
  std::string all;
  for (const Severity severity : kSeverities) {
    const auto count = static_cast<std::size_t>(
        std::count_if(findings.begin(), findings.end(),
                      [&](const Finding& finding) { return finding.severity == severity; }));
    if (count == 0) continue;
    all += (all.empty() ? "" : ", ") + counted(count, nameOf(severity));
  }
  return all;
}

}  // namespace vxmeta
