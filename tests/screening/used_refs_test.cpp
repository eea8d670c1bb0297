// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include "support/packets.h"

namespace {

std::string refs(const Items& items) { return list("vxUsedFL:files", "Seq", items); }

std::string ref(const std::string& page) {
  return elements("vxUsedF:", "instanceID=A renditionClass= pagenr=" + page);
}

}  // namespace

TEST(UsedRefs, AreOrderedFieldByField) {
  const XMPlUsedRef ascending[] = {{"", "z", 9},  {"A", "x", 1}, {"A", "x", 4294967297},
                                   {"A", "y", 1}, {"B", "a", 1}, {"\xc3\xa9", "", 1}};
  for (const XMPlUsedRef& a : ascending) {
    for (const XMPlUsedRef& b : ascending) {
      EXPECT_EQ(a < b, &a < &b) << a.instanceID << a.pagenr << " and " << b.instanceID << b.pagenr;
      EXPECT_EQ(a == b, &a == &b);
    }
  }
}

TEST(UsedRefs, KeepTheLow32BitsOfThePage) {
  XMPlib xmp;
  EXPECT_TRUE(
      xmp.SetUsedRefs({{"A", "", 4294967297}, {"A", "", -4294967295}, {"A", "", 2147483648}}));
  EXPECT_EQ(stored(xmp), refs({ref("1"), ref("1"), ref("-2147483648")}));
  std::vector<XMPlUsedRef> read;
  EXPECT_TRUE(xmp.GetUsedRefs(read));
  EXPECT_EQ(read.at(2).pagenr, -2147483648);
}

// The page is read even where the item is not complete.
TEST(UsedRefs, NeedNoPageButNoneThatIsNotANumber) {
  const std::pair<std::string, std::string> rows[] = {
      {"2147483648", "Overflow condition"}, {"ten", "Invalid integer string"}, {"2", ""}};
  for (const auto& [page, error] : rows) {
    Loaded xmp(refs({ref("7"), elements("vxUsedF:", "instanceID=B renditionClass="),
                     elements("vxUsedF:", "pagenr=" + page), ref("1")}));
    std::vector<XMPlUsedRef> read;
    EXPECT_EQ(xmp.GetUsedRefs(read), error.empty());
    EXPECT_EQ(xmp.ErrStr(), error);
    EXPECT_TRUE((read == std::vector<XMPlUsedRef>{{"A", "", 7}, {"B", "", 1}}));
  }
}
