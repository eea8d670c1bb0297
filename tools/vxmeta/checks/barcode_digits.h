// SPDX-License-Identifier: Apache-2.0
// Barcodes of a fixed number of digits, the last of which checks the others.
#pragma once

#include <cstddef>
#include <string>

namespace vxmeta {

struct DigitCode {
  const char* name;       // "EAN-13"
  const char* plainName;  // "ean13"
  std::size_t digits;     // with the check digit
  bool hasAddOn;          // 2 or 5 digits may follow, behind a "+" or as a group of their own
};

// The code of that name, in any case of letters, with or without blanks and hyphens; null: another.
const DigitCode* digitCodeNamed(const std::string& name);

// The digits of a code without the blanks and hyphens between them, and without its add-on.
std::string mainDigits(const DigitCode& code, const std::string& text);

// The check digit for the digits before it.
char checkDigit(const std::string& digits);

}  // namespace vxmeta
