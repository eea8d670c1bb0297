// SPDX-License-Identifier: Apache-2.0
#include "checks/pdf_facts.h"

#include <algorithm>
#include <cmath>
#include <qpdf/QPDF.hh>
#include <regex>

#include "checks/pdf_names.h"
#include "checks/pdf_resources.h"
#include "files/pdf_pages.h"
#include "files/qpdf_file.h"

namespace vxmeta {
namespace {

double numberOr(QPDFObjectHandle value, double otherwise) {
  return value.isNumber() ? value.getNumericValue() : otherwise;
}

// Between two escapes a text may name its language: "deDE".
std::string withoutLanguages(const std::string& text) {
  static const std::regex kLanguage("\x1b[A-Za-z]{2}([A-Za-z]{2})?\x1b");
  return std::regex_replace(text, kLanguage, "");
}

std::string textOf(QPDFObjectHandle value) {
  if (value.isName()) return textOfName(value);
  return value.isString() ? withoutLanguages(value.getUTF8Value()) : "";
}

using Rectangle = QPDFObjectHandle::Rectangle;

// What of `a` is in `b`; none where they have no area in common.
std::optional<Rectangle> common(const Rectangle& a, const Rectangle& b) {
  const Rectangle both(std::max(a.llx, b.llx), std::max(a.lly, b.lly), std::min(a.urx, b.urx),
                       std::min(a.ury, b.ury));
  return both.llx < both.urx && both.lly < both.ury ? std::optional(both) : std::nullopt;
}

// No box reaches beyond the media box.
std::optional<PdfBox> seen(QPDFObjectHandle box, const char* name, PdfPage page) {
  if (!box.isRectangle()) return {};
  std::optional<Rectangle> corners = box.getArrayAsRectangle();
  if (page.mediaBox.isRectangle()) corners = common(*corners, page.mediaBox.getArrayAsRectangle());
  if (!corners) return {};
  const double unit = numberOr(page.page.getKey("/UserUnit"), 1);
  PdfBox result = {name, (corners->urx - corners->llx) * unit,
                   (corners->ury - corners->lly) * unit};
  const bool isTurned = std::fabs(std::fmod(numberOr(page.rotate, 0), 180)) == 90;
  if (isTurned) std::swap(result.width, result.height);
  return result;
}

std::optional<PdfBox> boxOf(PdfPage page) {
  if (auto trim = seen(page.page.getKey("/TrimBox"), "trim box", page)) return trim;
  if (auto crop = seen(page.cropBox, "crop box", page)) return crop;
  return seen(page.mediaBox, "media box", page);
}

std::set<std::string> layersOf(QPDF& pdf) {
  std::set<std::string> names;
  QPDFObjectHandle properties = pdf.getRoot().getKey("/OCProperties");
  if (!properties.isDictionary()) return names;
  QPDFObjectHandle groups = properties.getKey("/OCGs");
  for (int i = 0; groups.isArray() && i < groups.getArrayNItems(); ++i) {
    QPDFObjectHandle group = groups.getArrayItem(i);
    if (group.isDictionary()) names.insert(textOf(group.getKey("/Name")));
  }
  return names;
}

PdfInfo infoOf(QPDF& pdf) {
  QPDFObjectHandle info = pdf.getTrailer().getKey("/Info");
  if (!info.isDictionary()) return {};
  return {textOf(info.getKey("/Title")), textOf(info.getKey("/Producer")),
          textOf(info.getKey("/Trapped"))};
}

bool isMetadataEncrypted(QPDF& pdf) {
  int r = 0, p = 0, v = 0;
  QPDF::encryption_method_e stream = QPDF::e_none, string = QPDF::e_none, file = QPDF::e_none;
  if (!pdf.isEncrypted(r, p, v, stream, string, file)) return false;
  QPDFObjectHandle encryption = pdf.getTrailer().getKey("/Encrypt");
  if (!encryption.isDictionary()) return true;
  QPDFObjectHandle metadata = encryption.getKey("/EncryptMetadata");
  return !metadata.isBool() || metadata.getBoolValue();
}

void noteMetadata(QPDF& pdf, PdfFacts& facts) {
  QPDFObjectHandle metadata = pdf.getRoot().getKey("/Metadata");
  if (metadata.isStream()) {
    facts.metadataIsCompressed = !metadata.getDict().getKey("/Filter").isNull();
    facts.metadataIsEncrypted = isMetadataEncrypted(pdf);
  }
  for (QPDFObjectHandle object : pdf.getAllObjects()) {
    if (object.isStreamOfType("/Metadata")) ++facts.metadataStreams;
  }
}

}  // namespace

PdfFacts readPdfFacts(const InputFile& file, const std::string& password) {
  const auto pdf = openPdf(file, password);
  PdfFacts facts;
  withPdfErrors([&] {
    const std::vector<PdfPage> pages = pagesOf(*pdf);
    facts.pages = pages.size();
    if (!pages.empty()) facts.firstPage = boxOf(pages.front());
    ResourceWalk(facts).visit(pages);
    facts.layers = layersOf(*pdf);
    facts.info = infoOf(*pdf);
    noteMetadata(*pdf, facts);
    repairsOf(*pdf);
  });
  return facts;
}

}  // namespace vxmeta
