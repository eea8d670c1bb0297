// SPDX-License-Identifier: Apache-2.0
// Where a parse has ended, and why. The toolkit's own message does not say.
#pragma once

#include <expat.h>

#include <cstddef>

namespace xmpl {

struct ParseFailure {
  std::size_t line = 0;          // from 1; 0: the parse has not ended early
  std::size_t column = 0;        // from 1, in characters
  const char* reason = nullptr;  // the XML parser's; null: it was stopped
};

// That of this thread's latest parse.
inline ParseFailure& lastParseFailure() {
  static thread_local ParseFailure failure;
  return failure;
}

inline void noteFailure(XML_Parser parser) {
  lastParseFailure() = {static_cast<std::size_t>(XML_GetCurrentLineNumber(parser)),
                        static_cast<std::size_t>(XML_GetCurrentColumnNumber(parser)) + 1,
                        XML_ErrorString(XML_GetErrorCode(parser))};
}

}  // namespace xmpl
