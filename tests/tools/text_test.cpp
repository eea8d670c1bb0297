// SPDX-License-Identifier: Apache-2.0
// Text for people, and paths.
#include <gtest/gtest.h>

#include <cmath>
#include <regex>
#include <sstream>

#include "model/document.h"
#include "model/path.h"
#include "text/cells.h"
#include "text/pages.h"

namespace vxmeta {
namespace {

TEST(Text, CannotSteerATerminal) {
  const std::pair<std::string, const char*> cases[] = {
      {"plain é 墨 🎨", "plain é 墨 🎨"},
      {"\x1b[31m\x07\x7f", R"(\x1b[31m\x07\x7f)"},
      {"a\tb\r\nc", R"(a\tb\r\nc)"},
      {"\xC2\x9B"
       "1m",
       R"(\x9b1m)"},  // the one-character CSI
      {"\u202Egpj.exe\u2066\u200B", R"(\u202egpj.exe\u2066\u200b)"},
      {"\xFF\xC3(\xED\xA0\x80\xC0\xAF\xF4\x90\x80\x80",
       R"(\xff\xc3(\xed\xa0\x80\xc0\xaf\xf4\x90\x80\x80)"},
      {std::string("\0", 1) + "\xE2\x82", R"(\x00\xe2\x82)"},  // cut off
  };
  for (const auto& [text, shown] : cases) EXPECT_EQ(visible(text), shown);
}

TEST(Text, IsCutByCells) {
  EXPECT_EQ(cutTo("abcdef", 6), "abcdef");
  EXPECT_EQ(cutTo("abcdef", 4), "abc…");
  EXPECT_EQ(cutTo("墨墨墨", 5), "墨墨…");
  EXPECT_EQ(cutTo("墨墨墨", 4), "墨…");
  EXPECT_EQ(cutTo("e\u0301e\u0301", 2), "e\u0301e\u0301");
  EXPECT_EQ(cutTo("ab", 0), "");
}

TEST(Text, AlignsColumnsAndDropsBlankOnes) {
  const Table table{{{"name"}, {"none"}, {"pct", true}},
                    {{{"墨"}, {}, {"1.25"}}, {{"abc"}, {}, {"10"}}, {{"x"}, {}, {}}}};
  EXPECT_EQ(formatTable(table, {}, 1),
            " name    pct\n"
            " 墨     1.25\n"
            " abc   10\n"
            " x\n");
}

TEST(Text, ShortensTextsBeforeItLeavesOutColumns) {
  const Table table{{{"", true}, {"name"}, {"angle", true}, {"shape"}, {"pct %", true}},
                    {{{"0"}, {"A long name"}, {"22.5"}, {"Elliptical"}, {"12.345"}}}};
  const std::pair<std::size_t, const char*> cases[] = {
      {80,
       "   name         angle  shape        pct %\n0  A long name   22.5  Elliptical  12.345\n"},
      {33, "   name     ang…  shape     pct %\n0  A long…  22.5  Ellipt…  12.345\n"},
      {24, "   name    ang…   pct %\n0  A lon…  22.5  12.345\n"},
      {18, "   name     pct %\n0  A lon…  12.345\n"},
  };
  for (const auto& [width, text] : cases) {
    EXPECT_EQ(formatTable(table, {false, width}, 0), text) << width;
  }
}

Document largeDocument() {
  Document document;
  XMPlInk ink;
  ink.name = std::string(200, 'x') + "墨";
  ink.dotshape = ink.attribute = ink.type = ink.book = "a long word or two";
  document.inks = {ink, ink};
  document.screens = {{XMPlScreen{}}, {}};
  document.job = XMPlJobData{std::string(100, 'y'), "1"};
  document.unread.resize(20);
  document.foreign.resize(20);
  document.film = Film{};
  document.film->metadata = {XMPlMetaDataDigFilm{}};
  return document;
}

TEST(Text, StaysWithinTheScreen) {
  const Document document = largeDocument();
  for (const std::size_t width : {1U, 7U, 40U, 79U, 132U}) {
    const Screen screen{false, width};
    std::istringstream lines(summaryOf(document, screen) + documentInFull(document, screen));
    for (std::string line; std::getline(lines, line);) {
      EXPECT_LE(widthOf(line), width) << line;
    }
  }
}

std::string withoutEscapes(const std::string& text) {
  return std::regex_replace(text, std::regex("\x1b\\[[0-9;]*m"), "");
}

TEST(Text, IsTheSameWithColoursAndWithout) {
  Document document = largeDocument();
  document.inks->front().r = 0.5;
  const std::string coloured = documentInFull(document, {true, 0});
  EXPECT_NE(coloured.find("\x1b[48;2;128;0;0m"), std::string::npos);
  EXPECT_EQ(withoutEscapes(coloured), documentInFull(document, {false, 0}));
}

TEST(Text, TakesColoursInEitherRange) {
  const auto colourOf = [](double r, double other) {
    std::vector<XMPlInk> inks(2);
    inks[0].r = r;
    inks[1].g = other;
    const View list = viewOf(inks);
    return colourCell(list.item(0), colourScale(list)).text;
  };
  EXPECT_EQ(colourOf(1, 0.5), "#ff0000");
  EXPECT_EQ(colourOf(1, 255), "#010000");
  EXPECT_EQ(colourOf(200, 0), "#c80000");
  EXPECT_EQ(colourOf(-1, 0), "-1 0 0");
  EXPECT_EQ(colourOf(65535, 0), "65535 0 0");
  EXPECT_EQ(colourOf(NAN, 0), "nan 0 0");
}

TEST(Text, LeavesOutWhatIsNotValid) {
  XMPlBarcode barcode;
  barcode.hasBarWidthReduction = true;
  barcode.barWidthReduction = 0.5;
  EXPECT_EQ(shortOf(viewOf(barcode)), "barWidthReduction 0.5");
  barcode.useMagnification = barcode.hasBarWidthReduction = false;
  barcode.narrow = 2;
  EXPECT_EQ(shortOf(viewOf(barcode)), "narrow 2");
}

TEST(Paths, ThatNoDocumentHasAreRefused) {
  const std::pair<const char*, const char*> cases[] = {
      {"", "no field ''"},
      {"jobs", "no field 'jobs'; did you mean job? there are: vxmeta, file"},
      {"job.name.x", "no field 'x' in there"},
      {"job[0]", "only a list has items"},
      {"inks.name", "choose an item, as in 'inks[0]'"},
      {"screens[0].angle", "choose an item, as in 'screens[0][0]'"},
      {"inks[x]", "neither a number nor field=value"},
      {"inks[]", "neither a number nor field=value"},
      {"inks[99999999999999999999]", "neither a number nor field=value"},
      {"inks[0", "']' is missing"},
      {"inks[name=", "']' is missing"},
      {"inks[name=\"a]", "']' is missing"},
      {"inks[0]name", "expected '.' or '[' at 'name'"},
      {"inks[nam=a]", "no field 'nam'; did you mean name? there are: name, type"},
      {"film.metadata[ink=a]", "no single value"},
      {"film.dimensions.spare", "no field 'spare'"},
  };
  for (const auto& [path, why] : cases) {
    try {
      parsePath(path, typeOf<Document>());
      ADD_FAILURE() << path;
    } catch (const PathError& error) {
      EXPECT_NE(std::string(error.what()).find(why), std::string::npos) << error.what();
    }
  }
}

}  // namespace
}  // namespace vxmeta
