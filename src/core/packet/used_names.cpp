// SPDX-License-Identifier: Apache-2.0
#include "core/packet/used_names.h"

#include <algorithm>
#include <array>
#include <new>

#include "core/namespaces.h"
#include "core/packet/blocks.h"
#include "core/packet/limits.h"

namespace xmpl {
namespace {

// What a character can be in a prefix or a local name, the odder the higher.
enum Kind : unsigned char {
  kInName = 0,
  kNotFirst = 1,
  kOdd = 2,  // outside ASCII
  kNever = 4,
};

constexpr std::array<unsigned char, 256> kKinds = [] {
  std::array<unsigned char, 256> kinds{};
  kinds.fill(kNever);
  for (unsigned c = 'a'; c <= 'z'; ++c) kinds[c] = kinds[c - 'a' + 'A'] = kInName;
  for (unsigned c = '0'; c <= '9'; ++c) kinds[c] = kNotFirst;
  for (unsigned c = 0x80; c <= 0xFF; ++c) kinds[c] = kOdd;
  kinds['_'] = kInName;
  kinds['-'] = kinds['.'] = kNotFirst;
  return kinds;
}();

unsigned kindOf(char c) { return kKinds[static_cast<unsigned char>(c)]; }

// As most names are.
bool isShortAndLetters(std::string_view name) {
  if (name.empty() || name.size() >= kBlockBytes) return false;
  const Block folded = blockAt(name.data(), name.size()) | 0x20;
  return Found((folded - 'a') > 'z' - 'a').before() == name.size();  // where the blanks begin
}

// Names of rdf that are no properties and fields to a load: it would take "value" for the value of
// the whole structure, and the other fields for qualifiers.
bool isSyntax(std::string_view local) {
  constexpr std::string_view kSyntax[] = {
      "RDF",         "ID", "about",     "parseType",       "resource", "nodeID", "datatype",
      "Description", "li", "aboutEach", "aboutEachPrefix", "bagID",    "value"};
  return std::find(std::begin(kSyntax), std::end(kSyntax), local) != std::end(kSyntax);
}

[[noreturn]] void refuseName() {
  refuseToWrite("Packet not written: a name that cannot be read again");
}

// The library's own prefixes are registered first in every process, so that they tell.
bool isForeign(const NamespaceInUse& used) {
  const auto isIt = [&used](const Namespace& row) { return row.prefix == used.prefix; };
  return used.prefix != "x" && std::none_of(std::begin(kNamespaces), std::end(kNamespaces), isIt);
}

}  // namespace

void refuseToWrite(const char* why) { throw XMP_Error(kXMPErr_BadSerialize, why); }

void UsedNames::useNew(const std::string& name) {
  const std::string_view text = name;
  const std::size_t colon = text.find(':');
  if (colon == std::string_view::npos) refuseName();
  const std::string_view prefix = text.substr(0, colon);
  const std::string_view local = text.substr(colon + 1);
  checkName(local, limits::kLocalNameBytes);
  if (prefix == "rdf" && isSyntax(local)) refuseName();
  if (prefix == lastPrefix_ || !insertPrefix(prefix)) return;
  XMP_StringPtr uri = nullptr;
  XMP_StringLen size = 0;
  if (!sRegisteredNamespaces->GetURI(std::string(prefix).c_str(), &uri, &size)) {
    refuseToWrite("Packet not written: a prefix without a namespace");
  }
  namespaces_.push_back({prefix, {uri, size}});
}

void UsedNames::declare(std::string_view prefixAndColon, std::string_view uri) {
  const std::string_view prefix = prefixAndColon.substr(0, prefixAndColon.find(':'));
  if (insertPrefix(prefix)) namespaces_.push_back({prefix, uri});
}

// False if it was there.
bool UsedNames::insertPrefix(std::string_view prefix) {
  lastPrefix_ = prefix;
  const auto place = std::lower_bound(prefixes_.begin(), prefixes_.end(), prefix);
  if (place != prefixes_.end() && *place == prefix) return false;
  checkName(prefix, limits::kPrefixBytes);
  if (prefix == "xmlns") refuseName();
  prefixes_.insert(place, prefix);
  return true;
}

// A prefix or a local name.
void UsedNames::checkName(std::string_view name, std::size_t limit) {
  if (isShortAndLetters(name)) return;
  if (name.size() > limit) refuseToWrite("Packet not written: a name that is too long");
  if (name.empty() || kindOf(name[0]) == kNotFirst) refuseName();
  unsigned kinds = 0;
  for (const char c : name) kinds |= kindOf(c);
  if (kinds >= kNever) refuseName();
  if (kinds >= kOdd) checkOddName(name);
}

// What is a name outside ASCII, the parser that reads it again knows best.
void UsedNames::checkOddName(std::string_view name) {
  const auto parse = [this](std::string_view text) {
    return XML_Parse(parser_.get(), text.data(), static_cast<int>(text.size()), XML_FALSE);
  };
  if (parser_ == nullptr) {
    parser_.reset(XML_ParserCreate("UTF-8"));
    if (parser_ == nullptr || parse("<names>") == XML_STATUS_ERROR) throw std::bad_alloc();
  }
  if (parse(std::string("<").append(name).append("/>")) == XML_STATUS_ERROR) refuseName();
}

std::vector<NamespaceInUse> UsedNames::namespaces() && {
  for (const NamespaceInUse& used : namespaces_) {
    if (used.uri.size() > limits::kUriBytes) {
      refuseToWrite("Packet not written: a namespace URI that is too long");
    }
  }
  if (namespaces_.size() > limits::kNamespaces) {
    const auto foreign = std::count_if(namespaces_.begin(), namespaces_.end(), isForeign);
    if (static_cast<std::size_t>(foreign) > limits::kNamespaces) {
      refuseToWrite("Packet not written: more than 1,024 namespaces");
    }
  }
  return std::move(namespaces_);
}

}  // namespace xmpl
