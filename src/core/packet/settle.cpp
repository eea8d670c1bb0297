// SPDX-License-Identifier: Apache-2.0
#include "core/packet/settle.h"

#include <algorithm>

#include "core/packet/packet_guard.h"
#include "core/packet/survey.h"
#include "core/packet/writer.h"
#include "core/toolkit/nodes.h"

#include "core/toolkit/alias_mend.h"
#include "core/toolkit/copyright_mend.h"

namespace xmpl {
namespace {

void deleteEmptySchemas(XMP_Node& tree) {
  XMP_NodeOffspring& schemas = tree.children;
  const auto isEmpty = [](const XMP_Node* schema) { return schema->children.empty(); };
  for (XMP_Node*& schema : schemas) {
    if (!isEmpty(schema)) continue;
    delete schema;
    schema = nullptr;
  }
  std::erase(schemas, nullptr);
}

template <class Check>
void refuseOnError(const Check& check) {
  try {
    check();
  } catch (const XMP_Error& error) {
    const std::string why = messageOf(error);
    constexpr std::string_view kWriters = "Packet not written: ";
    const std::size_t begin = why.starts_with(kWriters) ? kWriters.size() : 0;
    throw PacketRefused(why.substr(begin) + " when saved");
  }
}

}  // namespace

bool settle(XMPMeta& metadata) {
  XMP_Node& tree = metadata.tree;
  const bool hasAliases = (tree.options & kXMP_PropHasAliases) != 0;
  const bool hasCopyright = FindSchemaNode(&tree, kXMP_NS_DM, kXMP_ExistingOnly) != nullptr;
  mendAliases(tree);
  NormalizeDCArrays(&tree);
  if ((tree.options & kXMP_PropHasAliases) != 0) {
    MoveExplicitAliases(&tree, 0, metadata.errorCallback);
  }
  TouchUpDataModel(&metadata, metadata.errorCallback);
  if (hasCopyright) requireCopyrightMoved(tree);
  deleteEmptySchemas(tree);
  return hasAliases || hasCopyright;
}

void refuseUnsavable(const Metadata& metadata) {
  refuseOnError([&] { requireSavable(metadata); });
}

void refuseUnsavablePlain(const XMPMeta& metadata) {
  refuseOnError([&] { survey(metadata.tree); });
}

}  // namespace xmpl
