// SPDX-License-Identifier: Apache-2.0
// What the library's reading of a packet leaves out.
#include <fmt/format.h>
#include <algorithm>
#include <cctype>
#include <charconv>
#include <cstdint>
#include <optional>
#include <set>
#include <stdexcept>
#include <string_view>

#include "checks/packet_checks.h"
#include "checks/packet_reading.h"
#include "model/read_document.h"
#include "model/sections.h"
#include "model/unread.h"

namespace vxmeta {
namespace {

// --- Hidden items -------------------------------------------------------------------------------

bool hasScreens(const StoredNode& group) {
  return !itemsOf(group.field("vxScreenL:screens")).empty();
}

// A group that a film lacks is empty, and reading ends there: with none but such behind it, nothing
// is lost.
bool hidesScreens(const StoredProperties& stored, const XMPlUnreadItems& row) {
  const auto& groups = itemsOf(stored.property("vxScreenC:screenContainer"));
  const auto first = std::min(static_cast<std::size_t>(row.read), groups.size());
  return std::any_of(groups.begin() + static_cast<std::ptrdiff_t>(first), groups.end(), hasScreens);
}

// The library writes these under names that it does not read.
bool areWrittenByTheLibrary(const StoredProperties& stored) {
  const auto& refs = itemsOf(stored.property("vxDigFilmRefs:files"));
  return std::all_of(refs.begin(), refs.end(), [](const StoredNode& ref) {
    return ref.field("vxDigFilmRef:instanceID") != nullptr;
  });
}

// Lists in old layouts, which count where there is no current one.
bool isReplaced(const StoredProperties& stored, const std::string& list) {
  const char* current = list == "vxExtFL:files"       ? "vxExtFL2:files"
                        : list == "vxScreenL:screens" ? "vxScreenC:screenContainer"
                                                      : nullptr;
  return current != nullptr && stored.property(current) != nullptr;
}

bool hidesItems(const StoredProperties& stored, const XMPlUnreadItems& row) {
  if (row.list == "vxScreenC:screenContainer") return hidesScreens(stored, row);
  if (row.list == "vxDigFilmRefs:files") return !areWrittenByTheLibrary(stored);
  return row.list != "vxInkCovL:coverage";  // its number is looked at with the inks
}

std::string whyUnread(const XMPlUnreadItems& row) {
  if (row.list == "vxScreenC:screenContainer") return "has no whole first screen";
  if (namesField(row.reason)) return "has no " + row.reason;
  return row.reason.empty() ? "cannot be read" : "cannot be read (" + row.reason + ")";
}

void tellHiddenItems(const XMPlUnreadItems& row, const std::string& path, Findings& found) {
  const std::string items =
      counted(static_cast<std::size_t>(std::max(row.stored - row.read, 0)), "stored item");
  found.add(path,
            fmt::format("{}[{}] {}: reading ends there, and the next program that writes the list "
                        "deletes {}",
                        path, row.read, whyUnread(row), items),
            "mend that item, or take it out, before anything writes the list");
}

// What stands in a list's place; null: nothing that could be lost. Lists in items of other lists
// are not looked up.
const char* formInPlaceOf(const StoredProperties& stored, const std::string& list) {
  const StoredNode* node = stored.property(list);
  if (node == nullptr) return "something else";
  if (node->form == StoredNode::Form::structure) {
    return node->children.empty() ? nullptr : "a structure";
  }
  return node->text.empty() ? nullptr : "a text";
}

void tellNoList(const char* form, const std::string& list, const std::string& path,
                Findings& found) {
  found.add(path,
            fmt::format("{} is stored as {}, not as a list: nothing of it is read, and the next "
                        "program that writes the list deletes it",
                        wordsForList(list, path), form),
            "write the list anew from its source, or look whether another program needs it");
}

std::string pathOf(const XMPlUnreadItems& row, const XMPlib& packet) {
  return row.list == "vxGr:inks" ? inksPath(packet) : pathOfList(row.list);
}

void checkHidden(const Subject& subject, Findings& found) {
  const StoredProperties& stored = subject.stored();
  std::vector<XMPlUnreadItems> unread;
  subject.packet.GetUnreadItems(unread, holdsFilmInks(subject.packet));
  for (const XMPlUnreadItems& row : unread) {
    if (isReplaced(stored, row.list)) continue;
    const std::string path = pathOf(row, subject.packet);
    const char* form = row.stored == 0 ? formInPlaceOf(stored, row.list) : nullptr;
    if (form != nullptr) tellNoList(form, row.list, path, found);
    if (row.stored > 0 && hidesItems(stored, row)) tellHiddenItems(row, path, found);
  }
}

// --- Records that are not whole -----------------------------------------------------------------

void checkIncomplete(const Subject& subject, Findings& found) {
  std::set<std::string> told;
  for (const UnreadPart& part : readDocument(subject.packet, {}).unread) {
    const bool isPartial = !isOfList(part) && namesField(part.reason.value_or(""));
    if (!isPartial || !told.insert(part.list).second) continue;
    found.add(part.list,
              fmt::format("{} is stored in part, without {}: nothing of it is read", part.list,
                          *part.reason),
              "add what is missing, or take the rest out");
  }
}

// --- Runs of numbered files ---------------------------------------------------------------------

// The scheme counts in any case of letters.
bool isRun(const std::string& name) {
  constexpr std::string_view kScheme = "files:";
  return std::equal(
      kScheme.begin(), kScheme.end(), name.begin(),
      name.begin() + static_cast<std::ptrdiff_t>(std::min(name.size(), kScheme.size())),
      [](char scheme, unsigned char c) { return scheme == std::tolower(c); });
}

// The numbers of a run as they are written.
struct RunNumbers {
  std::string_view first, last;
};

bool areDigits(std::string_view text) {
  return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
}

std::optional<RunNumbers> numbersOf(std::string_view run) {
  const std::size_t hash = run.rfind('#');
  if (hash == std::string_view::npos || run.substr(0, hash).find('*') == std::string_view::npos) {
    return {};
  }
  const std::string_view numbers = run.substr(hash + 1);
  const std::size_t dash = numbers.find('-');
  if (dash == std::string_view::npos) return {};
  const RunNumbers result = {numbers.substr(0, dash), numbers.substr(dash + 1)};
  return areDigits(result.first) && areDigits(result.last) ? std::optional(result) : std::nullopt;
}

std::optional<std::int32_t> numberIn(std::string_view digits) {
  std::int32_t number = 0;
  const auto parsed = std::from_chars(digits.data(), digits.data() + digits.size(), number);
  return parsed.ec == std::errc() ? std::optional(number) : std::nullopt;
}

// What is wrong with a run; null: nothing. The library is lenient: where a number is wrong, it
// expands the run into other files.
const char* faultOf(const std::string& run) {
  const std::optional<RunNumbers> numbers = numbersOf(run);
  if (!numbers) return "is no \"files:PREFIX*EXTENSION#FIRST-LAST\"";
  const auto first = numberIn(numbers->first);
  const auto last = numberIn(numbers->last);
  if (!first || !last) return "has a number above 2147483647";
  return *last < *first ? "runs from a higher number to a lower one" : nullptr;
}

void checkRuns(const Subject& subject, Findings& found) {
  std::vector<XMPlExtRef> refs;
  subject.packet.GetExtRefs(refs, true);
  for (std::size_t i = 0; i < refs.size(); ++i) {
    const std::string& name = refs[i].instanceID;
    const char* fault = isRun(name) ? faultOf(name) : nullptr;
    if (fault == nullptr) continue;
    found.add(indexed("extRefs", i) + ".instanceID",
              fmt::format("the run of files {} {}: its files are not found", quoted(name), fault),
              "correct the name of the run, or list its files one by one");
  }
  if (!found.rows().empty()) return;
  try {
    (void)subject.packet.ExpandExtRefs(refs);
  } catch (const std::logic_error& error) {
    found.add("extRefs",
              fmt::format("the runs of files cannot be expanded ({}): the files are not found",
                          error.what()),
              "look for a run with a last number that is too high");
  }
}

}  // namespace

std::vector<Check> packetLossChecks() {
  return {
      {"items-hidden", Severity::error,
       "a list is read up to an incomplete item: what is behind it gets lost", checkHidden},
      {"record-incomplete", Severity::warning,
       "a record lacks a required field: it counts as absent", checkIncomplete},
      {"ref-unexpandable", Severity::error,
       "a run of numbered files cannot be expanded into its files", checkRuns},
  };
}

}  // namespace vxmeta
