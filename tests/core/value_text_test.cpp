// SPDX-License-Identifier: Apache-2.0
#include "core/value_text.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cmath>
#include <cstdlib>
#include <limits>

#include "core/toolkit/client.h"
#include "support/packets.h"

using namespace xmpl;

namespace {

template <class Convert>
std::string errorOf(Convert convert, const std::string& text) {
  try {
    convert(text);
  } catch (const XMP_Error& error) {
    return messageOf(error);
  }
  return "none";
}

}  // namespace

TEST(RealText, HasAtMostTenSignificantDigits) {
  const std::string rows[] = {
      "0=0", "-0=-0", "72=72", "2.54=2.54", "-0.5=-0.5", "1e-12=0", "5e-324=0",
      "0.123456789=0.123456789", "3.14159265358979=3.141592654", "123456.123456789=123456.1235",
      "12.999999999=13", "12.129999999=12.13", "99.9999999996=100", "123456789=123456789",
      "1234567890=9999999999", "-1234567890=-9999999999", "12345678901.5=9999999999",
      "1.7976931348623157e308=9999999999", "nan=9999999999", "-inf=9999999999",
      "1234567890.5=1234567891",
      // The cut keeps a trailing zero, and the point.
      "12.3456789012=12.34567890", "-12.3456789012=-12.34567890", "1234567890.4=1234567890.",
      // The carry leaves the nine, or runs to the first digit.
      "129.999999995=139", "19.999999995=100", "29.999999999=100", "1999999999.5=10000000000"};
  for (const std::string& row : rows) {
    const double value = std::strtod(row.c_str(), nullptr);
    EXPECT_EQ(realText(value), row.substr(row.find('=') + 1)) << row;
  }
}

TEST(RealText, ReadsWhatTheCLibraryReads) {
  for (const char* text : {"0", "-12.5", "210.", "1e3", "+4.25", ".5", "0x1p3", "inf", "  7 ",
                           "123456789012345678901234567890.25",
                           "0.00000000000000000000000000000000000000000000000000000000000000001"}) {
    EXPECT_EQ(toReal(text), std::strtod(text, nullptr)) << text;
  }
  EXPECT_TRUE(std::isnan(toReal("nan")));
  for (const char* wrong : {"12,5", "-", "1e999"}) {
    EXPECT_EQ(errorOf(toReal, wrong), "Invalid float string") << wrong;
  }
  EXPECT_EQ(errorOf(toReal, " "), "Empty convert-from string");
}

TEST(RealText, IsTheSameInALocaleWithADecimalComma) {
  setenv("LOCPATH", XMPLIB_TEST_LOCALES, 1);
  const bool hasLocale = std::setlocale(LC_ALL, "de_DE.UTF-8") != nullptr;
  if (!hasLocale) GTEST_SKIP() << "no locale with a decimal comma could be made";
  const std::string name = std::setlocale(LC_ALL, nullptr);
  EXPECT_EQ(realText(2.5), "2.5");
  EXPECT_EQ(fixedText(12.5, 6), "12.500000");
  EXPECT_EQ(toReal("2.5"), 2.5);
  EXPECT_EQ(toReal("25e-1"), 2.5);
  EXPECT_EQ(leadingReal("2.5 x"), 2.5);
  EXPECT_EQ(errorOf(toReal, "2,5"), "Invalid float string");
  EXPECT_EQ(std::setlocale(LC_ALL, nullptr), name);
  std::setlocale(LC_ALL, "C");
}

// The toolkit takes it for 0.
TEST(IntegerText, NeedsDigitsBehindItsPrefix) {
  EXPECT_EQ(errorOf(toInteger, "0x"), "Invalid integer string");
}

TEST(SetPropertyFloat, WritesAPropertyOfAnySchemaAndLetsErrorsPass) {
  XMPlib xmp;
  xmp.SetProperty_Float("http://purl.org/dc/elements/1.1/", "source", 2.50);
  EXPECT_EQ(stored(xmp), "<dc:source>2.5</dc:source>");
  EXPECT_THROW(xmp.SetProperty_Float("http://unknown.example/", "x", 1), XMP_Error);
  Empty().SetProperty_Float("http://purl.org/dc/elements/1.1/", "source", 1);
}
