// SPDX-License-Identifier: Apache-2.0
// Packet text in and out.
#include <cstdio>

#include "XMPlib.h"
#include "core/packet/load.h"
#include "core/packet/writer.h"
#include "core/toolkit/client.h"
#include "core/toolkit/whole_trees.h"

bool XMPlib::SetXML(const std::string& text) {
  CreateXAP();
  errStr = xmpl::loadPacket(text, *meta);
  return true;  // Deliberate: a packet that cannot be read shows in the error text alone.
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
  xmpl::forEachNode(*meta, [](const std::string& schema, const std::string& path,
                              const std::string& value, XMP_OptionBits options) {
    std::printf("%s %s = \"%s\", 0x%lX\n", schema.c_str(), path.c_str(), value.c_str(),
                static_cast<unsigned long>(options));
  });
}
