// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <cmath>
#include <stdexcept>

#include "support/packets.h"

namespace {

using Dgcs = std::vector<XMPlDgcc>;

std::string curve(const std::string& name, const std::string& values) {
  return elements("vxDGC:", "name=" + name) + "<vxDGC:values>" + values + "</vxDGC:values>";
}
std::string curves(const std::vector<std::string>& items) {
  return list("vxDGCL:dgcs", "Bag", items);
}

}  // namespace

TEST(Dgcs, AreOrderedByNameCountAndValues) {
  const Dgcs ascending = {{"", {9}},     {"A", {}},        {"A", {5}}, {"A", {1, 3}},
                          {"A", {2, 0}}, {"A", {0, 0, 0}}, {"B", {}},  {"\xc3\xa9", {}}};
  for (const XMPlDgcc& a : ascending) {
    for (const XMPlDgcc& b : ascending) {
      EXPECT_EQ(a < b, &a <= &b) << a.name << " and " << b.name;  // equal curves: less
      EXPECT_EQ(a == b, &a == &b) << a.name << " and " << b.name;
    }
  }
  const XMPlDgcc one{"A", {1, 2}}, none{"A", {std::nan(""), 3}};
  EXPECT_FALSE(one < none || none < one || none < none || none == none);
}

TEST(Dgcs, AreStoredAsOneTextEach) {
  XMPlib xmp;
  EXPECT_TRUE(
      xmp.SetDgcs({{"A", {0, 0.1234567, -100}}, {"", {}}, {"C", {std::nan(""), -HUGE_VAL}}}));
  EXPECT_EQ(stored(xmp), stored(Loaded(curves({curve("A", "0.000000 0.123457 -100.000000 "),
                                               curve("", ""), curve("C", "nan -inf ")}))));
  Dgcs read;
  EXPECT_TRUE(xmp.SetDgcs({{"A", {1e300, -HUGE_VAL}}}) && xmp.GetDgcs(read));
  EXPECT_TRUE((read == Dgcs{{"A", {1e300, -HUGE_VAL}}}));
  EXPECT_TRUE(xmp.SetDgcs({}));
  EXPECT_FALSE(xmp.GetDgcs(read) || !read.empty());
}

TEST(Dgcs, NumbersEndAtABlankAndALeadingBlankRepeatsTheNext) {
  const Dgcs rows = {{" 1 2.5 ", {1, 1, 2.5}},
                     {"1  2 3 ", {1, 2, 2, 3}},
                     {"1  ", {1, 0}},
                     {"x 1,5 1e3z 0x10 -.5 1\t2 ", {0, 1, 1000, 16, -0.5, 1}}};
  for (const auto& [text, values] : rows) {
    Dgcs read;
    EXPECT_TRUE(Loaded(curves({curve("A", text), "<vxDGC:name>B</vxDGC:name>", "<vxDGC:values/>"}))
                    .GetDgcs(read));
    EXPECT_TRUE((read == Dgcs{{"A", values}, {"B", {}}})) << text;
  }
}

TEST(Dgcs, ALastNumberWithoutBlankThrows) {
  for (const char* text : {"5", "1 2", " 5"}) {
    Loaded xmp(curves({curve("A", "1 "), curve("B", text), curve("C", "1 ")}));
    Dgcs read;
    EXPECT_THROW(xmp.GetDgcs(read), std::length_error) << text;
    EXPECT_TRUE((read == Dgcs{{"A", {1}}}) && xmp.ErrStr().empty());
    EXPECT_TRUE(xmp.SetDgcs({{"D", {2}}}) && xmp.GetDgcs(read));
  }
}
