// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <regex>

#include "core/toolkit/client.h"
#include "support/packets.h"

namespace {

// What is replaced in a packet's text, and by what.
using Edits = std::vector<std::pair<std::string, std::string>>;

// A digital film. A letter is an ink, a curve or a screen group; a blank is an empty group.
struct Film {
  std::string inks;
  std::vector<XMPlPagRange> ranges = {{1, 4, {1, 2}}};
  std::string curves = {};
  std::string structure = {};
  Edits edits = {};
  std::string groups = inks;
  std::string name = inks;  // in all other records
};

std::string packetOf(const Film& film) {
  std::vector<XMPlInkDigFilm> inks;
  std::vector<std::vector<XMPlScreen>> groups;
  std::vector<XMPlDgcc> curves;
  for (const char letter : film.inks) inks.emplace_back().name = letter;
  for (const char letter : film.curves) curves.emplace_back().name = letter;
  for (const char letter : film.groups) {
    groups.emplace_back(letter == ' ' ? 0U : 1U);
    for (XMPlScreen& screen : groups.back()) screen.usedrefs = letter;
  }
  XMPlDocData document;
  XMPlJobData job;
  XMPlDimDatDigFilm dimensions;
  document.creatorTool = job.name = dimensions.units = film.name;
  XMPlib xmp;
  EXPECT_TRUE(xmp.SetDigitalFilmVersionDetailed({7, film.structure, film.name}) &&
              xmp.SetDocumentData(document) && xmp.SetJobData(job) &&
              xmp.SetDimDatDigFilm(dimensions) && xmp.SetInksDigFilm(inks, true) &&
              xmp.SetColorSpace({"Untagged", "", film.name}) && xmp.SetScreenContainer(groups) &&
              xmp.SetDgcs(curves) && xmp.SetUsedRefs({{film.name, "", 1}}) &&
              xmp.SetPagRanges(film.ranges));
  std::string text = xmp.GetXML();
  for (const auto& [from, to] : film.edits) text = std::regex_replace(text, std::regex(from), to);
  return text;
}

std::string storedOf(const std::string& text) { return stored(FromText(text)); }

std::string merged(const std::vector<Film>& films, int mode) {
  std::vector<std::string> packets;
  for (const Film& film : films) packets.push_back(packetOf(film));
  XMPlib xmp;
  xmp.SetColorSpace({"wrong", "", ""});  // leaves an error text
  EXPECT_TRUE(xmp.MergeXML(packets, mode, true));
  EXPECT_EQ(xmp.ErrStr(), "");
  return stored(xmp);
}

using Ranges = std::vector<XMPlPagRange>;
const Ranges kOne = {{1, 1, {1}}};
const Ranges kOnes = {{1, 1, {1}}, {3, 3, {3}}};
const Ranges kBare = {{1, 4, {}}};
const Ranges kTwo = {{1, 4, {1, 2}}, {5, 9, {7}}};

Film without(const std::string& properties) { return {"M", kOne, "A", "", {{properties, "$&x"}}}; }

}  // namespace

TEST(FilmMerge, AddsLaterPacketsByMode) {
  const struct {
    int mode;
    std::vector<Film> films;
    Film expected;
  } rows[] = {
      {0, {{"C", kTwo}, {"MY"}}, {"CMY", {{1, 4, {1, 2, 3, 4}}, kTwo[1]}, "", "Composite"}},
      {0, {{"C", kBare}, {"MY"}}, {"CMY", {{1, 4, {1, 2}}}, "", "Composite"}},
      {1,
       {{"C", kTwo}, {"M", {{0, 1, {0, 3}}, {1, 1, {1}}}}, {"Y", kOne}},
       {"CMY", {kTwo[0], kTwo[1], {10, 11, {8, 11}}, {13, 13, {13}}}, "", "Separated"}},
      {1, {{"C", kBare}, {"M", kOne}}, {"CM", {kBare[0], {6, 6, {2}}}, "", "Separated"}},
      {1, {{"C", kOne, "", "cOMPOSITE"}, {"M", kOne}}, {"CM", kOnes, "", "cOMPOSITE"}},
      {2, {{"C", kTwo, "", "free"}, {"M"}}, {"CM", kTwo, "", "free"}},
      // Curves are compared within their own packet alone, and never within the base.
      {-1, {{"C", kOne, "AA"}, {"M", kOne, "BAB"}, {"Y", kOne, "A"}}, {"CMY", kOne, "AABAA"}},
      // A later packet needs inks, screens and page ranges, and nothing else.
      {0, {{"C"}, without("vxGr:inks"), without("vxPagL:pagelist|vxGr:vsize")}, {"C"}},
      {1, {{"C"}, without("vxScreenC:screenContainer"), without("/rdf:")}, {"C"}},
      {2, {{"C", kOne}, without("vxGr:vsize|vxDigFilm:version|vxUsedFL:files")}, {"CM", kOne, "A"}},
      // Every ink has a group, be it an empty one; groups without ink stay behind.
      {2,
       {{"C", kOne}, {"MY", kOne, "", "", {}, "M"}, {"K", kOne, "", "", {}, "KX"}},
       {"CMYK", kOne, "", "", {}, "CM K"}},
  };
  for (const auto& row : rows) {
    Film expected = row.expected;
    expected.name = "C";
    EXPECT_EQ(merged(row.films, row.mode), storedOf(packetOf(expected))) << &row - rows;
  }
}

TEST(FilmMerge, TheFirstCompletePacketIsTheBase) {
  // What packets before the base have given stays where the base gives nothing.
  const Edits all = {{"(type|Tool|name)>C", "$1>S"}, {"<vxInk:name>S", "<vxInk:name>C"}};
  const struct {
    const char* lacking;
    const char* baseLacks;
    Edits stale;
  } rows[] = {
      {"vxPagL:pagelist", "vxDigFilm:version", all},
      {"vxGr:vsize", "vxDigFilm:version", all},
      {"vxUsedFL:files",
       "xmp:CreatorTool",
       {{"<xmp:Creator.*", ""}, {"stLoc:name>C", "stLoc:name>S"}}},
      {"vxScreenC:screenContainer", "xmpBJ:JobRef", {{"<stLoc:name>.*", ""}}},
      {"vxGr:colorprofdesc", "vxGr:colorprofloc", {}},
  };
  for (const auto& row : rows) {
    const Film stale{"SS", kTwo, "X", "old", {{row.lacking, "$&x"}}, "S", "S"};
    const Film base{"C", kOne, "", "", {{row.baseLacks, "$&x"}}};
    const Film expected{"CM", kOne, "", row.stale == all ? "old" : "", row.stale, "CM", "C"};
    EXPECT_EQ(merged({stale, base, {"M"}}, 2), storedOf(packetOf(expected))) << row.lacking;
  }
}

TEST(FilmMerge, OfOnePacketOrNoneThatIsCompleteLoadsTheFirst) {
  using Packets = std::vector<std::string>;
  Loaded xmp("");
  const std::string part = packetOf(without("vxPagL:pagelist"));
  for (const auto& packets : {Packets{packetOf({"C"})}, Packets{part}, Packets{part, "<x"}}) {
    xmp.SetXML(packet("<vxGr:nrpages>1</vxGr:nrpages>"));
    EXPECT_TRUE(xmp.MergeXML(packets, 0, true));
    EXPECT_EQ(stored(xmp), storedOf(packets[0]));
  }
  for (const auto& packets : {Packets{"<x"}, Packets{"<x", part}, Packets{}}) {
    EXPECT_TRUE(xmp.MergeXML(packets, 0, true));
    EXPECT_EQ(xmp.ErrStr().find("XML parsing failure"), 0U);  // of no packets: of the call before
  }
}

TEST(FilmMerge, KeepsWhatElseTheHandleHolds) {
  Loaded xmp("<vxGr:nrpages>1</vxGr:nrpages><xmp:BaseURL>u</xmp:BaseURL>");
  EXPECT_TRUE(xmp.MergeXML({packetOf({"C"}), ""}, 0, false));
  const std::string text = stored(xmp);
  for (const char* kept : {"<vxGr:nrpages>1<", "<xmp:BaseURL>u<", "<vxInk:name>C<"}) {
    EXPECT_NE(text.find(kept), std::string::npos) << kept;
  }
  EXPECT_EQ(text.find("vxInk:book"), std::string::npos);  // not asked for
  // Toolkit errors in film data pass, before anything is written.
  for (const char* real : {"vsize", "opacity"}) {
    const std::string wrong =
        packetOf({"M", kOne, "", "", {{real + std::string(">0"), real + std::string(">wide")}}});
    EXPECT_THROW(xmp.MergeXML({wrong, wrong}, 0, true), XMP_Error);
    EXPECT_EQ(stored(xmp), text);
  }
  Empty empty;
  EXPECT_TRUE(empty.MergeXML({packetOf({"C"}), packetOf({"M"})}, 0, false));
  EXPECT_EQ(empty.ErrStr(), "Illegal XAP");
}
