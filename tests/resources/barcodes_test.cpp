// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <cmath>

#include "support/packets.h"

namespace {

using Barcodes = std::vector<XMPlBarcode>;

std::string barcodes(const Items& items) {
  Items stored;
  for (const std::string& item : items) stored.push_back(elements("vxBarc:", item));
  return list("vxBarcL:barcodes", "Bag", stored);
}

const XMPlBarcode kFull{"t", "s", "1", "2", 300, 0.25, true, true, 0, false, 9, 0.33, 2.5};
const XMPlBarcode kOff{"", "", "", "", -0.0, 5, false, false, 5, true, 1, 5, 5};

}  // namespace

TEST(Barcodes, AreStoredWithTheFieldsThatAreGiven) {
  XMPlib xmp;
  Barcodes read;
  EXPECT_TRUE(xmp.SetBarcodes({kFull, kOff}));
  EXPECT_EQ(stored(xmp),
            barcodes({"Type=t SymbolType=s Code=1 Code2=2 Resolution=300 BarWidthReduction=0.25 "
                      "DeviceCompensation=0 Narrow=0.33 Ratio=2.5",
                      "Type= Code= Magnification=1"}));
  EXPECT_TRUE(xmp.GetBarcodes(read) && read == (Barcodes{kFull, XMPlBarcode()}));
  EXPECT_EQ(read[0].magnification + read[1].narrow + read[1].barWidthReduction, 2);
}

TEST(Barcodes, HaveTheirSizeInTheMagnificationWhereItExists) {
  Barcodes read;
  Loaded xmp(
      barcodes({"Type Narrow=x Magnification=2 Ratio", "Type Ratio=3 Resolution", "Code", "Type"}));
  EXPECT_TRUE(xmp.GetBarcodes(read));
  ASSERT_EQ(read.size(), 2U);
  EXPECT_TRUE(read[0].useMagnification && !read[1].useMagnification);
  EXPECT_FALSE(read[1].hasBarWidthReduction || read[1].hasDeviceCompensation);
  EXPECT_EQ(read[0].magnification * 10 + read[0].ratio, 21);
  EXPECT_EQ(read[1].narrow * 10 + read[1].ratio, 13);
}

TEST(Barcodes, AreEqualInTheFieldsThatTheirFlagsMakeValid) {
  using B = XMPlBarcode;
  const auto equal = [](const B& barcode, auto member, auto value) {
    B other = barcode;
    other.*member = value;
    return other == barcode;
  };
  for (auto text : {&B::type, &B::symbolType, &B::code, &B::code2}) {
    EXPECT_FALSE(equal(kFull, text, "x"));
  }
  for (auto flag : {&B::hasBarWidthReduction, &B::hasDeviceCompensation, &B::useMagnification}) {
    EXPECT_FALSE(equal(kFull, flag, !(kFull.*flag)));
  }
  for (auto real : {&B::resolution, &B::barWidthReduction, &B::deviceCompensation, &B::narrow,
                    &B::ratio, &B::magnification}) {
    EXPECT_EQ(equal(kFull, real, std::nan("")), real == &B::magnification);
    EXPECT_EQ(equal(kOff, real, 7), real != &B::resolution && real != &B::magnification);
  }
}
