// SPDX-License-Identifier: Apache-2.0
#include "core/value_text.h"

#include <fast_float/fast_float.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
#include <clocale>
#include <cmath>
#include <cstdlib>
#include <limits>
#ifdef __APPLE__
#include <xlocale.h>
#endif

#include "core/ascii.h"
#include "core/toolkit/client.h"

namespace xmpl {
namespace {

[[noreturn]] void throwEmpty() { throw XMP_Error(kXMPErr_BadValue, "Empty convert-from string"); }

// As the toolkit does before it converts a number.
std::string_view trimmed(std::string_view text) {
  constexpr std::string_view kBlanks = " \t\n\r";
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

// Digits with at most one point among them, after an optional minus: the form of every real that
// this library writes. So short that it can neither overflow nor lose denormal bits.
bool isPlainDecimal(std::string_view text) {
  constexpr std::size_t kLongest = 64;
  if (text.starts_with('-')) text.remove_prefix(1);
  if (text.empty() || text.size() > kLongest || !isDigit(text.front())) return false;
  const auto notDigit = std::find_if_not(text.begin(), text.end(), isDigit);
  return notDigit == text.end() ||
         (*notDigit == '.' && std::all_of(notDigit + 1, text.end(), isDigit));
}

locale_t cLocale() {
  static const locale_t locale = newlocale(LC_ALL_MASK, "C", nullptr);
  return locale;
}

// The carry of a rounded real reached its point: drop the fraction, count up the integer part.
// Deliberate: nines that the carry passes stay as they are, and a carry that runs to the first
// character makes a power of ten of the whole part. Stored packets depend on both.
std::string carryIntoIntegerPart(std::string integerPart) {
  const std::size_t notNine = integerPart.find_last_not_of('9');
  if (notNine == std::string::npos || notNine == 0) {
    return '1' + std::string(integerPart.size(), '0');
  }
  ++integerPart[notNine];
  return integerPart;
}

// Ten significant digits of an unsigned text that has more. Trailing zeros and a trailing point
// of the cut text stay.
std::string cutToTenDigits(const std::string& digits) {
  constexpr std::size_t kKept = 11;  // ten digits and the point
  std::string cut = digits.substr(0, kKept);
  if (digits.size() <= kKept || digits[kKept] < '5') return cut;
  const std::size_t point = cut.find('.');
  const std::size_t notNine = cut.find_last_not_of('9');
  if (notNine == point) return carryIntoIntegerPart(cut.substr(0, point));
  ++cut[notNine];
  return cut.substr(0, notNine + 1);
}

std::string withoutTrailingZeros(std::string text) {
  if (text.find('.') == std::string::npos) return text;
  text.erase(text.find_last_not_of('0') + 1);
  if (text.back() == '.') text.pop_back();
  return text;
}

std::string unsignedRealText(std::string digits) {
  constexpr std::size_t kSignificant = 10;
  constexpr const char* kTooLarge = "9999999999";
  const std::size_t point = digits.find('.');
  const bool hasPoint = point != std::string::npos;
  if (digits.size() - (hasPoint ? 1 : 0) < kSignificant) return digits;
  if (!hasPoint || point > kSignificant) return kTooLarge;
  return cutToTenDigits(digits);
}

}  // namespace

std::int32_t toInteger(const std::string& text) {
  const std::string number(trimmed(text));
  if (number.empty()) throwEmpty();
  const bool hexadecimal = number.starts_with("0x");
  char* end = nullptr;
  errno = 0;
  const long long value = hexadecimal
                              ? static_cast<long long>(std::strtoull(number.c_str(), &end, 16))
                              : std::strtoll(number.c_str(), &end, 10);
  const int error = errno;
  if (end == number.c_str() || *end != '\0') {
    throw XMP_Error(kXMPErr_BadParam, "Invalid integer string");
  }
  constexpr long long kLowest = std::numeric_limits<std::int32_t>::min();
  constexpr long long kHighest = std::numeric_limits<std::int32_t>::max();
  if (error == ERANGE || value < kLowest || value > kHighest) {
    throw XMP_Error(kXMPErr_BadValue, "Overflow condition");
  }
  return static_cast<std::int32_t>(value);
}

double toReal(const std::string& text) {
  const std::string_view number = trimmed(text);
  if (number.empty()) throwEmpty();
  if (isPlainDecimal(number)) {
    double value = 0;
    fast_float::from_chars(number.data(), number.data() + number.size(), value);
    return value;
  }
  const std::string unusual(number);
  char* end = nullptr;
  errno = 0;
  const double value = strtod_l(unusual.c_str(), &end, cLocale());
  if (errno != 0 || *end != '\0') throw XMP_Error(kXMPErr_BadParam, "Invalid float string");
  return value;
}

bool toBoolean(const std::string& text) {
  if (text == kXMP_TrueStr) return true;
  if (text == kXMP_FalseStr) return false;
  if (text.empty()) throwEmpty();
  return ToolkitUtils::ConvertToBool(text);
}

void refuseOverlong(const char* text) {
  const auto byte = [](char c) { return static_cast<unsigned char>(c); };
  for (; *text != '\0'; ++text) {
    const unsigned lead = byte(text[0]), next = byte(text[1]);
    if (lead < 0xC0) continue;
    const unsigned least = lead <= 0xC1 ? 0xC0 : lead == 0xE0 ? 0xA0 : lead == 0xF0 ? 0x90 : 0;
    const bool isContinued = next >= 0x80;  // else it is no UTF-8 at all, which the toolkit refuses
    if (isContinued && next < least) {
      throw XMP_Error(kXMPErr_BadParam, "Bad UTF-8 - overlong form");
    }
  }
}

std::string integerText(std::int32_t value) { return std::to_string(value); }

std::string_view booleanText(bool value) { return value ? kXMP_TrueStr : kXMP_FalseStr; }

std::string fixedText(double value, int decimals) {
  constexpr std::size_t kLongest = 1 + 309 + 1 + 9;  // -DBL_MAX with nine decimals
  std::array<char, kLongest> buffer{};
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                 std::chars_format::fixed, decimals);
  return {buffer.data(), end.ptr};
}

std::string realText(double value) {
  // Deliberate: NaN and the infinities come out as the largest number. The C format pads them to
  // ten characters, with their sign behind blanks, and ten characters without a point are ten
  // digits too many.
  if (!std::isfinite(value)) return "9999999999";
  std::string text = withoutTrailingZeros(fixedText(value, 9));
  if (!text.starts_with('-')) return unsignedRealText(std::move(text));
  return '-' + unsignedRealText(text.substr(1));
}

double leadingReal(const char* text) { return strtod_l(text, nullptr, cLocale()); }

}  // namespace xmpl
