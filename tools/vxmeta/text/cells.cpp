// SPDX-License-Identifier: Apache-2.0
#include "text/cells.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace vxmeta {
namespace {

constexpr std::array<std::string_view, 3> kColour = {"r", "g", "b"};

bool isColourPart(const Field& field) {
  return std::find(kColour.begin(), kColour.end(), field.name) != kColour.end();
}

bool isUnknown(const View& value, const Field& field) {
  return field.unknown && value.isNumber() && value.number() == *field.unknown;
}

std::string shownList(const View& list) {
  std::string shown;
  for (std::size_t i = 0; i < list.size(); ++i) {
    shown += (i == 0 ? "" : " ") + shownValue(list.item(i));
  }
  return shown;
}

std::string headingOf(const Field& field) {
  std::string heading(field.name);
  if (!field.unit.empty()) heading += " " + std::string(field.unit);
  return heading;
}

bool isNumeric(const Type& type) {
  if (type.kind == Kind::optional) return isNumeric(*type.item);
  return type.kind == Kind::integer || type.kind == Kind::longInteger || type.kind == Kind::real;
}

bool isColumn(const Type& record, const Field& field, bool isSummary) {
  return field.isStored && !(isSummary && field.isDetail) && !isFlag(record, field) &&
         !(hasColour(record) && isColourPart(field) && field.name != kColour[0]);
}

std::vector<Cell> cellsOf(const View& record, std::size_t index, double scale, bool isSummary) {
  std::vector<Cell> cells = {{std::to_string(index), {}}};
  for (const Field& field : record.type->fields) {
    if (!isColumn(*record.type, field, isSummary)) continue;
    const bool isColour = hasColour(*record.type) && isColourPart(field);
    cells.push_back(isColour ? colourCell(record, scale) : Cell{shownField(record, field), {}});
  }
  return cells;
}

}  // namespace

std::string shownValue(const View& value) {
  switch (value.type->kind) {
    case Kind::text:
      return visible(value.text());
    case Kind::truth:
      return value.truth() ? "yes" : "no";
    case Kind::real:
      return fmt::format("{}", value.real());
    case Kind::list:
      return shownList(value);
    case Kind::optional:
      return value.size() == 0 ? "" : shownValue(value.item(0));
    case Kind::record:
      return "";
    default:
      return std::to_string(value.integer());
  }
}

std::string shownField(const View& record, const Field& field) {
  const View value = record.field(field).present();
  if (value.type == nullptr || !isValid(record, field) || isUnknown(value, field)) return "";
  return shownValue(value);
}

std::string shownWithUnit(const View& record, const Field& field) {
  std::string value = shownField(record, field);
  if (value.empty()) return value;
  const std::string unit =
      field.unitField.empty() ? std::string(field.unit) : shownValue(record.field(field.unitField));
  return unit.empty() ? value : value + " " + unit;
}

std::string shortOf(const View& value) {
  if (value.is(Kind::list) && value.type->item->kind >= Kind::record) {
    return fmt::format("{} item{}", value.size(), value.size() == 1 ? "" : "s");
  }
  if (!value.is(Kind::record)) {
    const std::string shown = shownValue(value);
    return shown.empty() ? "\"\"" : shown;
  }
  std::string shown;
  for (const Field& field : value.type->fields) {
    const bool isLeftOut = !field.isStored || isFlag(*value.type, field) ||
                           isSame(value.field(field), View::defaultOf(*value.type, field));
    const std::string text = isLeftOut ? "" : shownWithUnit(value, field);
    if (!text.empty())
      shown += fmt::format("{}{} {}", shown.empty() ? "" : " · ", field.name, text);
  }
  return shown;
}

bool hasColour(const Type& record) {
  return record.kind == Kind::record &&
         std::all_of(kColour.begin(), kColour.end(),
                     [&](std::string_view name) { return record.field(name) != nullptr; });
}

double colourScale(const View& inks) {
  for (std::size_t i = 0; i < inks.size(); ++i) {
    for (const std::string_view part : kColour) {
      if (inks.item(i).field(part).real() > 1) return 1;
    }
  }
  return 255;
}

Cell colourCell(const View& ink, double scale) {
  std::array<double, 3> parts{};
  std::transform(kColour.begin(), kColour.end(), parts.begin(),
                 [&](std::string_view name) { return std::round(ink.field(name).real() * scale); });
  const bool isColour =
      std::all_of(parts.begin(), parts.end(), [](double part) { return part >= 0 && part <= 255; });
  if (!isColour) {
    return {fmt::format("{} {} {}", ink.field("r").real(), ink.field("g").real(),
                        ink.field("b").real()),
            {}};
  }
  const auto byte = [](double part) { return static_cast<std::uint8_t>(part); };
  const Rgb rgb{byte(parts[0]), byte(parts[1]), byte(parts[2])};
  return {fmt::format("#{:02x}{:02x}{:02x}", rgb.r, rgb.g, rgb.b), rgb};
}

Table tableOf(const View& list, bool isSummary) {
  const Type& record = *list.type->item;
  Table table;
  table.columns.push_back({"", true});
  for (const Field& field : record.fields) {
    if (!isColumn(record, field, isSummary)) continue;
    const bool isColour = hasColour(record) && isColourPart(field);
    table.columns.push_back(isColour ? Column{"colour", false}
                                     : Column{headingOf(field), isNumeric(*field.type)});
  }
  const double scale = hasColour(record) ? colourScale(list) : 1;
  for (std::size_t i = 0; i < list.size(); ++i) {
    table.rows.push_back(cellsOf(list.item(i), i, scale, isSummary));
  }
  return table;
}

}  // namespace vxmeta
