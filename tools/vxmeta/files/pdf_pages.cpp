// SPDX-License-Identifier: Apache-2.0
#include "files/pdf_pages.h"

#include <qpdf/QPDF.hh>
#include <set>

namespace vxmeta {
namespace {

void inherit(QPDFObjectHandle& value, QPDFObjectHandle node, const char* key) {
  QPDFObjectHandle own = node.getKey(key);
  if (!own.isNull()) value = own;
}

// The node with what it passes on, or what is its own.
PdfPage at(const QPDFObjectHandle& node, PdfPage inherited) {
  inherited.page = node;
  inherit(inherited.resources, node, "/Resources");
  inherit(inherited.mediaBox, node, "/MediaBox");
  inherit(inherited.cropBox, node, "/CropBox");
  inherit(inherited.rotate, node, "/Rotate");
  return inherited;
}

PdfPage nothing() {
  const auto null = QPDFObjectHandle::newNull();
  return {null, null, null, null, null};
}

void pushKids(const PdfPage& node, QPDFObjectHandle kids, std::vector<PdfPage>& open) {
  for (int i = kids.getArrayNItems() - 1; i >= 0; --i) {
    QPDFObjectHandle kid = kids.getArrayItem(i);
    if (!kid.isDictionary()) continue;
    open.push_back(node);
    open.back().page = kid;
  }
}

}  // namespace

std::vector<PdfPage> pagesOf(QPDF& pdf) {
  std::vector<PdfPage> pages;
  std::vector<PdfPage> open;
  std::set<QPDFObjGen> seen;
  QPDFObjectHandle top = pdf.getRoot().getKey("/Pages");
  if (top.isDictionary()) {
    open.push_back(nothing());
    open.back().page = top;
  }
  while (!open.empty()) {
    const PdfPage inherited = open.back();
    open.pop_back();
    QPDFObjectHandle node = inherited.page;
    QPDFObjectHandle kids = node.getKey("/Kids");
    const PdfPage page = at(node, inherited);
    if (!kids.isArray()) {
      pages.push_back(page);
    } else if (seen.insert(node.getObjGen()).second || !node.isIndirect()) {
      pushKids(page, kids, open);
    }
  }
  return pages;
}

}  // namespace vxmeta
