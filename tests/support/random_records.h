// Records and items by their fields: all of them random or numbered, one missing or changed.
#pragma once

#include <cmath>
#include <functional>
#include <random>
#include <regex>
#include <sstream>
#include <tuple>

#include "support/packets.h"

// Every field, also those that operator== leaves out.
inline auto fieldsOf(XMPlInkBasic& r) {
  return std::tie(r.name, r.type, r.book, r.vxname, r.r, r.g, r.b, r.attribute, r.printingmethod);
}
inline auto fieldsOf(XMPlInk& r) {
  auto ink = std::tie(r.frequency, r.angle, r.dotshape, r.coverageValid, r.pct, r.mm2);
  return std::tuple_cat(fieldsOf(static_cast<XMPlInkBasic&>(r)), ink);
}
inline auto fieldsOf(XMPlInkDigFilm& r) {
  auto film = std::tie(r.opacity, r.inknrsoriginal);
  return std::tuple_cat(fieldsOf(static_cast<XMPlInkBasic&>(r)), film);
}
inline auto fieldsOf(XMPlInkProperty& r) {
  return std::tie(r.name, r.book, r.type, r.printingmethod);
}
inline auto fieldsOf(XMPlDgcc& r) { return std::tie(r.name, r.values); }
inline auto fieldsOf(XMPlUsedRef& r) { return std::tie(r.instanceID, r.renditionClass, r.pagenr); }
inline auto fieldsOf(XMPlScreen& r) {
  return std::tie(r.singlepressDGC, r.autoplateDGCreq, r.autoplateDGCLW, r.autoplateDGCCT,
                  r.autopressDGCreq, r.autopressDGCLW, r.autopressDGCCT, r.totalDGCCT, r.totalDGCLW,
                  r.gamma, r.usedrefs, r.hasScreening, r.frequencyreq, r.frequency, r.anglereq,
                  r.angle, r.dotshapereq, r.dotshape, r.dotname);
}

// For each field, whether a default record equals one that differs in that field alone.
template <class Record, class Equal = std::equal_to<>>
std::string equalButForOne(const Equal& equal = {}) {
  std::string result;
  Record a, b;
  const auto compare = [&]<class Value>(Value& field) {
    if constexpr (std::is_same_v<Value, std::string>) field += "x";
    if constexpr (std::is_same_v<Value, double>) field = std::nextafter(field, 1);
    if constexpr (std::is_same_v<Value, bool>) field = !field;
    result += equal(a, b) ? '=' : '!';
    fieldsOf(b) = fieldsOf(a);
  };
  std::apply([&](auto&... field) { (compare(field), ...); }, fieldsOf(b));
  return result;
}

// Elements in short: "name=A type book=" is name A, type 2 (its number) and an empty book.
inline std::string elements(const char* prefix, const std::string& names) {
  std::istringstream words(names);
  std::string text, word;
  for (int number = 1; words >> word; ++number) {
    if (word.find('=') == std::string::npos) word += "=" + std::to_string(number);
    const std::size_t sign = word.find('=');
    text += fields(prefix, {{word.substr(0, sign), word.substr(sign + 1)}});
  }
  return text;
}
inline std::string swapped(const std::string& names, const std::string& name,
                           const std::string& other = "") {
  return std::regex_replace(names, std::regex("\\b" + name + "\\b"), other);
}

using Items = std::vector<std::string>;

// For each name, how many of three items are read when the second lacks that field.
template <class Wrap, class Read>
std::string readWithout(const char* prefix, const std::string& names, const Wrap& wrap,
                        const Read& read) {
  std::istringstream words(names);
  std::string counts, name;
  for (const std::string whole = elements(prefix, names); words >> name;) {
    const Loaded xmp(wrap(Items{whole, elements(prefix, swapped(names, name)), whole}));
    counts += std::to_string(read(xmp).size());
  }
  return counts;
}

// Texts have neither control characters nor blanks at their ends, which XML may change.
template <class Record>
std::vector<Record> randomRecords(unsigned seed) {
  std::mt19937 random(seed);
  const auto pick = [&](int count) { return static_cast<int>(random() % unsigned(count)); };
  const auto fill = [&]<class Value>(Value& field) {
    if constexpr (std::is_same_v<Value, std::string>) {
      const char* const pieces[] = {"A",   "b c",  "d  e", "<",      "&",          "\"",
                                    "]]>", "<!--", "&lt;", "\u00e9", "\U0001f5a8", "omask"};
      for (int n = pick(4); n > 0; --n) field += pieces[pick(12)];
    } else if constexpr (std::is_same_v<Value, double>) {
      field = (pick(1999999999) - 999999999) / std::pow(10, pick(10));
    } else if constexpr (std::is_same_v<Value, std::vector<double>>) {
      for (int n = pick(6); n > 0; --n) field.push_back(pick(20000) / 64.0 - 100);
    } else {
      const int number = pick(2) == 0 ? 0 : pick(2000000) - 1000000;
      field = static_cast<Value>(number);
    }
  };
  std::vector<Record> records(static_cast<std::size_t>(1 + pick(5)));
  for (Record& record : records) {
    std::apply([&](auto&... field) { (fill(field), ...); }, fieldsOf(record));
  }
  return records;
}
