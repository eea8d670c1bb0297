// Copying foreign metadata, that of schemas which this library does not manage.
#include <algorithm>
#include <iterator>
#include <string_view>

#include "core/call_guard.h"
#include "core/namespaces.h"
#include "core/properties.h"

namespace {

using xmpl::Metadata;

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

}  // namespace

bool XMPlib::MergeNonOrvo(const XMPlib* other) {
  if (meta == nullptr || other == nullptr || other->meta == nullptr) return false;
  bool found = false;
  xmpl::ToolkitIterator nodes(*other->meta, "", "", 0);
  Node node;
  while (nodes.Next(&node.schema, &node.path, &node.value, &node.options)) {
    if (!isForeign(node)) continue;
    found = true;
    if (!meta->DoesPropertyExist(node.schema.c_str(), node.path.c_str())) copyNode(node, *meta);
  }
  return found;
}

bool XMPlib::IsNonPDFCompatible() const {
  return guarded([](const Metadata& metadata) {
    std::string format;
    return xmpl::PropertyReader(metadata).text("dc:format", format) &&
           format == "application/vnd.adobe.illustrator";
  });
}
