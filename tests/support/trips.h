// SPDX-License-Identifier: Apache-2.0
// Saving and loading again.
#pragma once

#include <gtest/gtest.h>

#include "support/packets.h"

// What is in the handle can be saved, and says the same when it is loaded again.
inline void expectToSurviveATrip(const XMPlib& xmp) {
  const std::string saved = xmp.GetXMLPacket(false, 1);
  EXPECT_EQ(xmp.ErrStr(), "");
  const FromText again(saved);
  EXPECT_EQ(again.ErrStr(), "") << saved;
  EXPECT_EQ(again.GetXMLPacket(false, 1), saved);
}
