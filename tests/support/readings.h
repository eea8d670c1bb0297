// SPDX-License-Identifier: Apache-2.0
// A packet's text, read in each of the ways that there are.
#pragma once

#include <ostream>
#include <string>

#include "core/packet/packet_guard.h"
#include "core/packet/packet_text.h"
#include "core/packet/plain_reader.h"
#include "core/packet/toolkit_reader.h"
#include "core/toolkit/nodes.h"
#include "core/toolkit/parse_failure.h"

inline void dumpTree(const XMP_Node& node, std::string& text) {
  text += node.name + "=" + node.value + "#" + std::to_string(node.options) + "{";
  for (const XMP_NodeOffspring* nodes : {&node.children, &node.qualifiers}) {
    for (const XMP_Node* each : *nodes) {
      if (each->parent != &node) text += "(of another parent)";
      dumpTree(*each, text);
    }
    text += "|";
  }
  text += "}";
}

inline std::string treeOf(const xmpl::Metadata& metadata) {
  std::string text;
  dumpTree(xmpl::insideOf(metadata).tree, text);
  return text;
}

// What came of a reading: the tree, or what was thrown.
struct Reading {
  enum class End { read, notPlain, error, refused };

  End end = End::notPlain;
  std::string text;

  bool operator==(const Reading&) const = default;
};

inline std::ostream& operator<<(std::ostream& out, const Reading& reading) {
  return out << static_cast<int>(reading.end) << ' ' << reading.text;
}

// `read` answers whether there is a tree.
template <class Read>
Reading readingOf(xmpl::Metadata& metadata, const Read& read) {
  const auto refuseToRecover = [](void*, XMP_ErrorSeverity, XMP_Int32, XMP_StringPtr) {
    return false;
  };
  metadata.SetErrorCallback(refuseToRecover);
  xmpl::lastParseFailure() = {};
  try {
    if (!read()) return {};
    return {Reading::End::read, treeOf(metadata)};
  } catch (const XMP_Error& error) {
    return {Reading::End::error, xmpl::messageOf(error)};
  } catch (const xmpl::PacketRefused& refusal) {
    const xmpl::ParseFailure& failure = xmpl::lastParseFailure();
    const std::string place = std::to_string(failure.line) + "," + std::to_string(failure.column);
    return {Reading::End::refused, refusal.what() + (" at " + place)};
  }
}

inline Reading plainReading(const xmpl::PacketText& text, xmpl::Metadata& metadata) {
  return readingOf(metadata, [&] { return xmpl::readPlain(text.document(), metadata); });
}

inline Reading toolkitReading(const xmpl::PacketText& text, xmpl::Metadata& metadata) {
  return readingOf(metadata, [&] {
    xmpl::readByToolkit(text, metadata);
    return true;
  });
}

// The toolkit's own, without anyone looking.
inline Reading unguardedReading(const std::string& packet, xmpl::Metadata& metadata) {
  return readingOf(metadata, [&] {
    metadata.ParseFromBuffer(packet.data(), static_cast<XMP_StringLen>(packet.size()), 0);
    return true;
  });
}

// A packet, read in every way. Nothing is read where its encoding is refused.
struct Readings {
  explicit Readings(const std::string& packet) {
    try {
      const xmpl::PacketText text(packet);
      xmpl::Metadata byPlain, unlooked;
      plain = plainReading(text, byPlain);
      toolkit = toolkitReading(text, metadata);
      const bool isGuarded = text.isAsDeclared() || toolkit.end == Reading::End::refused;
      unguarded = isGuarded ? toolkit : unguardedReading(packet, unlooked);
    } catch (const xmpl::PacketRefused&) {  // NOLINT(bugprone-empty-catch)
    }
  }

  // The plain reader may leave a packet to the toolkit.
  bool agree() const {
    return (plain.end == Reading::End::notPlain || plain == toolkit) && toolkit == unguarded;
  }

  Reading plain, toolkit, unguarded;
  xmpl::Metadata metadata;  // from the toolkit's reader
};

inline std::ostream& operator<<(std::ostream& out, const Readings& readings) {
  return out << readings.plain << '\n' << readings.toolkit << '\n' << readings.unguarded;
}
