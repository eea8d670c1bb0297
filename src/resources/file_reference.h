// A file reference as the simple lists store it
//   stRef:instanceID      text
//   stRef:renditionClass  text
#pragma once

#include <tuple>

#include "core/items.h"
#include "xmpl/resources.h"

namespace xmpl {

inline bool readFileReference(const ItemReader& item, XMPlExtRef& ref) {
  return item.text("stRef:instanceID", ref.instanceID) &&
         item.text("stRef:renditionClass", ref.renditionClass);
}

inline void writeFileReference(const ItemWriter& item, const XMPlExtRef& ref) {
  item.text("stRef:instanceID", ref.instanceID);
  item.text("stRef:renditionClass", ref.renditionClass);
}

// The fields that operator== compares.
inline auto identity(const XMPlExtRef& ref) { return std::tie(ref.instanceID, ref.pagenr); }

}  // namespace xmpl
