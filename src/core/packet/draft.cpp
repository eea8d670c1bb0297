// SPDX-License-Identifier: Apache-2.0
#include "core/packet/draft.h"

#include "core/packet/load.h"
#include "core/packet/settle.h"
#include "core/packet/writer.h"
#include "core/toolkit/nodes.h"
#include "core/toolkit/whole_trees.h"

namespace xmpl {
namespace {

// Why what is saved of the metadata would not be loaded, or not as it is; empty when it would be.
std::string lossOf(const Metadata& metadata) {
  Metadata settled = copyOf(metadata);
  std::string text;
  writePacket(settled, text);
  Metadata loaded;
  std::string fault = loadPacket(text, loaded);
  if (!fault.empty()) return fault;
  settle(insideOf(settled));
  const bool isSame = haveEqualTrees(settled, loaded);
  return isSame ? "" : "Packet not written: it would not be loaded as it is";
}

}  // namespace

void Draft::commit() {
  requireSavable(copy_);
  swapTrees(original_, copy_);
}

void Draft::commitIfLoadable() {
  const std::string loss = lossOf(copy_);
  // What was lost before the change is not the change's fault.
  if (!loss.empty() && loss != lossOf(original_)) throw XMP_Error(kXMPErr_BadXMP, loss.c_str());
  swapTrees(original_, copy_);
}

}  // namespace xmpl
