// SPDX-License-Identifier: Apache-2.0
// Merging another packet's lists into this handle's.
#include "XMPlib.h"

bool XMPlib::MergeXML(const std::string& packetText, bool inkFlag) {
  XMPlib packet;
  packet.SetXML(packetText);

  std::vector<XMPlInk> inks;
  if (packet.GetInks(inks, false)) MergeInks(inks, inkFlag);
  std::vector<XMPlExtRef> refs;
  if (packet.GetExtRefs(refs, false)) MergeExtRefs(refs);
  std::vector<XMPlFont> fonts;
  if (packet.GetFonts(fonts, true)) MergeFonts(fonts);
  std::vector<XMPlExtRef> cadFiles;
  if (packet.GetCadFiles(cadFiles)) MergeCadFiles(cadFiles);
  std::vector<XMPlBarcode> barcodes;
  if (packet.GetBarcodes(barcodes)) MergeBarcodes(barcodes);
  std::vector<XMPlLay> layers;
  if (packet.GetLayers(layers)) MergeLayers(layers);
  return true;  // Deliberate: whatever the reads and merges answered.
}
