// Compaction and expansion of numbered images, against plain models of both.
#include <set>

#include "target.h"

namespace {

using Refs = std::vector<XMPlExtRef>;

// "prefix_" "0123" ".extension", taken apart from the end.
struct Image {
  std::string prefix, extension;
  int digits;
  std::int64_t number;
};

std::optional<Image> imageIn(const XMPlExtRef& ref) {
  const std::string& name = ref.instanceID;
  const std::size_t dot = name.rfind('.');
  if (ref.type != "image" || ref.pagenr != 0 || dot == name.npos) return {};
  std::size_t first = dot;
  while (first > 0 && name[first - 1] >= '0' && name[first - 1] <= '9') --first;
  const auto digits = static_cast<int>(dot - first);
  if (digits < 3 || digits > 9 || first == 0 || name.rfind('_') != first - 1) return {};
  return Image{name.substr(0, first), name.substr(dot), digits, std::atoi(&name[first])};
}

std::string padded(std::int64_t number, int width) {
  std::string text(static_cast<std::size_t>(width) + 32, ' ');
  text.resize(static_cast<std::size_t>(
      std::snprintf(text.data(), text.size(), "%0*d", width, static_cast<int>(number))));
  return text;
}

// A run of the image and the `more` that follow it.
std::string runName(const Image& image, std::int64_t more) {
  const std::string first = padded(image.number, image.digits);
  if (more == 0) return image.prefix + first + image.extension;
  const bool isFile = image.prefix.starts_with("file:");
  return "files:" + image.prefix.substr(isFile ? 5 : 0) + "*" + image.extension + "#" + first +
         "-" + padded(image.number + more, image.digits);
}

Refs simplified(const Refs& refs) {
  Refs list;
  std::vector<std::tuple<XMPlExtRef, Image, std::multiset<std::int64_t>>> groups;
  for (const XMPlExtRef& ref : refs) {
    const std::optional<Image> image = imageIn(ref);
    if (!image) {
      list.push_back(ref);
      continue;
    }
    const auto group = std::find_if(groups.begin(), groups.end(), [&](const auto& candidate) {
      const Image& like = std::get<1>(candidate);
      return image->prefix == like.prefix && image->extension == like.extension &&
             image->digits == like.digits;
    });
    if (group == groups.end()) {
      groups.push_back({ref, *image, {image->number}});
    } else {
      std::get<2>(*group).insert(image->number);
    }
  }
  for (auto& [ref, image, numbers] : groups) {
    for (auto number = numbers.begin(); number != numbers.end();) {
      image.number = *number;
      ref.count = 0;
      while (number != numbers.end() && *number == image.number + ref.count) ++number, ++ref.count;
      ref.instanceID = runName(image, ref.count - 1);
      list.push_back(ref);
    }
  }
  return list;
}

// Nothing where a run cannot be read.
std::optional<Refs> expanded(const Refs& refs) {
  Refs list;
  for (const XMPlExtRef& ref : refs) {
    if (!isRun(ref.instanceID)) {
      list.push_back(ref);
      continue;
    }
    const Run run(ref.instanceID);
    if (!run.isWhole) return {};
    for (std::int64_t number = run.first; number <= run.last; ++number) {
      const std::string name = "file:" + run.prefix + padded(number, run.width) + run.extension;
      list.push_back({name, ref.renditionClass, 0, ref.type, 1});
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
         image->extension.find_first_of("*#") == std::string::npos;
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
  expect(list || files > 10'000'000 || !expanded(refs), "only bad and endless runs are refused");

  std::erase_if(refs, [](const XMPlExtRef& ref) { return !comesBack(ref); });
  const Refs back = xmp.ExpandExtRefs(xmp.SimplifyExtRefs(refs));
  expect(namesIn(back) == namesIn(refs), "numbered images come back");
  return 0;
}
