// SPDX-License-Identifier: Apache-2.0
// What the checks take for one name, a number, a date, a barcode.
#include <gtest/gtest.h>

#include <XMPlib.h>

#include "checks/barcode_digits.h"
#include "checks/folded_name.h"
#include "checks/packet_numbers.h"
#include "support/packet_parts.h"
#include "support/packets.h"

namespace {

using parts::element;

TEST(CheckValues, NamesAreOneButForCaseAndBlanks) {
  struct Pair {
    const char *capital, *small;
  };
  for (const Pair& pair :
       {Pair{"PANTONE 485", "Pantone\t485"}, Pair{"ÀÖØÞ", "àöøþ"},
        Pair{"ĀĮĲĶĹŇŊŶŸŹŽ", "āįĳķĺňŋŷÿźž"}, Pair{"ΆΈΊΌΎΏΑΡΣΫ", "άέίόύώαρςϋ"},
        Pair{"ЀЏАЯҐҾӐ", "ѐџаяґҿӑ"}, Pair{"ẠỹỸ", "ạỹỹ"}, Pair{" a\u00A0b\u2009c\u3000", "ab\u202Fc"},
        Pair{"gr\u00FCn", "GRU\u0308N"}, Pair{"STRASSE", "straße"}}) {
    EXPECT_EQ(vxmeta::folded(pair.capital), vxmeta::folded(pair.small)) << pair.capital;
  }
  for (const Pair& pair : {Pair{"×", "÷"}, Pair{"ß", "ÿ"}, Pair{"a-b", "ab"}, Pair{"ŉ", "Ŋ"},
                           Pair{"Ä", "A"}, Pair{"@", "`"}, Pair{"Б", "В"}}) {
    EXPECT_NE(vxmeta::folded(pair.capital), vxmeta::folded(pair.small)) << pair.capital;
  }
}

TEST(CheckValues, Dates) {
  for (const char* date : {"2026", "2026-11", "2026-11-02", "2026-11-02T09:30", "2026-11-02T09:30Z",
                           "2026-11-02T09:30:15.25+01:00", "2016-12-31T23:59:60Z"}) {
    EXPECT_TRUE(vxmeta::isDate(date)) << date;
  }
  for (const char* text : {"", "26", "2026-1-2", "2026-13", "2026-11-31", "2026-11-02T",
                           "2026T09:30", "2026-11-02T24:00", "2026-11-02T09:30:15.",
                           "2026-11-02T09:30+1", "2026-11-02 09:30", "D:20261102", "2 Nov 2026"}) {
    EXPECT_FALSE(vxmeta::isDate(text)) << text;
  }
}

// They are what the library reads.
TEST(CheckValues, NumbersAreThoseThatAreRead) {
  for (const char* text : {"1", " -1\n", "+7", "0x1F", "0X1F", "0xFFFFFFFF", "2147483648", "", " ",
                           "1.5", "1e3", "12,5", "1e999", "nan", "inf", "0x", "1 2", "--1"}) {
    XMPlib xmp;
    xmp.SetXML(packet(element("vxGr:nrpages", text) + element("vxGr:vsize", text)));
    int number = 0;
    EXPECT_EQ(isValue(vxmeta::ValueKind::integer, text), xmp.GetNrPages(number)) << text;
    XMPlDimDat page;
    page.vsize = 0;
    xmp.GetDimDat(page);
    EXPECT_EQ(isValue(vxmeta::ValueKind::real, text), xmp.ErrStr().empty()) << text;
  }
}

TEST(CheckValues, CheckDigits) {
  struct Code {
    const char *name, *text;
  };
  for (const Code& code : {Code{"EAN-13", "9780306406157"}, Code{"Ean 8", "9638-5074"},
                           Code{"upca", "0 36000 29145 2"}, Code{"ITF14", "15400141288763"},
                           Code{"EAN-13", "9780306406157+51995"}}) {
    const vxmeta::DigitCode* known = vxmeta::digitCodeNamed(code.name);
    ASSERT_NE(known, nullptr) << code.name;
    const std::string digits = mainDigits(*known, code.text);
    ASSERT_EQ(digits.size(), known->digits);
    EXPECT_EQ(vxmeta::checkDigit(digits.substr(0, digits.size() - 1)), digits.back()) << code.text;
  }
  EXPECT_EQ(vxmeta::digitCodeNamed("EAN-128"), nullptr);
}

}  // namespace
