// SPDX-License-Identifier: Apache-2.0
/// @defgroup layout Layout
/// Records of layout.
/// Stored form: [layout](docs/format/layout.md).
/// @{
#ifndef XMPL_LAYOUT_H
#define XMPL_LAYOUT_H

#include <cstdint>
#include <string>

#include "xmpl/export.h"

/// One placement scheme of a step-and-repeat layout.
struct XMPlRepeat {
  std::string type;            ///< "grid" (rows and columns), "die" (stations) or another kind
  std::string name;            ///< the scheme's name
  std::string stationname;     ///< die station; stored for "die" alone
  std::int32_t vnr = 0;        ///< repeats vertically; stored for "grid" alone
  std::int32_t hnr = 0;        ///< repeats horizontally; stored for "grid" alone
  std::string front;           ///< file on the front side
  std::int32_t frontpage = 0;  ///< its page, by the application's count
  std::string back;            ///< file on the back side
  std::int32_t backpage = 0;   ///< its page
  std::int32_t count = 0;      ///< number of copies
};

/// How the document is registered on a CAD drawing.
struct XMPlCadReg {
  std::string instanceID;        ///< the CAD file
  std::string renditionClass;    ///< which rendition of the file is meant
  std::string stationname;       ///< station on the drawing
  std::int32_t orientation = 0;  ///< of the document on the station, a code of the application's
  double orgX = 0;               ///< origin of the document on the station, in its unit
  double orgY = 0;               ///< as orgX

  /// Compares all fields, reals exactly.
  XMPLIB_API bool operator==(const XMPlCadReg& other) const;
  bool operator!=(const XMPlCadReg& other) const { return !(*this == other); }  ///< not ==
};

/// @}

#endif
