// SPDX-License-Identifier: Apache-2.0
// Barcodes whose digits cannot be right.
#include <fmt/format.h>
#include <algorithm>

#include "checks/barcode_digits.h"
#include "checks/packet_checks.h"
#include "checks/packet_reading.h"

namespace vxmeta {
namespace {

// The symbology says more than the kind.
const DigitCode* codeOf(const XMPlBarcode& barcode) {
  const DigitCode* code = digitCodeNamed(barcode.symbolType);
  return code != nullptr ? code : digitCodeNamed(barcode.type);
}

bool isDigit(char c) { return c >= '0' && c <= '9'; }

bool fits(const DigitCode& code, const std::string& digits) {
  return digits.size() == code.digits && std::all_of(digits.begin(), digits.end(), isDigit);
}

// Calls `look(path, code, stored)` for each barcode of a fixed number of digits that has any.
template <class Look>
void forEachDigitCode(const XMPlib& packet, const Look& look) {
  std::vector<XMPlBarcode> barcodes;
  packet.GetBarcodes(barcodes);
  for (std::size_t i = 0; i < barcodes.size(); ++i) {
    const DigitCode* code = codeOf(barcodes[i]);
    if (code == nullptr || barcodes[i].code.empty()) continue;
    look(indexed("barcodes", i), *code, barcodes[i].code);
  }
}

void checkFit(const Subject& subject, Findings& found) {
  const auto look = [&](const std::string& path, const DigitCode& code, const std::string& stored) {
    if (fits(code, mainDigits(code, stored))) return;
    found.add(path + ".code",
              fmt::format("{} has the code {}, which is no {} of {} digits: no barcode can be made "
                          "of it",
                          path, quoted(stored), code.name, code.digits),
              "write all digits, the check digit too, or name the code that it is");
  };
  forEachDigitCode(subject.packet, look);
}

void checkCheckDigit(const Subject& subject, Findings& found) {
  const auto look = [&](const std::string& path, const DigitCode& code, const std::string& stored) {
    const std::string digits = mainDigits(code, stored);
    if (!fits(code, digits)) return;
    const char right = checkDigit(digits.substr(0, digits.size() - 1));
    if (digits.back() == right) return;
    found.add(path + ".code",
              fmt::format("the check digit of {} {} is {}, not {}: scanners refuse the code",
                          code.name, quoted(stored), right, digits.back()),
              "look for a wrong digit in the order before you correct the last one");
  };
  forEachDigitCode(subject.packet, look);
}

}  // namespace

std::vector<Check> packetBarcodeChecks() {
  return {
      {"barcode-digits", Severity::error,
       "a code is not the digits that EAN-13, EAN-8, UPC-A or ITF-14 have", checkFit},
      {"barcode-check-digit", Severity::error,
       "the last digit of an EAN-13, EAN-8, UPC-A or ITF-14 is wrong", checkCheckDigit},
  };
}

}  // namespace vxmeta
