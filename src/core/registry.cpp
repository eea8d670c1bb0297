// SPDX-License-Identifier: Apache-2.0
#include "core/registry.h"

#include <algorithm>
#include <utility>

#include "core/namespaces.h"

namespace xmpl {

MetaRegistry& MetaRegistry::instance() {
  static MetaRegistry& registry = *new MetaRegistry;
  return registry;
}

void MetaRegistry::startToolkit() {
  if (toolkitStarted_) return;
  try {
    if (!Metadata::Initialize()) {
      throw XMP_Error(kXMPErr_InternalFailure, "The XMP Toolkit did not start");
    }
    // Before the first parse: the toolkit never forgets a prefix that a packet bound first.
    registerNamespaces();
  } catch (...) {
    // It counts a start that failed: the next would be content with its half-made tables.
    Metadata::Terminate();
    throw;
  }
  toolkitStarted_ = true;
}

std::int32_t MetaRegistry::add(std::unique_ptr<Metadata> meta) {
  const std::size_t slot = lowestFreeSlot();
  if (slot == entries_.size()) entries_.emplace_back();
  entries_[slot] = {std::move(meta), 1};
  return static_cast<std::int32_t>(slot);
}

void MetaRegistry::share(std::int32_t slot) { ++entry(slot).refcount; }

void MetaRegistry::release(std::int32_t slot) {
  MetaEntry& released = entry(slot);
  if (--released.refcount > 0) return;
  released.meta.reset();
  firstFree_ = std::min(firstFree_, static_cast<std::size_t>(slot));
}

std::size_t MetaRegistry::lowestFreeSlot() {
  while (firstFree_ < entries_.size() && entries_[firstFree_].refcount > 0) ++firstFree_;
  return firstFree_;
}

}  // namespace xmpl
