// Where and why expat gave up. The toolkit's own message does not say.
#pragma once

#include <cstddef>

namespace xmpl {

struct ParseFailure {
  const char* reason = nullptr;  // null: it has not given up
  std::size_t line = 0;          // from 1
  std::size_t column = 0;        // from 1, in bytes
};

// That of this thread's latest parse.
inline ParseFailure& lastParseFailure() {
  static thread_local ParseFailure failure;
  return failure;
}

}  // namespace xmpl
