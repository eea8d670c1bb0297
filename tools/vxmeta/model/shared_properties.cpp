// SPDX-License-Identifier: Apache-2.0
// Properties that stand in two sections of a document.
#include <fmt/format.h>

#include "model/edit.h"
#include "model/place.h"
#include "model/sections.h"

namespace vxmeta {
namespace {

struct Pair {
  std::string one;
  std::string other;
};

std::vector<Pair> sharedPlaces() {
  std::vector<Pair> pairs;
  const auto places = storedPlaces();
  for (std::size_t i = 1; i < places.size(); ++i) {
    if (places[i].path != places[i - 1].path) continue;
    pairs.push_back({places[i - 1].documentPath(), places[i].documentPath()});
  }
  return pairs;
}

std::optional<View> valueIn(const Document& document, std::string_view path) {
  return valueAt(viewOf(document), parsePath(path, typeOf<Document>()));
}

bool isGiven(const Edit& edit, std::string_view path) { return edit.given.contains(path); }

// Margins that are not valid are no second value.
bool isShared(const Edit& edit, const Pair& pair) {
  const auto& film = edit.after.film;
  const bool isMargin = pair.one.find(".marg") != std::string::npos;
  return !isMargin || (film && film->dimensions && film->dimensions->hasMargins);
}

void copyValue(Document& document, std::string_view from, std::string_view to) {
  const View value = *valueIn(document, from);
  const Place place = placeAt(placeOf(document), parsePath(to, typeOf<Document>())).made();
  if (value.is(Kind::text)) *static_cast<std::string*>(place.value) = value.text();
  if (value.is(Kind::real)) *static_cast<double*>(place.value) = value.real();
  if (value.is(Kind::integer)) {
    *static_cast<std::int32_t*>(place.value) = static_cast<std::int32_t>(value.integer());
  }
}

void settle(Edit& edit, const Pair& pair) {
  const auto one = valueIn(edit.after, pair.one);
  const auto other = valueIn(edit.after, pair.other);
  if (!one || !other || isSame(*one, *other) || !isShared(edit, pair)) return;
  const bool isOneGiven = isGiven(edit, pair.one);
  if (isOneGiven && isGiven(edit, pair.other)) {
    throw EditError(std::string(pair.one),
                    fmt::format("is the same property as {}, and has another value", pair.other));
  }
  const bool isOneStored = valueIn(edit.before, pair.one).has_value();
  const bool isOther = isGiven(edit, pair.other) || (!isOneGiven && !isOneStored);
  copyValue(edit.after, isOther ? pair.other : pair.one, isOther ? pair.one : pair.other);
}

// One list of inks is stored. An empty one that nobody gave makes room.
void settleInks(Edit& edit) {
  if (!edit.after.inks || !edit.after.film || !edit.after.film->inks) return;
  if (!isGiven(edit, "inks") && edit.after.inks->empty()) return edit.after.inks.reset();
  if (!isGiven(edit, "film.inks") && edit.after.film->inks->empty()) {
    return edit.after.film->inks.reset();
  }
  throw EditError(
      "film.inks",
      "is the same property as inks: a document has one of the two, and where the other "
      "is to go it has to be given as null");
}

}  // namespace

void settleSharedProperties(Edit& edit) {
  for (const Pair& pair : sharedPlaces()) settle(edit, pair);
  settleInks(edit);
}

}  // namespace vxmeta
