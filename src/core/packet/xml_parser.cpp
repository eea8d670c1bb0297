// SPDX-License-Identifier: Apache-2.0
#include "core/packet/xml_parser.h"

#include <expat.h>

#include <exception>
#include <memory>
#include <new>
#include <utility>

#include "core/toolkit/parse_failure.h"

namespace xmpl {
namespace {

struct FreeParser {
  void operator()(XML_Parser parser) const { XML_ParserFree(parser); }
};
using OwnedParser = std::unique_ptr<XML_ParserStruct, FreeParser>;

OwnedParser newParser(void* userData) {
  OwnedParser parser(XML_ParserCreate(nullptr));
  if (!parser) throw std::bad_alloc();
  XML_SetUserData(parser.get(), userData);
  return parser;
}

// Hands the events on. Expat is C: an exception waits until it has returned.
class EventsFence {
 public:
  EventsFence(XML_Parser parser, XmlEvents& events) : parser_(parser), events_(events) {
    XML_SetUserData(parser, this);
    XML_SetElementHandler(parser, onStart, onEnd);
    XML_SetCharacterDataHandler(parser, onCharacters);
    XML_SetProcessingInstructionHandler(parser, onInstruction);
    XML_SetStartDoctypeDeclHandler(parser, onDoctype);
  }

  void rethrow() const {
    if (thrown_) std::rethrow_exception(thrown_);
  }

 private:
  template <class Event>
  static void pass(void* self, const Event& event) noexcept {
    EventsFence& fence = *static_cast<EventsFence*>(self);
    if (fence.thrown_) return;  // a stopped parser may still call
    try {
      event(fence.events_);
    } catch (...) {
      noteFailure(fence.parser_);
      fence.thrown_ = std::current_exception();
      XML_StopParser(fence.parser_, XML_FALSE);
    }
  }

  static void XMLCALL onStart(void* self, const char* name, const char** attributes) {
    pass(self, [=](XmlEvents& events) { events.startElement(name, attributes); });
  }
  static void XMLCALL onEnd(void* self, const char*) {
    pass(self, [](XmlEvents& events) { events.endElement(); });
  }
  static void XMLCALL onCharacters(void* self, const char* text, int length) {
    const std::string_view view(text, static_cast<std::size_t>(length));
    pass(self, [=](XmlEvents& events) { events.characters(view); });
  }
  static void XMLCALL onInstruction(void* self, const char* target, const char*) {
    pass(self, [=](XmlEvents& events) { events.instruction(target); });
  }
  static void XMLCALL onDoctype(void* self, const char*, const char*, const char*, int) {
    pass(self, [](XmlEvents& events) { events.doctype(); });
  }

  XML_Parser parser_;
  XmlEvents& events_;
  std::exception_ptr thrown_;
};

struct Declaration {
  std::string encoding;
  bool isLost = false;  // for want of memory
};

void XMLCALL onDeclaration(void* self, const char*, const char* name, int) noexcept {
  Declaration& declaration = *static_cast<Declaration*>(self);
  try {
    if (name != nullptr) declaration.encoding = name;
  } catch (const std::bad_alloc&) {
    declaration.isLost = true;
  }
}

}  // namespace

bool parseXml(std::string_view text, XmlEvents& events) {
  const OwnedParser parser = newParser(nullptr);
  const EventsFence fence(parser.get(), events);
  const XML_Status status =
      XML_Parse(parser.get(), text.data(), static_cast<int>(text.size()), XML_TRUE);
  fence.rethrow();
  if (status == XML_STATUS_ERROR) noteFailure(parser.get());
  return status == XML_STATUS_OK;
}

DeclaredEncoding declaredEncoding(std::string_view text) {
  Declaration declaration;
  const OwnedParser parser = newParser(&declaration);
  XML_SetXmlDeclHandler(parser.get(), onDeclaration);
  const std::size_t end = text.find("?>");
  if (end == std::string_view::npos) return {};
  XML_Parse(parser.get(), text.data(), static_cast<int>(end + 2), XML_FALSE);
  const XML_Error error = XML_GetErrorCode(parser.get());
  if (declaration.isLost || error == XML_ERROR_NO_MEMORY) throw std::bad_alloc();
  if (error == XML_ERROR_UNKNOWN_ENCODING) noteFailure(parser.get());
  return {std::move(declaration.encoding), error != XML_ERROR_UNKNOWN_ENCODING};
}

}  // namespace xmpl
