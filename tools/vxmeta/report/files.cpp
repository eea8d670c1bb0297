// SPDX-License-Identifier: Apache-2.0
// Files that the document uses, refers to and comes from.
#include <fmt/format.h>

#include "report/parts.h"
#include "report/tables.h"

namespace vxmeta {
namespace {

// "files:/jobs/scan_*.tif#001-120" as people read it. Empty parts: it is no run.
struct Run {
  std::string files;  // "/jobs/scan_*.tif"
  std::string first;
  std::string last;
};

bool areDigits(const std::string& text) {
  return !text.empty() && text.find_first_not_of("0123456789") == std::string::npos;
}

Run runOf(const std::string& name) {
  constexpr std::string_view kScheme = "files:";
  const std::size_t sign = name.rfind('#');
  const std::size_t dash = name.rfind('-');
  const bool isRun = name.starts_with(kScheme) && name.find('*') != std::string::npos &&
                     sign != std::string::npos && dash != std::string::npos && dash > sign;
  if (!isRun) return {};
  Run run{name.substr(kScheme.size(), sign - kScheme.size()),
          name.substr(sign + 1, dash - sign - 1), name.substr(dash + 1)};
  return areDigits(run.first) && areDigits(run.last) ? run : Run{};
}

Markup nameCell(const XMPlExtRef& ref) {
  const Run run = runOf(ref.instanceID);
  if (run.files.empty()) return value(ref.instanceID);
  return value(run.files) + plain(" ") +
         element("span", {{"class", "badge"}, {"title", ref.instanceID}},
                 plain(fmt::format("{} to {}", run.first, run.last)));
}

// A run is the only name that stands for files; how many, its count says.
ReportTable refTable(std::string_view path, std::string_view caption,
                     const std::vector<XMPlExtRef>& refs, Place& place) {
  ReportTable table = recordTable(path, caption, viewOf(refs), place);
  for (std::size_t i = 0; i < refs.size(); ++i) table.rows[i].cells[0] = nameCell(refs[i]);
  return table;
}

Markup marked(Place& place, const char* path, const char* title, const Markup& table) {
  if (table.empty()) return {};
  return element("div", {{"id", place.mark(path)}}, place.heading(1, plain(title)) + table);
}

Markup refsMarkup(const std::optional<std::vector<XMPlExtRef>>& refs, const char* path,
                  const char* title, Place& place) {
  return refs ? marked(place, path, title, tableMarkup(refTable(path, title, *refs, place)))
              : Markup{};
}

template <class List>
Markup listMarkup(const std::optional<List>& list, const char* path, const char* title,
                  Place& place) {
  return list ? marked(place, path, title,
                       tableMarkup(recordTable(path, title, viewOf(*list), place)))
              : Markup{};
}

}  // namespace

Markup filesPart(const Document& document, Place& place) {
  Markup content = refsMarkup(document.extRefs, "extRefs", "Referenced files", place) +
                   listMarkup(document.usedRefs, "usedRefs", "Used files", place) +
                   refsMarkup(document.cadFiles, "cadFiles", "CAD files", place);
  if (document.film) {
    content += listMarkup(document.film->jobReferences, "film.jobReferences",
                          "Digital jobs of the film", place);
  }
  return place.section("files", "Files", content);
}

Markup listsPart(const Document& document, Place& place) {
  Markup all;
  const auto add = [&](const auto& list, const char* path, const char* title) {
    if (!list) return;
    all += place.section(path, title, tableMarkup(recordTable(path, title, viewOf(*list), place)));
  };
  add(document.fonts, "fonts", "Fonts");
  add(document.barcodes, "barcodes", "Barcodes");
  add(document.layers, "layers", "Layers");
  add(document.smartNames, "smartNames", "Smart names");
  return all;
}

}  // namespace vxmeta
