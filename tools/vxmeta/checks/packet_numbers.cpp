// SPDX-License-Identifier: Apache-2.0
#include "checks/packet_numbers.h"

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <sstream>
#include <string_view>

namespace vxmeta {
namespace {

// --- Numbers ------------------------------------------------------------------------------------

std::string trimmed(const std::string& text) {
  constexpr const char* kBlanks = " \t\n\r";
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string::npos) return "";
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

bool isInteger(const std::string& text) {
  const std::string number = trimmed(text);
  const bool isHexadecimal = number.starts_with("0x");
  char* end = nullptr;
  errno = 0;
  const long long value = isHexadecimal
                              ? static_cast<long long>(std::strtoull(number.c_str(), &end, 16))
                              : std::strtoll(number.c_str(), &end, 10);
  return errno == 0 && end != number.c_str() && *end == '\0' &&
         value >= std::numeric_limits<std::int32_t>::min() &&
         value <= std::numeric_limits<std::int32_t>::max();
}

bool isReal(const std::string& text) {
  const std::string number = trimmed(text);
  char* end = nullptr;
  errno = 0;
  (void)std::strtod(number.c_str(), &end);
  return errno == 0 && end != number.c_str() && *end == '\0';
}

bool areReals(const std::string& text) {
  std::istringstream words(text);
  for (std::string word; words >> word;) {
    if (!isReal(word)) return false;
  }
  return true;
}

bool isBoolean(std::string text) {
  for (char& c : text) c = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  constexpr std::string_view kWords[] = {"true", "t", "1", "false", "f", "0"};
  return std::find(std::begin(kWords), std::end(kWords), text) != std::end(kWords);
}

// --- Dates --------------------------------------------------------------------------------------

// "0000-00" is four digits, a hyphen and two digits.
bool hasForm(std::string_view text, std::string_view form) {
  return std::equal(text.begin(), text.end(), form.begin(), form.end(),
                    [](char c, char of) { return of == '0' ? c >= '0' && c <= '9' : c == of; });
}

// The number of two or four digits.
int numberAt(std::string_view text, std::size_t at, std::size_t digits) {
  int number = 0;
  std::from_chars(text.data() + at, text.data() + at + digits, number);
  return number;
}

bool isDay(std::string_view text) {
  constexpr std::string_view kForm = "0000-00-00";
  if (text.size() < 4 || !hasForm(text, kForm.substr(0, text.size()))) return false;
  const bool hasMonth = text.size() >= 7;
  const bool hasDay = text.size() == kForm.size();
  if (!hasDay && text.size() != 7 && text.size() != 4) return false;
  const std::chrono::year_month_day date{
      std::chrono::year{numberAt(text, 0, 4)},
      std::chrono::month{static_cast<unsigned>(hasMonth ? numberAt(text, 5, 2) : 1)},
      std::chrono::day{static_cast<unsigned>(hasDay ? numberAt(text, 8, 2) : 1)}};
  return date.ok();
}

bool isHourAndMinute(std::string_view text) {
  return hasForm(text, "00:00") && numberAt(text, 0, 2) < 24 && numberAt(text, 3, 2) < 60;
}

// "", "Z" or an offset; many programs leave it out.
bool isZone(std::string_view text) {
  if (text.empty() || text == "Z") return true;
  return (text[0] == '+' || text[0] == '-') && isHourAndMinute(text.substr(1));
}

// ":00" with a fraction; 60 is a leap second.
bool areSeconds(std::string_view text) {
  if (text.empty()) return true;
  const std::string_view fraction = text.substr(std::min<std::size_t>(text.size(), 3));
  if (!hasForm(text.substr(0, 3), ":00") || numberAt(text, 1, 2) > 60) return false;
  if (fraction.empty()) return true;
  return fraction.size() > 1 && fraction[0] == '.' &&
         fraction.find_first_not_of("0123456789", 1) == std::string_view::npos;
}

bool isTime(std::string_view text) {
  constexpr std::size_t kMinutes = 5;
  const std::size_t zone = std::min(text.find_first_of("Z+-"), text.size());
  return zone >= kMinutes && isHourAndMinute(text.substr(0, kMinutes)) &&
         areSeconds(text.substr(kMinutes, zone - kMinutes)) && isZone(text.substr(zone));
}

}  // namespace

const char* nameOf(ValueKind kind) {
  constexpr const char* kNames[] = {"whole number", "number", "truth value", "list of numbers"};
  return kNames[static_cast<int>(kind)];
}

bool isValue(ValueKind kind, const std::string& text) {
  switch (kind) {
    case ValueKind::integer:
      return isInteger(text);
    case ValueKind::real:
      return isReal(text);
    case ValueKind::boolean:
      return isBoolean(text);
    case ValueKind::reals:
      return areReals(text);
  }
  return true;
}

bool isDate(const std::string& text) {
  const std::size_t time = text.find('T');
  if (time == std::string::npos) return isDay(text);
  constexpr std::size_t kDay = 10;
  const std::string_view all = text;
  return time == kDay && isDay(all.substr(0, kDay)) && isTime(all.substr(kDay + 1));
}

}  // namespace vxmeta
