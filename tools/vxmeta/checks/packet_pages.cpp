// SPDX-License-Identifier: Apache-2.0
// Page ranges: against each other, the number of pages and the inks.
#include <fmt/format.h>
#include <algorithm>
#include <cstdint>
#include <optional>

#include "checks/packet_checks.h"
#include "checks/packet_reading.h"

namespace vxmeta {
namespace {

constexpr const char* kList = "pageRanges";
constexpr std::int32_t kNotSet = -1;

struct Range {
  std::int64_t start, end;
  std::size_t index;  // in the list

  std::string path() const { return indexed(kList, index); }
  std::string pages() const {
    return start == end ? fmt::format("page {}", start) : fmt::format("pages {} to {}", start, end);
  }
};

std::vector<XMPlPagRange> storedRanges(const XMPlib& packet) {
  std::vector<XMPlPagRange> ranges;
  packet.GetPagRanges(ranges);
  return ranges;
}

bool isSet(const XMPlPagRange& range) { return range.start != kNotSet && range.end != kNotSet; }

// Those that say which pages they mean, by their first page.
std::vector<Range> soundRanges(const XMPlib& packet) {
  const std::vector<XMPlPagRange> stored = storedRanges(packet);
  std::vector<Range> ranges;
  for (std::size_t i = 0; i < stored.size(); ++i) {
    if (isSet(stored[i]) && stored[i].start <= stored[i].end) {
      ranges.push_back({stored[i].start, stored[i].end, i});
    }
  }
  std::stable_sort(ranges.begin(), ranges.end(),
                   [](const Range& a, const Range& b) { return a.start < b.start; });
  return ranges;
}

void checkBackward(const Subject& subject, Findings& found) {
  const std::vector<XMPlPagRange> ranges = storedRanges(subject.packet);
  for (std::size_t i = 0; i < ranges.size(); ++i) {
    if (!isSet(ranges[i]) || ranges[i].start <= ranges[i].end) continue;
    found.add(indexed(kList, i),
              fmt::format("{} runs from page {} back to {}: it means no page", indexed(kList, i),
                          ranges[i].start, ranges[i].end),
              "exchange its ends");
  }
}

void checkOverlap(const Subject& subject, Findings& found) {
  const std::vector<Range> ranges = soundRanges(subject.packet);
  const Range* furthest = nullptr;
  for (const Range& range : ranges) {
    if (furthest != nullptr && range.start <= furthest->end) {
      found.add(range.path(),
                fmt::format("page {} is in {} and in {}: which inks it has is said twice",
                            range.start, range.path(), furthest->path()),
                "let every page be in one range");
    }
    if (furthest == nullptr || range.end > furthest->end) furthest = &range;
  }
}

// --- The number of pages ------------------------------------------------------------------------

// The pages of the document as ranges count them.
struct Pages {
  std::int64_t first, count;
  std::int64_t last() const { return first + count - 1; }
};

// Stretches of pages that no range has.
std::vector<Range> gapsIn(const std::vector<Range>& sorted, const Pages& pages) {
  std::vector<Range> gaps;
  std::int64_t next = pages.first;
  for (const Range& range : sorted) {
    if (range.start > next && next <= pages.last()) {
      gaps.push_back({next, std::min(range.start - 1, pages.last()), 0});
    }
    next = std::max(next, range.end + 1);
  }
  if (next <= pages.last()) gaps.push_back({next, pages.last(), 0});
  return gaps;
}

std::int64_t missingIn(const std::vector<Range>& sorted, const Pages& pages) {
  std::int64_t missing = 0;
  for (const Range& gap : gapsIn(sorted, pages)) missing += gap.end - gap.start + 1;
  return missing;
}

// Applications count pages from 0, from 1 or from the first logical page: the count that leaves out
// the fewest pages is meant.
std::optional<Pages> pagesOf(const XMPlib& packet, const std::vector<Range>& sorted) {
  int count = 0;
  if (!packet.GetNrPages(count) || count < 1 || sorted.empty()) return {};
  int logical = 1;
  packet.GetStartLogPage(logical);
  Pages best = {sorted.front().start == 0 ? 0 : 1, count};
  for (const std::int64_t first : {0, 1, logical}) {
    const Pages pages = {first, count};
    if (missingIn(sorted, pages) < missingIn(sorted, best)) best = pages;
  }
  return best;
}

void checkGap(const Subject& subject, Findings& found) {
  const std::vector<Range> ranges = soundRanges(subject.packet);
  const std::optional<Pages> pages = pagesOf(subject.packet, ranges);
  if (!pages) return;
  for (const Range& gap : gapsIn(ranges, *pages)) {
    found.add(kList, fmt::format("no range has {}: which inks they have is not said", gap.pages()),
              "add a range for them, or correct scalars.nrPages");
  }
}

void checkBeyond(const Subject& subject, Findings& found) {
  const std::vector<Range> ranges = soundRanges(subject.packet);
  const std::optional<Pages> pages = pagesOf(subject.packet, ranges);
  if (!pages) return;
  for (const Range& range : ranges) {
    if (range.start >= pages->first && range.end <= pages->last()) continue;
    found.add(range.path(),
              fmt::format("{} has {}, but the document has {}: inks are planned for pages that are "
                          "not there",
                          range.path(), range.pages(),
                          counted(static_cast<std::size_t>(pages->count), "page")),
              "correct the range, or scalars.nrPages");
  }
}

// --- Inks ---------------------------------------------------------------------------------------

void tellInkNumber(const std::string& path, std::int64_t number, std::int64_t inks,
                   Findings& found) {
  found.add(path,
            fmt::format("{} is the ink number {}, outside the list of {} counted from 0 or from 1: "
                        "the pages are printed without an ink that they need",
                        path, number, counted(static_cast<std::size_t>(inks), "ink")),
            "correct the number, or add the ink");
}

void checkInkNumbers(const Subject& subject, Findings& found) {
  const auto inks =
      static_cast<std::int64_t>(itemsOf(subject.stored().property("vxGr:inks")).size());
  if (inks == 0) return;
  const std::vector<XMPlPagRange> ranges = storedRanges(subject.packet);
  bool hasZero = false;
  std::string last;  // where the number is that only a count from 1 has
  for (std::size_t i = 0; i < ranges.size(); ++i) {
    const std::string path = indexed(kList, i) + ".inks";
    for (std::size_t j = 0; j < ranges[i].inks.size(); ++j) {
      const std::int32_t number = ranges[i].inks[j];
      hasZero = hasZero || number == 0;
      if (number == inks && last.empty()) last = indexed(path.c_str(), j);
      if (number < 0 || number > inks) {
        tellInkNumber(indexed(path.c_str(), j), number, inks, found);
      }
    }
  }
  if (hasZero && !last.empty()) tellInkNumber(last, inks, inks, found);
}

}  // namespace

std::vector<Check> packetPageChecks() {
  return {
      {"page-range-backward", Severity::warning, "a page range ends before it begins",
       checkBackward},
      {"page-range-overlap", Severity::warning, "two page ranges have pages in common",
       checkOverlap},
      {"page-range-gap", Severity::warning, "a page of the document is in no page range", checkGap},
      {"page-range-beyond", Severity::warning, "a page range has pages that the document has not",
       checkBeyond},
      {"page-range-ink", Severity::warning, "a page range has an ink that is not in the list",
       checkInkNumbers},
  };
}

}  // namespace vxmeta
