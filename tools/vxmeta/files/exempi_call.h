// SPDX-License-Identifier: Apache-2.0
// Calls of libexempi.
#pragma once

namespace vxmeta {

// Lives as long as a call. The first one starts exempi, which is never stopped; while it lives,
// what exempi prints on std::cerr in this thread is dropped. Throws FileError when it cannot start.
class ExempiCall {
 public:
  ExempiCall();
  ~ExempiCall();
  ExempiCall(const ExempiCall&) = delete;
  ExempiCall& operator=(const ExempiCall&) = delete;
};

}  // namespace vxmeta
