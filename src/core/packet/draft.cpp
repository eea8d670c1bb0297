#include "core/packet/draft.h"

#include "core/packet/load.h"
#include "core/packet/writer.h"
#include "core/toolkit/tree.h"

namespace xmpl {
namespace {

// Writing settles language alternatives, so it has a copy of its own.
std::string saved(const Metadata& metadata) {
  const Metadata settled = metadata.Clone();
  std::string text;
  writePacket(settled, text);
  return text;
}

}  // namespace

void Draft::commit() {
  saved(copy_);
  swapTrees(original_, copy_);
}

void Draft::commitIfLoadable() {
  Metadata loaded;
  const std::string fault = loadPacket(saved(copy_), loaded);
  if (!fault.empty()) throw XMP_Error(kXMPErr_BadXMP, fault.c_str());
  swapTrees(original_, copy_);
}

}  // namespace xmpl
