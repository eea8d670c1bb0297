// SPDX-License-Identifier: Apache-2.0
#include "core/packet/toolkit_reader.h"

#include <map>
#include <string>

#include "core/namespaces.h"
#include "core/packet/packet_guard.h"
#include "core/packet/settle.h"
#include "core/toolkit/nodes.h"
#include "core/toolkit/parse_failure.h"
#include "core/toolkit/parse_observer.h"
#include "core/toolkit/quick_search.h"

#include "core/toolkit/copyright_mend.h"

#include "source/ExpatAdapter.hpp"

namespace xmpl {
namespace {

// Shows the guard what the toolkit's parser meets, and registers namespaces when it has seen them.
class ToolkitEvents final : public ParseObserver {
 public:
  void declare(const char* prefix, const char* uri) override {
    const std::string text = prefix == nullptr ? "_dflt_" : prefix;  // as the toolkit calls it
    guard_.declare(text, uri, schemaOf(uri));
    if (std::string_view(uri) == "http://purl.org/dc/1.1/") return;  // the toolkit mends it
    registerDeclared(text, uri);
  }

  void startElement(const char* name, const char** attributes) override {
    guard_.startElement(guarded(name));
    for (; *attributes != nullptr; attributes += 2) guard_.attribute(guarded(*attributes));
  }

  void endElement() override { guard_.endElement(); }
  void doctype() override { PacketGuard::refuseDoctype(); }

 private:
  // Of a name as the parser has it: the URI and the local name, "@" between them.
  GuardedName guarded(std::string_view name) {
    const std::size_t separator = name.rfind('@');
    const bool hasUri = separator != std::string_view::npos;
    const std::string_view uri = hasUri ? name.substr(0, separator) : "";
    const std::string_view local = name.substr(hasUri ? separator + 1 : 0);
    GuardedSchema& schema = schemaOf(uri);
    if (schema.own == nullptr) return guardedName(uri, local, {}, schema);
    stored_.assign(schema.own->prefix).append(1, ':').append(local);
    return guardedName(uri, local, stored_, schema);
  }

  GuardedSchema& schemaOf(std::string_view uri) {
    const auto known = schemas_.find(uri);
    if (known != schemas_.end()) return known->second;
    return schemas_.emplace(uri, guardedSchema(uri)).first->second;
  }

  PacketGuard guard_;
  std::map<std::string, GuardedSchema, std::less<>> schemas_;
  std::string stored_;
};

// One parse of this thread, under the observer's eyes.
class ObservedParse {
 public:
  explicit ObservedParse(ParseObserver& observer) {
    ParseObserver::current() = &observer;
    QuickSearch::current() = &search_;
  }
  ~ObservedParse() {
    ParseObserver::current() = nullptr;
    QuickSearch::current() = nullptr;
  }
  ObservedParse(const ObservedParse&) = delete;
  ObservedParse& operator=(const ObservedParse&) = delete;

 private:
  QuickSearch search_;
};

// Past the toolkit's repair of bytes, which takes everything for UTF-8.
void feedAsDeclared(std::string_view text, XMPMeta& metadata) {
  metadata.tree.ClearNode();
  metadata.xmlParser = XMP_NewExpatAdapter(ExpatAdapter::kUseGlobalNamespaces);
  metadata.xmlParser->SetErrorCallback(&metadata.errorCallback);
  try {
    metadata.xmlParser->ParseBuffer(text.data(), text.size(), false);
  } catch (...) {
    delete metadata.xmlParser;
    metadata.xmlParser = nullptr;
    throw;
  }
  metadata.ParseFromBuffer("", 0, 0);  // the end of the packet
}

}  // namespace

void readByToolkit(const PacketText& packet, Metadata& metadata) {
  lastParseFailure() = {};  // where the plain reader has given up is no failure
  XMPMeta& inside = insideOf(metadata);
  ToolkitEvents events;
  const ObservedParse observed(events);
  const std::string_view text = packet.view();
  if (packet.isAsDeclared()) {
    feedAsDeclared(text, inside);
  } else {
    inside.ParseFromBuffer(text.data(), static_cast<XMP_StringLen>(text.size()), 0);
  }
  requireCopyrightMoved(inside.tree);
  refuseUnsavable(metadata);  // it reads more than can be written
}

}  // namespace xmpl
