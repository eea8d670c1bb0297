// Copying foreign metadata, that of schemas which this library does not manage.
#include <algorithm>
#include <iterator>
#include <string_view>

#include "core/call_guard.h"
#include "core/namespaces.h"
#include "core/packet/draft.h"
#include "core/properties.h"

using xmpl::Metadata;

namespace {

// One node of the metadata, as the toolkit's iterator shows it.
struct Node {
  std::string schema;
  std::string path;
  std::string value;
  XMP_OptionBits options = 0;
};

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

bool isForeign(const Node& node) {
  const std::string_view schema = node.schema;
  const std::string_view path = node.path;
  if (schema.starts_with(XMPLIB_PRIVATE_BASE)) return false;
  if (schema.starts_with(kXmpCore)) return false;
  if (schema.starts_with(kDublinCore) &&
      (path.starts_with("dc:description") || path.starts_with("dc:format"))) {
    return false;
  }
  if (schema.starts_with(kPdf) && isOneOf(path, {"pdf:Producer", "pdf:Version", "pdf:Trapped"})) {
    return false;
  }
  return (node.options & kXMP_SchemaNode) == 0;
}

// An array or structure is copied empty; its items, fields and qualifiers are nodes of their own.
// Of its options the toolkit takes only the form: it refuses those that announce qualifiers.
void copyNode(const Node& node, Metadata& metadata) {
  const XMP_OptionBits form = node.options & kXMP_PropCompositeMask;
  const char* value = form == 0 ? node.value.c_str() : nullptr;
  metadata.SetProperty(node.schema.c_str(), node.path.c_str(), value, form);
}

// Calls `visit` for every foreign node, parents before their children, until it answers false.
template <class Visit>
void forEachForeign(const Metadata& metadata, const Visit& visit) {
  xmpl::ToolkitIterator nodes(metadata, "", "", 0);
  Node node;
  while (nodes.Next(&node.schema, &node.path, &node.value, &node.options)) {
    if (isForeign(node) && !visit(node)) return;
  }
}

bool holdsForeign(const Metadata& metadata) {
  bool found = false;
  forEachForeign(metadata, [&](const Node&) {
    found = true;
    return false;
  });
  return found;
}

void copyForeign(const Metadata& from, Metadata& to) {
  forEachForeign(from, [&](const Node& node) {
    if (!to.DoesPropertyExist(node.schema.c_str(), node.path.c_str())) copyNode(node, to);
    return true;
  });
}

}  // namespace

bool XMPlib::MergeNonOrvo(const XMPlib* other) {
  if (meta == nullptr || other == nullptr || other->meta == nullptr) return false;
  if (!holdsForeign(*other->meta)) return false;
  xmpl::Draft draft(*meta);
  try {
    copyForeign(*other->meta, draft.metadata());
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
