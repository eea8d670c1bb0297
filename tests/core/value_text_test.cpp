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

struct RealText {
  double value;
  const char* text;
};

}  // namespace

TEST(RealText, HasAtMostTenSignificantDigits) {
  constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  const RealText rows[] = {
      {0, "0"},
      {-0.0, "-0"},
      {72, "72"},
      {2.54, "2.54"},
      {-0.5, "-0.5"},
      {1e-12, "0"},
      {0.123456789, "0.123456789"},
      {3.14159265358979, "3.141592654"},
      {12.3456789012, "12.34567890"},  // the cut keeps a trailing zero
      {-12.3456789012, "-12.34567890"},
      {123456.123456789, "123456.1235"},
      {12.999999999, "13"},
      {12.129999999, "12.13"},
      {99.9999999996, "100"},
      {123456789, "123456789"},
      {1234567890, "9999999999"},
      {-1234567890, "-9999999999"},
      {12345678901.5, "9999999999"},
      {1234567890.5, "1234567891"},
      {1234567890.4, "1234567890."},  // the cut keeps the point
      {129.999999995, "139"},         // the carry leaves the nine
      {19.999999995, "100"},          // the carry runs to the first digit
      {29.999999999, "100"},
      {1999999999.5, "10000000000"},
      {std::numeric_limits<double>::max(), "9999999999"},
      {std::numeric_limits<double>::denorm_min(), "0"},
      {kNaN, "9999999999"},
      {-kInfinity, "9999999999"},
  };
  for (const RealText& row : rows) EXPECT_EQ(realText(row.value), row.text) << row.value;
}

TEST(RealText, ReadsWhatTheCLibraryReads) {
  for (const char* text : {"0", "-12.5", "210.", "1e3", "+4.25", ".5", "0x1p3", "inf", "  7 ",
                           "123456789012345678901234567890.25",
                           "0.00000000000000000000000000000000000000000000000000000000000000001"}) {
    EXPECT_EQ(toReal(text), std::strtod(text, nullptr)) << text;
  }
  EXPECT_TRUE(std::isnan(toReal("nan")));
  EXPECT_EQ(errorOf(toReal, "12,5"), "Invalid float string");
  EXPECT_EQ(errorOf(toReal, "-"), "Invalid float string");
  EXPECT_EQ(errorOf(toReal, "1e999"), "Invalid float string");
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

TEST(IntegerText, ReadsWhatTheToolkitReads) {
  EXPECT_EQ(toInteger("-2147483648"), std::numeric_limits<std::int32_t>::min());
  EXPECT_EQ(toInteger("2147483647"), std::numeric_limits<std::int32_t>::max());
  EXPECT_EQ(toInteger(" +17\n"), 17);
  EXPECT_EQ(toInteger("0x1F"), 31);
  EXPECT_EQ(errorOf(toInteger, "2147483648"), "Overflow condition");
  EXPECT_EQ(errorOf(toInteger, "99999999999999999999"), "Overflow condition");
  EXPECT_EQ(errorOf(toInteger, "-99999999999999999999"), "Overflow condition");
  EXPECT_EQ(errorOf(toInteger, "12a"), "Invalid integer string");
  EXPECT_EQ(errorOf(toInteger, "1.5"), "Invalid integer string");
  EXPECT_EQ(errorOf(toInteger, "0x"), "Invalid integer string");
  EXPECT_EQ(errorOf(toInteger, ""), "Empty convert-from string");
}

TEST(BooleanText, ReadsWhatTheToolkitReads) {
  EXPECT_TRUE(toBoolean("True") && toBoolean("t") && toBoolean("1"));
  EXPECT_FALSE(toBoolean("False") || toBoolean("FALSE") || toBoolean("0"));
  EXPECT_EQ(errorOf(toBoolean, "yes"), "Invalid Boolean string");
  EXPECT_EQ(errorOf(toBoolean, ""), "Empty convert-from string");
  EXPECT_EQ(errorOf(toBoolean, " True"), "Invalid Boolean string");
}

TEST(SetPropertyFloat, WritesAPropertyOfAnySchemaAndLetsErrorsPass) {
  XMPlib xmp;
  xmp.SetProperty_Float("http://purl.org/dc/elements/1.1/", "source", 2.50);
  EXPECT_EQ(stored(xmp), "<dc:source>2.5</dc:source>");
  EXPECT_THROW(xmp.SetProperty_Float("http://unknown.example/", "x", 1), XMP_Error);
  Empty().SetProperty_Float("http://purl.org/dc/elements/1.1/", "source", 1);
}
