// SPDX-License-Identifier: Apache-2.0
// The two sides that nearly every group has, made ready.
#pragma once

#include <array>
#include <memory>
#include <stdexcept>

#include "by_hand.h"
#include "cases.h"
#include "records.h"

namespace bench {

using by_hand::Meta;

inline constexpr std::array<std::size_t, 5> kSizes{10, 100, 1000, 10000, 100000};
inline constexpr std::size_t kLargestForPeers = 10000;

inline std::shared_ptr<XMPlib> loaded(const std::string& packet) {
  auto xmp = std::make_shared<XMPlib>();
  xmp->SetXML(packet);
  if (!xmp->ErrStr().empty()) throw std::runtime_error(xmp->ErrStr());
  return xmp;
}

inline std::shared_ptr<Meta> parsed(const std::string& packet) {
  auto meta = std::make_shared<Meta>();
  by_hand::parse(*meta, packet);
  return meta;
}

inline std::size_t digestOf(const Meta& meta) {
  std::string text;
  by_hand::serialise(meta, text);
  return digest(text);
}

}  // namespace bench
