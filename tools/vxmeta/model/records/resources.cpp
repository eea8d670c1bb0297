// SPDX-License-Identifier: Apache-2.0
// Records of the document's resources.
#include "model/records.h"

namespace vxmeta {

template <>
Type describe<XMPlExtRef>() {
  using R = XMPlExtRef;
  return recordType<R>(
      "fileReference",
      {
          VXMETA_FIELD(instanceID, "file name or URI; files:... for a run of numbered files"),
          VXMETA_FIELD(renditionClass, "which rendition of the file"),
          VXMETA_FIELD(pagenr, "page of the file; 0: no pages; -1: unknown").unknownAs(-1),
          VXMETA_FIELD(type, "kind of resource"),
          VXMETA_FIELD(count, "number of files that the entry stands for; -1: unknown")
              .unknownAs(-1),
      });
}

template <>
Type describe<XMPlFont>() {
  using R = XMPlFont;
  return recordType<R>(
      "font", {
                  VXMETA_FIELD(name, "name of the font"),
                  VXMETA_FIELD(type, "font technology, free text"),
                  VXMETA_FIELD(protection, "the font is protected"),
                  VXMETA_FIELD(location, "embedded: in the document; else where it was found"),
                  VXMETA_FIELD(fontfile,
                               "its file; what follows the last ; identifies it across locations"),
              });
}

template <>
Type describe<XMPlBarcode>() {
  using R = XMPlBarcode;
  return recordType<R>(
      "barcode",
      {
          VXMETA_FIELD(type, "kind of barcode, free text"),
          VXMETA_FIELD(symbolType, "symbology, free text"),
          VXMETA_FIELD(code, "encoded data"),
          VXMETA_FIELD(code2, "second part of the data"),
          VXMETA_FIELD(resolution, "resolution; 0: not given").unknownAs(0),
          VXMETA_FIELD(barWidthReduction, "bar width reduction").with("hasBarWidthReduction"),
          VXMETA_FIELD(hasBarWidthReduction, "barWidthReduction is valid"),
          VXMETA_FIELD(hasDeviceCompensation, "deviceCompensation is valid"),
          VXMETA_FIELD(deviceCompensation, "device compensation").with("hasDeviceCompensation"),
          VXMETA_FIELD(useMagnification, "the size is magnification; else narrow and ratio"),
          VXMETA_FIELD(magnification, "magnification factor").with("useMagnification"),
          VXMETA_FIELD(narrow, "width of the narrow bar").without("useMagnification"),
          VXMETA_FIELD(ratio, "wide to narrow").without("useMagnification"),
      });
}

template <>
Type describe<XMPlLay>() {
  using R = XMPlLay;
  return recordType<R>("layer", {
                                    VXMETA_FIELD(name, "name of the layer"),
                                    VXMETA_FIELD(printable, "the layer is printed"),
                                    VXMETA_FIELD(locked, "the layer is locked"),
                                });
}

template <>
Type describe<XMPlPagRange>() {
  using R = XMPlPagRange;
  return recordType<R>(
      "pageRange",
      {
          VXMETA_FIELD(start, "first page, by the application's count; -1: not set").unknownAs(-1),
          VXMETA_FIELD(end, "last page, itself part of the range; -1: not set").unknownAs(-1),
          VXMETA_FIELD(inks, "numbers of the inks used on the pages"),
      });
}

template <>
Type describe<XMPlSmartName>() {
  using R = XMPlSmartName;
  return recordType<R>("smartName", {
                                        VXMETA_FIELD(name, "name of the text"),
                                        VXMETA_FIELD(value, "what a workflow puts in its place"),
                                    });
}

}  // namespace vxmeta
