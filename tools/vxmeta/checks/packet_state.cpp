// SPDX-License-Identifier: Apache-2.0
// The packet's wrapper, and how near it is to what the library takes.
#include <fmt/format.h>
#include <algorithm>
#include <map>

#include "checks/packet_checks.h"
#include "checks/packet_reading.h"
#include "model/sections.h"

namespace vxmeta {
namespace {

// --- The wrapper --------------------------------------------------------------------------------

void checkReadOnly(const Subject& subject, Findings& found) {
  if (!subject.wrapper.hasWrapper || subject.wrapper.writable) return;
  found.add("packet.writable",
            "the packet's wrapper ends in end=\"r\": programs that keep to it do not change the "
            "packet in its file",
            "write the file with the application that made it, where the packet has to change");
}

void checkPadding(const Subject& subject, Findings& found) {
  constexpr std::size_t kUseful = 1024;  // bytes
  const PacketFacts& wrapper = subject.wrapper;
  const std::size_t unit = wrapper.encoding == Encoding::utf8 ? 1 : 2;
  const std::size_t padding = wrapper.padding * unit;
  if (!wrapper.hasWrapper || !wrapper.writable || padding >= kUseful) return;
  found.add("packet.padding",
            fmt::format("the packet has {} of padding: a change in its place has little room, and "
                        "the file is written anew",
                        counted(padding, "byte")),
            "write the packet with padding, 2048 bytes for example");
}

// --- Limits -------------------------------------------------------------------------------------

std::string_view localNameOf(std::string_view name) { return name.substr(name.find(':') + 1); }

void raise(std::size_t& most, std::size_t value) { most = std::max(most, value); }

struct Extent {
  std::size_t bytes = 0;
  std::size_t depth = 0;
  std::size_t properties = 0;  // of one namespace
  std::size_t fields = 0;      // of one structure
  std::size_t namespaces = 0;
  std::size_t prefix = 0;
  std::size_t localName = 0;
  std::size_t uri = 0;
};

void measureNode(const StoredNode& node, std::size_t depth, Extent& extent) {
  raise(extent.depth, depth);
  raise(extent.localName, localNameOf(node.name).size());
  const bool isList = node.form == StoredNode::Form::list;
  if (!isList) raise(extent.fields, node.children.size());
  for (const StoredNode& child : node.children) {
    measureNode(child, depth + (isList ? 2 : 1), extent);
  }
}

void measureProperties(const StoredProperties& stored, Extent& extent) {
  constexpr std::size_t kPropertyDepth = 4;  // in x:xmpmeta, rdf:RDF and rdf:Description
  std::map<std::string_view, std::size_t> foreign;
  for (const StoredNode& property : stored.properties) {
    measureNode(property, kPropertyDepth, extent);
    if (sectionOf(property.name).empty()) {
      raise(extent.properties, ++foreign[prefixOf(property.name)]);
    }
  }
}

Extent extentOf(const Subject& subject) {
  Extent extent;
  extent.bytes = subject.wrapper.bytes;
  measureProperties(subject.stored(), extent);
  for (const auto& [prefix, uri] : subject.stored().schemas) {
    raise(extent.prefix, prefix.size());
    raise(extent.uri, uri.size());
    if (!isOwnSchema(uri)) ++extent.namespaces;
  }
  return extent;
}

struct Limit {
  const char* what;
  std::size_t most;
  std::size_t Extent::*measured;
};

// What the library refuses a packet for.
constexpr Limit kLimits[] = {
    {"bytes of text", std::size_t{256} << 20, &Extent::bytes},
    {"levels of elements", 128, &Extent::depth},
    {"properties of one namespace", 2048, &Extent::properties},
    {"fields of one structure", 2048, &Extent::fields},
    {"namespaces", 1024, &Extent::namespaces},
    {"bytes of a prefix", 64, &Extent::prefix},
    {"bytes of a name", 256, &Extent::localName},
    {"bytes of a namespace URI", 128, &Extent::uri},
};

void checkLimits(const Subject& subject, Findings& found) {
  const Extent extent = extentOf(subject);
  for (const Limit& limit : kLimits) {
    const std::size_t measured = extent.*limit.measured;
    if (measured <= limit.most / 2) continue;
    found.add("packet",
              fmt::format("the packet has {} {}, of {} that it may have: one that has more is "
                          "refused",
                          measured, limit.what, limit.most),
              "keep the data elsewhere, or less of it");
  }
}

}  // namespace

std::vector<Check> packetStateChecks() {
  return {
      {"packet-readonly", Severity::note, "the packet says that it may not be changed",
       checkReadOnly},
      {"packet-padding", Severity::note, "the packet has less than 1,024 bytes of padding",
       checkPadding},
      {"limit-near", Severity::note, "the packet has more than half of what the library takes",
       checkLimits},
  };
}

}  // namespace vxmeta
