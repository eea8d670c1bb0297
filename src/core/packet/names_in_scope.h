// SPDX-License-Identifier: Apache-2.0
// The names of a packet, as they stand in it, resolved by the namespaces that hold where they
// stand.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "core/packet/packet_guard.h"

class XMP_Node;

namespace xmpl {

// What no plain packet has. Another reader then says what is to be made of it.
struct NotPlain {};

struct ScopedPrefix {
  std::string text;
  std::string uri;         // the first that was declared for it
  std::string registered;  // the toolkit's prefix for that URI, with its colon
  GuardedSchema guarded;
  bool hasAliases = false;         // the toolkit keeps some of its properties under other names
  XMP_Node* schema = nullptr;      // the node of its properties, once there is one
  std::uint32_t declarations = 0;  // that hold at the moment
};

struct ScopedName {
  enum class Term : std::uint8_t {
    property,
    language,  // xml:lang
    item,
    bag,
    seq,
    alt,
    description,
    rdf,
    about,
    parseType,
    resource,
    packet,  // x:xmpmeta
    unreadable,
  };

  std::string raw;
  Term term = Term::unreadable;
  ScopedPrefix* prefix = nullptr;
  std::string stored;  // as nodes have it
  GuardedName guarded;
  std::uint64_t lastIn = 0;  // number of the structure that had such a field last
};

class NamesInScope {
 public:
  explicit NamesInScope(PacketGuard& guard);

  // Of an element or attribute. Throws NotPlain for a name whose prefix is not declared.
  ScopedName& find(const char* raw);

  static bool isDeclaration(std::string_view attribute) { return attribute.starts_with("xmlns:"); }
  // A declaration holds until endScope is called with what scope() was before it. Throws NotPlain
  // where one prefix is given two URIs in a packet, or one URI two prefixes.
  void declare(std::string_view declaration, const char* uri);
  std::size_t scope() const { return declared_.size(); }
  void endScope(std::size_t scope);

 private:
  ScopedName& add(std::string_view raw, std::size_t slot);
  void resolve(ScopedName& name);
  ScopedPrefix& prefixNamed(std::string_view text);
  void bind(ScopedPrefix& prefix, const std::string& uri);
  void grow();

  PacketGuard& guard_;
  std::deque<ScopedPrefix> prefixes_;
  std::unordered_map<std::string_view, ScopedPrefix*> byText_;
  std::unordered_set<std::string_view> uris_;
  std::deque<ScopedName> names_;
  std::vector<ScopedName*> slots_;  // by hash; its size is a power of two
  std::vector<ScopedPrefix*> declared_;
};

}  // namespace xmpl
