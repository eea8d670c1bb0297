// Records of the document's resources.
#ifndef XMPL_RESOURCES_H
#define XMPL_RESOURCES_H

#include <cstdint>
#include <string>

#include "xmpl/export.h"

// A file that the document refers to.
struct XMPlExtRef {
  std::string instanceID;      // file name or URI; "files:..." for a run of numbered files
  std::string renditionClass;  // which rendition of the file is meant
  std::int32_t pagenr = -1;    // page of the file; 0 for the files of a numbered run
  std::string type;            // kind of resource; numbered files of type "image" are compacted
  std::int32_t count = -1;     // number of files that the entry stands for; -1: unknown

  // Compares instanceID and pagenr.
  XMPLIB_API bool operator==(const XMPlExtRef& other) const;
};

// A named text that a workflow substitutes into the artwork.
struct XMPlSmartName {
  std::string name;
  std::string value;

  // Compares the names alone.
  XMPLIB_API bool operator==(const XMPlSmartName& other) const;
};

#endif
