// The handle: its life, its slot of the registry, its error text.
#include <mutex>

#include "XMPlib.h"
#include "core/registry.h"

using xmpl::MetaRegistry;

XMPlib::XMPlib() { CreateXAP(); }

XMPlib::XMPlib(XMPlib& other) : slot(other.slot), meta(other.meta) {
  if (slot < 0) return;
  MetaRegistry& registry = MetaRegistry::instance();
  const std::lock_guard<std::mutex> lock(registry.mutex());
  registry.share(slot);
}

XMPlib::~XMPlib() {
  const std::lock_guard<std::mutex> lock(MetaRegistry::instance().mutex());
  release();
}

const std::string& XMPlib::ErrStr() const { return errStr; }

void XMPlib::CreateXAP() {
  errStr.clear();
  MetaRegistry& registry = MetaRegistry::instance();
  const std::lock_guard<std::mutex> lock(registry.mutex());
  registry.startToolkit();
  release();
  slot = registry.add();
  meta = registry.metadata(slot);
}

// Deliberate: takes no lock. It is for a caller that keeps all other threads away.
void XMPlib::RemoveXAP() { release(); }

void XMPlib::release() {
  if (slot < 0) return;
  MetaRegistry::instance().release(slot);
  slot = -1;
  meta = nullptr;
}
