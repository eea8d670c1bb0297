// SPDX-License-Identifier: Apache-2.0
#include "model/place.h"

#include <fmt/format.h>

namespace vxmeta {
namespace {

[[noreturn]] void throwNoItem(const View& list, const std::string& wanted) {
  throw PathError(fmt::format("there is no item {}; the list has {}", wanted, list.size()));
}

std::size_t indexOf(const View& list, std::ptrdiff_t index) {
  const auto size = static_cast<std::ptrdiff_t>(list.size());
  const std::ptrdiff_t place = index < 0 ? index + size : index;
  if (place < 0 || place >= size) throwNoItem(list, fmt::format("[{}]", index));
  return static_cast<std::size_t>(place);
}

std::size_t indexOfOnly(const View& list, const Step& step) {
  std::vector<std::size_t> found;
  for (std::size_t i = 0; i < list.size(); ++i) {
    if (matches(list.item(i), step)) found.push_back(i);
  }
  const std::string wanted = fmt::format("[{}={}]", step.name, step.value);
  if (found.empty()) throwNoItem(list, wanted);
  if (found.size() > 1) {
    throw PathError(fmt::format("{} items are {}: choose by index, [{}] is the first", found.size(),
                                wanted, found[0]));
  }
  return found[0];
}

Place stepInto(const Place& from, const Step& step) {
  if (step.way == Step::Way::field) {
    const Field& field = *from.type->field(step.name);
    return {field.type, field.slot(from.value)};
  }
  const View list = from.view();
  const std::size_t index =
      step.way == Step::Way::index ? indexOf(list, step.index) : indexOfOnly(list, step);
  return {from.type->item, from.type->slot(from.value, index)};
}

}  // namespace

Place Place::made() const {
  if (!isOptional()) return *this;
  void* held = type->size(value) == 0 ? type->append(value) : type->slot(value, 0);
  return Place{type->item, held}.made();
}

Place placeAt(const Place& root, const Path& path) {
  Place place = root;
  for (const Step& step : path) place = stepInto(place.made(), step);
  return place;
}

}  // namespace vxmeta
