// SPDX-License-Identifier: Apache-2.0
// The handle: its life, its slot of the registry, its error text.
#include <memory>
#include <mutex>
#include <utility>

#include "XMPlib.h"
#include "core/registry.h"
#include "core/toolkit/whole_trees.h"

using xmpl::MetaRegistry;

XMPlib::XMPlib() { CreateXAP(); }

XMPlib::XMPlib(XMPlib& other) : slot(other.slot), meta(other.meta) {
  if (slot < 0) return;
  MetaRegistry& registry = MetaRegistry::instance();
  const std::lock_guard<std::mutex> lock(registry.mutex());
  registry.share(slot);
}

XMPlib::XMPlib(XMPlib&& other) noexcept { takeFrom(other); }

XMPlib& XMPlib::operator=(XMPlib&& other) noexcept {
  if (this == &other) return *this;
  {
    const std::lock_guard<std::mutex> lock(MetaRegistry::instance().mutex());
    release();
  }
  takeFrom(other);
  return *this;
}

XMPlib::~XMPlib() {
  const std::lock_guard<std::mutex> lock(MetaRegistry::instance().mutex());
  release();
}

std::int32_t XMPlib::Version() { return XMPLIB_VERSION; }

const std::string& XMPlib::ErrStr() const { return errStr; }

void XMPlib::CreateXAP() {
  errStr.clear();
  MetaRegistry& registry = MetaRegistry::instance();
  const std::lock_guard<std::mutex> lock(registry.mutex());
  registry.startToolkit();
  release();
  slot = registry.add(std::make_unique<xmpl::Metadata>());
  meta = registry.metadata(slot);
}

XMPlib XMPlib::CloneXAP() const {
  XMPlib clone{WithoutMetadata()};
  if (meta == nullptr) return clone;
  std::unique_ptr<xmpl::Metadata> copy = std::make_unique<xmpl::Metadata>(xmpl::copyOf(*meta));
  MetaRegistry& registry = MetaRegistry::instance();
  const std::lock_guard<std::mutex> lock(registry.mutex());
  clone.slot = registry.add(std::move(copy));
  clone.meta = registry.metadata(clone.slot);
  return clone;
}

// Deliberate: takes no lock. It is for a caller that keeps all other threads away.
void XMPlib::RemoveXAP() { release(); }

// What this handle held is gone already.
void XMPlib::takeFrom(XMPlib& other) noexcept {
  slot = std::exchange(other.slot, -1);
  meta = std::exchange(other.meta, nullptr);
  errStr = std::move(other.errStr);
  xml = std::move(other.xml);
  other.errStr.clear();
  other.xml.clear();
}

void XMPlib::release() {
  if (slot < 0) return;
  MetaRegistry::instance().release(slot);
  slot = -1;
  meta = nullptr;
}
