// SPDX-License-Identifier: Apache-2.0
// The pages of a PDF.
#pragma once

#include <qpdf/QPDFObjectHandle.hh>
#include <vector>

class QPDF;

namespace vxmeta {

struct PdfPage {
  QPDFObjectHandle page;
  QPDFObjectHandle resources;  // these four are the page's own, or inherited; null if neither
  QPDFObjectHandle mediaBox;
  QPDFObjectHandle cropBox;
  QPDFObjectHandle rotate;
};

// In the order of the document. A page tree that runs in circles is cut where it closes, and depth
// costs no stack, unlike in qpdf's own list.
std::vector<PdfPage> pagesOf(QPDF& pdf);

}  // namespace vxmeta
