// SPDX-License-Identifier: Apache-2.0
#include "report/report.h"

#include <fmt/format.h>

#include "report/parts.h"
#include "report/place.h"
#include "report/style.h"
#include "report/summary.h"
#include "report/tables.h"

namespace vxmeta {
namespace {

std::string shownName(const std::string& file) {
  return file == "-" ? "standard input" : file.substr(file.find_last_of('/') + 1);
}

// The parts in the order in which they are read. Findings stand in front of them and link into
// them, so that they are made last.
Markup partsOf(const ReportEntry& entry, Place& place) {
  const Document& document = entry.document;
  Markup parts;
  for (const auto part : {inksPart, screensPart, curvesPart, geometryPart, repeatsPart, rangesPart,
                          filesPart, listsPart, separationsPart, factsPart, leftOverPart}) {
    parts += part(document, place);
  }
  return findingsPart(entry.findings, place) + parts;
}

Markup packetLine(const ReportEntry& entry) {
  const PacketInfo& packet = entry.document.packet;
  return element("p", {{"class", "note"}},
                 value(entry.document.file == "-" ? "standard input" : entry.document.file) +
                     plain(", ") + value(packet.source) +
                     plain(fmt::format(", {} bytes, {}", packet.bytes, packet.encoding)));
}

Markup headOf(const ReportEntry& entry, int level) {
  const Markup name = value(shownName(entry.document.file));
  return element("header", element(fmt::format("h{}", level), name) + leadLine(entry.document) +
                               inkChips(entry.document) + packetLine(entry));
}

// A document's article; its headings begin at that level.
Markup articleOf(const ReportEntry& entry, std::size_t number, int level) {
  Place place(number, level + 1);
  const std::string id = place.mark("");
  return element("article", {{"id", id}}, headOf(entry, level) + partsOf(entry, place));
}

Markup oneFile(const ReportEntry& entry) { return articleOf(entry, 1, 1); }

Markup section(const char* title, const Markup& content) {
  if (content.empty()) return {};
  return element("section", element("h2", plain(title)) + content);
}

Markup severalFiles(const std::vector<ReportEntry>& entries) {
  Markup page = element("header", element("h1", plain(fmt::format("{} files", entries.size())))) +
                section("Files", summaryTable(entries)) +
                section("Inks by file", inkMatrix(entries));
  for (std::size_t i = 0; i < entries.size(); ++i) {
    if (entries[i].error.empty()) page += articleOf(entries[i], i + 1, 2);
  }
  return page;
}

std::string titleOf(const std::vector<ReportEntry>& entries) {
  if (entries.size() == 1) return shownName(entries[0].document.file);
  return fmt::format("Production metadata of {} files", entries.size());
}

// The policy holds browsers to it: nothing is loaded, nothing runs.
Markup headOfPage(const std::string& title) {
  return element(
      "head", single("meta", {{"charset", "utf-8"}}) + element("title", plain(title)) +
                  single("meta", {{"name", "viewport"},
                                  {"content", "width=device-width, initial-scale=1"}}) +
                  single("meta", {{"name", "color-scheme"}, {"content", "light dark"}}) +
                  single("meta", {{"http-equiv", "Content-Security-Policy"},
                                  {"content", "default-src 'none'; style-src 'unsafe-inline'"}}) +
                  element("style", Markup{kStyle}));
}

}  // namespace

std::string reportPage(const std::vector<ReportEntry>& entries) {
  const Markup body = entries.size() == 1 ? oneFile(entries[0]) : severalFiles(entries);
  const Markup page =
      element("html", {{"xmlns", "http://www.w3.org/1999/xhtml"}, {"lang", "en"}},
              headOfPage(titleOf(entries)) + element("body", element("main", body)));
  return "<!DOCTYPE html>\n" + page.html + "\n";
}

}  // namespace vxmeta
