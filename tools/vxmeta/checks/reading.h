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

struct NamedInk {
  std::string name;
  std::string path;  // "inks[2]"
  bool isMask = false;
};

// The inks of the document, or of the film where that reading finds more; false: there is no list.
bool readInks(const XMPlib& packet, std::vector<NamedInk>& inks);

std::string indexed(const char* list, std::size_t index);

}  // namespace vxmeta
