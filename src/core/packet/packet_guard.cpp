// SPDX-License-Identifier: Apache-2.0
#include "core/packet/packet_guard.h"

#include <algorithm>

#include "core/own_properties.h"

namespace xmpl {
namespace {

constexpr std::string_view kRdf = kXMP_NS_RDF;
constexpr std::string_view kXml = kXMP_NS_XML;
constexpr std::string_view kPacket = "adobe:ns:meta/";

using Role = GuardedName::Role;

Role rdfRole(std::string_view local) {
  if (local == "li") return Role::item;
  if (local == "Bag" || local == "Seq" || local == "Alt") return Role::array;
  if (local == "Description") return Role::description;
  if (local == "RDF") return Role::rdf;
  if (local == "value") return Role::value;
  constexpr std::string_view kSyntax[] = {"about", "parseType", "resource",
                                          "ID",    "nodeID",    "datatype"};
  if (std::find(std::begin(kSyntax), std::end(kSyntax), local) != std::end(kSyntax)) {
    return Role::syntax;
  }
  const bool isNumbered = local.size() > 1 && local[0] == '_' &&
                          local.find_first_not_of("0123456789", 1) == std::string_view::npos;
  return isNumbered ? Role::item : Role::other;
}

void checkLength(const GuardedName& name) {
  if (name.localBytes > limits::kLocalNameBytes)
    throw PacketRefused("a name of more than 256 bytes");
}

[[noreturn]] void refuseValues() { throw PacketRefused("more than 16 rdf:value of one property"); }

[[noreturn]] void refuseCount(const char* what) {
  throw PacketRefused(std::string("more than 2,048 ") + what);
}

}  // namespace

GuardedSchema guardedSchema(std::string_view uri) {
  const Namespace* own = ownNamespace(uri);
  return {own == nullptr && uri != kRdf && uri != kXml && uri != kPacket, own, 0};
}

GuardedName guardedName(std::string_view uri, std::string_view local, std::string_view stored,
                        GuardedSchema& schema) {
  const auto bytes = static_cast<std::uint32_t>(local.size());
  if (uri == kRdf) return {rdfRole(local), false, bytes, &schema};
  const bool isOldAbout = uri.empty() && (local == "about" || local == "ID");  // stands for rdf's
  const bool isLanguage = uri == kXml && local == "lang";
  if (isOldAbout || isLanguage) return {Role::syntax, false, bytes, &schema};
  return {Role::other, schema.own != nullptr && isOwnProperty(stored), bytes, &schema};
}

void PacketGuard::refuseDoctype() { throw PacketRefused("DOCTYPE is not allowed"); }

void PacketGuard::declare(std::string_view prefix, std::string_view uri,
                          const GuardedSchema& schema) {
  if (prefix.size() > limits::kPrefixBytes) {
    throw PacketRefused("a namespace prefix of more than 64 bytes");
  }
  if (uri.size() > limits::kUriBytes) {
    throw PacketRefused("a namespace URI of more than 128 bytes");
  }
  if (!schema.isForeign || foreign_.contains(uri)) return;
  if (foreign_.size() == limits::kNamespaces) throw PacketRefused("more than 1,024 namespaces");
  foreign_.emplace(uri);
}

void PacketGuard::startElement(const GuardedName& name) {
  checkLength(name);
  if (depth_ == limits::kElementDepth) throw PacketRefused("more than 128 levels of elements");
  Element& parent = open_[depth_];
  countChild(parent, name);
  const bool isTopLevel = name.role == Role::description && parent.role == Role::rdf;
  open_[++depth_] = {name.role, isTopLevel, 0, 0};
  if (name.role == Role::rdf && metadata_ == 0) metadata_ = depth_;
  deepest_ = std::max(deepest_, depth_);
}

void PacketGuard::attribute(const GuardedName& name) {
  checkLength(name);
  countChild(open_[depth_], name);
}

// Items are not searched by name, and what stands outside the metadata is not searched at all.
void PacketGuard::countChild(Element& parent, const GuardedName& name) {
  if (metadata_ == 0 || parent.role == Role::rdf || name.role == Role::syntax) return;
  if (parent.role == Role::array && name.role == Role::item) return;
  if (name.isOwn) return;
  if (name.role == Role::value) {
    if (++parent.values > limits::kValues) refuseValues();
    return;
  }
  std::uint32_t& count = parent.isTopLevel ? name.schema->namedChildren : parent.namedChildren;
  if (++count <= limits::kNamedChildren) return;
  refuseCount(parent.isTopLevel   ? "properties of one namespace"
              : parent.values > 0 ? "qualifiers of one value"
                                  : "fields of one structure");
}

}  // namespace xmpl
