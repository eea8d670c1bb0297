// SPDX-License-Identifier: Apache-2.0
// Checks of a packet by itself.
#pragma once

#include <vector>

#include "checks/finding.h"

namespace vxmeta {

std::vector<Check> packetLossChecks();     // what a reading leaves out
std::vector<Check> packetValueChecks();    // numbers, dates, languages, units
std::vector<Check> packetBarcodeChecks();  // digits
std::vector<Check> packetInkChecks();      // inks and their coverage
std::vector<Check> packetScreenChecks();   // screens and DGC curves
std::vector<Check> packetPageChecks();     // page ranges
std::vector<Check> packetListChecks();     // references, fonts, repeats
std::vector<Check> packetStateChecks();    // wrapper, and the library's limits

}  // namespace vxmeta
