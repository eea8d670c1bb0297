// SPDX-License-Identifier: Apache-2.0
// Saving and loading, again and again.
#pragma once

#include "packets.h"
#include "words.h"

// Of a packet that was saved.
inline void checkTrips(const std::string& text) {
  const std::string second = saved(Reloaded(text));
  expectWordsKept(text, second);
  const std::string third = saved(Reloaded(second));
  expect(third == second, "from the second trip on the text is stable", second + third);
}
