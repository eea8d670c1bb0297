// SPDX-License-Identifier: Apache-2.0
/// @defgroup inks Inks
/// Records of inks, DGC curves and digital films.
/// Stored form: [inks](docs/format/inks.md), [digital films](docs/format/films.md).
/// @{
#ifndef XMPL_INKS_H
#define XMPL_INKS_H

#include <string>
#include <vector>

#include "xmpl/document.h"
#include "xmpl/export.h"
#include "xmpl/screening.h"

/// What every ink record has: identity and appearance of one ink.
struct XMPlInkBasic {
  std::string name;    ///< the ink's name
  std::string type;    ///< the application's word
  std::string book;    ///< colour book that the ink comes from
  std::string vxname;  ///< the ink's name in the system's own naming
  double r = 0;  ///< red of the display colour, its range the application's; not of the identity
  double g = 0;  ///< green
  double b = 0;  ///< blue
  std::string attribute;                   ///< "omask": an opaque mask; else the application's word
  std::string printingmethod = "unknown";  ///< the application's word

  /// Compares name, type, book, vxname, attribute and printingmethod.
  XMPLIB_API bool operator==(const XMPlInkBasic& other) const;
  bool operator!=(const XMPlInkBasic& other) const { return !(*this == other); }  ///< not ==
};

/// An ink of the document, with its screening and its coverage.
struct XMPlInk : XMPlInkBasic {
  double frequency = 0;        ///< screen ruling, in lines for a length of the application's
  double angle = 0;            ///< screen angle, in the application's unit and direction
  std::string dotshape;        ///< the application's word
  bool coverageValid = false;  ///< pct and mm2 hold a measured coverage
  double pct = 0;              ///< coverage in percent
  double mm2 = 0;              ///< coverage in square millimetres

  /// Compares the basic records, frequency, angle and dotshape; reals exactly, so that a NaN is
  /// unequal to itself.
  XMPLIB_API bool operator==(const XMPlInk& other) const;
  bool operator!=(const XMPlInk& other) const { return !(*this == other); }  ///< not ==
};

/// An entry of the document's list of ink properties.
struct XMPlInkProperty {
  std::string name;                        ///< the ink's name
  std::string book;                        ///< colour book that the ink comes from
  std::string type;                        ///< the application's word
  std::string printingmethod = "unknown";  ///< the application's word

  /// Compares all fields.
  XMPLIB_API bool operator==(const XMPlInkProperty& other) const;
  bool operator!=(const XMPlInkProperty& other) const { return !(*this == other); }  ///< not ==
};

/// An ink of a digital film. Compares as the basic record, without the fields below.
/// @ingroup films
struct XMPlInkDigFilm : XMPlInkBasic {
  double opacity = 0;          ///< in the application's range
  std::string inknrsoriginal;  ///< number of the ink in the original document
};

/// A digital job that a film was made from.
/// @ingroup films
struct XMPlUsedDigFilmRef {
  std::string instanceID;      ///< the job
  std::string renditionClass;  ///< which rendition of the job is meant
};

/// A named DGC (dot-gain) curve.
struct XMPlDgcc {
  std::string name;            ///< the curve's name
  std::vector<double> values;  ///< in the application's range; stored with six decimals each

  /// Compares the name and every value, exactly.
  XMPLIB_API bool operator==(const XMPlDgcc& other) const;
  bool operator!=(const XMPlDgcc& other) const { return !(*this == other); }  ///< not ==

  /// Orders by name, then number of values, then the first value that differs. Deliberately true
  /// for equal curves: no strict weak ordering, and nothing for std::sort.
  XMPLIB_API bool operator<(const XMPlDgcc& other) const;
};

/// One separation of a digital film.
/// @ingroup films
struct XMPlMetaDataDigFilm {
  XMPlDimDatDigFilm dimdata;        ///< its dimensions
  XMPlInkDigFilm ink;               ///< the ink that it prints
  std::vector<XMPlScreen> screens;  ///< the screens used on it
  std::string spare;                ///< neither read nor written
  std::vector<XMPlUsedRef> uRefs;   ///< the references that use them
};

/// @}

#endif
