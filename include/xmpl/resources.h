// Records of the document's resources.
#ifndef XMPL_RESOURCES_H
#define XMPL_RESOURCES_H

#include <string>

#include "xmpl/export.h"

// A named text that a workflow substitutes into the artwork.
struct XMPlSmartName {
  std::string name;
  std::string value;

  // Compares the names alone.
  XMPLIB_API bool operator==(const XMPlSmartName& other) const;
};

#endif
