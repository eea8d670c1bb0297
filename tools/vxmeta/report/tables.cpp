// SPDX-License-Identifier: Apache-2.0
#include "report/tables.h"

#include <fmt/format.h>

#include <algorithm>

#include "text/cells.h"

namespace vxmeta {
namespace {

constexpr std::size_t kLong = 40;   // rows that a table may have unfolded
constexpr std::size_t kFirst = 24;  // rows of a longer one that show
constexpr std::size_t kMany = 6;    // columns that have room on paper

const char* styleOf(const ReportColumn& column) { return column.isNumeric ? "number" : ""; }

bool isBlank(const ReportTable& table, std::size_t column) {
  return std::all_of(table.rows.begin(), table.rows.end(),
                     [&](const ReportRow& row) { return row.cells[column].empty(); });
}

void dropBlankColumns(ReportTable& table) {
  for (std::size_t i = table.columns.size(); i-- > 1;) {
    if (!isBlank(table, i)) continue;
    const auto at = static_cast<std::ptrdiff_t>(i);
    table.columns.erase(table.columns.begin() + at);
    for (ReportRow& row : table.rows) row.cells.erase(row.cells.begin() + at);
  }
}

Markup headOf(const ReportTable& table) {
  Markup cells;
  for (const ReportColumn& column : table.columns) {
    cells += element("th", {{"scope", "col"}, {"class", styleOf(column)}, {"title", column.help}},
                     plain(column.label));
  }
  return element("thead", element("tr", cells));
}

Markup rowOf(const ReportTable& table, const ReportRow& row) {
  Markup cells;
  for (std::size_t i = 0; i < row.cells.size(); ++i) {
    const char* style = styleOf(table.columns[i]);
    cells += i == 0 ? element("th", {{"scope", "row"}, {"class", style}}, row.cells[i])
                    : element("td", {{"class", style}}, row.cells[i]);
  }
  return element("tr", {{"id", row.id}}, cells);
}

// What is wider than a narrow page scrolls in its own frame, with the keyboard too.
Markup rowsOf(const ReportTable& table, std::size_t first, std::size_t last) {
  Markup rows;
  for (std::size_t i = first; i < last; ++i) rows += rowOf(table, table.rows[i]);
  const Markup caption = element("caption", plain(table.caption));
  const char* const width = table.columns.size() > kMany ? "wide" : "";
  return element(
      "div",
      {{"class", "scroll"}, {"role", "region"}, {"tabindex", "0"}, {"aria-label", table.caption}},
      element("table", {{"class", width}}, caption + headOf(table) + element("tbody", rows)));
}

bool isNumeric(const Type& type) {
  if (type.kind == Kind::optional) return isNumeric(*type.item);
  return type.kind == Kind::integer || type.kind == Kind::longInteger || type.kind == Kind::real;
}

bool isSimple(const Type& type) {
  if (type.kind == Kind::record) return false;
  const bool isContainer = type.kind == Kind::list || type.kind == Kind::optional;
  return !isContainer || isSimple(*type.item);
}

bool isShown(const Type& record, const Field& field) {
  return field.isStored && isSimple(*field.type) && !isFlag(record, field);
}

// The columns of a record: colours are swatches, in the place of their first part.
std::vector<const Field*> columnsOf(const Type& record) {
  std::vector<const Field*> fields;
  for (const Field& field : record.fields) {
    const bool isColour = hasColour(record) && field.name.size() == 1;
    if (isShown(record, field) && !(isColour && field.name != "r")) fields.push_back(&field);
  }
  return fields;
}

// What names the records stands first.
void putKeyFirst(std::vector<const Field*>& fields, const Field* key) {
  const auto at = std::find(fields.begin(), fields.end(), key);
  if (at != fields.end()) std::rotate(fields.begin(), at, at + 1);
}

std::string unitOf(const View& record, const Field& field) {
  if (field.unitField.empty()) return std::string(field.unit);
  return record.field(field.unitField).text();
}

Markup colourMarkup(const View& record, double scale) {
  const Cell cell = colourCell(record, scale);
  return cell.swatch ? swatch(cell.text) + plain(" " + cell.text) : plain(cell.text);
}

ReportRow rowOfRecord(const View& record, const std::vector<const Field*>& fields, double scale) {
  ReportRow row;
  for (const Field* field : fields) {
    const bool isColour = hasColour(*record.type) && field->name == "r";
    row.cells.push_back(isColour ? colourMarkup(record, scale) : fieldMarkup(record, *field));
  }
  return row;
}

}  // namespace

Markup swatch(const std::string& colour) {
  const bool isKnown = !colour.empty();
  return element("span", {{"class", isKnown ? "swatch" : "swatch unknown"},
                          {"style", isKnown ? "background:" + colour : ""}});
}

Markup tableMarkup(ReportTable table) {
  if (table.rows.empty()) return {};
  dropBlankColumns(table);
  const std::size_t all = table.rows.size();
  if (all <= kLong) return rowsOf(table, 0, all);
  const Markup summary = element("summary", plain(fmt::format("{} more of {}", all - kFirst, all)));
  return rowsOf(table, 0, kFirst) + element("details", summary + rowsOf(table, kFirst, all));
}

Markup fieldMarkup(const View& record, const Field& field) {
  const std::string shown = shownField(record, field);
  if (shown.empty()) return {};
  const View held = record.field(field).present();
  return held.is(Kind::text) ? value(held.text()) : plain(shown);
}

ReportTable recordTable(std::string_view path, std::string_view caption, const View& list,
                        Place& place) {
  const Type& record = *list.type->item;
  std::vector<const Field*> fields = columnsOf(record);
  putKeyFirst(fields, record.key());
  ReportTable table{std::string(caption), {}, {}};
  for (const Field* field : fields) {
    const bool isColour = hasColour(record) && field->name == "r";
    table.columns.push_back({isColour ? "colour" : labelOf(*field), std::string(field->help),
                             !isColour && isNumeric(*field->type)});
  }
  const double scale = hasColour(record) ? colourScale(list) : 1;
  for (std::size_t i = 0; i < list.size(); ++i) {
    table.rows.push_back(rowOfRecord(list.item(i), fields, scale));
    table.rows.back().id = place.mark(fmt::format("{}[{}]", path, i));
  }
  return table;
}

Markup definitions(std::string_view path, const View& record, Place& place) {
  Markup all;
  for (const Field& field : record.type->fields) {
    if (!isShown(*record.type, field) || field.name == "units") continue;
    const Markup content = fieldMarkup(record, field);
    if (content.empty()) continue;
    const std::string unit = unitOf(record, field);
    all += element("dt",
                   {{"id", place.mark(fmt::format("{}.{}", path, field.name))},
                    {"title", std::string(field.help)}},
                   plain(labelOf(field))) +
           element("dd", content + (unit.empty() ? Markup{} : plain(" ") + value(unit)));
  }
  return all.empty() ? all : element("dl", all);
}

Markup card(std::string_view title, const Markup& content) {
  if (content.empty()) return {};
  return element("div", {{"class", "card"}},
                 element("p", {{"class", "cardtitle"}}, plain(title)) + content);
}

std::string counted(std::size_t count, std::string_view one, std::string_view many) {
  if (count == 1) return fmt::format("1 {}", one);
  return many.empty() ? fmt::format("{} {}s", count, one) : fmt::format("{} {}", count, many);
}

}  // namespace vxmeta
