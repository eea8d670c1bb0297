// SPDX-License-Identifier: Apache-2.0
// Included into the toolkit's ExpatAdapter.cpp alone, before all else. It stands between expat and
// the toolkit's handlers, where everything comes decoded, and
// - keeps exceptions from passing through expat, which is C: behind one, expat believes that it is
//   still in a handler, and its later versions refuse to free such a parser;
// - shows every event to the observer of the parse first;
// - joins the pieces in which expat hands out a text, a line or a reference each: the toolkit makes
//   a node of each piece, of 200 bytes;
// - refuses to go on without a parser;
// - notes where a parse has ended.
#pragma once

#include <expat.h>

#include <cstring>
#include <exception>
#include <new>

#include "core/toolkit/parse_failure.h"
#include "core/toolkit/parse_observer.h"

namespace xmpl {

// One call of the parser, and the exception that has ended it.
struct ExpatFence {
  XML_Parser parser;
  std::exception_ptr thrown;

  static ExpatFence*& current() {
    static thread_local ExpatFence* fence = nullptr;
    return fence;
  }

  // Runs a handler's work.
  template <class Work>
  static void run(const Work& work) noexcept {
    ExpatFence& fence = *current();
    if (fence.thrown) return;  // a stopped parser may still call
    try {
      work();
    } catch (...) {
      noteFailure(fence.parser);
      fence.thrown = std::current_exception();
      XML_StopParser(fence.parser, XML_FALSE);
    }
  }
};

// The toolkit would report that there is none to a callback that it has not got yet, and go on.
inline XML_Parser newParser(const char* encoding, char separator) {
  XML_Parser parser = XML_ParserCreateNS(encoding, separator);
  if (parser == nullptr) throw std::bad_alloc();
  return parser;
}

inline XML_Status fencedParse(XML_Parser parser, const char* text, int length, int isFinal) {
  ExpatFence fence{parser, nullptr};
  ExpatFence::current() = &fence;
  const XML_Status status = XML_Parse(parser, text, length, isFinal);
  ExpatFence::current() = nullptr;
  if (fence.thrown) std::rethrow_exception(fence.thrown);
  if (status == XML_STATUS_ERROR) noteFailure(parser);
  return status;
}

// Hands on the text that has been joined.
template <class Handler>
void flushText(void* adapter, Handler handler) {
  ParseObserver* observer = ParseObserver::current();
  if (observer == nullptr || observer->joinedText.empty()) return;
  handler(adapter, observer->joinedText.data(), static_cast<int>(observer->joinedText.size()));
  observer->joinedText.clear();
}

// The toolkit's handlers, each behind the fence. `characters` is its handler of texts.
template <void (*handler)(void*, const char*, const char*)>
struct FencedDeclaration {
  static void call(void* adapter, const char* prefix, const char* uri) noexcept {
    ExpatFence::run([=] {
      ParseObserver* observer = ParseObserver::current();
      if (observer != nullptr && uri != nullptr) observer->declare(prefix, uri);
      handler(adapter, prefix, uri);
    });
  }
};

template <void (*handler)(void*, const char*)>
struct FencedEndOfDeclaration {
  static void call(void* adapter, const char* prefix) noexcept {
    ExpatFence::run([=] { handler(adapter, prefix); });
  }
};

template <void (*characters)(void*, const char*, int),
          void (*handler)(void*, const char*, const char**)>
struct FencedStart {
  static void call(void* adapter, const char* name, const char** attributes) noexcept {
    ExpatFence::run([=] {
      flushText(adapter, characters);
      ParseObserver* observer = ParseObserver::current();
      if (observer != nullptr) observer->startElement(name, attributes);
      handler(adapter, name, attributes);
    });
  }
};

template <void (*characters)(void*, const char*, int), void (*handler)(void*, const char*)>
struct FencedEnd {
  static void call(void* adapter, const char* name) noexcept {
    ExpatFence::run([=] {
      flushText(adapter, characters);
      ParseObserver* observer = ParseObserver::current();
      if (observer != nullptr) observer->endElement();
      handler(adapter, name);
    });
  }
};

template <void (*handler)(void*, const char*, int)>
struct FencedText {
  static void call(void* adapter, const char* text, int length) noexcept {
    ExpatFence::run([=] {
      ParseObserver* observer = ParseObserver::current();
      if (observer == nullptr) return handler(adapter, text, length);
      observer->joinedText.append(text, static_cast<std::size_t>(length));
    });
  }
};

// Instructions other than the packet wrapper's leave the toolkit no trace.
template <void (*characters)(void*, const char*, int),
          void (*handler)(void*, const char*, const char*)>
struct FencedInstruction {
  static void call(void* adapter, const char* target, const char* data) noexcept {
    ExpatFence::run([=] {
      if (std::strcmp(target, "xpacket") == 0) flushText(adapter, characters);
      handler(adapter, target, data);
    });
  }
};

template <void (*handler)(void*, const char*, const char*, const char*, int)>
struct FencedDoctype {
  static void call(void* adapter, const char* name, const char* system, const char* publicId,
                   int hasSubset) noexcept {
    ExpatFence::run([=] {
      ParseObserver* observer = ParseObserver::current();
      if (observer != nullptr) observer->doctype();
      handler(adapter, name, system, publicId, hasSubset);
    });
  }
};

}  // namespace xmpl

#define XML_ParserCreateNS(encoding, separator) xmpl::newParser(encoding, separator)
#define XML_Parse(parser, text, length, isFinal) xmpl::fencedParse(parser, text, length, isFinal)
#define XML_SetNamespaceDeclHandler(parser, start, end)                     \
  XML_SetNamespaceDeclHandler(parser, xmpl::FencedDeclaration<start>::call, \
                              xmpl::FencedEndOfDeclaration<end>::call)
#define XML_SetElementHandler(parser, start, end)                                     \
  XML_SetElementHandler(parser, xmpl::FencedStart<CharacterDataHandler, start>::call, \
                        xmpl::FencedEnd<CharacterDataHandler, end>::call)
#define XML_SetCharacterDataHandler(parser, handler) \
  XML_SetCharacterDataHandler(parser, xmpl::FencedText<handler>::call)
#define XML_SetProcessingInstructionHandler(parser, handler) \
  XML_SetProcessingInstructionHandler(                       \
      parser, xmpl::FencedInstruction<CharacterDataHandler, handler>::call)
#define XML_SetStartDoctypeDeclHandler(parser, handler) \
  XML_SetStartDoctypeDeclHandler(parser, xmpl::FencedDoctype<handler>::call)
