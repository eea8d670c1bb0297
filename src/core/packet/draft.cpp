// SPDX-License-Identifier: Apache-2.0
#include "core/packet/draft.h"

#include <optional>

#include "core/packet/load.h"
#include "core/packet/settle.h"
#include "core/packet/writer.h"
#include "core/toolkit/nodes.h"
#include "core/toolkit/whole_trees.h"

namespace xmpl {
namespace {

// Metadata as it is, and as it comes back when it is saved and loaded.
class Trip {
 public:
  explicit Trip(const Metadata& metadata) : settled_(copyOf(metadata)) {
    std::string text;
    writePacket(settled_, text);
    loss_ = loadPacket(text, loaded_);
    if (!loss_.empty()) return;
    settle(insideOf(settled_));
    if (!haveEqualTrees(settled_, loaded_)) loss_ = kLoss;
  }

  // Why it would not be loaded, or not as it is; empty when it would be.
  const std::string& loss() const { return loss_; }

  bool loses(const char* schema, const char* name) const {
    return loss_ == kLoss && valueIn(settled_, schema, name) != valueIn(loaded_, schema, name);
  }

 private:
  static constexpr const char* kLoss = "Packet not written: it would not be loaded as it is";

  static std::optional<std::string> valueIn(const Metadata& metadata, const char* schema,
                                            const char* name) {
    std::string value;
    try {
      const bool isThere = metadata.GetProperty(schema, name, &value, nullptr);
      return isThere ? std::optional(value) : std::nullopt;
    } catch (const XMP_Error&) {  // what the path leads over has another form
      return std::nullopt;
    }
  }

  Metadata settled_;
  Metadata loaded_;
  std::string loss_;
};

}  // namespace

void Draft::commit() {
  requireSavable(copy_);
  swapTrees(original_, copy_);
}

void Draft::commitIfLoadable(const char* schema, const char* name) {
  const Trip trip(copy_);
  if (!trip.loss().empty()) {
    // What was lost before the change is not the change's fault.
    const bool isOld = trip.loss() == Trip(original_).loss() && !trip.loses(schema, name);
    if (!isOld) throw XMP_Error(kXMPErr_BadXMP, trip.loss().c_str());
  }
  swapTrees(original_, copy_);
}

}  // namespace xmpl
