// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <cmath>

#include "support/records.h"

namespace {

const char* const kFields =
    "singlepressDGC autoplateDGCreq autoplateDGCLW autoplateDGCCT autopressDGCreq autopressDGCLW "
    "autopressDGCCT totalDGCLW totalDGCCT gamma usedrefs "
    "frequencyreq frequency anglereq angle dotshapereq dotshape dotname";
const std::string kScreen = elements("vxScreen:", kFields);

std::string screens(const Items& items) { return list("vxScreenL:screens", "Bag", items); }
std::string container(const Items& groups) {
  return list("vxScreenC:screenContainer", "Seq", groups);
}
std::string lacking(const char* field) { return elements("vxScreen:", swapped(kFields, field)); }

XMPlScreen curve(const char* name) {
  XMPlScreen screen;
  screen.singlepressDGC = name;
  return screen;
}

std::string curves(const std::vector<XMPlScreen>& screens) {
  std::string text;
  for (const XMPlScreen& screen : screens) text += ' ' + screen.singlepressDGC;
  return text.empty() ? " none" : text;
}

// What is read of all groups, of the second, and group by group; a curve stands for its screen.
std::string readFrom(const XMPlib& xmp) {
  std::vector<XMPlScreen> all(9), second(9);
  std::vector<std::vector<XMPlScreen>> groups(9);
  const bool hasAll = xmp.GetScreens(all), hasSecond = xmp.GetScreens(second, 2);
  const bool hasGroups = xmp.GetScreenContainer(groups);
  const auto verdict = [](bool found, const auto& list) {
    return found == list.empty() ? " (false)" : "";
  };
  std::string text = "all" + curves(all) + verdict(hasAll, all) + ", second" + curves(second) +
                     verdict(hasSecond, second) + ", groups";
  for (const auto& group : groups) text += curves(group) + " |";
  if (groups.empty()) text += " none";
  return text + verdict(hasGroups, groups) + (xmp.ErrStr().empty() ? "" : ": ") + xmp.ErrStr();
}

}  // namespace

TEST(ScreenRecords, AreEqualAcrossTheAutomaticPlateCurves) {
  EXPECT_EQ(ignoredFields<XMPlScreen>(), "autoplateDGCLW hasScreening dotname");
  XMPlScreen a, b;
  b.autoplateDGCLW = b.autoplateDGCreq = b.autoplateDGCCT = "A";
  a.autoplateDGCreq = a.autoplateDGCLW = "A";
  EXPECT_TRUE(a == b);
  EXPECT_FALSE(b == a || a == a);
  a.autoplateDGCreq = b.autoplateDGCreq = "";
  EXPECT_FALSE(a == b);
}

TEST(ScreenRecords, MatchAnyDotNameThatRepeatsItsShape) {
  const std::tuple<std::string, std::string, bool> rows[] = {
      {"E", "X", true}, {"X", "E", true}, {"X", "Y", false}, {"", "X", false}, {"", "", true}};
  for (const auto& [first, second, equal] : rows) {
    XMPlScreen a, b;
    a.hasScreening = b.hasScreening = true;
    a.dotshape = b.dotshape = "E";
    a.dotname = first;
    b.dotname = second;
    EXPECT_EQ(a == b, equal) << first << second;
    a.singlepressDGC = "later";  // decides where the dot names do not
    EXPECT_EQ(a < b, !equal) << first << second;
    EXPECT_EQ(b < a, equal) << first << second;
  }
}

// Each key decides over those behind it, which say the opposite.
TEST(ScreenRecords, AreOrderedByScreeningThenByCurves) {
  const auto screen = [](bool known, int key, bool less) {
    XMPlScreen r;
    int i = 0;
    const auto set = [&]<class Value>(Value& field) {
      const bool passive = i < key && (known || i > 6);
      const int high = passive ? 0 : (i == key) != less;
      if constexpr (std::is_same_v<Value, double>) field = high;
      if constexpr (!std::is_same_v<Value, double>) field = static_cast<char>('A' + 2 * i + high);
      ++i;
    };
    const auto keys = std::tie(
        r.dotshape, r.frequency, r.angle, r.dotshapereq, r.frequencyreq, r.anglereq, r.dotname,
        r.singlepressDGC, r.autoplateDGCreq, r.autoplateDGCLW, r.autoplateDGCCT, r.autopressDGCreq,
        r.autopressDGCLW, r.autopressDGCCT, r.totalDGCCT, r.totalDGCLW, r.gamma, r.usedrefs);
    std::apply([&](auto&... field) { (set(field), ...); }, keys);
    r.hasScreening = known;
    return r;
  };
  for (int key = 0; key < 18; ++key) {
    for (const bool known : {true, false}) {
      if (!known && key < 7) continue;  // screening that is not known takes no part
      const XMPlScreen less = screen(known, key, true), more = screen(known, key, false);
      EXPECT_TRUE(less < more && !(more < less) && !(less < less)) << known << key;
    }
  }
  const XMPlScreen known = screen(true, 0, false), unknown = screen(false, 0, true);
  EXPECT_TRUE(known < unknown && !(unknown < known));
  EXPECT_TRUE(curve("z") < curve("\xc3\xa9"));
  XMPlScreen nan = screen(true, 0, true);
  nan.dotshape = known.dotshape;
  nan.frequency = std::nan("");
  EXPECT_FALSE(nan < known || known < nan || nan == nan);
}

TEST(Screens, AreStoredAsOneGroup) {
  const std::string older = screens({kScreen});
  Loaded xmp(older);
  std::vector<XMPlScreen> read;
  EXPECT_TRUE(xmp.GetScreens(read));
  ASSERT_EQ(read.size(), 1U);
  EXPECT_EQ(fieldsOf(read[0]), std::tuple("1", "2", "3", "4", "5", "6", "7", "9", "8", "10", "11",
                                          true, 12, 13, 14, 15, "16", "17", "18"));
  read.resize(3, read[0]);
  read[1].hasScreening = false;
  read[2].dotname = "";
  EXPECT_TRUE(xmp.SetScreens(read));
  const std::string unscreened = kScreen.substr(0, kScreen.find("<vxScreen:frequencyreq>"));
  const std::string unnamed = elements("vxScreen:", swapped(kFields, "dotname", "dotname=17"));
  EXPECT_EQ(stored(xmp), older + container({screens({kScreen, unscreened, unnamed})}));
  EXPECT_EQ(readFrom(xmp), "all 1 1 1, second none, groups 1 1 1 |");
  EXPECT_TRUE(xmp.SetScreens({}));
  EXPECT_EQ(stored(xmp), stored(Loaded(older + container({screens({})}))));
}

TEST(Screens, LackingAFieldEndTheGroupOrHaveNoScreening) {
  const auto wrap = [](const Items& items) { return container({screens(items)}); };
  std::vector<XMPlScreen> read;
  const auto get = [&](const XMPlib& xmp) {
    EXPECT_TRUE(xmp.GetScreens(read, 1));
    return read;
  };
  EXPECT_EQ(optionalFields("vxScreen:", kFields, wrap, get),
            "totalDGCLW totalDGCCT frequencyreq frequency anglereq angle dotshapereq dotshape "
            "dotname");
  for (const char* field : {"frequencyreq", "frequency", "anglereq", "angle", "dotshapereq",
                            "dotshape", "totalDGCLW", "totalDGCCT", "dotname"}) {
    get(Loaded(wrap({kScreen, lacking(field), kScreen})));
    const std::string name = field;
    EXPECT_EQ(read.at(1).hasScreening, name.starts_with("total") || name == "dotname") << name;
  }
  EXPECT_EQ(read[1].dotname, "17");  // the dot shape
  EXPECT_EQ(get(Loaded(wrap({kScreen, lacking("anglereq"), kScreen}))).at(1).frequency, 13);
  EXPECT_EQ(read[1].angle, 0);
  EXPECT_EQ(read[1].dotshapereq + read[1].dotshape + read[1].dotname, "");
}

TEST(Screens, AreReadUpToTheFirstGroupThatYieldsNone) {
  const std::string one = screens({kScreen}), two = screens({kScreen, kScreen}), none = screens({});
  const std::pair<std::string, std::string> rows[] = {
      {container({two, one, two}), "all 1 1 1 1 1, second 1, groups 1 1 | 1 | 1 1 |"},
      {container({one}) + two, "all 1, second none, groups 1 |"},
      {container({none, one}) + two, "all 1 1, second 1, groups none"},
      {container({}) + one, "all 1, second none, groups none"},
      // A group whose first screen has the requested curve counts as the last one.
      {container({one, screens({lacking("gamma"), kScreen}), one}) + two,
       "all 1 (false), second none, groups 1 |"},
      {container({one, screens({elements("vxScreen:", "autoplateDGCLW frequencyreq=x")}), one}),
       "all 1, second none, groups 1 |"},
      {container({one, "<vxScreenL:screens>x</vxScreenL:screens>"}),
       "all 1 (false), second none, groups 1 | (false): Indexing applied to non-array"},
      // Screening is read also where a curve is missing.
      {container({screens({kScreen, elements("vxScreen:", "frequencyreq=x")})}),
       "all 1 (false), second none, groups none: Invalid float string"},
  };
  for (const auto& [text, expected] : rows) EXPECT_EQ(readFrom(Loaded(text)), expected) << text;
  const Loaded older("<vxScreenL:screens>x</vxScreenL:screens>");
  std::vector<XMPlScreen> read;
  EXPECT_FALSE(older.GetScreens(read));
  EXPECT_EQ(older.ErrStr(), "Indexing applied to non-array");
}

TEST(ScreenContainer, HidesWhatIsBehindAnEmptyGroup) {
  XMPlib xmp;
  EXPECT_TRUE(xmp.SetScreenContainer({{curve("A"), curve("B")}, {}, {curve("C")}}));
  EXPECT_EQ(readFrom(xmp), "all A B, second none, groups A B |");
  EXPECT_NE(stored(xmp).find("<vxScreen:singlepressDGC>C<"), std::string::npos);
  EXPECT_TRUE(xmp.SetScreenContainer({{curve("A")}, {curve("B"), curve("C")}}));
  EXPECT_EQ(readFrom(xmp), "all A B C, second B C, groups A | B C |");
  EXPECT_FALSE(xmp.SetScreenContainer({{curve("D")}, {curve("\xff")}, {curve("E")}}));
  EXPECT_EQ(xmp.ErrStr(), "Invalid UTF-8 sequence length");
  EXPECT_EQ(readFrom(xmp), "all D, second none, groups D |");
  EXPECT_TRUE(xmp.SetScreenContainer({}));
  EXPECT_EQ(stored(xmp), stored(Loaded(container({}))));
}
