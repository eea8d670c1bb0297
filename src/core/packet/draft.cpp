#include "core/packet/draft.h"

#include "core/packet/load.h"
#include "core/packet/writer.h"
#include "core/toolkit/tree.h"

namespace xmpl {

void Draft::commit() {
  requireSavable(copy_);
  swapTrees(original_, copy_);
}

void Draft::commitIfLoadable() {
  const Metadata settled = copyOf(copy_);
  std::string text;
  writePacket(settled, text);
  Metadata loaded;
  const std::string fault = loadPacket(text, loaded);
  if (!fault.empty()) throw XMP_Error(kXMPErr_BadXMP, fault.c_str());
  swapTrees(original_, copy_);
}

}  // namespace xmpl
