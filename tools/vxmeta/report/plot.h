// SPDX-License-Identifier: Apache-2.0
// Curves in one plot.
#pragma once

#include <cstddef>
#include <vector>

#include "model/document.h"
#include "report/html.h"

namespace vxmeta {

// More curves than these are not told apart in one plot.
constexpr std::size_t kMostDrawnCurves = 12;

// The plot of the first curves; nothing without two finite values in any of them.
Markup plotOf(const std::vector<XMPlDgcc>& curves);

// A sample of the line that stands for the curve of that number.
Markup sampleOf(std::size_t curve);

}  // namespace vxmeta
