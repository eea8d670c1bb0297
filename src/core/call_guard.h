// SPDX-License-Identifier: Apache-2.0
// The frame of every operation: error text, handle without metadata, toolkit errors.
#pragma once

#include <exception>
#include <utility>

#include "XMPlib.h"
#include "core/toolkit/client.h"

namespace xmpl {

inline constexpr const char* kIllegalXap = "Illegal XAP";

}  // namespace xmpl

// Empties the error text, refuses a handle without metadata, runs `body(Metadata&)` and turns a
// toolkit error into error text and false. Other exceptions pass.
template <class Body>
bool XMPlib::guarded(Body&& body) const {
  return framed([&] {
    try {
      return std::forward<Body>(body)(*meta);
    } catch (const XMP_Error& error) {
      errStr = xmpl::messageOf(error);
      return false;
    }
  });
}

// The frame of the four operations that turn standard exceptions into error text instead and let
// toolkit errors pass. XMP_Error has no base class, so the one catch says both.
template <class Body>
bool XMPlib::guardedPassingToolkitErrors(Body&& body) const {
  return framed([&] {
    try {
      return std::forward<Body>(body)(*meta);
    } catch (const std::exception& error) {
      errStr = error.what();
      return false;
    }
  });
}

template <class Call>
bool XMPlib::framed(Call&& call) const {
  errStr.clear();
  if (meta == nullptr) {
    errStr = xmpl::kIllegalXap;
    return false;
  }
  return std::forward<Call>(call)();
}
