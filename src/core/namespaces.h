// SPDX-License-Identifier: Apache-2.0
// The schema's namespaces: URI and prefix of each, and names that are checked against them when
// they are compiled.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/own_properties.h"
#include "core/toolkit/client.h"

#define XMPLIB_PRIVATE_BASE "http://ns.orvo.example/xmp/"

namespace xmpl {

struct Namespace {
  std::string_view prefix;
  const char* uri;
};

// In registration order. The prefixes are part of the stored format: they stand in every path.
inline constexpr Namespace kNamespaces[] = {
    {"xmpMM", kXMP_NS_XMP_MM},
    {"stRef", kXMP_NS_XMP_ResourceRef},
    {"xmp", kXMP_NS_XMP},
    {"stLoc", "http://ns.adobe.com/xap/1.0/sType/Location#"},
    {"xmpBJ", kXMP_NS_XMP_BJ},
    {"stVer", kXMP_NS_XMP_ST_Version},
    {"pdfxid", kXMP_NS_PDFX_ID},
    {"pdf", kXMP_NS_PDF},
    {"vxJob", XMPLIB_PRIVATE_BASE "jobinfo/1.0/"},
    {"vxProd", XMPLIB_PRIVATE_BASE "prodinfo/1.0/"},
    {"vxPrF", XMPLIB_PRIVATE_BASE "prodfile/1.0/"},
    {"vxGr", XMPLIB_PRIVATE_BASE "grinfo/1.0/"},
    {"vxInk", XMPLIB_PRIVATE_BASE "inkinfo/1.0/"},
    {"stMfs", kXMP_NS_XMP_ManifestItem},
    {"vxFontL", XMPLIB_PRIVATE_BASE "fontlist/1.0/"},
    {"vxFont", XMPLIB_PRIVATE_BASE "fontinfo/1.0/"},
    {"vxSmNameL", XMPLIB_PRIVATE_BASE "smnamelist/1.0/"},
    {"vxSmName", XMPLIB_PRIVATE_BASE "smname/1.0/"},
    {"vxSrLayout", XMPLIB_PRIVATE_BASE "srlayout/1.0/"},
    {"vxSRRep", XMPLIB_PRIVATE_BASE "vxRepeat/1.0/"},  // Deliberate: path and prefix differ.
    {"vxCadL", XMPLIB_PRIVATE_BASE "cadlist/1.0/"},
    {"vxCadReg", XMPLIB_PRIVATE_BASE "cadreg/1.0/"},
    {"vxExtFL", XMPLIB_PRIVATE_BASE "extfileslist/1.0/"},
    {"vxExtFL2", XMPLIB_PRIVATE_BASE "extfileslist/2.0/"},
    {"vxExtF", XMPLIB_PRIVATE_BASE "extfile/1.0/"},
    {"vxBarcL", XMPLIB_PRIVATE_BASE "barcodelist/1.0/"},
    {"vxBarc", XMPLIB_PRIVATE_BASE "barcode/1.0/"},
    {"vxInkCovL", XMPLIB_PRIVATE_BASE "inkcovlist/1.0/"},
    {"vxInkCov", XMPLIB_PRIVATE_BASE "inkcov/1.0/"},
    {"vxSmartID", XMPLIB_PRIVATE_BASE "smartid/1.0/"},
    {"vxLay", XMPLIB_PRIVATE_BASE "layer/1.0/"},
    {"vxLayL", XMPLIB_PRIVATE_BASE "laylist/1.0/"},
    {"vxPagL", XMPLIB_PRIVATE_BASE "pagerangelist/1.0/"},
    {"vxPag", XMPLIB_PRIVATE_BASE "pagerange/1.1/"},  // Deliberate: 1.1, its list is 1.0.
    {"vxPDFNat", XMPLIB_PRIVATE_BASE "pdfnatversion/1.0/"},
    {"vxDigFilm", XMPLIB_PRIVATE_BASE "digfilmversion/1.0/"},
    {"vxScreenC", XMPLIB_PRIVATE_BASE "screencontainer/1.0/"},
    {"vxScreenL", XMPLIB_PRIVATE_BASE "screenlist/1.0/"},
    {"vxScreen", XMPLIB_PRIVATE_BASE "screeninfo/1.0/"},
    {"vxDGCL", XMPLIB_PRIVATE_BASE "dgclist/1.0/"},
    {"vxDGC", XMPLIB_PRIVATE_BASE "dgc/1.0/"},
    {"vxUsedFL", XMPLIB_PRIVATE_BASE "usedfileslist/1.0/"},
    {"vxUsedF", XMPLIB_PRIVATE_BASE "usedfile/1.0/"},
    {"vxDigJob", XMPLIB_PRIVATE_BASE "digjobversion/1.0/"},
    {"vxDigFilmRefs", XMPLIB_PRIVATE_BASE "digfilmreflist/1.0/"},
    {"vxDigFilmRef", XMPLIB_PRIVATE_BASE "digfilmref/1.0/"},
    {"vxDigFilmMetaDataList", XMPLIB_PRIVATE_BASE "digfilmmetadatalist/1.0/"},
    {"vxDigFilmMetaData", XMPLIB_PRIVATE_BASE "digfilmmetadata/1.0/"},
    {"vxImp", XMPLIB_PRIVATE_BASE "impose/1.0/"},
    {"vxSurf", XMPLIB_PRIVATE_BASE "surface/1.0/"},
    {"vxPlate", XMPLIB_PRIVATE_BASE "plate/1.0/"},
    {"vxDynCont", XMPLIB_PRIVATE_BASE "dyncont/1.0/"},
    {"vxDynDat", XMPLIB_PRIVATE_BASE "dyndat/1.0/"},
    {"vxCpEl", XMPLIB_PRIVATE_BASE "cpel/1.0/"},
    {"vxBCEl", XMPLIB_PRIVATE_BASE "bcel/1.0/"},
    {"vxNFEl", XMPLIB_PRIVATE_BASE "nfel/1.0/"},
    {"orvoVDP", XMPLIB_PRIVATE_BASE "vdpinfo/1.0/"},  // Deliberate: no vx in this prefix.
    {"dc", kXMP_NS_DC},
};

// The URI of `prefix`, known to the compiler; an unknown prefix does not compile.
consteval const char* namespaceUri(std::string_view prefix) {
  for (const Namespace& row : kNamespaces) {
    if (row.prefix == prefix) return row.uri;
  }
  throw "unknown namespace prefix";
}

// `name` itself, if it is in the table of properties.
consteval const char* ownName(const char* name) {
  const std::string_view path(name);
  if (!isOwnProperty(path.substr(0, path.find_first_of("/[")))) throw "not in kOwnProperties";
  return name;
}

// A top-level property or a path that starts at one, by its full name ("vxGr:nrpages"). The
// schema's URI follows from the prefix.
struct PropertyPath {
  const char* schema;
  const char* path;

  consteval PropertyPath(const char* name)  // NOLINT(google-explicit-constructor): reads as text
      : schema(namespaceUri(std::string_view(name, std::string_view(name).find(':')))),
        path(ownName(name)) {}

 private:
  friend struct PropertyName;
  constexpr PropertyPath(const char* checkedSchema, const char* checkedPath)
      : schema(checkedSchema), path(checkedPath) {}
};

// The toolkit keeps these under other names; a path finds them there.
inline constexpr std::string_view kAliases[] = {
    "xmp:Author",  "xmp:Authors", "xmp:Description", "xmp:Format",  "xmp:Keywords",
    "xmp:Locale",  "xmp:Title",   "pdf:Author",      "pdf:BaseURL", "pdf:CreationDate",
    "pdf:Creator", "pdf:ModDate", "pdf:Subject",     "pdf:Title",
};

consteval const char* plainName(const char* name) {
  if (std::string_view(name).find_first_of("/[*") != std::string_view::npos) throw "not a name";
  for (const std::string_view alias : kAliases) {
    if (alias == name) throw "the toolkit keeps this property under another name";
  }
  return name;
}

// A top-level property that stands in the toolkit's tree under this very name. Deliberate:
// PropertyPath is not its base, since clang 14 crashes on a base that is made while compiling.
struct PropertyName {
  const char* schema;
  const char* path;

  consteval PropertyName(const char* name)  // NOLINT(google-explicit-constructor): as above
      : schema(PropertyPath(name).schema), path(plainName(name)) {}
  // NOLINTNEXTLINE(google-explicit-constructor): it is one
  constexpr operator PropertyPath() const { return {schema, path}; }
};

// The row with that URI, or null.
const Namespace* ownNamespace(std::string_view uri);

// Registers every namespace of the table, in its order. Throws XMP_Error.
void registerNamespaces();

// Registers a namespace that a packet declares, if it is new, as the toolkit would: under its
// prefix or, where that is taken, under prefix_1_, prefix_2_ ... The toolkit tries these from the
// first for every namespace, and slows down with all that any packet has declared before. Answers
// the registered prefix, with its colon. Throws XMP_Error for what the toolkit takes for no prefix.
std::string registerDeclared(const std::string& prefix, const std::string& uri);

}  // namespace xmpl
