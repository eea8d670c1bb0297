// Compaction and expansion of numbered images, against plain models of both.
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

// Takes the name apart from its end.
std::optional<Image> imageIn(const XMPlExtRef& ref) {
  const std::string& name = ref.instanceID;
  const std::size_t dot = name.rfind('.');
  if (ref.type != "image" || ref.pagenr != 0 || dot == name.npos) return {};
  std::size_t first = dot;
  while (first > 0 && name[first - 1] >= '0' && name[first - 1] <= '9') --first;
  const auto digits = static_cast<int>(dot - first);
  if (digits < 3 || digits > 9 || first == 0 || name.rfind('_') != first - 1) return {};
  return Image{{name.substr(0, first), name.substr(dot), digits}, std::atoi(&name[first])};
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

std::multiset<std::string> namesIn(const Refs& refs) {
  std::multiset<std::string> names;
  for (const XMPlExtRef& ref : refs) {
    names.insert(ref.instanceID.substr(ref.instanceID.starts_with("file:") ? 5 : 0));
  }
  return names;
}

// Whether a run of such names can be read: its marks must not be in their extension.
bool comesBack(const XMPlExtRef& ref) {
  const std::optional<Image> image = imageIn(ref);
  return image && !isRun(ref.instanceID) &&
         std::get<1>(image->group).find_first_of("*#") == std::string::npos;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const XMPlib xmp;
  Refs refs;
  Fields input(textOf(data, size));
  take(input, refs);
  expect(isSame(xmp.SimplifyExtRefs(refs), simplified(refs)), "the runs of the model");

  const std::int64_t files = filesIn(refs);
  const auto list =
      attempt<std::logic_error>([&] { return isSlow(files) ? Refs() : xmp.ExpandExtRefs(refs); });
  if (list && !isSlow(files))
    expect(isSame(*list, expanded(refs).value()), "the files of the model");
  expect(list || files > 10'000 || !expanded(refs), "only bad and endless runs are refused");

  std::erase_if(refs, [](const XMPlExtRef& ref) { return !comesBack(ref); });
  const Refs back = xmp.ExpandExtRefs(xmp.SimplifyExtRefs(refs));
  expect(namesIn(back) == namesIn(refs), "numbered images come back");
  return 0;
}
