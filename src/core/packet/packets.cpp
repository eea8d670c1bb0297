// Packet text in and out.
#include <cstdio>

#include "XMPlib.h"
#include "core/packet/packet_guard.h"
#include "core/packet/writer.h"
#include "core/toolkit/client.h"
#include "core/toolkit/parse_failure.h"

namespace {

// The toolkit takes malformed XML and RDF for recoverable and stays silent, unless a callback
// refuses to recover: then it throws.
bool refuseToRecover(void*, XMP_ErrorSeverity, XMP_Int32, XMP_StringPtr) { return false; }

void parseText(xmpl::Metadata& metadata, const std::string& text) {
  xmpl::lastParseFailure() = {};
  metadata.SetErrorCallback(refuseToRecover);
  metadata.ParseFromBuffer(text.data(), static_cast<XMP_StringLen>(text.size()), 0);
}

void parse(xmpl::Metadata& metadata, const std::string& packet) {
  const xmpl::GuardedPacket guarded = xmpl::guardPacket(packet);
  xmpl::registerDeclared(guarded.declarations);
  parseText(metadata, guarded.text);
}

// Behind the toolkit's message where and why the XML parser gave up, when it did. The guard has
// dropped line ends, so that the packet is parsed once more as it was given.
std::string describe(const XMP_Error& error, const std::string& packet) {
  const std::string message = xmpl::messageOf(error);
  if (error.GetID() != kXMPErr_BadXML || xmpl::lastParseFailure().reason == nullptr) return message;
  try {
    xmpl::Metadata scratch;
    parseText(scratch, packet);
  } catch (const XMP_Error&) {
  }
  const xmpl::ParseFailure& failure = xmpl::lastParseFailure();
  if (failure.reason == nullptr) return message;
  return message + " at line " + std::to_string(failure.line) + ", column " +
         std::to_string(failure.column) + ": " + failure.reason;
}

}  // namespace

bool XMPlib::SetXML(const std::string& text) {
  CreateXAP();
  try {
    parse(*meta, text);
  } catch (const XMP_Error& error) {
    errStr = describe(error, text);
  } catch (const xmpl::PacketRefused& refusal) {
    errStr = refusal.what();
  }
  return true;  // Deliberate: a failed parse shows in the error text alone.
}

const std::string& XMPlib::GetXML() const { return serialise(kXMP_OmitPacketWrapper, 0); }

const std::string& XMPlib::GetXMLPacket(bool, int padding) const { return serialise(0, padding); }

const std::string& XMPlib::serialise(unsigned int options, int padding) const {
  errStr.clear();
  xml.clear();
  if (meta == nullptr) return xml;
  try {
    if ((options & kXMP_OmitPacketWrapper) != 0) {
      xmpl::writePacket(*meta, xml);
    } else {
      xmpl::writeWrapped(*meta, static_cast<XMP_StringLen>(padding), xml);
    }
  } catch (const XMP_Error& error) {
    errStr = xmpl::messageOf(error);
  }
  return xml;
}

void XMPlib::DumpXAP() const {
  if (meta == nullptr) return;
  xmpl::ToolkitIterator nodes(*meta, "", "", 0);
  std::string schema;
  std::string path;
  std::string value;
  XMP_OptionBits options = 0;
  while (nodes.Next(&schema, &path, &value, &options)) {
    std::printf("%s %s = \"%s\", 0x%X\n", schema.c_str(), path.c_str(), value.c_str(), options);
  }
}
