// SPDX-License-Identifier: Apache-2.0
// Copying foreign metadata, that of schemas which this library does not manage.
#include <algorithm>
#include <string_view>

#include "core/call_guard.h"
#include "core/namespaces.h"
#include "core/packet/draft.h"
#include "core/properties.h"
#include "core/toolkit/copy_missing.h"

using xmpl::Metadata;
using xmpl::Part;

namespace {

// The URI that all versions of a schema begin with.
constexpr std::string_view withoutVersion(std::string_view uri, std::string_view version) {
  return uri.substr(0, uri.size() - version.size());
}
constexpr std::string_view kXmpCore = withoutVersion(kXMP_NS_XMP, "1.0/");
constexpr std::string_view kPdf = withoutVersion(kXMP_NS_PDF, "1.3/");
constexpr std::string_view kDublinCore = kXMP_NS_DC;

bool isOneOf(std::string_view path, std::initializer_list<std::string_view> names) {
  return std::find(names.begin(), names.end(), path) != names.end();
}

Part foreignPart(std::string_view schema, std::string_view property) {
  if (schema.starts_with(XMPLIB_PRIVATE_BASE) || schema.starts_with(kXmpCore)) return Part::nothing;
  if (schema.starts_with(kDublinCore) &&
      (property.starts_with("dc:description") || property.starts_with("dc:format"))) {
    return Part::nothing;
  }
  if (schema.starts_with(kPdf) &&
      isOneOf(property, {"pdf:Producer", "pdf:Version", "pdf:Trapped"})) {
    return Part::allButItself;
  }
  return Part::all;
}

}  // namespace

bool XMPlib::MergeNonOrvo(const XMPlib* other) {
  if (meta == nullptr || other == nullptr || other->meta == nullptr) return false;
  if (!xmpl::holdsAny(*other->meta, foreignPart)) return false;
  xmpl::Draft draft(*meta);
  try {
    xmpl::copyMissing(*other->meta, draft.metadata(), foreignPart);
  } catch (const XMP_Error&) {
    draft.commit();  // the nodes copied so far stay
    throw;
  }
  draft.commit();
  return true;
}

bool XMPlib::IsNonPDFCompatible() const {
  return guarded([](const Metadata& metadata) {
    std::string format;
    return xmpl::PropertyReader(metadata).text("dc:format", format) &&
           format == "application/vnd.adobe.illustrator";
  });
}
