// SPDX-License-Identifier: Apache-2.0
#include "model/write_document.h"

#include <XMP_Const.h>
#include <fmt/format.h>

#include <algorithm>
#include <limits>
#include <nlohmann/json.hpp>

#include "model/compare.h"
#include "model/json.h"
#include "model/losses.h"
#include "model/place.h"
#include "model/read_document.h"
#include "model/units.h"

namespace vxmeta {
namespace {

using Units = std::vector<const Unit*>;

bool isIn(std::string_view path, std::string_view part) {
  return part.starts_with(path) &&
         (part.size() == path.size() || part[path.size()] == '.' || part[path.size()] == '[');
}

// --- What is to be written
// ------------------------------------------------------------------------

// The list of inks is stored once: where the other section has it, this one is not deleted.
bool isOtherInks(const Unit& unit, const Document& after) {
  if (unit.path == "inks") return after.film && after.film->inks;
  return unit.path == "film.inks" && after.inks;
}

bool isChanged(const Unit& unit, const Edit& edit) {
  const std::optional<View> before = valueOf(edit.before, unit);
  const std::optional<View> after = valueOf(edit.after, unit);
  if (!before || !after) return before.has_value() != after.has_value();
  return !isSame(*before, *after);
}

Units changedUnits(const Edit& edit) {
  Units changed;
  for (const Unit& unit : units()) {
    if (!isChanged(unit, edit)) continue;
    const bool isAbsent = !valueOf(edit.after, unit);
    if (isAbsent && isOtherInks(unit, edit.after)) continue;
    if (isAbsent && unit.absence == Absence::refused) {
      throw EditError(std::string(unit.path), "cannot be deleted, only be changed");
    }
    changed.push_back(&unit);
  }
  return changed;
}

// --- What can be stored
// ---------------------------------------------------------------------------

void requireWord(const View& value, const Field& field, const std::string& path) {
  const auto& words = field.words;
  if (words.empty() || std::find(words.begin(), words.end(), value.text()) != words.end()) return;
  throw EditError(path, fmt::format("'{}' is none of {}", value.text(), fmt::join(words, ", ")));
}

void validate(const View& value, const std::string& path) {
  if (value.is(Kind::record)) {
    for (const Field& field : value.type->fields) {
      const std::string place = fmt::format("{}.{}", path, field.name);
      if (value.field(field).is(Kind::text)) requireWord(value.field(field), field, place);
      validate(value.field(field), place);
    }
  }
  if (value.is(Kind::list)) {
    for (std::size_t i = 0; i < value.size(); ++i) {
      validate(value.item(i), fmt::format("{}[{}]", path, i));
    }
  }
  using Stored = std::numeric_limits<std::int32_t>;
  if (!value.is(Kind::longInteger)) return;
  if (value.integer() >= Stored::min() && value.integer() <= Stored::max()) return;
  throw EditError(path, fmt::format("{} is out of range", value.integer()));
}

// --- Writing
// --------------------------------------------------------------------------------------

std::string errorOf(const Unit& unit, const Edit& edit, XMPlib& xmp) {
  try {
    const bool isDone = unit.write(xmp, edit.before, edit.after);
    return isDone || !xmp.ErrStr().empty() ? xmp.ErrStr() : "it cannot be written";
  } catch (const XMP_Error& error) {
    return error.GetErrMsg();
  }
}

void write(const Units& changed, const Edit& edit, XMPlib& xmp, Writing& writing) {
  for (const Unit* unit : changed) {
    const std::string error = errorOf(*unit, edit, xmp);
    if (!error.empty()) throw EditError(std::string(unit->path), error);
    writing.written.emplace_back(unit->path);
  }
}

// --- What reads back
// ------------------------------------------------------------------------------

// Texts that say what to do, as they are to read afterwards.
void settleThreeWay(const Unit& unit, const Document& result, Document& intended) {
  const std::optional<View> read = valueOf(result, unit);
  const Place record = placeAt(placeOf(intended), parsePath(unit.path, typeOf<Document>())).made();
  for (const Field& field : record.type->fields) {
    auto& text = *static_cast<std::string*>(field.slot(record.value));
    if (text == kErase) text.clear();
    if (text == "now" && field.isDateOrId) text = read->field(field).text();
  }
}

std::string sentenceOf(const Change& change) {
  const auto shown = [](const View& value) {
    constexpr std::size_t kLongest = 120;
    const std::string text = value.type == nullptr ? "nothing" : jsonText(toJson(value), false);
    return text.size() <= kLongest ? text : text.substr(0, kLongest) + "...";
  };
  if (change.way == Change::Way::moved) return change.path + " reads back in another order";
  return fmt::format("{} reads back as {}, not as {}", change.path, shown(change.after),
                     shown(change.before));
}

bool hasOtherSize(const Unit& unit, const Document& intended, const Document& result) {
  const std::optional<View> wanted = valueOf(intended, unit);
  const std::optional<View> read = valueOf(result, unit);
  if (typeOf(unit).kind != Kind::list || !wanted) return false;
  return wanted->size() != (read ? read->size() : 0);
}

// What an item lacks would hide it, and all behind it: that is no way to store a list.
void requireItems(const Unit& unit, const Document& intended, const Document& result) {
  if (!unit.asymmetry.empty() && unit.path != "screens") return;
  if (!hasOtherSize(unit, intended, result)) return;
  const std::optional<View> read = valueOf(result, unit);
  throw EditError(std::string(unit.path),
                  fmt::format("would read back with {} items instead of {}",
                              read ? read->size() : 0, valueOf(intended, unit)->size()));
}

// An absent record and one of empty texts are the same where a text is deleted by being empty.
bool isAsIntended(const Unit& unit, const Document& intended, const Document& result) {
  const std::optional<View> wanted = valueOf(intended, unit);
  const std::optional<View> read = valueOf(result, unit);
  return wanted && read && isSame(*wanted, *read);
}

void noteDifferences(const Unit& unit, const std::vector<Change>& changes, Writing& writing) {
  constexpr std::size_t kMost = 3;
  std::size_t count = 0;
  for (const Change& change : changes) {
    const bool isOf = isIn(unit.path, change.path) || isIn(change.path, unit.path);
    if (isOf && ++count <= kMost) writing.notes.push_back(sentenceOf(change));
  }
  if (count > kMost) {
    writing.notes.push_back(
        fmt::format("{}: {} more values read back otherwise", unit.path, count - kMost));
  }
  if (count > 0 && !unit.asymmetry.empty()) {
    writing.notes.push_back(fmt::format("{}: {}", unit.path, unit.asymmetry));
  }
}

void readBack(const Units& changed, const Edit& edit, const XMPlib& xmp, Writing& writing) {
  writing.result = readDocument(xmp, {});
  Document intended = edit.after;
  for (const Unit* unit : changed) {
    if (unit->absence == Absence::threeWay) settleThreeWay(*unit, writing.result, intended);
    requireItems(*unit, intended, writing.result);
  }
  const std::vector<Change> changes = compare(intended, writing.result, false);
  for (const Unit* unit : changed) {
    if (!isAsIntended(*unit, intended, writing.result)) noteDifferences(*unit, changes, writing);
  }
}

}  // namespace

std::string lossesInWords(const std::vector<Loss>& losses) {
  constexpr std::size_t kMost = 8;
  std::vector<std::string> words;
  for (std::size_t i = 0; i < std::min(kMost, losses.size()); ++i) words.push_back(losses[i].what);
  if (losses.size() > kMost) words.push_back(fmt::format("{} more", losses.size() - kMost));
  return fmt::format("{}", fmt::join(words, "; "));
}

Writing writeDocument(const Edit& edit, bool force, XMPlib& xmp) {
  const Units changed = changedUnits(edit);
  std::vector<Loss> losses;
  for (const Unit* unit : changed) {
    if (const auto value = valueOf(edit.after, *unit)) validate(*value, std::string(unit->path));
    const std::vector<Loss> its = lossesOf(*unit, edit);
    losses.insert(losses.end(), its.begin(), its.end());
  }
  const std::string words = lossesInWords(losses);
  if (!losses.empty() && !force) throw LossError(words);
  Writing writing;
  write(changed, edit, xmp, writing);
  if (!losses.empty()) writing.notes.push_back("lost: " + words);
  if (changed.empty()) return writing.result = edit.before, writing;
  readBack(changed, edit, xmp, writing);
  return writing;
}

}  // namespace vxmeta
