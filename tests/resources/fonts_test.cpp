// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "support/packets.h"

namespace {

using Fonts = std::vector<XMPlFont>;

std::string item(const std::string& name, const std::string& protection,
                 const std::string& location = "l", const std::string& fontfile = "f") {
  return elements("vxFont:", "name=" + name + " type=t location=" + location +
                                 " fontfile=" + fontfile + " protection=" + protection);
}

std::string fonts(const Items& items) { return list("vxFontL:fonts", "Bag", items); }

}  // namespace

TEST(Fonts, AreStoredSortedAndReadUpToAnIncompleteOne) {
  const XMPlFont a{"A", "t", false, "", "f"}, b{"B", "t", true, "l", ""};
  XMPlib xmp;
  Fonts read;
  EXPECT_TRUE(xmp.SetFonts({b, a}));
  EXPECT_EQ(stored(xmp), fonts({item("A", "False", ""), item("B", "True", "l", "")}));
  EXPECT_TRUE(xmp.GetFonts(read) && read == (Fonts{a, b}));
  const auto readFonts = [&](const XMPlib& other) { return other.GetFonts(read), read; };
  const char* const names = "name type location fontfile protection=True";
  EXPECT_EQ(optionalFields("vxFont:", names, fonts, readFonts), "");
}

TEST(Fonts, AreOrderedFieldByFieldAndProtectionOneSided) {
  const Fonts ascending = {{"A", "a", true, "z", "z"},  {"A", "b", true, "a", "z"},
                           {"A", "b", false, "b", "a"}, {"A", "b", true, "b", "a"},
                           {"A", "b", true, "b", "b"},  {"\xc3\x84", "a", false, "a", "a"}};
  for (auto a = ascending.begin(); a != ascending.end(); ++a) {
    for (auto b = ascending.begin(); b != ascending.end(); ++b) {
      EXPECT_EQ(*a < *b, a < b) << a - ascending.begin() << b - ascending.begin();
      EXPECT_EQ(*a == *b, a == b);
    }
  }
  const XMPlFont free{"A", "t", false, "l", "b"}, locked{"A", "t", true, "l", "a"};
  EXPECT_TRUE(free < locked && locked < free);
}

TEST(Fonts, ThatContradictEachOtherAreAllKept) {
  std::mt19937 random(1);
  for (std::size_t round = 0; round < 120; ++round) {
    Fonts all(round), read;
    const bool contradict = round % 2 == 0;
    for (XMPlFont& font : all) {
      const bool locked = contradict && random() % 2 == 0;
      font = {random() % 3 == 0 ? "A" : "B", "t", locked, "l", std::to_string(random() % 90)};
    }
    XMPlib xmp;
    EXPECT_TRUE(xmp.SetFonts(all));
    EXPECT_EQ(xmp.GetFonts(read), round > 0);
    EXPECT_TRUE(std::is_permutation(all.begin(), all.end(), read.begin(), read.end()));
    EXPECT_TRUE(contradict || std::is_sorted(read.begin(), read.end()));
  }
}

TEST(Fonts, EmbeddedOnesGiveWayToTheSameFile) {
  const char* const rows[][2] = {
      // "location:fontfile" of each font, and of those that are left
      {"embedded:x;F disk:C:/fonts;F", "disk:C:/fonts;F"},
      {"disk:;F embedded:x;F embedded:;F disk:G e:F embedded:y;F", "disk:;F disk:G e:F"},
      {"embedded:x;F disk:F disk:x;f disk:F;x disk:F;",
       "embedded:x;F disk:F disk:x;f disk:F;x disk:F;"},
      {"embedded:F disk:x;F", "embedded:F disk:x;F"},
      {"embedded:x;y;F disk:z;F embedded:F; :x;", "disk:z;F :x;"},
      {"embedded:x;F Embedded:x;F embedded:y;G", "Embedded:x;F embedded:y;G"},
  };
  for (const auto& row : rows) {
    Items items;
    std::istringstream words(row[0]);
    for (std::string place, file; std::getline(words, place, ':');) {
      std::getline(words, file, ' ');
      items.push_back(item(std::to_string(items.size()), "False", place, file));
    }
    Loaded xmp(fonts(items));
    Fonts read;
    std::string left;
    EXPECT_TRUE(xmp.GetFonts(read, false));
    for (const XMPlFont& font : read) {
      left += (left.empty() ? "" : " ") + font.location + ":" + font.fontfile;
    }
    EXPECT_EQ(left, row[1]);
    EXPECT_TRUE(xmp.GetFonts(read) && read.size() == items.size());
  }
}
