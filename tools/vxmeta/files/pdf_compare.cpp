// SPDX-License-Identifier: Apache-2.0
#include "files/pdf_compare.h"

#include <algorithm>
#include <qpdf/Buffer.hh>
#include <qpdf/QPDF.hh>
#include <qpdf/QPDFObjectHandle.hh>
#include <set>

#include "files/packet_file.h"
#include "files/pdf_pages.h"

namespace vxmeta {
namespace {

using Keys = std::set<std::string>;

const Keys kOfStorage = {"/Size", "/Prev",   "/XRefStm",     "/Type",   "/W",  "/Index",
                         "/ID",   "/Length", "/DecodeParms", "/Filter", "/DL", "/Encrypt"};

// Linearisation takes these from the page tree's nodes to its pages.
const Keys kInheritable = {"/Resources", "/MediaBox", "/CropBox", "/Rotate"};

[[noreturn]] void throwDifferent(const std::string& what) {
  throw FileError("would lose something: " + what +
                  " of the new file is another one; nothing is written, --how has other ways");
}

bool isOneOf(QPDFObjectHandle type, const Keys& names) {
  return type.isName() && names.count(type.getName()) != 0;
}

bool isOfStorage(QPDFObjectHandle object) {
  if (object.isDictionary() && object.hasKey("/Linearized")) return true;
  return object.isStream() && isOneOf(object.getDict().getKey("/Type"), {"/XRef", "/ObjStm"});
}

// What a linearised file has for readers over a network: a stream that nothing refers to.
QPDFObjGen hintsOf(QPDF& pdf) {
  for (QPDFObjectHandle& object : pdf.getAllObjects()) {
    if (!object.isDictionary() || !object.hasKey("/Linearized")) continue;
    QPDFObjectHandle place = object.getKey("/H").getArrayItem(0);
    for (const auto& entry : pdf.getXRefTable()) {
      const bool isThere = entry.second.getType() == 1 && place.isInteger() &&
                           entry.second.getOffset() == place.getIntValue();
      if (isThere) return entry.first;
    }
  }
  return {};
}

class Comparison {
 public:
  explicit Comparison(const Renumbered& names) : names_(names) {}

  QPDFObjGen nameOf(QPDFObjGen object) const {
    const auto found = names_.find(object);
    return found == names_.end() ? object : found->second;
  }

  // Both null, the same object, or the same value. What an object holds in place may have become
  // an object of its own.
  bool isSame(QPDFObjectHandle a, QPDFObjectHandle b) const {
    if (a.isNull() || b.isNull()) return a.isNull() && b.isNull();
    if (a.isIndirect()) return b.isIndirect() && nameOf(a.getObjGen()) == b.getObjGen();
    return isSameValue(a, b);
  }

  // Goes down direct values alone, which nest as deep as qpdf parses them.
  bool isSameValue(QPDFObjectHandle a, QPDFObjectHandle b) const {
    if (a.getTypeCode() != b.getTypeCode()) return false;
    if (a.isArray()) return isSameArray(a, b);
    if (a.isDictionary()) return isSameDictionary(a, b, exceptionsOf(a));
    if (a.isStream()) return isSameStream(a, b);
    return a.unparseResolved() == b.unparseResolved();
  }

  bool isSameDictionary(QPDFObjectHandle a, QPDFObjectHandle b, const Keys& except) const {
    Keys keys = a.getKeys();
    const Keys others = b.getKeys();
    keys.insert(others.begin(), others.end());
    for (const std::string& key : keys) {
      if (except.count(key) == 0 && !isSame(a.getKey(key), b.getKey(key))) return false;
    }
    return true;
  }

 private:
  static const Keys& exceptionsOf(QPDFObjectHandle dictionary) {
    static const Keys kNone;
    static const Keys kCatalogue = {"/Metadata"};
    QPDFObjectHandle type = dictionary.getKey("/Type");
    if (isOneOf(type, {"/Catalog"})) return kCatalogue;
    return isOneOf(type, {"/Page", "/Pages"}) ? kInheritable : kNone;
  }

  bool isSameArray(QPDFObjectHandle a, QPDFObjectHandle b) const {
    if (a.getArrayNItems() != b.getArrayNItems()) return false;
    for (int i = 0; i < a.getArrayNItems(); ++i) {
      if (!isSame(a.getArrayItem(i), b.getArrayItem(i))) return false;
    }
    return true;
  }

  bool isSameStream(QPDFObjectHandle a, QPDFObjectHandle b) const {
    static const Keys kLength = {"/Length"};
    if (!isSameDictionary(a.getDict(), b.getDict(), kLength)) return false;
    const auto bytes = a.getRawStreamData();
    const auto others = b.getRawStreamData();
    return bytes->getSize() == others->getSize() &&
           std::equal(bytes->getBuffer(), bytes->getBuffer() + bytes->getSize(),
                      others->getBuffer());
  }

  const Renumbered& names_;
};

void requireSamePages(QPDF& before, QPDF& after, const Comparison& comparison) {
  const std::vector<PdfPage> old = pagesOf(before);
  const std::vector<PdfPage> now = pagesOf(after);
  if (old.size() != now.size()) throwDifferent("the number of pages");
  for (std::size_t i = 0; i < old.size(); ++i) {
    const bool isSame = comparison.isSame(old[i].page, now[i].page) &&
                        comparison.isSame(old[i].resources, now[i].resources) &&
                        comparison.isSame(old[i].mediaBox, now[i].mediaBox) &&
                        comparison.isSame(old[i].cropBox, now[i].cropBox) &&
                        comparison.isSame(old[i].rotate, now[i].rotate);
    if (!isSame) throwDifferent("page " + std::to_string(i + 1));
  }
}

}  // namespace

void requireSameObjects(QPDF& before, QPDF& after, const Renumbered& names) {
  const Comparison comparison(names);
  if (!comparison.isSameDictionary(before.getTrailer(), after.getTrailer(), kOfStorage)) {
    throwDifferent("the trailer");
  }
  const QPDFObjGen metadata = before.getRoot().getKey("/Metadata").getObjGen();
  const QPDFObjGen encryption = before.getTrailer().getKey("/Encrypt").getObjGen();
  const QPDFObjGen hints = hintsOf(before);
  for (QPDFObjectHandle& object : before.getAllObjects()) {
    const QPDFObjGen name = object.getObjGen();
    const bool isLeftOut =
        name == metadata || name == encryption || name == hints || isOfStorage(object);
    if (isLeftOut || object.isNull()) continue;
    if (!comparison.isSameValue(object, after.getObjectByObjGen(comparison.nameOf(name)))) {
      throwDifferent("object " + std::to_string(name.getObj()));
    }
  }
  requireSamePages(before, after, comparison);
}

}  // namespace vxmeta
