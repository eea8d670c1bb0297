// SPDX-License-Identifier: Apache-2.0
/// @defgroup screening Screening
/// Records of screening.
/// Stored form: [screening](docs/format/screening.md).
/// @{
#ifndef XMPL_SCREENING_H
#define XMPL_SCREENING_H

#include <cstdint>
#include <string>

#include "xmpl/export.h"

/// One screen (halftone set-up): the DGC curves that apply to it, by name, and, when known, its
/// screening as requested and as used.
struct XMPlScreen {
  std::string singlepressDGC;   ///< single press
  std::string autoplateDGCreq;  ///< automatic plate: requested
  std::string autoplateDGCLW;   ///< automatic plate: LW
  std::string autoplateDGCCT;   ///< automatic plate: CT
  std::string autopressDGCreq;  ///< automatic press: requested
  std::string autopressDGCLW;   ///< automatic press: LW
  std::string autopressDGCCT;   ///< automatic press: CT
  std::string totalDGCCT;       ///< total: CT
  std::string totalDGCLW;       ///< total: LW
  std::string gamma;            ///< gamma curve
  std::string
      usedrefs;  ///< the references that use this screen, one text in the application's form
  bool hasScreening = false;  ///< the fields below are known
  double frequencyreq = 0;    ///< screen ruling as requested; its unit as in XMPlInk
  double frequency = 0;       ///< screen ruling as used
  double anglereq = 0;        ///< screen angle as requested; its unit as in XMPlInk
  double angle = 0;           ///< screen angle as used
  std::string dotshapereq;    ///< dot shape as requested
  std::string dotshape;       ///< dot shape as used
  std::string dotname;        ///< name of the dot; empty: the dot shape

  /// Compares all fields but hasScreening, reals exactly. A dot name that repeats its own dot shape
  /// matches any dot name. Deliberately crosses two fields: this record's autoplateDGCLW and
  /// autoplateDGCreq are compared with the other's autoplateDGCCT, so that a record may be unequal
  /// to its own copy.
  XMPLIB_API bool operator==(const XMPlScreen& other) const;
  bool operator!=(const XMPlScreen& other) const { return !(*this == other); }  ///< not ==

  /// Orders screens with known screening first, by that screening; then by the curve names. No
  /// strict weak ordering, and nothing for std::sort: a dot name that repeats its own dot shape
  /// takes part in no comparison, so that three screens can stand in a circle, and so can a NaN.
  XMPLIB_API bool operator<(const XMPlScreen& other) const;
};

/// A file that the document uses, and the page of it.
struct XMPlUsedRef {
  std::string instanceID;      ///< file name or URI
  std::string renditionClass;  ///< which rendition of the file is meant
  std::int64_t pagenr = 1;     ///< stored in 32 bits: only the low ones of a larger value survive

  /// Compares all fields.
  XMPLIB_API bool operator==(const XMPlUsedRef& other) const;
  bool operator!=(const XMPlUsedRef& other) const { return !(*this == other); }  ///< not ==

  /// Orders by instanceID, renditionClass, pagenr.
  XMPLIB_API bool operator<(const XMPlUsedRef& other) const;
};

/// @}

#endif
