// SPDX-License-Identifier: Apache-2.0
// Colours and fonts of what the pages of a PDF are painted with.
#pragma once

#include <qpdf/QPDFObjectHandle.hh>
#include <set>
#include <string>
#include <vector>

#include "checks/pdf_facts.h"
#include "files/pdf_pages.h"

namespace vxmeta {

// Goes from the pages to all that can be reached, each object once: a document that refers to
// itself ends, and depth costs no stack.
class ResourceWalk {
 public:
  explicit ResourceWalk(PdfFacts& facts) : facts_(facts) {}

  void visit(const std::vector<PdfPage>& pages);

 private:
  bool isNew(QPDFObjectHandle object);
  void push(QPDFObjectHandle painter);
  void pushAppearances(QPDFObjectHandle page);
  void visitPainters();
  void visitPainter(QPDFObjectHandle stream);
  void visitImage(QPDFObjectHandle image);
  void visitResources(QPDFObjectHandle resources);
  void visitFont(QPDFObjectHandle font);
  void visitColorSpace(QPDFObjectHandle space);
  void visitContent(QPDFObjectHandle content, QPDFObjectHandle resources);
  std::string textOf(QPDFObjectHandle content);
  void noteSpace(const std::string& family, QPDFObjectHandle parameter);
  void noteColorant(QPDFObjectHandle name);

  PdfFacts& facts_;
  QPDFObjectHandle pageResources_ = QPDFObjectHandle::newNull();
  std::set<QPDFObjGen> seen_;
  std::vector<QPDFObjectHandle> painters_;  // forms, images, patterns that wait for their visit
  std::size_t contentLeft_ = std::size_t{1} << 30;  // how much more content is decoded
};

}  // namespace vxmeta
