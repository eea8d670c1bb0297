// SPDX-License-Identifier: Apache-2.0
// Changes as they are printed.
#pragma once

#include <string>
#include <vector>

#include "model/compare.h"
#include "model/json.h"
#include "text/terminal.h"

namespace vxmeta {

// A line each: + added, - removed, ~ changed, ^ in another order.
std::string changesText(const std::vector<Change>& changes, const Screen& screen);

Json changeJson(const Change& change);

}  // namespace vxmeta
