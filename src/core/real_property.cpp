// SPDX-License-Identifier: Apache-2.0
// Real numbers, for callers who write properties of their own.
#include <algorithm>
#include <cstring>
#include <string_view>

#include "XMPlib.h"
#include "core/ascii.h"
#include "core/packet/draft.h"
#include "core/packet/limits.h"
#include "core/toolkit/client.h"
#include "core/toolkit/tree.h"
#include "core/value_text.h"

using xmpl::Metadata;

namespace {

bool isPlainName(std::string_view name) {
  return name.size() <= xmpl::limits::kLocalNameBytes &&
         std::all_of(name.begin(), name.end(), [](char c) {
           return xmpl::isLetter(c) || xmpl::isDigit(c) || c == '_' || c == ':';
         });
}

// A path has one more level at each; an item, in brackets, is never implied.
bool isTooDeep(const char* path) {
  const std::string_view steps = path == nullptr ? "" : path;
  const auto count = std::count(steps.begin(), steps.end(), '/');
  return static_cast<std::size_t>(count) > xmpl::limits::kElementDepth;
}

// Names of RDF and XML may say how a packet is written; of the others a load brings properties into
// form, or moves them.
bool isSpecial(std::string_view schema) {
  constexpr std::string_view kSpecial[] = {kXMP_NS_RDF,  kXMP_NS_XML, kXMP_NS_DC,
                                           kXMP_NS_EXIF, kXMP_NS_DM,  kXMP_NS_XMP_Rights};
  return std::find(std::begin(kSpecial), std::end(kSpecial), schema) != std::end(kSpecial);
}

// Whether setting the property cannot make the metadata unfit to be saved. A name that is no XML
// name the toolkit refuses itself, but for characters outside ASCII.
bool isHarmless(const Metadata& metadata, const char* schema, const char* name) {
  if (schema == nullptr || name == nullptr) return true;  // the toolkit's error
  if (isSpecial(schema)) return false;
  const std::size_t properties = xmpl::propertyCount(metadata, schema);
  return isPlainName(name) && properties > 0 && properties < xmpl::limits::kNamedChildren &&
         !xmpl::isAlias(schema, name);
}

}  // namespace

void XMPlib::SetProperty_Float(const char* schemaNS, const char* propName, double value) {
  if (meta == nullptr) return;
  if (isTooDeep(propName)) {
    throw XMP_Error(kXMPErr_BadXPath, "Packet not written: more than 128 levels of elements");
  }
  const std::string text = xmpl::realText(value);
  if (isHarmless(*meta, schemaNS, propName)) {
    meta->SetProperty(schemaNS, propName, text);
    return;
  }
  xmpl::Draft draft(*meta);
  draft.metadata().SetProperty(schemaNS, propName, text);
  draft.commitIfLoadable(schemaNS, propName, text);
}
