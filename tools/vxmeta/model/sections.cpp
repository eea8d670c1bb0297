// SPDX-License-Identifier: Apache-2.0
#include "model/sections.h"

#include <algorithm>
#include <iterator>

namespace vxmeta {
namespace {

struct Row {
  std::string_view property;
  std::string_view section;
};

// Film inks and document inks are one list, film and page dimensions share properties: the first
// that can be meant stands here. Sorted by property.
constexpr Row kRows[] = {
    {"dc:description", "document"},
    {"dc:title", "pdfData"},
    {"orvoVDP:version", "scalars.vdpVersion"},
    {"pdf:Producer", "pdfData"},
    {"pdf:Trapped", "pdfData"},
    {"pdfxid:GTS_PDFXVersion", "pdfData"},
    {"stVer:comments", "version"},
    {"stVer:modifier", "version"},
    {"stVer:modifyDate", "version"},
    {"stVer:version", "version"},
    {"vxBarcL:barcodes", "barcodes"},
    {"vxCadL:files", "cadFiles"},
    {"vxCadReg:instanceID", "cadRegistration"},
    {"vxCadReg:orgX", "cadRegistration"},
    {"vxCadReg:orgY", "cadRegistration"},
    {"vxCadReg:orientation", "cadRegistration"},
    {"vxCadReg:renditionClass", "cadRegistration"},
    {"vxCadReg:stationname", "cadRegistration"},
    {"vxDGCL:dgcs", "dgcs"},
    {"vxDigFilm:structure", "film.version"},
    {"vxDigFilm:type", "film.version"},
    {"vxDigFilm:version", "film.version"},
    {"vxDigFilmMetaDataList:metadataList", "film.metadata"},
    {"vxDigFilmRefs:files", "film.jobReferences"},
    {"vxDigJob:version", "scalars.digitalJobVersion"},
    {"vxExtFL2:files", "extRefs"},
    {"vxExtFL:files", "extRefs"},
    {"vxFontL:fonts", "fonts"},
    {"vxGr:colorprofdesc", "colorSpace"},
    {"vxGr:colorprofloc", "colorSpace"},
    {"vxGr:colorprofname", "colorSpace"},
    {"vxGr:hdist", "film.dimensions"},
    {"vxGr:hresolution", "film.dimensions"},
    {"vxGr:hscale", "film.dimensions"},
    {"vxGr:hshrink", "page"},
    {"vxGr:hsize", "page"},
    {"vxGr:inkproperties", "inkProperties"},
    {"vxGr:inks", "inks"},
    {"vxGr:margbot", "page"},
    {"vxGr:margleft", "page"},
    {"vxGr:margright", "page"},
    {"vxGr:margtop", "page"},
    {"vxGr:nrinksoriginal", "scalars.nrInksOriginalDocument"},
    {"vxGr:nrpages", "scalars.nrPages"},
    {"vxGr:readerspread", "page"},
    {"vxGr:reverse", "film.dimensions"},
    {"vxGr:scanlinedirection", "film.dimensions"},
    {"vxGr:screenreg", "scalars.screenReg"},
    {"vxGr:sides", "scalars.rectoVerso"},
    {"vxGr:startlogpage", "scalars.startLogPage"},
    {"vxGr:trapped", "scalars.isTrapped"},
    {"vxGr:units", "page"},
    {"vxGr:vdist", "film.dimensions"},
    {"vxGr:vresolution", "film.dimensions"},
    {"vxGr:vscale", "film.dimensions"},
    {"vxGr:vshrink", "page"},
    {"vxGr:vsize", "page"},
    {"vxInkCovL:coverage", "inks"},
    {"vxJob:description", "job"},
    {"vxJob:orderid", "job"},
    {"vxJob:suborderid", "job"},
    {"vxLayL:layers", "layers"},
    {"vxPDFNat:type", "scalars.pdfNativeType"},
    {"vxPDFNat:version", "scalars.pdfNativeVersion"},
    {"vxPDFNat:vindrelversion", "scalars.pdfNativeVindrelVersion"},
    {"vxPagL:pagelist", "pageRanges"},
    {"vxPrF:DerivedFrom", "baseDocument"},
    {"vxProd:id", "product"},
    {"vxProd:partid", "product"},
    {"vxProd:proddescription", "product"},
    {"vxProd:prodid", "product"},
    {"vxProd:prodname", "product"},
    {"vxProd:prodpartid", "product"},
    {"vxProd:prodpartname", "product"},
    {"vxScreenC:screenContainer", "screens"},
    {"vxScreenL:screens", "screens"},
    {"vxSmNameL:smartnames", "smartNames"},
    {"vxSmartID:id", "scalars.smartID"},
    {"vxSrLayout:repeats", "repeats"},
    {"vxUsedFL:files", "usedRefs"},
    {"xmp:BaseURL", "document"},
    {"xmp:CreateDate", "document"},
    {"xmp:CreatorTool", "document"},
    {"xmp:MetadataDate", "document"},
    {"xmp:ModifyDate", "document"},
    {"xmpBJ:JobRef", "job"},
    {"xmpMM:DerivedFrom", "mmData"},
    {"xmpMM:DocumentID", "mmData"},
    {"xmpMM:RenditionClass", "mmData"},
    {"xmpMM:VersionID", "mmData"},
};

constexpr bool isBefore(const Row& a, const Row& b) { return a.property < b.property; }
static_assert(std::is_sorted(std::begin(kRows), std::end(kRows), isBefore));

// "[2]/vxScreenL:screens" is "[1]".
std::string groupIndex(std::string_view behindName) {
  const std::string digits(behindName.substr(1, behindName.find(']') - 1));
  return '[' + std::to_string(std::stoi(digits) - 1) + ']';
}

}  // namespace

std::string_view sectionOf(std::string_view storedProperty) {
  const Row* row =
      std::lower_bound(std::begin(kRows), std::end(kRows), Row{storedProperty, {}}, isBefore);
  return row != std::end(kRows) && row->property == storedProperty ? row->section
                                                                   : std::string_view();
}

std::string pathOfList(const std::string& storedList) {
  // These stand beside the list that their section is read from.
  if (storedList == "vxInkCovL:coverage" || storedList == "vxExtFL:files" ||
      storedList == "vxScreenL:screens") {
    return storedList;
  }
  const std::size_t bracket = storedList.find('[');
  const std::string_view section = sectionOf(storedList.substr(0, bracket));
  if (section.empty()) return storedList;
  const std::string index =
      bracket == std::string::npos ? "" : groupIndex(std::string_view(storedList).substr(bracket));
  return std::string(section) + index;
}

}  // namespace vxmeta
