// SPDX-License-Identifier: Apache-2.0
// The registry of metadata objects, counted.
#pragma once

#include <gtest/gtest.h>

#include "core/registry.h"

inline std::size_t slotsInUse() {
  const xmpl::MetaRegistry& registry = xmpl::MetaRegistry::instance();
  std::size_t used = 0;
  for (std::size_t slot = 0; slot < registry.size(); ++slot) {
    const auto number = static_cast<std::int32_t>(slot);
    const bool isUsed = registry.holders(number) > 0;
    EXPECT_EQ(registry.metadata(number) != nullptr, isUsed);  // a free slot holds no object
    if (isUsed) ++used;
  }
  return used;
}
