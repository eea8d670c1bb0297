// Records of inks, DGC curves and digital films.
#ifndef XMPL_INKS_H
#define XMPL_INKS_H

#include <string>
#include <vector>

#include "xmpl/document.h"
#include "xmpl/export.h"
#include "xmpl/screening.h"

// What every ink record has: identity and appearance of one ink.
struct XMPlInkBasic {
  std::string name;
  std::string type;    // the application's word
  std::string book;    // colour book that the ink comes from
  std::string vxname;  // the ink's name in the system's own naming
  double r = 0;        // display colour, its range the application's; not part of the identity
  double g = 0;
  double b = 0;
  std::string attribute;                   // "omask": an opaque mask; else the application's word
  std::string printingmethod = "unknown";  // the application's word

  // Compares name, type, book, vxname, attribute and printingmethod.
  XMPLIB_API bool operator==(const XMPlInkBasic& other) const;
  bool operator!=(const XMPlInkBasic& other) const { return !(*this == other); }
};

// An ink of the document, with its screening and its coverage.
struct XMPlInk : XMPlInkBasic {
  double frequency = 0;  // screen ruling, in lines for a length of the application's
  double angle = 0;      // screen angle, in the application's unit and direction
  std::string dotshape;
  bool coverageValid = false;  // pct and mm2 hold a measured coverage
  double pct = 0;              // coverage in percent
  double mm2 = 0;              // coverage in square millimetres

  // Compares the basic records, frequency, angle and dotshape; reals exactly, so that a NaN is
  // unequal to itself.
  XMPLIB_API bool operator==(const XMPlInk& other) const;
  bool operator!=(const XMPlInk& other) const { return !(*this == other); }
};

// An entry of the document's list of ink properties.
struct XMPlInkProperty {
  std::string name;
  std::string book;  // colour book that the ink comes from
  std::string type;
  std::string printingmethod = "unknown";

  // Compares all fields.
  XMPLIB_API bool operator==(const XMPlInkProperty& other) const;
  bool operator!=(const XMPlInkProperty& other) const { return !(*this == other); }
};

// An ink of a digital film. Compares as the basic record, without the fields below.
struct XMPlInkDigFilm : XMPlInkBasic {
  double opacity = 0;          // in the application's range
  std::string inknrsoriginal;  // number of the ink in the original document
};

// A digital job that a film was made from.
struct XMPlUsedDigFilmRef {
  std::string instanceID;
  std::string renditionClass;
};

// A named DGC (dot-gain) curve.
struct XMPlDgcc {
  std::string name;
  std::vector<double> values;  // in the application's range; stored with six decimals each

  // Compares the name and every value, exactly.
  XMPLIB_API bool operator==(const XMPlDgcc& other) const;
  bool operator!=(const XMPlDgcc& other) const { return !(*this == other); }

  // Orders by name, then number of values, then the first value that differs. Deliberately true
  // for equal curves: no strict weak ordering, and nothing for std::sort.
  XMPLIB_API bool operator<(const XMPlDgcc& other) const;
};

// One separation of a digital film.
struct XMPlMetaDataDigFilm {
  XMPlDimDatDigFilm dimdata;
  XMPlInkDigFilm ink;
  std::vector<XMPlScreen> screens;  // the screens used on it
  std::string spare;                // neither read nor written
  std::vector<XMPlUsedRef> uRefs;   // the references that use them
};

#endif
