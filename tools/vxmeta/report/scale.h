// SPDX-License-Identifier: Apache-2.0
// Drawing to scale.
#pragma once

#include "report/svg.h"

namespace vxmeta {

// What a length is multiplied with, so that both sides fit into the room; 0 where they cannot be
// drawn.
double scaleToFit(double width, double height, Point room);

}  // namespace vxmeta
