// SPDX-License-Identifier: Apache-2.0
#include "checks/barcode_digits.h"

#include <algorithm>
#include <cctype>
#include <string_view>

namespace vxmeta {
namespace {

constexpr DigitCode kCodes[] = {
    {"EAN-13", "ean13", 13, true},
    {"EAN-8", "ean8", 8, true},
    {"UPC-A", "upca", 12, true},
    {"ITF-14", "itf14", 14, false},
};

constexpr std::string_view kSeparators = " -";

std::string withoutSeparators(std::string_view text) {
  std::string rest(text);
  std::erase_if(rest, [](char c) { return kSeparators.find(c) != std::string_view::npos; });
  return rest;
}

bool isAddOn(std::string_view text) { return text.size() == 2 || text.size() == 5; }

// What stands before the add-on; all, where there is none.
std::string_view withoutAddOn(const DigitCode& code, std::string_view text) {
  const std::size_t plus = text.find('+');
  if (plus != std::string_view::npos) {
    return isAddOn(withoutSeparators(text.substr(plus + 1))) ? text.substr(0, plus) : text;
  }
  const std::size_t group = text.find_last_of(kSeparators) + 1;
  const std::string_view before = text.substr(0, group);
  const bool isWhole = withoutSeparators(before).size() == code.digits;
  return isWhole && isAddOn(text.substr(group)) ? before : text;
}

}  // namespace

const DigitCode* digitCodeNamed(const std::string& name) {
  std::string plain = withoutSeparators(name);
  for (char& c : plain) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  const auto* code = std::find_if(std::begin(kCodes), std::end(kCodes),
                                  [&](const DigitCode& one) { return plain == one.plainName; });
  return code == std::end(kCodes) ? nullptr : code;
}

std::string mainDigits(const DigitCode& code, const std::string& text) {
  return withoutSeparators(code.hasAddOn ? withoutAddOn(code, text) : text);
}

// From the right, the digits count three times and once by turns; the check digit makes the sum a
// multiple of ten.
char checkDigit(const std::string& digits) {
  int sum = 0;
  int weight = 3;
  std::for_each(digits.rbegin(), digits.rend(), [&](char digit) {
    sum += weight * (digit - '0');
    weight = 4 - weight;
  });
  return static_cast<char>('0' + (10 - sum % 10) % 10);
}

}  // namespace vxmeta
