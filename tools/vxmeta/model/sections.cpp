// SPDX-License-Identifier: Apache-2.0
#include "model/sections.h"

#include <algorithm>
#include <iterator>

namespace vxmeta {
namespace {

using Role = StoredPlace::Role;

// Sorted by path. Film and page share dimensions: the first that can be meant stands first.
constexpr StoredPlace kPlaces[] = {
    {"dc:description", "document", "description"},
    {"dc:title", "pdfData", "title"},
    {"orvoVDP:version", "scalars.vdpVersion"},
    {"pdf:Producer", "pdfData", "producer"},
    {"pdf:Trapped", "pdfData", "trapped"},
    {"pdfxid:GTS_PDFXVersion", "pdfData", "pdfxVersion"},
    {"stVer:comments", "version", "comments"},
    {"stVer:modifier", "version", "modifier"},
    {"stVer:modifyDate", "version", "modifyDate"},
    {"stVer:version", "version", "version"},
    {"vxBarcL:barcodes", "barcodes"},
    {"vxCadL:files", "cadFiles"},
    {"vxCadReg:instanceID", "cadRegistration", "instanceID", Role::required},
    {"vxCadReg:orgX", "cadRegistration", "orgX", Role::required},
    {"vxCadReg:orgY", "cadRegistration", "orgY", Role::required},
    {"vxCadReg:orientation", "cadRegistration", "orientation", Role::required},
    {"vxCadReg:renditionClass", "cadRegistration", "renditionClass", Role::required},
    {"vxCadReg:stationname", "cadRegistration", "stationname", Role::required},
    {"vxDGCL:dgcs", "dgcs"},
    {"vxDigFilm:structure", "film.version", "structure"},
    {"vxDigFilm:type", "film.version", "type"},
    {"vxDigFilm:version", "scalars.digitalFilmVersion"},
    {"vxDigFilm:version", "film.version", "version", Role::required},
    {"vxDigFilmMetaDataList:metadataList", "film.metadata"},
    {"vxDigFilmRefs:files", "film.jobReferences"},
    {"vxDigJob:version", "scalars.digitalJobVersion"},
    {"vxExtFL2:files", "extRefs"},
    {"vxExtFL:files", "extRefs", "", Role::beside},
    {"vxFontL:fonts", "fonts"},
    {"vxGr:colorprofdesc", "colorSpace", "colorprofdesc"},
    {"vxGr:colorprofloc", "colorSpace", "colorprofloc"},
    {"vxGr:colorprofname", "colorSpace", "colorprofname"},
    {"vxGr:hdist", "film.dimensions", "hdist", Role::required},
    {"vxGr:hresolution", "film.dimensions", "hresolution", Role::required},
    {"vxGr:hscale", "film.dimensions", "hscale", Role::required},
    {"vxGr:hshrink", "page", "hshrink", Role::required},
    {"vxGr:hsize", "page", "hsize", Role::required},
    {"vxGr:hsize", "film.dimensions", "hsize", Role::required},
    {"vxGr:inkproperties", "inkProperties"},
    {"vxGr:inks", "inks"},
    {"vxGr:margbot", "page", "margbot", Role::required},
    {"vxGr:margbot", "film.dimensions", "margbot", Role::required},
    {"vxGr:margleft", "page", "margleft", Role::required},
    {"vxGr:margleft", "film.dimensions", "margleft", Role::required},
    {"vxGr:margright", "page", "margright", Role::required},
    {"vxGr:margright", "film.dimensions", "margright", Role::required},
    {"vxGr:margtop", "page", "margtop", Role::required},
    {"vxGr:margtop", "film.dimensions", "margtop", Role::required},
    {"vxGr:nrinksoriginal", "scalars.nrInksOriginalDocument"},
    {"vxGr:nrpages", "scalars.nrPages"},
    {"vxGr:readerspread", "page", "readerspread", Role::required},
    {"vxGr:reverse", "film.dimensions", "reverse", Role::required},
    {"vxGr:scanlinedirection", "film.dimensions", "scanlinedirection", Role::required},
    {"vxGr:screenreg", "scalars.screenReg"},
    {"vxGr:sides", "scalars.rectoVerso"},
    {"vxGr:startlogpage", "scalars.startLogPage"},
    {"vxGr:trapped", "scalars.isTrapped"},
    {"vxGr:units", "page", "units", Role::required},
    {"vxGr:units", "film.dimensions", "units", Role::required},
    {"vxGr:vdist", "film.dimensions", "vdist", Role::required},
    {"vxGr:vresolution", "film.dimensions", "vresolution", Role::required},
    {"vxGr:vscale", "film.dimensions", "vscale", Role::required},
    {"vxGr:vshrink", "page", "vshrink", Role::required},
    {"vxGr:vsize", "page", "vsize", Role::required},
    {"vxGr:vsize", "film.dimensions", "vsize", Role::required},
    {"vxInkCovL:coverage", "inks", "", Role::beside},
    {"vxJob:description", "job", "description"},
    {"vxJob:orderid", "job", "orderid"},
    {"vxJob:suborderid", "job", "suborderid"},
    {"vxLayL:layers", "layers"},
    {"vxPDFNat:type", "scalars.pdfNativeType"},
    {"vxPDFNat:version", "scalars.pdfNativeVersion"},
    {"vxPDFNat:vindrelversion", "scalars.pdfNativeVindrelVersion"},
    {"vxPagL:pagelist", "pageRanges"},
    {"vxPrF:DerivedFrom/stRef:instanceID", "baseDocument", "instanceID", Role::required},
    {"vxPrF:DerivedFrom/stRef:renditionClass", "baseDocument", "renditionClass", Role::required},
    {"vxProd:id", "product", "id"},
    {"vxProd:partid", "product", "partid"},
    {"vxProd:proddescription", "product", "proddescription"},
    {"vxProd:prodid", "product", "prodid"},
    {"vxProd:prodname", "product", "prodname"},
    {"vxProd:prodpartid", "product", "prodpartid"},
    {"vxProd:prodpartname", "product", "prodpartname"},
    {"vxScreenC:screenContainer", "screens"},
    {"vxScreenL:screens", "screens", "", Role::beside},
    {"vxSmNameL:smartnames", "smartNames"},
    {"vxSmartID:id", "scalars.smartID"},
    {"vxSrLayout:repeats", "repeats"},
    {"vxUsedFL:files", "usedRefs"},
    {"xmp:BaseURL", "document", "baseURL"},
    {"xmp:CreateDate", "document", "createDate"},
    {"xmp:CreatorTool", "document", "creatorTool"},
    {"xmp:MetadataDate", "document", "metadataDate"},
    {"xmp:ModifyDate", "document", "modifyDate"},
    {"xmpBJ:JobRef[last()]/stLoc:id", "job", "id"},
    {"xmpBJ:JobRef[last()]/stLoc:name", "job", "name"},
    {"xmpBJ:JobRef[last()]/stLoc:url", "job", "url"},
    {"xmpMM:DerivedFrom", "mmData", "derivedFrom"},
    {"xmpMM:DocumentID", "mmData", "documentID"},
    {"xmpMM:RenditionClass", "mmData", "renditionClass"},
    {"xmpMM:VersionID", "mmData", "versionID"},
};

constexpr bool isBefore(const StoredPlace& a, const StoredPlace& b) { return a.path < b.path; }
static_assert(std::is_sorted(std::begin(kPlaces), std::end(kPlaces), isBefore));

// The first place at the path or behind it.
const StoredPlace* lowerBound(std::string_view path) {
  return std::lower_bound(std::begin(kPlaces), std::end(kPlaces), StoredPlace{path, {}}, isBefore);
}

bool isIn(std::string_view path, std::string_view whole) {
  return path.starts_with(whole) && path.size() > whole.size() &&
         (path[whole.size()] == '/' || path[whole.size()] == '[');
}

// "[2]/vxScreenL:screens" is "[1]".
std::string groupIndex(std::string_view behindName) {
  const std::string digits(behindName.substr(1, behindName.find(']') - 1));
  return '[' + std::to_string(std::stoi(digits) - 1) + ']';
}

}  // namespace

std::string StoredPlace::documentPath() const {
  return std::string(section) + (field.empty() ? "" : "." + std::string(field));
}

std::span<const StoredPlace> storedPlaces() { return kPlaces; }

std::span<const StoredPlace> placesAt(std::string_view path) {
  const StoredPlace* first = lowerBound(path);
  const StoredPlace* end =
      std::upper_bound(first, std::end(kPlaces), StoredPlace{path, {}}, isBefore);
  return {first, end};
}

bool hasPlacesBelow(std::string_view path) {
  const StoredPlace* next = lowerBound(path);
  return next != std::end(kPlaces) && isIn(next->path, path);
}

std::string_view propertyOf(std::string_view path) {
  return path.substr(0, path.find_first_of("/["));
}

std::string_view sectionOf(std::string_view storedProperty) {
  const StoredPlace* place = lowerBound(storedProperty);
  const bool isThere = place != std::end(kPlaces) && propertyOf(place->path) == storedProperty;
  return isThere ? place->section : std::string_view();
}

std::string_view prefixOf(std::string_view storedName) {
  return storedName.substr(0, storedName.find(':'));
}

bool isOwnSchema(std::string_view uri) { return uri.starts_with("http://ns.orvo.example/xmp/"); }

bool isBeside(std::string_view storedProperty) {
  const auto places = placesAt(storedProperty);
  return !places.empty() && places.front().role == Role::beside;
}

std::string pathOfList(const std::string& storedList) {
  const std::size_t bracket = storedList.find('[');
  const std::string_view section = sectionOf(storedList.substr(0, bracket));
  if (section.empty()) return storedList;
  const std::string index =
      bracket == std::string::npos ? "" : groupIndex(std::string_view(storedList).substr(bracket));
  return std::string(section) + index;
}

std::string wordsForList(std::string_view storedList, std::string_view path) {
  return (storedList == "vxInkCovL:coverage" ? "coverage of " : "") + std::string(path);
}

}  // namespace vxmeta
