// SPDX-License-Identifier: Apache-2.0
// A file reference as the simple lists store it, and what makes two of any list the same.
#pragma once

#include <tuple>

#include "core/items.h"
#include "xmpl/resources.h"

namespace xmpl {

inline constexpr auto kFileReferenceFields = [](const auto& item, auto& ref) {
  return item.text("stRef:instanceID", ref.instanceID) &&
         item.text("stRef:renditionClass", ref.renditionClass);
};

inline constexpr auto kReferenceIdentity = [](const XMPlExtRef& ref) {
  return std::tie(ref.instanceID, ref.pagenr);
};

}  // namespace xmpl
