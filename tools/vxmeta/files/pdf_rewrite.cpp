// SPDX-License-Identifier: Apache-2.0
// The whole PDF written anew by qpdf.
#include <cstdio>
#include <memory>
#include <qpdf/QPDF.hh>
#include <qpdf/QPDFObjectHandle.hh>
#include <qpdf/QPDFWriter.hh>

#include "files/open_file.h"
#include "files/pdf_ways.h"

namespace vxmeta {
namespace {

struct CloseFile {
  void operator()(std::FILE* file) const { std::fclose(file); }
};

void putMetadata(QPDF& pdf, const std::string& packet) {
  QPDFObjectHandle catalogue = pdf.getRoot();
  QPDFObjectHandle stream = catalogue.getKey("/Metadata");
  if (!stream.isStream()) {
    stream = QPDFObjectHandle::newStream(&pdf);
    stream.getDict().replaceKey("/Type", QPDFObjectHandle::newName("/Metadata"));
    stream.getDict().replaceKey("/Subtype", QPDFObjectHandle::newName("/XML"));
    catalogue.replaceKey("/Metadata", stream);
  }
  stream.replaceStreamData(packet, QPDFObjectHandle::newNull(), QPDFObjectHandle::newNull());
}

Renumbered renumberedBy(QPDFWriter& writer, QPDF& pdf) {
  Renumbered names;
  for (const auto& entry : pdf.getXRefTable()) {
    names.emplace(entry.first, writer.getRenumberedObjGen(entry.first));
  }
  return names;
}

}  // namespace

Renumbered rewritePdf(const PdfSource& source, const std::string& packet, const std::string& to) {
  const bool isLinear = source.pdf.isLinearized();
  putMetadata(source.pdf, packet);
  const std::unique_ptr<std::FILE, CloseFile> file(std::fopen(to.c_str(), "wxbe"));
  if (!file) throwUnwritable();
  QPDFWriter writer(source.pdf);
  writer.setOutputFile("the new file", file.get(), false);
  writer.setObjectStreamMode(qpdf_o_preserve);
  writer.setStreamDataMode(qpdf_s_preserve);
  writer.setLinearization(isLinear);
  writer.setPreserveUnreferencedObjects(true);
  writer.write();
  if (std::fflush(file.get()) != 0) throwUnwritable();
  return renumberedBy(writer, source.pdf);
}

}  // namespace vxmeta
