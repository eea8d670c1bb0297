// SPDX-License-Identifier: Apache-2.0
#include "core/packet/load.h"

#include "core/packet/packet_guard.h"
#include "core/packet/packet_text.h"
#include "core/packet/plain_reader.h"
#include "core/packet/toolkit_reader.h"
#include "core/toolkit/nodes.h"
#include "core/toolkit/parse_failure.h"

namespace xmpl {
namespace {

// The toolkit takes malformed XML and RDF for recoverable and stays silent, unless a callback
// refuses to recover: then it throws.
bool refuseToRecover(void*, XMP_ErrorSeverity, XMP_Int32, XMP_StringPtr) { return false; }

void read(std::string_view packet, Metadata& metadata) {
  if (packet.size() > limits::kTextBytes) throw PacketRefused("more than 256 MiB of text");
  metadata.SetErrorCallback(refuseToRecover);
  const PacketText text(packet);
  if (!readPlain(text.document(), metadata)) readByToolkit(text, metadata);
}

// Wholly or not at all.
void readOrEmpty(std::string_view packet, Metadata& metadata) {
  try {
    read(packet, metadata);
  } catch (...) {
    insideOf(metadata).tree.ClearNode();
    throw;
  }
}

// Where the parse has ended, when it has.
std::string place() {
  const ParseFailure& failure = lastParseFailure();
  if (failure.line == 0) return {};
  return " at line " + std::to_string(failure.line) + ", column " + std::to_string(failure.column);
}

std::string describe(const XMP_Error& error) {
  std::string message = messageOf(error);
  if (error.GetID() != kXMPErr_BadXML || lastParseFailure().reason == nullptr) return message;
  return message + place() + ": " + lastParseFailure().reason;
}

}  // namespace

std::string loadPacket(std::string_view packet, Metadata& metadata) {
  lastParseFailure() = {};
  try {
    if (!packet.empty()) readOrEmpty(packet, metadata);
    return {};
  } catch (const XMP_Error& error) {
    return describe(error);
  } catch (const PacketRefused& refusal) {
    return "Packet refused" + place() + ": " + refusal.what();
  }
}

}  // namespace xmpl
