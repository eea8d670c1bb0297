// SPDX-License-Identifier: Apache-2.0
// Tables of the page.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "model/type.h"
#include "report/html.h"
#include "report/place.h"

namespace vxmeta {

struct ReportColumn {
  std::string label;
  std::string help;  // shown when the pointer rests on the label
  bool isNumeric = false;
};

struct ReportRow {
  std::string id;             // "": none
  std::vector<Markup> cells;  // one for each column; the first names the row
};

struct ReportTable {
  std::string caption;
  std::vector<ReportColumn> columns;
  std::vector<ReportRow> rows;
};

// The table. Of a long one the first rows show, the others unfold; columns without content are left
// out.
Markup tableMarkup(ReportTable table);

// A patch of the colour, "#rrggbb"; "" is an unknown one.
Markup swatch(const std::string& colour);

// A field's value; empty also where it is not valid.
Markup fieldMarkup(const View& record, const Field& field);

// A field's name for people.
std::string labelOf(const Field& field);

// The records of a list, a field a column, each row under its path.
ReportTable recordTable(std::string_view path, std::string_view caption, const View& list,
                        Place& place);

// The fields of a record that say something, names and values, each under its path. Records and
// lists in it are left out.
Markup definitions(std::string_view path, const View& record, Place& place);

// Definitions in a frame, under a title; nothing where there are none.
Markup card(std::string_view title, const Markup& content);

// "1 ink", "2 inks".
std::string counted(std::size_t count, std::string_view one, std::string_view many = "");

}  // namespace vxmeta
