// SPDX-License-Identifier: Apache-2.0
#include "core/packet/names_in_scope.h"

#include <algorithm>
#include <functional>

#include "core/ascii.h"
#include "core/namespaces.h"
#include "core/toolkit/nodes.h"

namespace xmpl {
namespace {

using Term = ScopedName::Term;

// In the table of names, of which half is free. Only names that are made to collide need more; the
// toolkit's way sorts them.
constexpr std::size_t kMostLookedAt = 64;
constexpr std::string_view kDublinCoreOfOldFlash =
    "http://purl.org/dc/1.1/";  // the toolkit mends it

Term rdfTerm(std::string_view local) {
  constexpr std::pair<std::string_view, Term> kTerms[] = {
      {"li", Term::item},
      {"Bag", Term::bag},
      {"Seq", Term::seq},
      {"Alt", Term::alt},
      {"Description", Term::description},
      {"RDF", Term::rdf},
      {"about", Term::about},
      {"parseType", Term::parseType},
      {"resource", Term::resource},
  };
  for (const auto& [name, term] : kTerms) {
    if (name == local) return term;
  }
  return Term::unreadable;
}

Term termOf(const ScopedPrefix& prefix, std::string_view local) {
  if (prefix.uri == kXMP_NS_RDF) return rdfTerm(local);
  if (prefix.uri == kXMP_NS_XML) return local == "lang" ? Term::language : Term::unreadable;
  if (prefix.uri == "adobe:ns:meta/" && (local == "xmpmeta" || local == "xapmeta")) {
    return Term::packet;
  }
  // The toolkit drops this one, of a forgotten tool.
  return prefix.registered == "iX:" && local == "changes" ? Term::unreadable : Term::property;
}

bool hasAliases(const std::string& registered) {
  const auto first = sRegisteredAliasMap->lower_bound(registered);
  return first != sRegisteredAliasMap->end() && first->first.starts_with(registered);
}

// Behind a colon, the parser alone takes what may stand anywhere in a name; as it parses for the
// toolkit, only what may begin one. Of other letters than ASCII's nothing is said here.
bool beginsName(std::string_view local) {
  return !local.empty() && (isLetter(local.front()) || local.front() == '_');
}

std::size_t hashOf(std::string_view text) { return std::hash<std::string_view>()(text); }

}  // namespace

NamesInScope::NamesInScope(PacketGuard& guard) : guard_(guard), slots_(128) {
  ScopedPrefix& xml = prefixNamed("xml");
  xml.uri = kXMP_NS_XML;
  uris_.insert(xml.uri);
  xml.registered = "xml:";
  xml.guarded = guardedSchema(xml.uri);
  xml.declarations = 1;
}

ScopedName& NamesInScope::find(const char* raw) {
  const std::string_view text(raw);
  const std::size_t mask = slots_.size() - 1;
  std::size_t slot = hashOf(text) & mask;
  for (std::size_t looked = 0; slots_[slot] != nullptr; slot = (slot + 1) & mask) {
    if (++looked > kMostLookedAt) throw NotPlain();
    if (slots_[slot]->raw != text) continue;
    ScopedName& name = *slots_[slot];
    if (name.prefix->declarations == 0) throw NotPlain();
    return name;
  }
  return add(text, slot);
}

ScopedName& NamesInScope::add(std::string_view raw, std::size_t slot) {
  names_.emplace_back();
  ScopedName& name = names_.back();
  name.raw = raw;
  resolve(name);
  slots_[slot] = &name;
  if (names_.size() * 2 > slots_.size()) grow();
  return name;
}

void NamesInScope::grow() {
  slots_.assign(slots_.size() * 2, nullptr);
  const std::size_t mask = slots_.size() - 1;
  for (ScopedName& name : names_) {
    std::size_t slot = hashOf(name.raw) & mask;
    while (slots_[slot] != nullptr) slot = (slot + 1) & mask;
    slots_[slot] = &name;
  }
}

void NamesInScope::resolve(ScopedName& name) {
  const std::string_view raw = name.raw;
  const std::size_t colon = raw.find(':');
  if (colon == std::string_view::npos || raw.find(':', colon + 1) != std::string_view::npos) {
    throw NotPlain();
  }
  const std::string_view local = raw.substr(colon + 1);
  name.prefix = &prefixNamed(raw.substr(0, colon));
  if (name.prefix->declarations == 0 || !beginsName(local)) throw NotPlain();
  name.term = termOf(*name.prefix, local);
  name.stored = name.prefix->registered;
  name.stored.append(local);
  name.guarded = guardedName(name.prefix->uri, local, name.stored, name.prefix->guarded);
}

ScopedPrefix& NamesInScope::prefixNamed(std::string_view text) {
  const auto found = byText_.find(text);
  if (found != byText_.end()) return *found->second;
  ScopedPrefix& prefix = prefixes_.emplace_back();
  prefix.text = text;
  byText_.emplace(prefix.text, &prefix);
  return prefix;
}

void NamesInScope::declare(std::string_view declaration, const char* uri) {
  const std::string_view text = declaration.substr(declaration.find(':') + 1);
  if (!beginsName(text) || text.find(':') != std::string_view::npos) throw NotPlain();
  ScopedPrefix& prefix = prefixNamed(text);
  const bool isBound = !prefix.uri.empty() && prefix.uri == uri;  // an empty URI binds nothing
  if (!isBound) bind(prefix, uri);
  declared_.push_back(&prefix);
  ++prefix.declarations;
}

void NamesInScope::bind(ScopedPrefix& prefix, const std::string& uri) {
  const bool isReserved = prefix.text == "xmlns" || uri == "http://www.w3.org/2000/xmlns/";
  if (isReserved || uri.empty() || uri == kDublinCoreOfOldFlash) throw NotPlain();
  if (!prefix.uri.empty() || uris_.contains(uri)) throw NotPlain();
  prefix.guarded = guardedSchema(uri);
  guard_.declare(prefix.text, uri, prefix.guarded);
  try {
    prefix.registered = registerDeclared(prefix.text, uri);
  } catch (const XMP_Error&) {
    throw NotPlain();
  }
  prefix.uri = uri;
  prefix.hasAliases = hasAliases(prefix.registered);
  uris_.insert(prefix.uri);
}

void NamesInScope::endScope(std::size_t scope) {
  for (; declared_.size() > scope; declared_.pop_back()) --declared_.back()->declarations;
}

}  // namespace xmpl
