// SPDX-License-Identifier: Apache-2.0
/// @defgroup resources Resources
/// Records of the document's resources.
/// Stored form: [resources](docs/format/resources.md).
/// @{
#ifndef XMPL_RESOURCES_H
#define XMPL_RESOURCES_H

#include <cstdint>
#include <string>
#include <vector>

#include "xmpl/export.h"

/// A file that the document refers to.
struct XMPlExtRef {
  /// File name or URI. One that begins with "files:", in any case of letters, is a run of numbered
  /// files.
  std::string instanceID;
  std::string renditionClass;  ///< which rendition of the file is meant
  std::int32_t pagenr = -1;    ///< page of the file; 0: no pages, as in a numbered run; -1: unknown
  std::string type;            ///< kind of resource; numbered files of type "image" are compacted
  std::int32_t count = -1;     ///< number of files that the entry stands for; -1: unknown

  /// Compares instanceID and pagenr.
  XMPLIB_API bool operator==(const XMPlExtRef& other) const;
  bool operator!=(const XMPlExtRef& other) const { return !(*this == other); }  ///< not ==
};

/// A font that the document uses.
struct XMPlFont {
  std::string name;         ///< the font's name
  std::string type;         ///< font technology, free text
  bool protection = false;  ///< the font is protected
  std::string location;     ///< "embedded": in the document; else where it was found
  std::string fontfile;     ///< its file; what follows the last ";" identifies it across locations

  /// Compares all fields.
  XMPLIB_API bool operator==(const XMPlFont& other) const;
  bool operator!=(const XMPlFont& other) const { return !(*this == other); }  ///< not ==

  /// Orders by name, type, location; then an unprotected font before a protected one; then by
  /// fontfile. Deliberately one-sided: of fonts that differ in protection, a protected one may be
  /// less than an unprotected one by its fontfile. No strict weak ordering, and nothing for
  /// std::sort.
  XMPLIB_API bool operator<(const XMPlFont& other) const;
};

/// A barcode. The units of its reals are the application's; nothing is converted.
struct XMPlBarcode {
  std::string type;                    ///< kind of barcode, free text
  std::string symbolType;              ///< symbology, free text; may be empty
  std::string code;                    ///< encoded data
  std::string code2;                   ///< second part of the data; may be empty
  double resolution = 0;               ///< 0: not given
  double barWidthReduction = 0;        ///< valid with hasBarWidthReduction
  bool hasBarWidthReduction = false;   ///< there is a bar width reduction
  bool hasDeviceCompensation = false;  ///< there is a device compensation
  double deviceCompensation = 0;       ///< valid with hasDeviceCompensation
  bool useMagnification = true;        ///< the size is `magnification`; else `narrow` and `ratio`
  double magnification = 1.0;          ///< valid with useMagnification
  double narrow = 1.0;                 ///< width of the narrow bar
  double ratio = 1.0;                  ///< wide to narrow

  /// Compares the texts, the resolution, the flags, and the values that the flags make valid.
  XMPLIB_API bool operator==(const XMPlBarcode& other) const;
  bool operator!=(const XMPlBarcode& other) const { return !(*this == other); }  ///< not ==
};

/// A layer.
struct XMPlLay {
  std::string name;       ///< the layer's name
  bool printable = true;  ///< the layer is printed
  bool locked = false;    ///< the layer is locked

  /// Compares the names alone.
  XMPLIB_API bool operator==(const XMPlLay& other) const;
  bool operator!=(const XMPlLay& other) const { return !(*this == other); }  ///< not ==
};

/// A range of pages and the inks used on them.
struct XMPlPagRange {
  std::int32_t start = -1;         ///< first page, by the application's count; -1: not set
  std::int32_t end = -1;           ///< last page, itself part of the range
  std::vector<std::int32_t> inks;  ///< numbers of inks; the merge of films takes 0 for the first
};

/// A named text that a workflow substitutes into the artwork.
struct XMPlSmartName {
  std::string name;   ///< its name
  std::string value;  ///< the text that is substituted

  /// Compares the names alone.
  XMPLIB_API bool operator==(const XMPlSmartName& other) const;
  bool operator!=(const XMPlSmartName& other) const { return !(*this == other); }  ///< not ==
};

/// @}

#endif
