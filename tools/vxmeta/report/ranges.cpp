// SPDX-License-Identifier: Apache-2.0
// Page ranges as a strip: pages to the right, a row for each ink.
#include <fmt/format.h>

#include <algorithm>
#include <set>

#include "report/colours.h"
#include "report/parts.h"
#include "report/svg.h"
#include "report/tables.h"

namespace vxmeta {
namespace {

constexpr double kLeft = 130;
constexpr double kWidth = 350;
constexpr double kRow = 18;
constexpr double kTop = 24;
constexpr std::size_t kMostRows = 32;
constexpr std::size_t kMostRanges = 200;

struct Strip {
  std::vector<const XMPlPagRange*> ranges;  // those that are drawn
  std::vector<int> inks;                    // those that have a row
  double first = 0;                         // page
  double pages = 0;
};

bool isDrawable(const XMPlPagRange& range) { return range.start >= 0 && range.end >= range.start; }

Strip stripOf(const std::vector<XMPlPagRange>& ranges) {
  Strip strip;
  std::set<int> inks;
  double last = 0;
  for (const XMPlPagRange& range : ranges) {
    if (!isDrawable(range) || strip.ranges.size() == kMostRanges) continue;
    strip.first = strip.ranges.empty() ? range.start : std::min<double>(strip.first, range.start);
    last = std::max<double>(last, range.end);
    strip.ranges.push_back(&range);
    inks.insert(range.inks.begin(), range.inks.end());
  }
  for (const int ink : inks) {
    if (strip.inks.size() < kMostRows) strip.inks.push_back(ink);
  }
  strip.pages = last - strip.first + 1;
  return strip;
}

// Applications count inks from 0 or from 1; the numbers themselves tell where only one fits.
class InkNames {
 public:
  InkNames(const Document& document, const std::vector<XMPlPagRange>& ranges)
      : inks_(drawnInks(document)) {
    std::set<int> used;
    for (const XMPlPagRange& range : ranges) used.insert(range.inks.begin(), range.inks.end());
    if (used.empty()) return;
    const auto count = static_cast<int>(inks_.size());
    fromZero_ = *used.begin() >= 0 && *used.rbegin() < count;
    fromOne_ = *used.begin() >= 1 && *used.rbegin() <= count;
  }

  bool isKnown() const { return fromZero_ != fromOne_; }
  bool isEither() const { return fromZero_ && fromOne_; }
  const DrawnInk& inkOf(int number) const {
    return inks_[static_cast<std::size_t>(fromZero_ ? number : number - 1)];
  }

  std::string shown(int number) const {
    if (isKnown()) return inkOf(number).name;
    return fmt::format("ink {}", number);
  }
  std::string colour(int number) const { return isKnown() ? inkOf(number).colour : ""; }

  std::string inFull(int number) const {
    if (isKnown()) return isolated(inkOf(number).name);
    if (!isEither()) return fmt::format("ink {}", number);
    const auto index = static_cast<std::size_t>(number);
    return fmt::format("ink {}: {} counted from 1, {} counted from 0", number,
                       isolated(inks_[index - 1].name), isolated(inks_[index].name));
  }

  const char* note() const {
    if (isEither()) {
      return " The numbers fit the list of inks whether one counts from 0 or from 1, so that they "
             "have no names here.";
    }
    if (!isKnown()) return " The numbers do not fit the list of inks.";
    return fromZero_ ? " Inks are counted from 0." : " Inks are counted from 1.";
  }

 private:
  std::vector<DrawnInk> inks_;
  bool fromZero_ = false;
  bool fromOne_ = false;
};

double yOf(std::size_t row) { return kTop + kRow * static_cast<double>(row); }

Markup rangeBox(const XMPlPagRange& range, const Strip& strip, std::size_t row,
                const InkNames& names) {
  const int ink = strip.inks[row];
  const double x = kLeft + (range.start - strip.first) / strip.pages * kWidth;
  const double width = (static_cast<double>(range.end) - range.start + 1) / strip.pages * kWidth;
  const std::string title =
      fmt::format("pages {} to {}, {}", range.start, range.end, names.inFull(ink));
  return box({x, yOf(row) + 2}, std::max(width, 1.0), kRow - 4, "range", names.colour(ink), title);
}

Markup rowsOf(const Strip& strip, const InkNames& names) {
  Markup rows;
  for (std::size_t row = 0; row < strip.inks.size(); ++row) {
    const int ink = strip.inks[row];
    const double y = yOf(row) + kRow / 2;
    rows += label({kLeft - 8, y + 4}, "end", isolated(shortened(names.shown(ink), 16)));
    rows += line({kLeft, y}, {kLeft + kWidth, y}, "grid");
    for (const XMPlPagRange* range : strip.ranges) {
      const bool isUsed =
          std::find(range->inks.begin(), range->inks.end(), ink) != range->inks.end();
      if (isUsed) rows += rangeBox(*range, strip, row, names);
    }
  }
  return rows;
}

Markup figureOf(const Strip& strip, const InkNames& names) {
  if (strip.inks.empty()) return {};
  const double last = strip.first + strip.pages - 1;
  const std::string title = fmt::format("Inks on pages {} to {}", strip.first, last);
  const Markup pages =
      label({kLeft, kTop - 8}, "", fmt::format("page {}", strip.first)) +
      (strip.pages > 1 ? label({kLeft + kWidth, kTop - 8}, "end", fmt::format("page {}", last))
                       : Markup{});
  return element("figure", drawing(kLeft + kWidth + 10, yOf(strip.inks.size()) + 6, title,
                                   pages + rowsOf(strip, names)) +
                               element("figcaption",
                                       plain("Pages and their inks." + std::string(names.note()))));
}

Markup limitNote(const std::vector<XMPlPagRange>& ranges, const Strip& strip) {
  if (strip.ranges.size() < kMostRanges && strip.inks.size() < kMostRows) return {};
  return element(
      "p", {{"class", "note"}},
      plain(fmt::format("{} of {} are drawn, with {}.", counted(strip.ranges.size(), "range"),
                        ranges.size(), counted(strip.inks.size(), "ink"))));
}

}  // namespace

Markup rangesPart(const Document& document, Place& place) {
  if (!document.pageRanges || document.pageRanges->empty()) return {};
  const std::vector<XMPlPagRange>& ranges = *document.pageRanges;
  const Strip strip = stripOf(ranges);
  const InkNames names(document, ranges);
  return place.section("pageRanges", "Page ranges",
                       figureOf(strip, names) + limitNote(ranges, strip) +
                           tableMarkup(recordTable("pageRanges", "Ranges of pages and their inks",
                                                   viewOf(ranges), place)));
}

}  // namespace vxmeta
