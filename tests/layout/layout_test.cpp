// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include "support/records.h"

namespace {

std::string repeats(const Items& items) { return list("vxSrLayout:repeats", "Bag", items); }

std::vector<XMPlRepeat> readRepeats(const XMPlib& xmp) {
  std::vector<XMPlRepeat> read;
  xmp.GetRepeats(read);
  return read;
}

}  // namespace

TEST(Repeats, StoreWhatTheirTypeHas) {
  const std::string rest = " front=f frontpage=1 back=b backpage=2 count=5";
  const std::string all = repeats({elements("vxSRRep:", "type=die name=n stationname=" + rest),
                                   elements("vxSRRep:", "type=grid name=n vnr=3 hnr=4" + rest),
                                   elements("vxSRRep:", "type=Grid name=n" + rest)});
  XMPlib xmp;
  std::vector<XMPlRepeat> list;
  const std::string types[] = {{"die\0", 4}, {"grid\0", 5}, "Grid"};  // stored up to a NUL
  for (const std::string& type : types) {
    list.push_back({type, "n", "", 3, 4, "f", 1, "b", 2, 5});
  }
  EXPECT_TRUE(xmp.SetRepeats(list));
  EXPECT_EQ(stored(xmp), all);
  EXPECT_TRUE(xmp.GetRepeats(list) && xmp.SetRepeats(list));
  EXPECT_EQ(stored(xmp), all);
}

TEST(Repeats, NeedWhatTheirTypeHas) {
  const std::string rest = "name front frontpage back backpage count vnr hnr stationname";
  const std::pair<std::string, const char*> rows[] = {
      {"die", "vnr hnr"}, {"grid", "stationname"}, {"other", "vnr hnr stationname"}};
  for (const auto& [type, optional] : rows) {
    const std::string element = "<vxSRRep:type>" + type + "</vxSRRep:type>";
    const auto wrap = [&](Items items) {
      for (std::string& item : items) item += element;
      return repeats(items);
    };
    EXPECT_EQ(optionalFields("vxSRRep:", rest, wrap, readRepeats), optional) << type;
    const auto read =
        readRepeats(Loaded(wrap({elements("vxSRRep:", rest), elements("vxSRRep:", rest)})));
    EXPECT_EQ(read[0].stationname, type == "die" ? "9" : "");
    EXPECT_EQ(read[1].vnr * 10 + read[1].hnr, type == "grid" ? 78 : 0);
  }
  EXPECT_TRUE(readRepeats(Loaded(repeats({elements("vxSRRep:", rest)}))).empty());  // no type
}

TEST(CadRegistration, IsStoredWholeAndReadUpToTheFirstGap) {
  const char* const all =
      "instanceID=i renditionClass=r stationname=s orientation=-2 orgX=12.5 orgY=-0.123456789";
  XMPlib xmp;
  XMPlCadReg cad{"i", "r", "s", -2, 12.5, -0.1234567891}, read;
  EXPECT_TRUE(xmp.SetCadReg(cad));
  EXPECT_EQ(stored(xmp), elements("vxCadReg:", all));
  EXPECT_TRUE(xmp.GetCadReg(read));
  EXPECT_EQ(fieldsOf(read), std::tuple("i", "r", "s", -2, 12.5, -0.123456789));
  EXPECT_EQ(notFilledUpToAGap("vxCadReg:", all, &XMPlib::GetCadReg), "");
  EXPECT_EQ(ignoredFields<XMPlCadReg>(), "");
  cad.orgX = std::nan("");
  EXPECT_FALSE(cad == XMPlCadReg(cad));
}
