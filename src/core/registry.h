// SPDX-License-Identifier: Apache-2.0
// The process-wide table of metadata objects. A handle (XMPlib) holds a slot of it; copies of a
// handle share the slot.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <mutex>
#include <vector>

#include "core/toolkit/client.h"

namespace xmpl {

class MetaRegistry {
 public:
  // Never destroyed: handles of static storage may outlive any static of this library.
  static MetaRegistry& instance();

  // Guards the table and its counts. All members below expect their caller to hold it, but for
  // XMPlib::RemoveXAP, whose own caller keeps other threads away.
  std::mutex& mutex() { return mutex_; }

  // Starts the toolkit and registers the namespaces, once per process. Throws XMP_Error.
  void startToolkit();

  // Takes a metadata object, with one holder, into the lowest free slot.
  std::int32_t add(std::unique_ptr<Metadata> meta);
  void share(std::int32_t slot);    // one more holder
  void release(std::int32_t slot);  // one holder less; the last one takes the object with it

  Metadata* metadata(std::int32_t slot) const { return entry(slot).meta.get(); }
  std::int32_t holders(std::int32_t slot) const { return entry(slot).refcount; }
  std::size_t size() const { return entries_.size(); }

 private:
  struct MetaEntry {
    std::unique_ptr<Metadata> meta;
    std::int32_t refcount = 0;  // 0: the slot is free
  };

  const MetaEntry& entry(std::int32_t slot) const {
    return entries_[static_cast<std::size_t>(slot)];
  }
  MetaEntry& entry(std::int32_t slot) { return entries_[static_cast<std::size_t>(slot)]; }
  std::size_t lowestFreeSlot();

  std::mutex mutex_;
  std::vector<MetaEntry> entries_;  // never shrinks
  std::size_t firstFree_ = 0;       // no slot below it is free
  bool toolkitStarted_ = false;
};

}  // namespace xmpl
