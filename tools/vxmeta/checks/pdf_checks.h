// SPDX-License-Identifier: Apache-2.0
// Checks of a PDF against the packet in it.
#pragma once

#include <vector>

#include "checks/finding.h"

namespace vxmeta {

std::vector<Check> pdfChecks();

}  // namespace vxmeta
