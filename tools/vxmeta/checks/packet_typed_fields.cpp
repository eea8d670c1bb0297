// SPDX-License-Identifier: Apache-2.0
#include "checks/packet_typed_fields.h"

namespace vxmeta {
namespace {

constexpr ValueKind kInteger = ValueKind::integer;
constexpr ValueKind kReal = ValueKind::real;
constexpr ValueKind kBoolean = ValueKind::boolean;

// What pages and films share stands under the page.
constexpr TypedProperty kProperties[] = {
    {"vxGr:nrpages", kInteger, "scalars.nrPages"},
    {"vxGr:screenreg", kBoolean, "scalars.screenReg"},
    {"vxGr:trapped", kBoolean, "scalars.isTrapped"},
    {"vxGr:startlogpage", kInteger, "scalars.startLogPage"},
    {"vxGr:nrinksoriginal", kInteger, "scalars.nrInksOriginalDocument"},
    {"vxPDFNat:version", kInteger, "scalars.pdfNativeVersion"},
    {"vxDigFilm:version", kInteger, "scalars.digitalFilmVersion"},
    {"vxDigJob:version", kInteger, "scalars.digitalJobVersion"},
    {"orvoVDP:version", kInteger, "scalars.vdpVersion"},
    {"vxGr:vsize", kReal, "page.vsize"},
    {"vxGr:hsize", kReal, "page.hsize"},
    {"vxGr:margtop", kReal, "page.margtop"},
    {"vxGr:margbot", kReal, "page.margbot"},
    {"vxGr:margleft", kReal, "page.margleft"},
    {"vxGr:margright", kReal, "page.margright"},
    {"vxGr:vshrink", kReal, "page.vshrink"},
    {"vxGr:hshrink", kReal, "page.hshrink"},
    {"vxGr:readerspread", kBoolean, "page.readerspread"},
    {"vxGr:vresolution", kReal, "film.dimensions.vresolution"},
    {"vxGr:hresolution", kReal, "film.dimensions.hresolution"},
    {"vxGr:vdist", kReal, "film.dimensions.vdist"},
    {"vxGr:hdist", kReal, "film.dimensions.hdist"},
    {"vxGr:vscale", kReal, "film.dimensions.vscale"},
    {"vxGr:hscale", kReal, "film.dimensions.hscale"},
    {"vxGr:reverse", kBoolean, "film.dimensions.reverse"},
    {"vxGr:scanlinedirection", kInteger, "film.dimensions.scanlinedirection"},
    {"vxCadReg:orientation", kInteger, "cadRegistration.orientation"},
    {"vxCadReg:orgX", kReal, "cadRegistration.orgX"},
    {"vxCadReg:orgY", kReal, "cadRegistration.orgY"},
};

constexpr TypedField kInkFields[] = {
    {"vxInk:frequency", kReal, "frequency"},
    {"vxInk:angle", kReal, "angle"},
    {"vxInk:r", kReal, "r"},
    {"vxInk:g", kReal, "g"},
    {"vxInk:b", kReal, "b"},
    {"vxInk:omask", kBoolean, "attribute"},
    {"vxInk:opacity", kReal, "opacity"},
};

constexpr TypedField kCoverageFields[] = {
    {"vxInkCov:pct", kReal, "pct"},
    {"vxInkCov:mm2", kReal, "mm2"},
};

constexpr TypedField kCurveFields[] = {{"vxDGC:values", ValueKind::reals, "values"}};

constexpr TypedField kUsedRefFields[] = {{"vxUsedF:pagenr", kInteger, "pagenr"}};

constexpr TypedField kExtRefFields[] = {
    {"vxExtF:pagenr", kInteger, "pagenr"},
    {"vxExtF:count", kInteger, "count"},
};

constexpr TypedField kFontFields[] = {{"vxFont:protection", kBoolean, "protection"}};

constexpr TypedField kBarcodeFields[] = {
    {"vxBarc:Resolution", kReal, "resolution"},
    {"vxBarc:BarWidthReduction", kReal, "barWidthReduction"},
    {"vxBarc:DeviceCompensation", kReal, "deviceCompensation"},
    {"vxBarc:Magnification", kReal, "magnification"},
    {"vxBarc:Narrow", kReal, "narrow"},
    {"vxBarc:Ratio", kReal, "ratio"},
};

constexpr TypedField kLayerFields[] = {
    {"vxLay:printable", kBoolean, "printable"},
    {"vxLay:locked", kBoolean, "locked"},
};

constexpr TypedField kRangeFields[] = {
    {"vxPag:start", kInteger, "start"},
    {"vxPag:end", kInteger, "end"},
};

constexpr TypedField kRepeatFields[] = {
    {"vxSRRep:vnr", kInteger, "vnr", "grid"},     {"vxSRRep:hnr", kInteger, "hnr", "grid"},
    {"vxSRRep:frontpage", kInteger, "frontpage"}, {"vxSRRep:backpage", kInteger, "backpage"},
    {"vxSRRep:count", kInteger, "count"},
};

constexpr TypedField kScreenFields[] = {
    {"vxScreen:frequencyreq", kReal, "frequencyreq"},
    {"vxScreen:frequency", kReal, "frequency"},
    {"vxScreen:anglereq", kReal, "anglereq"},
    {"vxScreen:angle", kReal, "angle"},
};

constexpr TypedList kLists[] = {
    {"vxGr:inks", "inks", kInkFields},
    {"vxInkCovL:coverage", "inks", kCoverageFields},
    {"vxDGCL:dgcs", "dgcs", kCurveFields},
    {"vxUsedFL:files", "usedRefs", kUsedRefFields},
    {"vxExtFL2:files", "extRefs", kExtRefFields},
    {"vxFontL:fonts", "fonts", kFontFields},
    {"vxBarcL:barcodes", "barcodes", kBarcodeFields},
    {"vxLayL:layers", "layers", kLayerFields},
    {"vxPagL:pagelist", "pageRanges", kRangeFields},
    {"vxSrLayout:repeats", "repeats", kRepeatFields},
};

}  // namespace

std::span<const TypedProperty> typedProperties() { return kProperties; }
std::span<const TypedList> typedLists() { return kLists; }
std::span<const TypedField> typedScreenFields() { return kScreenFields; }

}  // namespace vxmeta
