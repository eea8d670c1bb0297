// SPDX-License-Identifier: Apache-2.0
// Runs of numbered images. A run is one reference, named
//   "files:" prefix "*" extension "#" first "-" last
// where the files are named prefix number extension, and all numbers have the same count of digits.
#include <algorithm>
#include <charconv>
#include <cstdint>
#include <cstdlib>
#include <map>
#include <optional>
#include <stdexcept>
#include <string_view>
#include <tuple>

#include "XMPlib.h"
#include "core/ascii.h"
#include "core/packet/limits.h"

namespace {

constexpr std::string_view kRunScheme = "files:";
constexpr std::string_view kFileScheme = "file:";

// --- Size ---------------------------------------------------------------------------------------

// What the elements of a stored reference take in packet text, in both layouts, with indentation.
constexpr std::size_t kElementBytes = 512;

// What `files` references like `ref`, under names of `name` bytes, take when they are stored. More
// than a packet may hold is no list but an attack.
std::uint64_t storedBytes(std::int64_t files, std::size_t name, const XMPlExtRef& ref) {
  const std::uint64_t each =
      kElementBytes + 2 * (name + ref.renditionClass.size()) + ref.type.size();
  const auto count = static_cast<std::uint64_t>(files);
  if (count > xmpl::limits::kTextBytes / each) return xmpl::limits::kTextBytes + 1;
  return count * each;
}

std::uint64_t storedBytes(const XMPlExtRef& ref) {
  return storedBytes(1, ref.instanceID.size(), ref);
}

// All runs of a group have the rendition class of one image. A list of which so much more comes
// than it takes itself is an attack too.
class RunBudget {
 public:
  explicit RunBudget(const std::vector<XMPlExtRef>& refs) {
    for (const XMPlExtRef& ref : refs) left_ += kMostGrowth * storedBytes(ref);
  }

  void spend(const XMPlExtRef& like) {
    const std::uint64_t bytes = storedBytes(like);
    if (bytes > left_) throw std::length_error("external references: rendition class too long");
    left_ -= bytes;
  }

 private:
  static constexpr std::uint64_t kMostGrowth = 20;

  std::uint64_t left_ = 0;
};

// --- Compacting ---------------------------------------------------------------------------------

// The parts of a numbered image's name.
struct NumberedName {
  std::string_view prefix;     // up to the last "_"
  std::string_view digits;     // the number
  std::string_view extension;  // from its "."

  std::int32_t number() const {
    std::int32_t value = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), value);
    return value;
  }
};

std::optional<NumberedName> numberedName(std::string_view name) {
  constexpr std::ptrdiff_t kFewestDigits = 3;
  constexpr std::ptrdiff_t kMostDigits = 9;
  const std::size_t underscore = name.rfind('_');
  if (underscore == std::string_view::npos) return std::nullopt;
  const std::string_view rest = name.substr(underscore + 1);
  const auto digits = std::find_if_not(rest.begin(), rest.end(), xmpl::isDigit) - rest.begin();
  if (digits < kFewestDigits || digits > kMostDigits) return std::nullopt;
  const auto count = static_cast<std::size_t>(digits);
  const std::string_view extension = rest.substr(count);
  if (extension.empty() || extension.rfind('.') != 0) return std::nullopt;
  return NumberedName{name.substr(0, underscore + 1), rest.substr(0, count), extension};
}

std::optional<NumberedName> numberedImage(const XMPlExtRef& ref) {
  if (ref.type != "image" || ref.pagenr != 0) return std::nullopt;
  return numberedName(ref.instanceID);
}

// Numbered images that differ in nothing but their numbers.
struct Group {
  const XMPlExtRef* first;  // lends its rendition class and type to every run
  NumberedName name;        // of the first
  std::vector<std::int32_t> numbers;
};

// With leading zeros; the sign is part of the width.
std::string padded(std::int64_t number, std::size_t width) {
  std::string text = std::to_string(number);
  const std::size_t zeros = width - std::min(width, text.size());
  return text.insert(number < 0 ? 1 : 0, zeros, '0');
}

std::string runName(const NumberedName& name, std::int32_t first, std::int32_t last) {
  const std::size_t width = name.digits.size();
  if (first == last) {
    return std::string(name.prefix) + padded(first, width) + std::string(name.extension);
  }
  std::string_view prefix = name.prefix;
  if (prefix.starts_with(kFileScheme)) prefix.remove_prefix(kFileScheme.size());
  return std::string(kRunScheme) + std::string(prefix) + "*" + std::string(name.extension) + "#" +
         padded(first, width) + "-" + padded(last, width);
}

XMPlExtRef runOf(const Group& group, std::int32_t first, std::int32_t last) {
  XMPlExtRef run;
  run.instanceID = runName(group.name, first, last);
  run.renditionClass = group.first->renditionClass;
  run.pagenr = 0;
  run.type = group.first->type;
  run.count = last - first + 1;
  return run;
}

// Each number that does not follow the one before it begins a run; so does a repeated one.
void appendRuns(Group& group, RunBudget& budget, std::vector<XMPlExtRef>& list) {
  std::vector<std::int32_t>& numbers = group.numbers;
  std::sort(numbers.begin(), numbers.end());
  std::size_t first = 0;
  for (std::size_t i = 1; i <= numbers.size(); ++i) {
    if (i < numbers.size() && numbers[i] == numbers[i - 1] + 1) continue;
    budget.spend(*group.first);
    list.push_back(runOf(group, numbers[first], numbers[i - 1]));
    first = i;
  }
}

// --- Expanding ----------------------------------------------------------------------------------

struct Run {
  std::string_view prefix;
  std::string_view extension;
  std::size_t width;  // of the numbers, padded with zeros
  std::int64_t first;
  std::int64_t last;

  std::int64_t files() const { return std::max<std::int64_t>(last - first + 1, 0); }
  std::size_t longestName() const {
    const std::size_t digits =
        std::max({width, std::to_string(first).size(), std::to_string(last).size()});
    return kFileScheme.size() + prefix.size() + digits + extension.size();
  }
};

bool isRun(std::string_view name) { return xmpl::startsWithAnyCase(name, kRunScheme); }

// Leading digits, as the C library's atoi reads them: 0 when there are none, and the low 32 bits of
// a number that has more.
std::int32_t leadingInteger(std::string_view text) {
  return static_cast<std::int32_t>(std::strtoll(std::string(text).c_str(), nullptr, 10));
}

Run parsedRun(std::string_view name) {
  constexpr std::size_t kNone = std::string_view::npos;
  const std::size_t hash = name.rfind('#');
  const std::size_t star = name.rfind('*');
  const std::size_t dash = hash == kNone ? kNone : name.find('-', hash);
  if (star == kNone || dash == kNone) throw std::logic_error("bad extref");
  Run run{};
  run.prefix = name.substr(kRunScheme.size(), star - kRunScheme.size());
  if (star < hash) run.extension = name.substr(star + 1, hash - star - 1);
  run.width = dash - hash - 1;
  run.first = leadingInteger(name.substr(hash + 1, run.width));
  run.last = leadingInteger(name.substr(dash + 1));
  return run;
}

// How many entries the list has when it is expanded. A list without runs is as long as it is.
std::size_t expandedSize(const std::vector<XMPlExtRef>& refs) {
  std::uint64_t bytes = 0;
  std::int64_t entries = 0;
  bool hasRuns = false;
  for (const XMPlExtRef& ref : refs) {
    std::int64_t files = 1;
    std::size_t name = ref.instanceID.size();
    if (isRun(ref.instanceID)) {
      const Run run = parsedRun(ref.instanceID);
      hasRuns = true;
      files = run.files();
      name = run.longestName();
    }
    entries += files;
    bytes += storedBytes(files, name, ref);
    if (hasRuns && bytes > xmpl::limits::kTextBytes) {
      throw std::length_error("external references: runs too long for a packet");
    }
  }
  return static_cast<std::size_t>(entries);
}

void appendFiles(const XMPlExtRef& ref, std::vector<XMPlExtRef>& list) {
  const Run run = parsedRun(ref.instanceID);
  const std::string prefix = std::string(kFileScheme) + std::string(run.prefix);
  for (std::int64_t number = run.first; number <= run.last; ++number) {
    XMPlExtRef file;
    file.instanceID = prefix + padded(number, run.width) + std::string(run.extension);
    file.renditionClass = ref.renditionClass;
    file.pagenr = 0;
    file.type = ref.type;
    file.count = 1;
    list.push_back(std::move(file));
  }
}

}  // namespace

std::vector<XMPlExtRef> XMPlib::SimplifyExtRefs(const std::vector<XMPlExtRef>& refs) const {
  std::vector<XMPlExtRef> list;
  std::vector<Group> groups;
  std::map<std::tuple<std::string_view, std::string_view, std::size_t>, std::size_t> groupOf;
  for (const XMPlExtRef& ref : refs) {
    const std::optional<NumberedName> name = numberedImage(ref);
    if (!name) {
      list.push_back(ref);
      continue;
    }
    const auto [entry, isNew] =
        groupOf.try_emplace({name->prefix, name->extension, name->digits.size()}, groups.size());
    if (isNew) groups.push_back({&ref, *name, {}});
    groups[entry->second].numbers.push_back(name->number());
  }
  RunBudget budget(refs);
  for (Group& group : groups) appendRuns(group, budget, list);
  return list;
}

std::vector<XMPlExtRef> XMPlib::ExpandExtRefs(const std::vector<XMPlExtRef>& refs) const {
  std::vector<XMPlExtRef> list;
  list.reserve(expandedSize(refs));
  for (const XMPlExtRef& ref : refs) {
    if (isRun(ref.instanceID)) {
      appendFiles(ref, list);
    } else {
      list.push_back(ref);
    }
  }
  return list;
}
