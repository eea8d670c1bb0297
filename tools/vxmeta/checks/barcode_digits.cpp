// SPDX-License-Identifier: Apache-2.0
#include "checks/barcode_digits.h"

#include <algorithm>
#include <cctype>

namespace vxmeta {
namespace {

constexpr DigitCode kCodes[] = {
    {"EAN-13", "ean13", 13, true},
    {"EAN-8", "ean8", 8, true},
    {"UPC-A", "upca", 12, true},
    {"ITF-14", "itf14", 14, false},
};

bool isSeparator(char c) { return c == ' ' || c == '-'; }

std::string withoutSeparators(std::string text) {
  text.erase(std::remove_if(text.begin(), text.end(), isSeparator), text.end());
  return text;
}

bool isAddOn(const std::string& text) { return text.size() == 2 || text.size() == 5; }

}  // namespace

const DigitCode* digitCodeNamed(const std::string& name) {
  std::string plain = withoutSeparators(name);
  for (char& c : plain) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  const auto* code = std::find_if(std::begin(kCodes), std::end(kCodes),
                                  [&](const DigitCode& one) { return plain == one.plainName; });
  return code == std::end(kCodes) ? nullptr : code;
}

std::string mainDigits(const DigitCode& code, const std::string& text) {
  const std::string digits = withoutSeparators(text);
  const std::size_t plus = digits.find('+');
  const bool hasAddOn =
      code.hasAddOn && plus != std::string::npos && isAddOn(digits.substr(plus + 1));
  return hasAddOn ? digits.substr(0, plus) : digits;
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
