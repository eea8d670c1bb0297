#include <gtest/gtest.h>

#include "support/packets.h"

namespace {

struct IntegerScalar {
  bool (XMPlib::*get)(int&) const;
  bool (XMPlib::*set)(int);
  const char* property;
  bool zeroDeletes;
};
const IntegerScalar kIntegers[] = {
    {&XMPlib::GetNrPages, &XMPlib::SetNrPages, "vxGr:nrpages", false},
    {&XMPlib::GetStartLogPage, &XMPlib::SetStartLogPage, "vxGr:startlogpage", false},
    {&XMPlib::GetPDFNativeVersion, &XMPlib::SetPDFNativeVersion, "vxPDFNat:version", true},
    {&XMPlib::GetDigitalFilmVersion, &XMPlib::SetDigitalFilmVersion, "vxDigFilm:version", false},
    {&XMPlib::GetNrInksOriginalDocument, &XMPlib::SetNrInksOriginalDocument, "vxGr:nrinksoriginal",
     false},
    {&XMPlib::GetDigitalJobVersion, &XMPlib::SetDigitalJobVersion, "vxDigJob:version", false},
    {&XMPlib::GetVDPVersion, &XMPlib::SetVDPVersion, "orvoVDP:version", true},
};

struct BooleanScalar {
  bool (XMPlib::*get)(bool&) const;
  bool (XMPlib::*set)(bool);
  const char* property;
};
const BooleanScalar kBooleans[] = {
    {&XMPlib::GetScreenReg, &XMPlib::SetScreenReg, "vxGr:screenreg"},
    {&XMPlib::GetIsTrapped, &XMPlib::SetIsTrapped, "vxGr:trapped"},
};

struct TextScalar {
  bool (XMPlib::*get)(std::string&) const;
  bool (XMPlib::*set)(const std::string&);
  const char* property;
  const char* absent;  // what "before" becomes where there is no property
};
const TextScalar kTexts[] = {
    {&XMPlib::GetSmartID, &XMPlib::SetSmartID, "vxSmartID:id", "before"},
    {&XMPlib::GetRectoVerso, &XMPlib::SetRectoVerso, "vxGr:sides", "before"},
    {&XMPlib::GetPDFNativeType, &XMPlib::SetPDFNativeType, "vxPDFNat:type", ""},
    {&XMPlib::GetPDFNativeVindrelVersion, &XMPlib::SetPDFNativeVindrelVersion,
     "vxPDFNat:vindrelversion", "undetermined"},
};

std::string element(const std::string& name, const std::string& text) {
  return "<" + name + ">" + text + "</" + name + ">";
}

}  // namespace

TEST(Scalars, IntegersAreStoredInDecimalAndZeroIsAValueOrNone) {
  for (const IntegerScalar& row : kIntegers) {
    SCOPED_TRACE(row.property);
    XMPlib xmp;
    int value = 5;
    EXPECT_FALSE((xmp.*row.get)(value));
    EXPECT_EQ(value, 0);
    EXPECT_TRUE((xmp.*row.set)(-12));
    EXPECT_EQ(stored(xmp), element(row.property, "-12"));
    EXPECT_TRUE((xmp.*row.get)(value));
    EXPECT_EQ(value, -12);
    EXPECT_TRUE((xmp.*row.set)(0));
    EXPECT_EQ(stored(xmp), row.zeroDeletes ? "" : element(row.property, "0"));
    EXPECT_EQ((xmp.*row.get)(value), !row.zeroDeletes);
    EXPECT_EQ(value, 0);
    Loaded wrong(element(row.property, "ten"));
    value = 5;
    EXPECT_FALSE((wrong.*row.get)(value));
    EXPECT_EQ(value, 0);
    EXPECT_EQ(wrong.ErrStr(), "Invalid integer string");
    Empty empty;
    value = 5;
    EXPECT_FALSE((empty.*row.get)(value) || (empty.*row.set)(0));
    EXPECT_EQ(value, 0);
    EXPECT_EQ(empty.ErrStr(), "Illegal XAP");
  }
}

TEST(Scalars, BooleansAreTheToolkitsTexts) {
  for (const BooleanScalar& row : kBooleans) {
    SCOPED_TRACE(row.property);
    XMPlib xmp;
    bool value = true;
    EXPECT_FALSE((xmp.*row.get)(value) || value);
    EXPECT_TRUE((xmp.*row.set)(true));
    EXPECT_EQ(stored(xmp), element(row.property, "True"));
    EXPECT_TRUE((xmp.*row.get)(value) && value);
    EXPECT_TRUE((xmp.*row.set)(false));
    EXPECT_EQ(stored(xmp), element(row.property, "False"));
    Loaded wrong(element(row.property, "maybe"));
    EXPECT_FALSE((wrong.*row.get)(value));
    EXPECT_EQ(wrong.ErrStr(), "Invalid Boolean string");
    Empty empty;
    EXPECT_FALSE((empty.*row.get)(value) || (empty.*row.set)(true));
  }
}

TEST(Scalars, TextsAreStoredAsGivenAndTheEmptyTextIsAValue) {
  for (const TextScalar& row : kTexts) {
    SCOPED_TRACE(row.property);
    XMPlib xmp;
    std::string value = "before";
    EXPECT_FALSE((xmp.*row.get)(value));
    EXPECT_EQ(value, row.absent);
    EXPECT_EQ(xmp.ErrStr(), "");
    EXPECT_TRUE((xmp.*row.set)(" <a & \xc3\xa9> "));
    EXPECT_TRUE((xmp.*row.get)(value));
    EXPECT_EQ(value, " <a & \xc3\xa9> ");
    EXPECT_TRUE((xmp.*row.set)(""));
    EXPECT_TRUE((xmp.*row.get)(value));
    EXPECT_EQ(value, "");
    EXPECT_FALSE((xmp.*row.set)("\xff"));
    EXPECT_EQ(xmp.ErrStr(), "Invalid UTF-8 sequence length");
    Empty empty;
    EXPECT_FALSE((empty.*row.get)(value) || (empty.*row.set)(""));
  }
}
