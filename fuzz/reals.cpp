// SPDX-License-Identifier: Apache-2.0
// Numbers as text and back, against the C library and the rules of the stored form, taken word by
// word.
#include "core/value_text.h"
#include "target.h"

namespace {

std::string printed(const char* format, double value) {
  char text[400];
  std::snprintf(text, sizeof text, format, value);
  return text;
}

// Ten digits and the point, rounded on the digit behind them.
std::string cut(const std::string& digits) {
  std::string text = digits.substr(0, 11);
  if (digits.size() == text.size() || digits[11] < '5') return text;
  while (text.back() == '9') text.pop_back();
  if (text.back() != '.') return ++text.back(), text;
  text.pop_back();
  std::size_t place = text.size() - 1;
  while (place > 0 && text[place] == '9') --place;
  if (place == 0) return '1' + std::string(text.size(), '0');
  return ++text[place], text;
}

std::string realText(double value) {
  std::string text = printed("%10.9f", value);
  while (text.find('.') != text.npos && std::strchr("0.", text.back()) != nullptr) text.pop_back();
  const std::string sign = text.front() == '-' ? "-" : "";
  text.erase(0, sign.size());
  const std::size_t point = text.find('.');
  if (text.size() - (point == text.npos ? 0 : 1) < 10) return sign + text;
  return sign + (point > 10 ? "9999999999" : cut(text));
}

// Nothing where the conversion must fail.
template <class Number, class Convert>
std::optional<Number> converted(const std::string& text, const Convert& convert) {
  const std::size_t first = text.find_first_not_of(" \t\n\r");
  if (first == text.npos) return {};
  const std::string trimmed = text.substr(first, text.find_last_not_of(" \t\n\r") - first + 1);
  char* end = nullptr;
  errno = 0;
  const Number number = convert(trimmed.c_str(), &end);
  if (errno != 0 || end == trimmed.c_str() || *end != '\0') return {};
  return number;
}

void checkReal(double value) {
  const std::string text = xmpl::realText(value);
  expect(text == realText(value), "the text of the rules");
  const std::string again = xmpl::realText(xmpl::toReal(text));
  expect(xmpl::realText(xmpl::toReal(again)) == again, "stored reals settle");
  expect(xmpl::fixedText(value, 6) == printed("%.6f", value), "the C format");
}

void checkText(const std::string& text) {
  const auto real = attempt<XMP_Error>([&] { return xmpl::toReal(text); });
  const auto wanted = converted<double>(text, std::strtod);
  expect(real == wanted || (std::isnan(*real) && std::isnan(*wanted)), "the C library's reals");

  const auto integer = attempt<XMP_Error>([&] { return xmpl::toInteger(text); });
  const auto whole = converted<long long>(text, [](const char* digits, char** end) {
    return std::strtoll(digits, end, std::strncmp(digits, "0x", 2) == 0 ? 16 : 10);
  });
  const bool fits = whole && static_cast<std::int32_t>(*whole) == *whole;
  expect(fits ? integer == *whole : !integer, "the C library's integers, in 32 bits");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view input = textOf(data, size);
  const std::string text(input.substr(0, input.find('\0')));  // stored texts hold no NUL
  std::uint64_t bits = 0;
  std::memcpy(&bits, data, std::min(size, sizeof bits));
  double value = 0;
  std::memcpy(&value, &bits, sizeof value);
  checkReal(value);
  checkReal(static_cast<double>(bits >> bits % 60) / 1e9);
  checkReal(std::strtod(text.c_str(), nullptr));
  checkText(text);
  return 0;
}
