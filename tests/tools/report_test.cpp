// SPDX-License-Identifier: Apache-2.0
// The page of a report.
#include "report/report.h"

#include <expat.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <limits>
#include <stdexcept>

#include "report/rose.h"
#include "support/program.h"

namespace {

using vxmeta::ReportEntry;
using vxmeta::reportPage;
using vxmeta::Severity;

// The characters of the page, and whether it is well formed.
std::string textOf(const std::string& page) {
  std::string text;
  XML_Parser parser = XML_ParserCreate("UTF-8");
  XML_SetUserData(parser, &text);
  XML_SetCharacterDataHandler(parser, [](void* into, const XML_Char* part, int length) {
    static_cast<std::string*>(into)->append(part, static_cast<std::size_t>(length));
  });
  const auto status = XML_Parse(parser, page.data(), static_cast<int>(page.size()), 1);
  XML_ParserFree(parser);
  if (status != XML_STATUS_OK) throw std::runtime_error("the page is not well formed");
  return text;
}

bool holds(const std::string& text, const std::string& what) {
  return text.find(what) != std::string::npos;
}

ReportEntry entryWithLayers(const std::vector<std::string>& names) {
  ReportEntry entry;
  entry.document.file = "a.xmp";
  entry.document.layers.emplace();
  for (const std::string& name : names) {
    entry.document.layers->emplace_back();
    entry.document.layers->back().name = name;
  }
  return entry;
}

TEST(Report, HoldsHostileTextsExactly) {
  const std::vector<std::string> texts = {"</bdi><script>alert(1)</script>",
                                          "\" onload='x' &amp; ]]> &#60;",
                                          "<!-- -->",
                                          "\u202eturned\u202c \u200f\u05d0",
                                          "a\nb\tc",
                                          "\U0001F600 \u00e9"};
  const std::string page = reportPage({entryWithLayers(texts)});
  const std::string text = textOf(page);
  for (const std::string& one : texts) EXPECT_TRUE(holds(text, one)) << one;
  EXPECT_FALSE(holds(page, "<script"));
  EXPECT_TRUE(holds(page, "<bdi>\u202eturned"));
}

TEST(Report, ShowsWhatNoPageCanHold) {
  const std::string page =
      reportPage({entryWithLayers({std::string("a\0b\x1b\r\x7f", 6), "\xED\xA0\x80!", "\xFFx"})});
  const std::string text = textOf(page);
  EXPECT_TRUE(holds(text, "a\u2400b\u241b\u240d\u2421"));
  EXPECT_TRUE(holds(text, "\ufffd\ufffd\ufffd!"));
  EXPECT_TRUE(holds(text, "\ufffdx"));
}

TEST(Report, LinksFindingsToTheLeastPartThatShows) {
  ReportEntry entry = entryWithLayers({"one", "two"});
  entry.findings = {{"some-check", Severity::note, "layers[1].printable", "a note", "do this"},
                    {"other", Severity::error, "nowhere[3]", "an error", ""}};
  const std::string page = reportPage({entry});
  EXPECT_TRUE(holds(page, "href=\"#d1-layers-1\""));
  EXPECT_TRUE(holds(page, "id=\"d1-layers-1\""));
  EXPECT_TRUE(holds(page, "1 error, 1 note"));
  EXPECT_FALSE(holds(page, "href=\"#d1-nowhere"));
  EXPECT_LT(page.find("an error"), page.find("a note"));
}

TEST(Report, ComparesInksOfSeveralFiles) {
  std::vector<ReportEntry> entries(3);
  for (ReportEntry& entry : entries) entry.document.file = "x.pdf";
  entries[0].document.inks = {XMPlInk()};
  entries[0].document.inks->at(0).name = "Gold";
  entries[0].document.inks->at(0).coverageValid = true;
  entries[0].document.inks->at(0).pct = 12.5;
  entries[1].document.inks = {XMPlInk()};
  entries[1].document.inks->at(0).name = "Gold";
  entries[2].error = "is no document";
  const std::string text = textOf(reportPage(entries));
  EXPECT_TRUE(holds(text, "Gold12.5 %●")) << text;
  EXPECT_TRUE(holds(text, "is no document"));
}

TEST(Report, StaysBoundedAndFoldsLongTables) {
  const std::string page = reportPage({entryWithLayers(std::vector<std::string>(10000, "layer"))});
  EXPECT_LT(page.size(), 10000 * 250);
  EXPECT_TRUE(holds(page, "<summary>9976 more of 10000</summary>"));
  ReportEntry repeats;
  repeats.document.repeats.emplace(500);
  for (XMPlRepeat& repeat : *repeats.document.repeats) {
    repeat.type = "grid";
    repeat.vnr = repeat.hnr = 2000000000;
  }
  EXPECT_LT(reportPage({repeats}).size(), 500 * 400);
}

TEST(Report, DrawsCurvesWithValuesOfAnySize) {
  ReportEntry entry;
  entry.document.dgcs.emplace(1);
  entry.document.dgcs->at(0).values = {-1.7e308, 1.7e308, std::numeric_limits<double>::quiet_NaN(),
                                       0};
  const std::string page = reportPage({entry});
  EXPECT_TRUE(holds(page, "M52 272L185.33 12M452 142")) << page;
}

TEST(Rose, CountsAnglesModuloNinety) {
  EXPECT_DOUBLE_EQ(vxmeta::apart(85, 0), 5);
  EXPECT_DOUBLE_EQ(vxmeta::apart(-15, 75), 0);
  EXPECT_TRUE(holds(vxmeta::roseOf("t", {{"a", 0, ""}, {"b", 172.5, ""}}).html, "7.5° apart"));
  EXPECT_FALSE(holds(vxmeta::roseOf("t", {{"a", 0, ""}, {"b", 75, ""}}).html, "apart"));
}

TEST(ReportCommand, WritesAValidPage) {
  const std::string page = scratchPath("report.html");
  const Outcome end = runTool("report " VXMETA_EXAMPLES "/folding_carton.xmp -o " + page);
  EXPECT_EQ(end.code, 0) << end.err;
  EXPECT_TRUE(holds(textOf(contentOf(page)), "Leaf green"));
  const std::string tidy = "tidy -q -e --drop-empty-elements no " + page;
  if (std::system("command -v tidy >/dev/null") != 0) GTEST_SKIP() << "tidy is not installed";
  EXPECT_EQ(std::system(tidy.c_str()), 0);
}

TEST(ReportCommand, KeepsItsInputAndReportsWhatItCan) {
  const std::string packet =
      scratchFile("in.xmp", contentOf(VXMETA_EXAMPLES "/folding_carton.xmp"));
  EXPECT_EQ(runTool("report " + packet + " -o " + packet).code, 2);
  EXPECT_TRUE(holds(contentOf(packet), "xpacket"));
  const Outcome end = runTool("report missing.xmp " + packet);
  EXPECT_EQ(end.code, 2);
  EXPECT_TRUE(holds(textOf(end.out), "not read"));
}

}  // namespace
