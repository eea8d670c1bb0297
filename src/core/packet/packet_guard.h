// SPDX-License-Identifier: Apache-2.0
// Judges a packet while it is parsed. Every way of reading shows it the same events, with names and
// namespaces decoded by the XML parser, so that no way takes what another refuses.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <set>
#include <stdexcept>
#include <string>
#include <string_view>

#include "core/namespaces.h"
#include "core/packet/limits.h"

namespace xmpl {

// Tells which limit; where the parser stood, its driver adds.
class PacketRefused : public std::runtime_error {
  using std::runtime_error::runtime_error;
};

// What the guard must know of a namespace: one for each URI.
struct GuardedSchema {
  bool isForeign = true;
  const Namespace* own = nullptr;   // its row in the library's table
  std::uint32_t namedChildren = 0;  // top-level properties of it
};

// What the guard must know of an element's or attribute's name.
struct GuardedName {
  // `syntax`: says how a property is written and is none, as rdf:parseType and xml:lang.
  // `value`: rdf:value, which makes the other properties beside it qualifiers.
  enum class Role : std::uint8_t { other, item, array, description, rdf, value, syntax };

  Role role = Role::other;
  bool isOwn = false;  // the library writes it, and it does not count
  std::uint32_t localBytes = 0;
  GuardedSchema* schema = nullptr;
};

class PacketGuard {
 public:
  // Each throws PacketRefused.
  [[noreturn]] static void refuseDoctype();
  void declare(std::string_view prefix, std::string_view uri, const GuardedSchema& schema);
  void startElement(const GuardedName& name);
  void attribute(const GuardedName& name);  // of the element that was started last
  void endElement() {
    if (depth_-- == metadata_) metadata_ = 0;
  }

  std::size_t deepest() const { return deepest_; }

 private:
  struct Element {
    GuardedName::Role role;
    bool isTopLevel;  // an rdf:Description in an rdf:RDF
    std::uint8_t values;
    std::uint32_t namedChildren;
  };

  void countChild(Element& parent, const GuardedName& name);

  std::array<Element, limits::kElementDepth + 1> open_{};  // the first stands for the document
  std::size_t depth_ = 0;
  std::size_t deepest_ = 0;
  std::size_t metadata_ = 0;                    // depth of the rdf:RDF that is open
  std::set<std::string, std::less<>> foreign_;  // namespaces
};

// Of a namespace's URI and a local name, as the XML parser decodes them.
GuardedSchema guardedSchema(std::string_view uri);
// `stored` is the name as nodes have it. It matters in the library's own schemas alone.
GuardedName guardedName(std::string_view uri, std::string_view local, std::string_view stored,
                        GuardedSchema& schema);

}  // namespace xmpl
