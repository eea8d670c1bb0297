// SPDX-License-Identifier: Apache-2.0
// Stored texts that stand for something else: numbers, dates, languages, units.
#include <fmt/format.h>
#include <algorithm>
#include <string_view>

#include "checks/packet_checks.h"
#include "checks/packet_numbers.h"
#include "checks/packet_reading.h"
#include "checks/packet_typed_fields.h"

namespace vxmeta {
namespace {

// Pages and films share properties: a path of a page, or as the film has it where there is no page.
std::string pathIn(const StoredProperties& stored, const std::string& path) {
  constexpr std::string_view kPage = "page";
  const bool isFilm =
      stored.property("vxGr:vresolution") != nullptr && stored.property("vxGr:vshrink") == nullptr;
  return isFilm && path.starts_with(kPage) ? "film.dimensions" + path.substr(kPage.size()) : path;
}

// --- Numbers and truth values -------------------------------------------------------------------

void checkValue(const StoredNode& stored, ValueKind kind, const std::string& path,
                Findings& found) {
  const bool isText = stored.form == StoredNode::Form::text;
  if (isText && isValue(kind, stored.text)) return;
  const std::string value = isText ? quoted(stored.text) : valueText(stored);
  found.add(
      path,
      fmt::format("{} is stored as {}, which is no {}: nothing is read from it, or not what was "
                  "meant",
                  path, value, nameOf(kind)),
      "write the value anew; numbers have a decimal point, truth values are True or False");
}

void checkFields(const StoredNode& item, std::span<const TypedField> fields,
                 const std::string& path, Findings& found) {
  for (const TypedField& field : fields) {
    const StoredNode* stored = item.field(field.stored);
    if (stored == nullptr) continue;
    const StoredNode* type = item.field("vxSRRep:type");
    const bool isIgnored =
        field.onlyOfType != nullptr && (type == nullptr || type->text != field.onlyOfType);
    if (!isIgnored) checkValue(*stored, field.kind, path + '.' + field.name, found);
  }
}

void checkItems(const std::vector<StoredNode>& items, std::span<const TypedField> fields,
                const std::string& list, Findings& found) {
  for (std::size_t i = 0; i < items.size(); ++i) {
    checkFields(items[i], fields, indexed(list.c_str(), i), found);
  }
}

void checkScreens(const StoredProperties& stored, Findings& found) {
  const auto& groups = itemsOf(stored.property("vxScreenC:screenContainer"));
  if (groups.empty()) {  // the older layout reads as one group
    checkItems(itemsOf(stored.property("vxScreenL:screens")), typedScreenFields(), "screens[0]",
               found);
  }
  for (std::size_t i = 0; i < groups.size(); ++i) {
    checkItems(itemsOf(groups[i].field("vxScreenL:screens")), typedScreenFields(),
               indexed("screens", i), found);
  }
}

void checkInkNumbers(const StoredProperties& stored, Findings& found) {
  const auto& ranges = itemsOf(stored.property("vxPagL:pagelist"));
  for (std::size_t i = 0; i < ranges.size(); ++i) {
    const auto& inks = itemsOf(ranges[i].field("vxPag:inks"));
    const std::string path = indexed("pageRanges", i) + ".inks";
    for (std::size_t j = 0; j < inks.size(); ++j) {
      checkValue(inks[j], ValueKind::integer, indexed(path.c_str(), j), found);
    }
  }
}

void checkValues(const Subject& subject, Findings& found) {
  const StoredProperties& stored = subject.stored();
  for (const TypedProperty& row : typedProperties()) {
    const StoredNode* value = stored.property(row.stored);
    if (value != nullptr) checkValue(*value, row.kind, pathIn(stored, row.path), found);
  }
  for (const TypedList& list : typedLists()) {
    const std::string path =
        list.path == std::string("inks") ? inksPath(subject.packet) : list.path;
    checkItems(itemsOf(stored.property(list.stored)), list.fields, path, found);
  }
  checkScreens(stored, found);
  checkInkNumbers(stored, found);
}

// --- Dates --------------------------------------------------------------------------------------

struct Named {
  const char* stored;
  const char* path;
};

void checkDates(const Subject& subject, Findings& found) {
  constexpr Named kDates[] = {
      {"xmp:CreateDate", "document.createDate"},
      {"xmp:ModifyDate", "document.modifyDate"},
      {"xmp:MetadataDate", "document.metadataDate"},
      {"stVer:modifyDate", "version.modifyDate"},
  };
  for (const Named& row : kDates) {
    const StoredNode* date = subject.stored().property(row.stored);
    if (date == nullptr || date->text.empty() || isDate(date->text)) continue;
    found.add(row.path,
              fmt::format("{} is {}, which is no date: programs that sort or compare by it fail, "
                          "or take another",
                          row.stored, quoted(date->text)),
              "write it in the form 2026-11-20T16:05:00+01:00; parts may be left out at its end");
  }
}

// --- Languages ----------------------------------------------------------------------------------

bool isDefault(const StoredNode& item) { return item.language == "x-default"; }

void checkLanguages(const Subject& subject, Findings& found) {
  constexpr Named kAlternatives[] = {
      {"dc:title", "pdfData.title"},
      {"dc:description", "document.description"},
      {"dc:rights", "dc:rights"},
      {"xmpRights:UsageTerms", "xmpRights:UsageTerms"},
  };
  for (const Named& row : kAlternatives) {
    const auto& items = itemsOf(subject.stored().property(row.stored));
    if (items.empty() || std::any_of(items.begin(), items.end(), isDefault)) continue;
    found.add(row.path,
              fmt::format("{} has texts in {} and none by default: programs show another one, or "
                          "none",
                          row.stored, counted(items.size(), "language")),
              "add the item x-default");
  }
}

// --- Units --------------------------------------------------------------------------------------

void checkUnits(const Subject& subject, Findings& found) {
  constexpr const char* kUnits[] = {"mm", "cm", "m", "in", "inch", "pt", "px"};
  const StoredNode* unit = subject.stored().property("vxGr:units");
  if (unit == nullptr) return;
  const auto isIt = [&](const char* word) { return unit->text == word; };
  if (std::any_of(std::begin(kUnits), std::end(kUnits), isIt)) return;
  found.add(pathIn(subject.stored(), "page.units"),
            fmt::format("the lengths are in {}, a word that other programs may not know",
                        quoted(unit->text)),
            "use mm, cm, m, in, inch, pt or px");
}

}  // namespace

std::vector<Check> packetValueChecks() {
  return {
      {"value-invalid", Severity::error, "a number or truth value is stored as something else",
       checkValues},
      {"date-invalid", Severity::error, "a date is stored as something else", checkDates},
      {"language-default", Severity::warning,
       "a text in several languages has none that counts by default", checkLanguages},
      {"unit-unknown", Severity::note, "lengths are in a unit that is none of the usual ones",
       checkUnits},
  };
}

}  // namespace vxmeta
