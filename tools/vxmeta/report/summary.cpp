// SPDX-License-Identifier: Apache-2.0
#include "report/summary.h"

#include <fmt/format.h>

#include <algorithm>
#include <map>

#include "report/colours.h"
#include "report/parts.h"
#include "report/tables.h"

namespace vxmeta {
namespace {

constexpr std::size_t kFilesInTable = 16;  // columns that a sheet of paper has room for

std::string shownName(const Document& document) {
  return document.file == "-" ? "standard input" : document.file;
}

Markup fileCell(const ReportEntry& entry, std::size_t index) {
  const Markup name = value(shownName(entry.document));
  return entry.error.empty() ? link(fmt::format("d{}", index + 1), name) : name;
}

Markup findingsCell(const ReportEntry& entry, std::size_t index) {
  if (!entry.error.empty()) {
    return element("strong", {{"class", "severity error"}}, plain("not read")) + plain(" ") +
           value(entry.error);
  }
  if (entry.findings.empty()) return plain("none");
  return link(fmt::format("d{}-findings", index + 1), plain(countsOf(entry.findings)));
}

Markup pagesCell(const Document& document) {
  const bool isKnown = document.scalars && document.scalars->nrPages;
  return isKnown ? plain(std::to_string(*document.scalars->nrPages)) : Markup{};
}

ReportRow rowOf(const ReportEntry& entry, std::size_t index) {
  const Document& document = entry.document;
  const std::size_t inks = drawnInks(document).size();
  return {"",
          {plain(std::to_string(index + 1)), fileCell(entry, index), findingsCell(entry, index),
           value(document.product ? document.product->prodname : ""),
           value(document.product ? document.product->prodpartname : ""),
           value(document.job ? document.job->orderid : ""), value(sizeOf(document)),
           pagesCell(document), inks == 0 ? Markup{} : plain(std::to_string(inks))}};
}

// An ink of the matrix: in which files it is, with its coverage there.
struct MatrixInk {
  std::string colour;
  std::map<std::size_t, std::string> files;
};

using Matrix = std::map<std::string, MatrixInk>;

std::string coverageOf(const Document& document, std::size_t ink) {
  if (!document.inks || !(*document.inks)[ink].coverageValid) return "●";
  return fmt::format("{:.4g} %", (*document.inks)[ink].pct);
}

void addInks(Matrix& matrix, const Document& document, std::size_t file) {
  const std::vector<DrawnInk> inks = drawnInks(document);
  for (std::size_t i = 0; i < inks.size(); ++i) {
    MatrixInk& ink = matrix[inks[i].name];
    if (ink.colour.empty()) ink.colour = inks[i].colour;
    ink.files.emplace(file, coverageOf(document, i));
  }
}

ReportRow matrixRow(const std::string& name, const MatrixInk& ink, std::size_t first,
                    std::size_t last) {
  ReportRow row{"", {swatch(ink.colour) + plain(" ") + value(name)}};
  for (std::size_t file = first; file < last; ++file) {
    const auto found = ink.files.find(file);
    row.cells.push_back(found == ink.files.end() ? Markup{} : plain(found->second));
  }
  return row;
}

// The columns of some files, with the inks that any of them has.
ReportTable matrixTable(const Matrix& matrix, const std::vector<ReportEntry>& entries,
                        std::size_t first, std::size_t last) {
  ReportTable table{
      fmt::format("Inks of files {} to {}", first + 1, last), {{"ink", "by name"}}, {}};
  for (std::size_t file = first; file < last; ++file) {
    table.columns.push_back({std::to_string(file + 1), shownName(entries[file].document), true});
  }
  for (const auto& [name, ink] : matrix) {
    const auto next = ink.files.lower_bound(first);
    const bool isUsed = next != ink.files.end() && next->first < last;
    if (isUsed) table.rows.push_back(matrixRow(name, ink, first, last));
  }
  return table;
}

}  // namespace

Markup summaryTable(const std::vector<ReportEntry>& entries) {
  ReportTable table{"The files of this report",
                    {{"no.", "its number in this report", true},
                     {"file", "as it was named"},
                     {"findings", "of all checks"},
                     {"product", ""},
                     {"part", ""},
                     {"order", ""},
                     {"size", "width and height"},
                     {"pages", "number of pages", true},
                     {"inks", "number of inks", true}},
                    {}};
  for (std::size_t i = 0; i < entries.size(); ++i) table.rows.push_back(rowOf(entries[i], i));
  return tableMarkup(std::move(table));
}

Markup inkMatrix(const std::vector<ReportEntry>& entries) {
  Matrix matrix;
  for (std::size_t i = 0; i < entries.size(); ++i) addInks(matrix, entries[i].document, i);
  Markup tables;
  for (std::size_t first = 0; first < entries.size(); first += kFilesInTable) {
    const std::size_t last = std::min(first + kFilesInTable, entries.size());
    tables += tableMarkup(matrixTable(matrix, entries, first, last));
  }
  if (tables.empty()) return {};
  return tables +
         element("p", {{"class", "note"}},
                 plain("Inks by name; columns are the numbers of the files. ● stands for an "
                       "ink without a coverage."));
}

}  // namespace vxmeta
