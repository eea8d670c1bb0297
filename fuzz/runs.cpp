// SPDX-License-Identifier: Apache-2.0
// Compaction and expansion of numbered images, against plain models of both.
#include <regex>
#include <set>

#include "target.h"

namespace {

using Refs = std::vector<XMPlExtRef>;

// What the names of a group have in common: prefix, extension, count of digits.
using Group = std::tuple<std::string, std::string, int>;

struct Image {
  Group group;
  std::int64_t number;
};

std::optional<Image> imageIn(const XMPlExtRef& ref) {
  static const std::regex kName(R"(([^]*_)(\d{3,9})(\.[^._]*))");
  std::smatch part;
  const bool isImage = ref.type == "image" && ref.pagenr == 0;
  if (!isImage || !std::regex_match(ref.instanceID, part, kName)) return {};
  return Image{{part[1], part[3], static_cast<int>(part[2].length())}, std::atoi(&*part[2].first)};
}

std::string padded(std::int64_t number, int width) {
  std::string text(static_cast<std::size_t>(width) + 32, ' ');
  const int size = std::snprintf(text.data(), text.size(), "%0*d", width, static_cast<int>(number));
  return text.substr(0, static_cast<std::size_t>(size));
}

std::string runName(const Group& group, std::int64_t first, std::int64_t last) {
  const auto& [prefix, extension, digits] = group;
  if (first == last) return prefix + padded(first, digits) + extension;
  return "files:" + prefix.substr(prefix.starts_with("file:") ? 5 : 0) + "*" + extension + "#" +
         padded(first, digits) + "-" + padded(last, digits);
}

Refs simplified(const Refs& refs) {
  Refs list;
  std::copy_if(refs.begin(), refs.end(), std::back_inserter(list),
               [](const XMPlExtRef& ref) { return !imageIn(ref); });
  std::set<Group> done;
  for (XMPlExtRef ref : refs) {
    const std::optional<Image> image = imageIn(ref);
    if (!image || !done.insert(image->group).second) continue;
    std::multiset<std::int64_t> numbers;
    for (const XMPlExtRef& other : refs) {
      const std::optional<Image> like = imageIn(other);
      if (like && like->group == image->group) numbers.insert(like->number);
    }
    for (auto number = numbers.begin(); number != numbers.end();) {
      const std::int64_t first = *number;
      ref.count = 0;
      while (number != numbers.end() && *number == first + ref.count) ++number, ++ref.count;
      ref.instanceID = runName(image->group, first, first + ref.count - 1);
      list.push_back(ref);
    }
  }
  return list;
}

// Nothing where a run cannot be read.
std::optional<Refs> expanded(const Refs& refs) {
  Refs list;
  for (const XMPlExtRef& ref : refs) {
    const std::string& name = ref.instanceID;
    if (!isRun(name)) {
      list.push_back(ref);
      continue;
    }
    const std::size_t star = name.rfind('*'), hash = name.rfind('#'), dash = name.find('-', hash);
    if (star == name.npos || hash == name.npos || dash == name.npos) return {};
    const std::string digits = name.substr(hash + 1, dash - hash - 1);
    const std::string extension = star < hash ? name.substr(star + 1, hash - star - 1) : "";
    const int last = std::atoi(name.substr(dash + 1).c_str());
    for (std::int64_t number = std::atoi(digits.c_str()); number <= last; ++number) {
      const std::string padding = padded(number, static_cast<int>(digits.size()));
      list.push_back({"file:" + name.substr(6, star - 6) + padding + extension, ref.renditionClass,
                      0, ref.type, 1});
    }
  }
  return list;
}

bool isSame(Refs a, Refs b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](auto& x, auto& y) { return fieldsOf(x) == fieldsOf(y); });
}

void checkExpansion(const Refs& refs) {
  const std::int64_t files = filesIn(refs);
  if (isSlow(files)) return;
  const auto list = attempt<std::logic_error>([&] { return XMPlib().ExpandExtRefs(refs); });
  if (list) expect(isSame(*list, expanded(refs).value()), "the files of the model");
  expect(list || files > 10'000 || !expanded(refs), "only bad and endless runs are refused");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const XMPlib xmp;
  Refs refs;
  Fields input(textOf(data, size));
  take(input, refs);
  expect(isSame(xmp.SimplifyExtRefs(refs), simplified(refs)), "the runs of the model");

  checkExpansion(refs);
  checkExpansion(xmp.SimplifyExtRefs(refs));
  return 0;
}
