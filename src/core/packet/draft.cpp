// SPDX-License-Identifier: Apache-2.0
#include "core/packet/draft.h"

#include <algorithm>
#include <map>
#include <optional>
#include <set>

#include "core/packet/load.h"
#include "core/packet/settle.h"
#include "core/packet/writer.h"
#include "core/toolkit/nodes.h"
#include "core/toolkit/whole_trees.h"

namespace xmpl {
namespace {

using Properties = std::map<std::string_view, const XMP_Node*>;

Properties propertiesOf(const Metadata& metadata) {
  Properties properties;
  for (const XMP_Node* schema : insideOf(metadata).tree.children) {
    for (const XMP_Node* property : schema->children) properties[property->name] = property;
  }
  return properties;
}

// The properties of `all` that are not in `others`, or not alike.
void addMissing(const Properties& all, const Properties& others, std::set<std::string>& names) {
  for (const auto& [name, node] : all) {
    const auto other = others.find(name);
    if (other == others.end() || !areEqual(*node, *other->second)) names.emplace(name);
  }
}

std::ptrdiff_t occurrences(const Metadata& metadata, std::string_view text) {
  std::ptrdiff_t count = 0;
  forEachNode(metadata, [&](const auto&, const auto&, const std::string& value, XMP_OptionBits) {
    if (value == text) ++count;
  });
  return count;
}

std::optional<std::string> valueIn(const Metadata& metadata, const char* schema, const char* path) {
  std::string value;
  try {
    const bool isThere = metadata.GetProperty(schema, path, &value, nullptr);
    return isThere ? std::optional(value) : std::nullopt;
  } catch (const XMP_Error&) {  // what the path leads over has another form
    return std::nullopt;
  }
}

constexpr const char* kLoss = "Packet not written: it would not be loaded as it is";

// Metadata as it is, and as it comes back when it is saved and loaded.
class Trip {
 public:
  explicit Trip(const Metadata& metadata) : asIs_(metadata), settled_(copyOf(metadata)) {
    std::string text;
    writePacket(settled_, text);
    loss_ = loadPacket(text, loaded_);
    if (!loss_.empty()) return;
    settle(insideOf(settled_));
    if (!haveEqualTrees(settled_, loaded_)) loss_ = kLoss;
  }

  // Why it would not be loaded, or not as it is; empty when it would be.
  const std::string& loss() const { return loss_; }

  bool losesValue(const char* schema, const char* path) const {
    return loss_ == kLoss && valueIn(settled_, schema, path) != valueIn(loaded_, schema, path);
  }
  // How often less the text comes back. What is settled may lose it, too.
  std::ptrdiff_t timesLost(std::string_view text) const {
    return occurrences(asIs_, text) - occurrences(loaded_, text);
  }

  // The names of the properties that would not be loaded as they are.
  std::set<std::string> lostProperties() const {
    std::set<std::string> names;
    if (loss_ != kLoss) return names;
    const Properties settled = propertiesOf(settled_), loaded = propertiesOf(loaded_);
    addMissing(settled, loaded, names);
    addMissing(loaded, settled, names);
    return names;
  }

 private:
  const Metadata& asIs_;
  Metadata settled_;
  Metadata loaded_;
  std::string loss_;
};

// What was lost before a change is not the change's fault.
bool isOldLoss(const Trip& after, const Trip& before) {
  const std::set<std::string> now = after.lostProperties(), old = before.lostProperties();
  return after.loss() == before.loss() &&
         std::includes(old.begin(), old.end(), now.begin(), now.end());
}

}  // namespace

void Draft::commit() {
  requireSavable(copy_);
  swapTrees(original_, copy_);
}

void Draft::commitIfLoadable(const char* schema, const char* path, std::string_view text) {
  const Trip after(copy_);
  if (!after.loss().empty() || after.timesLost(text) > 0) {
    const Trip before(original_);
    const bool isOld = isOldLoss(after, before) && !after.losesValue(schema, path) &&
                       after.timesLost(text) <= before.timesLost(text);
    if (!isOld) {
      throw XMP_Error(kXMPErr_BadXMP, after.loss().empty() ? kLoss : after.loss().c_str());
    }
  }
  swapTrees(original_, copy_);
}

}  // namespace xmpl
