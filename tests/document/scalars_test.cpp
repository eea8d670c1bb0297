// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include "support/packets.h"

namespace {

using X = XMPlib;

std::string element(const std::string& name, const std::string& text) {
  return text.empty() ? "<" + name + "/>" : "<" + name + ">" + text + "</" + name + ">";
}

// What a Get makes of `before`, and its answer: '+' or '-'.
template <class Value>
auto got(const XMPlib& xmp, bool (X::*get)(Value&) const, Value before) {
  const bool found = (xmp.*get)(before);
  return std::pair(found ? '+' : '-', before);
}

// Values as texts: a Set stores them, a Get answers them. What is not there is `absent`.
template <class Value, class Given>
void keeps(const char* property, bool (X::*get)(Value&) const, bool (X::*set)(Given),
           const Value& before, const Value& absent,
           const std::vector<std::pair<Value, std::string>>& values) {
  SCOPED_TRACE(property);
  XMPlib xmp;
  EXPECT_EQ(got(xmp, get, before), std::pair('-', absent));
  EXPECT_EQ(xmp.ErrStr(), "");
  for (const auto& [value, text] : values) {
    EXPECT_TRUE((xmp.*set)(value));
    EXPECT_EQ(stored(xmp), element(property, text));
    EXPECT_EQ(got(xmp, get, before), std::pair('+', value));
  }
  Empty empty;
  EXPECT_EQ(got(empty, get, before), std::pair('-', absent));
}

template <class Value>
void refuses(const char* property, bool (X::*get)(Value&) const, Value before) {
  const Loaded wrong(element(property, "ten"));
  EXPECT_EQ(got(wrong, get, before), std::pair('-', Value())) << property;
}

}  // namespace

TEST(Scalars, IntegersAreStoredInDecimalAndZeroIsAValueOrNone) {
  const struct {
    bool (X::*get)(int&) const;
    bool (X::*set)(int);
    const char* property;
    bool zeroDeletes = false;
  } rows[] = {
      {&X::GetNrPages, &X::SetNrPages, "vxGr:nrpages"},
      {&X::GetStartLogPage, &X::SetStartLogPage, "vxGr:startlogpage"},
      {&X::GetPDFNativeVersion, &X::SetPDFNativeVersion, "vxPDFNat:version", true},
      {&X::GetDigitalFilmVersion, &X::SetDigitalFilmVersion, "vxDigFilm:version"},
      {&X::GetNrInksOriginalDocument, &X::SetNrInksOriginalDocument, "vxGr:nrinksoriginal"},
      {&X::GetDigitalJobVersion, &X::SetDigitalJobVersion, "vxDigJob:version"},
      {&X::GetVDPVersion, &X::SetVDPVersion, "orvoVDP:version", true},
  };
  for (const auto& row : rows) {
    keeps(row.property, row.get, row.set, 5, 0, {{-12, "-12"}, {7, "7"}});
    refuses(row.property, row.get, 5);
    XMPlib xmp;
    EXPECT_TRUE((xmp.*row.set)(5) && (xmp.*row.set)(0));
    EXPECT_EQ(stored(xmp), row.zeroDeletes ? "" : element(row.property, "0"));
  }
}

TEST(Scalars, BooleansAreTheToolkitsTexts) {
  keeps("vxGr:screenreg", &X::GetScreenReg, &X::SetScreenReg, true, false,
        {{true, "True"}, {false, "False"}});
  keeps("vxGr:trapped", &X::GetIsTrapped, &X::SetIsTrapped, true, false,
        {{true, "True"}, {false, "False"}});
  refuses("vxGr:screenreg", &X::GetScreenReg, true);
  refuses("vxGr:trapped", &X::GetIsTrapped, true);
}

TEST(Scalars, TextsAreStoredAsGivenAndTheEmptyTextIsAValue) {
  const struct {
    bool (X::*get)(std::string&) const;
    bool (X::*set)(const std::string&);
    const char* property;
    std::string absent;  // what "before" becomes where there is no property
  } rows[] = {
      {&X::GetSmartID, &X::SetSmartID, "vxSmartID:id", "before"},
      {&X::GetRectoVerso, &X::SetRectoVerso, "vxGr:sides", "before"},
      {&X::GetPDFNativeType, &X::SetPDFNativeType, "vxPDFNat:type", ""},
      {&X::GetPDFNativeVindrelVersion, &X::SetPDFNativeVindrelVersion, "vxPDFNat:vindrelversion",
       "undetermined"},
  };
  for (const auto& row : rows) {
    keeps(row.property, row.get, row.set, std::string("before"), row.absent,
          {{" <a & \xc3\xa9> ", " &lt;a &amp; \xc3\xa9&gt; "}, {"", ""}});
  }
}
