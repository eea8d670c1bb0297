// SPDX-License-Identifier: Apache-2.0
// Trees, walked and merged by nodes, as the toolkit's iterator and paths would.
#include "core/toolkit/whole_trees.h"

#include <gtest/gtest.h>

#include "XMPlib.h"
#include "core/toolkit/copy_missing.h"
#include "support/random_packets.h"
#include "support/readings.h"

using namespace xmpl;

namespace {

struct Visited {
  std::string schema, path, value;
  XMP_OptionBits options = 0;

  bool operator==(const Visited&) const = default;
};

std::vector<Visited> byIterator(const Metadata& metadata) {
  std::vector<Visited> all;
  TXMPIterator<std::string> nodes(metadata, "", "", 0);
  Visited node;
  while (nodes.Next(&node.schema, &node.path, &node.value, &node.options)) all.push_back(node);
  return all;
}

std::vector<Visited> byNodes(const Metadata& metadata) {
  std::vector<Visited> all;
  forEachNode(metadata, [&](const auto& schema, const auto& path, const auto& value, auto options) {
    all.push_back({schema, path, value, options});
  });
  return all;
}

// dc:creator counts for others alone.
Part anyPart(std::string_view, std::string_view property) {
  if (property == "dc:title") return Part::nothing;
  return property == "dc:creator" ? Part::allButItself : Part::all;
}

void copyByPath(const Metadata& from, Metadata& to) {
  for (const Visited& node : byIterator(from)) {
    const bool isMeant = node.path != "dc:creator" && !node.path.starts_with("dc:title");
    if ((node.options & kXMP_SchemaNode) != 0 || !isMeant) continue;
    if (to.DoesPropertyExist(node.schema.c_str(), node.path.c_str())) continue;
    const XMP_OptionBits form = node.options & kXMP_PropCompositeMask;
    to.SetProperty(node.schema.c_str(), node.path.c_str(), form == 0 ? node.value.c_str() : nullptr,
                   form);
  }
}

// The nodes of `to` afterwards, and the error.
template <class Copy>
std::string outcome(const Metadata& to, const Copy& copy) {
  Metadata result = copyOf(to);
  std::string error;
  try {
    copy(result);
  } catch (const XMP_Error& thrown) {
    error = messageOf(thrown);
  }
  return error + treeOf(result);
}

// Composites under an alias are out of reach of the toolkit's paths.
bool hasAliases(const Metadata& metadata) {
  const std::vector<Visited> nodes = byIterator(metadata);
  return std::any_of(nodes.begin(), nodes.end(),
                     [](const Visited& node) { return sRegisteredAliasMap->contains(node.path); });
}

}  // namespace

TEST(WholeTrees, AreWalkedAndMergedAsTheToolkitDoes) {
  const XMPlib startsTheToolkit;
  RandomPackets packets(5);
  int merged = 0, errors = 0;
  for (int i = 0; i < 4000; ++i) {
    const Readings one(packets.next()), other(packets.next());
    const Metadata &first = one.metadata, &second = other.metadata;
    if (one.toolkit.end != Reading::End::read || other.toolkit.end != Reading::End::read) continue;
    if (byNodes(first).size() != byIterator(first).size() || hasAliases(first)) continue;
    ASSERT_EQ(byNodes(first), byIterator(first)) << treeOf(first);
    const std::string byPath = outcome(second, [&](Metadata& to) { copyByPath(first, to); });
    const std::string byNode =
        outcome(second, [&](Metadata& to) { copyMissing(first, to, anyPart); });
    ASSERT_EQ(byNode, byPath) << treeOf(first) << '\n' << treeOf(second);
    ++(byNode.starts_with("=") ? merged : errors);
  }
  EXPECT_GT(merged, 500);
  EXPECT_GT(errors, 20);
}
