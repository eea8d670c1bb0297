// Included into the toolkit's ExpatAdapter.cpp alone, before all else. Keeps exceptions of its
// handlers from passing through expat, which is C: behind one, expat believes that it is still in a
// handler, and its later versions refuse to free such a parser. Notes where a parse failed.
#pragma once

#include <expat.h>

#include <exception>

#include "core/toolkit/parse_failure.h"

namespace xmpl {

// A parse, and the exception that has ended it.
struct ExpatFence {
  XML_Parser parser;
  std::exception_ptr thrown;

  static ExpatFence*& current() {
    static thread_local ExpatFence* fence = nullptr;
    return fence;
  }
};

inline void noteFailure(XML_Parser parser) {
  lastParseFailure() = {XML_ErrorString(XML_GetErrorCode(parser)),
                        static_cast<std::size_t>(XML_GetCurrentLineNumber(parser)),
                        static_cast<std::size_t>(XML_GetCurrentColumnNumber(parser)) + 1};
}

inline XML_Status fencedParse(XML_Parser parser, const char* text, int length, int isFinal) {
  ExpatFence fence{parser, nullptr};
  ExpatFence::current() = &fence;
  const XML_Status status = XML_Parse(parser, text, length, isFinal);
  ExpatFence::current() = nullptr;
  if (status == XML_STATUS_ERROR) noteFailure(parser);
  if (fence.thrown) std::rethrow_exception(fence.thrown);
  return status;
}

template <class Handler, Handler handler>
struct Fenced;

template <class... Arguments, void (*handler)(void*, Arguments...)>
struct Fenced<void (*)(void*, Arguments...), handler> {
  static void call(void* adapter, Arguments... arguments) noexcept {
    ExpatFence& fence = *ExpatFence::current();
    if (fence.thrown) return;  // a stopped parser may still call
    try {
      handler(adapter, arguments...);
    } catch (...) {
      fence.thrown = std::current_exception();
      XML_StopParser(fence.parser, XML_FALSE);
    }
  }
};

}  // namespace xmpl

#define XMPLIB_FENCED(handler) xmpl::Fenced<decltype(&handler), handler>::call

#define XML_Parse(parser, text, length, isFinal) xmpl::fencedParse(parser, text, length, isFinal)
#define XML_SetNamespaceDeclHandler(parser, start, end) \
  XML_SetNamespaceDeclHandler(parser, XMPLIB_FENCED(start), XMPLIB_FENCED(end))
#define XML_SetElementHandler(parser, start, end) \
  XML_SetElementHandler(parser, XMPLIB_FENCED(start), XMPLIB_FENCED(end))
#define XML_SetCharacterDataHandler(parser, handler) \
  XML_SetCharacterDataHandler(parser, XMPLIB_FENCED(handler))
#define XML_SetProcessingInstructionHandler(parser, handler) \
  XML_SetProcessingInstructionHandler(parser, XMPLIB_FENCED(handler))
