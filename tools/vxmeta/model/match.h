// SPDX-License-Identifier: Apache-2.0
// Which items of two lists of records belong together.
#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "model/type.h"

namespace vxmeta {

struct Matching {
  std::vector<std::optional<std::size_t>> partners;  // of each item of the first list
  std::vector<std::size_t> added;                    // of the second list, without a partner
};

Matching match(const View& before, const View& after);

}  // namespace vxmeta
