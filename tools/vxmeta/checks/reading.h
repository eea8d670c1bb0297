// SPDX-License-Identifier: Apache-2.0
// Records as checks read them.
#pragma once

#include <XMP_Const.h>
#include <XMPlib.h>

#include <string>
#include <utility>
#include <vector>

namespace vxmeta {

// Whether a Get answers true. One that lets an error of the toolkit pass has read nothing.
template <class Get>
bool isRead(Get&& get) {
  try {
    return std::forward<Get>(get)();
  } catch (const XMP_Error&) {
    return false;
  }
}

// Whether the list of inks is a film's: of the two readings the one that loses nothing; when both
// or neither do, the one that reads more, then the document's.
bool holdsFilmInks(const XMPlib& packet);
// The list of inks under the name that it has then.
const char* inksPath(const XMPlib& packet);

// The inks of that list, as far as they are basic records.
std::vector<XMPlInkBasic> readInks(const XMPlib& packet);

std::string indexed(const char* list, std::size_t index);

}  // namespace vxmeta
