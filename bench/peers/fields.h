// SPDX-License-Identifier: Apache-2.0
// The fields of records by name, for those who meet them in a walk.
#pragma once

#include <charconv>
#include <string_view>

#include "records.h"

namespace bench {

template <class Record, class Value>
struct Field {
  std::string_view name;
  Value Record::*member;
};

inline constexpr Field<XMPlInk, std::string> kInkTexts[] = {
    {"vxInk:name", &XMPlInk::name},
    {"vxInk:type", &XMPlInk::type},
    {"vxInk:book", &XMPlInk::book},
    {"vxInk:vxname", &XMPlInk::vxname},
    {"vxInk:dotshape", &XMPlInk::dotshape},
    {"vxInk:attribute", &XMPlInk::attribute},
    {"vxInk:printingmethod", &XMPlInk::printingmethod}};
inline constexpr Field<XMPlInk, double> kInkReals[] = {{"vxInk:frequency", &XMPlInk::frequency},
                                                       {"vxInk:angle", &XMPlInk::angle},
                                                       {"vxInk:r", &XMPlInk::r},
                                                       {"vxInk:g", &XMPlInk::g},
                                                       {"vxInk:b", &XMPlInk::b},
                                                       {"vxInkCov:pct", &XMPlInk::pct},
                                                       {"vxInkCov:mm2", &XMPlInk::mm2}};
inline constexpr Field<XMPlFont, std::string> kFontTexts[] = {
    {"vxFont:name", &XMPlFont::name},
    {"vxFont:type", &XMPlFont::type},
    {"vxFont:location", &XMPlFont::location},
    {"vxFont:fontfile", &XMPlFont::fontfile}};

inline constexpr std::string_view kLastOfCoverage = "vxInkCov:mm2";

inline double real(std::string_view text) {
  double value = 0;
  std::from_chars(text.data(), text.data() + text.size(), value);
  return value;
}

template <class Fields>
auto fieldNamed(std::string_view name, const Fields& fields) {
  for (const auto& field : fields) {
    if (field.name == name) return field.member;
  }
  return decltype(fields[0].member){nullptr};
}

inline void setField(std::string_view name, std::string_view value, XMPlInk& ink) {
  if (const auto text = fieldNamed(name, kInkTexts)) {
    ink.*text = value;
  } else if (const auto number = fieldNamed(name, kInkReals)) {
    ink.*number = real(value);
    if (name == kLastOfCoverage) ink.coverageValid = true;
  } else if (name == "vxInk:omask" && value == "True") {
    ink.attribute = "omask";
  }
}

inline void setField(std::string_view name, std::string_view value, XMPlFont& font) {
  if (const auto text = fieldNamed(name, kFontTexts)) {
    font.*text = value;
  } else if (name == "vxFont:protection") {
    font.protection = value == "True";
  }
}

}  // namespace bench
