#include <gtest/gtest.h>

#include <cmath>
#include <sstream>

#include "support/packets.h"

namespace {

// Fields in short, "name=value" each, without the one that `lacking` names.
std::string elements(const std::string& prefix, const std::string& text,
                     const std::string& lacking = "") {
  std::string all;
  std::istringstream words(text);
  for (std::string name, value; std::getline(words, name, '=');) {
    std::getline(words, value, ' ');
    if (name != lacking) all += fields(prefix, {{name, value}});
  }
  return all;
}

std::string repeats(const std::vector<std::string>& items) {
  return list("vxSrLayout:repeats", "Bag", items);
}

const std::string kRest = " front=f frontpage=1 back=b backpage=2 count=5";
const std::string kTypes[] = {"type=die name=n stationname=" + kRest,
                              "type=grid name=n vnr=3 hnr=4" + kRest, "type=Grid name=n" + kRest};

}  // namespace

TEST(Repeats, StoreAndNeedWhatTheirTypeHas) {
  XMPlib xmp;
  std::vector<XMPlRepeat> all;
  std::vector<XMPlRepeat> read;
  std::vector<std::string> items;
  for (const std::string& type : kTypes) {
    items.push_back(elements("vxSRRep:", type));
    all.push_back({type.substr(5, type.find(' ') - 5), "n", "", 3, 4, "f", 1, "b", 2, 5});
  }
  EXPECT_TRUE(xmp.SetRepeats(all));
  EXPECT_EQ(stored(xmp), repeats(items));
  EXPECT_TRUE(xmp.GetRepeats(read) && xmp.SetRepeats(read));
  EXPECT_EQ(stored(xmp), repeats(items));
  for (const std::string& type : kTypes) {
    std::istringstream words(type);
    for (std::string name; std::getline(words, name, '='); words.ignore(9, ' ')) {
      Loaded other(repeats({items[0], elements("vxSRRep:", type, name), items[0]}));
      EXPECT_TRUE(other.GetRepeats(read) && read.size() == 1) << name << " of " << type;
    }
  }
  Loaded other(repeats({elements("vxSRRep:", "stationname=s hnr=x vnr=x " + kTypes[2]),
                        elements("vxSRRep:", "count=x " + kTypes[0], "")}));
  EXPECT_FALSE(other.GetRepeats(read));
  EXPECT_TRUE(read.size() == 1 && read[0].stationname.empty());
}

TEST(CadRegistration, IsStoredWholeAndReadUpToTheFirstGap) {
  const std::string all =
      "instanceID=i renditionClass= stationname=s orientation=-2 orgX=12.5 orgY=-0.123456789";
  XMPlib xmp;
  XMPlCadReg cad{"i", "", "s", -2, 12.5, -0.1234567891};
  EXPECT_TRUE(xmp.SetCadReg(cad));
  EXPECT_EQ(stored(xmp), elements("vxCadReg:", all));
  cad.orgY = -0.123456789;
  XMPlCadReg read;
  EXPECT_TRUE(xmp.GetCadReg(read) && read == cad);
  const char* const lacking[] = {"instanceID", "renditionClass", "stationname", "orgX", "orgY"};
  for (int i = 0; i < 5; ++i) {
    read = {"1", "1", "1", 1, 1, 1};
    EXPECT_FALSE(Loaded(elements("vxCadReg:", all, lacking[i])).GetCadReg(read)) << lacking[i];
    EXPECT_EQ((read.instanceID == "i") + read.renditionClass.empty() + (read.stationname == "s") +
                  (read.orgX == 12.5) + (read.orgY < 0),
              i);
  }
  XMPlCadReg other = cad;
  other.orgY = std::nextafter(cad.orgY, 0);
  cad.orgX = std::nan("");
  EXPECT_FALSE(other == cad || cad == XMPlCadReg(cad));
}
