// SPDX-License-Identifier: Apache-2.0
// Barcodes: vxBarcL:barcodes, an unordered array of
//   vxBarc:Type                text
//   vxBarc:SymbolType          text, optional; not written when empty
//   vxBarc:Code                text, optional
//   vxBarc:Code2               text, optional; not written when empty
//   vxBarc:Resolution          real, optional; not written when 0
//   vxBarc:BarWidthReduction   real, optional
//   vxBarc:DeviceCompensation  real, optional
//   vxBarc:Magnification       real, optional; else
//   vxBarc:Narrow, Ratio       real, optional
#include "core/call_guard.h"
#include "core/list_merge.h"
#include "core/unread.h"

using xmpl::ItemReader;
using xmpl::ItemWriter;

namespace {

constexpr xmpl::List kBarcodes{"vxBarcL:barcodes", xmpl::ArrayKind::unordered};

// The order of reading is not that of writing: it decides which of several errors is met first.
bool readBarcode(const ItemReader& item, XMPlBarcode& barcode) {
  if (!item.text("vxBarc:Type", barcode.type)) return false;
  const ItemReader optional = item.optional();
  optional.text("vxBarc:Code", barcode.code);
  barcode.hasBarWidthReduction =
      optional.real("vxBarc:BarWidthReduction", barcode.barWidthReduction);
  barcode.hasDeviceCompensation =
      optional.real("vxBarc:DeviceCompensation", barcode.deviceCompensation);
  optional.real("vxBarc:Resolution", barcode.resolution);
  barcode.useMagnification = optional.real("vxBarc:Magnification", barcode.magnification);
  if (!barcode.useMagnification) {
    optional.real("vxBarc:Narrow", barcode.narrow);
    optional.real("vxBarc:Ratio", barcode.ratio);
  }
  optional.text("vxBarc:SymbolType", barcode.symbolType);
  optional.text("vxBarc:Code2", barcode.code2);
  return true;
}

void writeBarcode(const ItemWriter& item, const XMPlBarcode& barcode) {
  item.text("vxBarc:Type", barcode.type);
  item.textUnlessEmpty("vxBarc:SymbolType", barcode.symbolType);
  item.text("vxBarc:Code", barcode.code);
  item.textUnlessEmpty("vxBarc:Code2", barcode.code2);
  if (barcode.resolution != 0) item.real("vxBarc:Resolution", barcode.resolution);
  if (barcode.hasBarWidthReduction) {
    item.real("vxBarc:BarWidthReduction", barcode.barWidthReduction);
  }
  if (barcode.hasDeviceCompensation) {
    item.real("vxBarc:DeviceCompensation", barcode.deviceCompensation);
  }
  if (barcode.useMagnification) {
    item.real("vxBarc:Magnification", barcode.magnification);
  } else {
    item.real("vxBarc:Narrow", barcode.narrow);
    item.real("vxBarc:Ratio", barcode.ratio);
  }
}

// A value that its flag switches off counts as 0.
constexpr auto kBarcodeIdentity = [](const XMPlBarcode& barcode) {
  const bool magnified = barcode.useMagnification;
  return std::tuple<const std::string&, const std::string&, const std::string&, const std::string&,
                    double, bool, bool, bool, double, double, double, double>(
      barcode.type, barcode.symbolType, barcode.code, barcode.code2, barcode.resolution,
      barcode.hasBarWidthReduction, barcode.hasDeviceCompensation, magnified,
      barcode.hasBarWidthReduction ? barcode.barWidthReduction : 0,
      barcode.hasDeviceCompensation ? barcode.deviceCompensation : 0,
      magnified ? barcode.magnification : barcode.narrow, magnified ? 0 : barcode.ratio);
};

}  // namespace

bool XMPlBarcode::operator==(const XMPlBarcode& other) const {
  return kBarcodeIdentity(*this) == kBarcodeIdentity(other);
}

void xmpl::findUnreadBarcodes(const Metadata& metadata, Unread& unread) {
  findUnread<XMPlBarcode>(metadata, kBarcodes, readBarcode, writeBarcode, unread);
}

bool XMPlib::GetBarcodes(std::vector<XMPlBarcode>& barcodes) const {
  return guarded(reading(kBarcodes, readBarcode, barcodes));
}

bool XMPlib::SetBarcodes(const std::vector<XMPlBarcode>& barcodes) {
  return guarded(writing(kBarcodes, writeBarcode, barcodes));
}

bool XMPlib::MergeBarcodes(const std::vector<XMPlBarcode>& barcodes) {
  return guarded(
      xmpl::merging(*this, &XMPlib::GetBarcodes, &XMPlib::SetBarcodes, barcodes, kBarcodeIdentity));
}
