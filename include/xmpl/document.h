// SPDX-License-Identifier: Apache-2.0
/// @defgroup document Document
/// Records that describe the document as a whole.
/// Stored form: [document](docs/format/document.md), [digital films](docs/format/films.md).
/// @{
#ifndef XMPL_DOCUMENT_H
#define XMPL_DOCUMENT_H

#include <cstdint>
#include <string>

/// The job that a document belongs to.
struct XMPlJobData {
  std::string name;         ///< job name
  std::string id;           ///< job identifier
  std::string url;          ///< location of the job
  std::string description;  ///< free text
  std::string orderid;      ///< order number
  std::string suborderid;   ///< sub-order number
};

/// The product, and the part of it, that a document makes.
struct XMPlProdData {
  std::string id;               ///< identifier of this product entry
  std::string prodname;         ///< product name
  std::string prodid;           ///< product identifier
  std::string proddescription;  ///< product description
  std::string partid;           ///< identifier of the part entry
  std::string prodpartname;     ///< name of the product part
  std::string prodpartid;       ///< identifier of the product part
};

/// The document's own data. Dates are texts, stored unchanged; on writing, "now" is the current
/// date and time.
struct XMPlDocData {
  std::string baseURL;       ///< where relative references of the document start
  std::string createDate;    ///< date of creation
  std::string modifyDate;    ///< date of the last change
  std::string metadataDate;  ///< date of the last change of the metadata
  std::string creatorTool;   ///< the program that made the document
  std::string description;   ///< in the default language
};

/// A version of the document.
struct XMPlDocVersion {
  std::string comments;    ///< free text
  std::string modifyDate;  ///< date, as in XMPlDocData
  std::string modifier;    ///< who made the version
  std::string version;     ///< name or number of the version
};

/// The version of the digital-film data.
/// @ingroup films
struct XMPlDigFilmVersion {
  std::int32_t version = 100;  ///< number of the data's layout; 100 is the current one
  std::string structure;  ///< "Composite" or "Separated" after a merge of films; else free text
  std::string type;       ///< free text
};

/// What both kinds of dimensions begin with, for code of the application that serves either; no
/// operation takes it. Lengths are in `units`.
struct XMPlDimDatBasic {
  std::string units = "mm";  ///< unit of all lengths: "mm" is millimetres, other words as agreed
  double vsize = 0;          ///< height
  double hsize = 0;          ///< width
};

/// The dimensions of a page. Lengths are in `units`.
struct XMPlDimDat {
  std::string units = "mm";   ///< as in XMPlDimDatBasic
  double vsize = 0;           ///< height
  double hsize = 0;           ///< width
  double margtop = 0;         ///< top margin
  double margbot = 0;         ///< bottom margin
  double margleft = 0;        ///< left margin
  double margright = 0;       ///< right margin
  double vshrink = 1.0;       ///< vertical shrink factor; 1: none
  double hshrink = 1.0;       ///< horizontal shrink factor
  bool readerspread = false;  ///< the page is a reader spread
};

/// The dimensions of a digital film. Lengths are in `units`.
/// @ingroup films
struct XMPlDimDatDigFilm {
  std::string units = "mm";            ///< as in XMPlDimDatBasic
  double vsize = 0;                    ///< height
  double hsize = 0;                    ///< width
  double vresolution = 0;              ///< vertical resolution; its unit is the application's
  double hresolution = 0;              ///< horizontal resolution
  bool basicOnly = true;               ///< only the five fields above are valid
  double vdist = 1.0;                  ///< vertical dot distance, as above
  double hdist = 1.0;                  ///< horizontal dot distance
  double vscale = 1.0;                 ///< vertical scale
  double hscale = 1.0;                 ///< horizontal scale
  bool reverse = false;                ///< the film is reversed
  std::int32_t scanlinedirection = 0;  ///< direction of exposure, a code of the application's
  std::int32_t spare = 0;              ///< neither read nor written
  bool hasMargins = false;             ///< the margins are valid
  double margtop = 0;                  ///< top margin
  double margbot = 0;                  ///< bottom margin
  double margleft = 0;                 ///< left margin
  double margright = 0;                ///< right margin
};

/// The colour profile that describes the document's colours.
struct XMPlColorSpace {
  /// "Untagged" (none), "PDFOutputIntent", "VXEmbedded" (in the document) or "VXDatabase" (in a
  /// profile database); no other text can be written.
  std::string colorprofloc = "Untagged";
  std::string colorprofname;  ///< profile name
  std::string colorprofdesc;  ///< profile description
};

/// Standard PDF data, for other tools to read.
struct XMPlPDFData {
  std::string producer;       ///< the program that made the PDF
  std::string title;          ///< in the default language
  std::string pdfxVersion;    ///< the PDF/X version that the document declares
  bool trapped = false;       ///< valid with trappedValid
  bool trappedValid = false;  ///< false: the document does not say whether it is trapped
};

/// Standard media-management data, for other tools to read.
struct XMPlMMData {
  std::string documentID;      ///< identifier of the document in all its versions
  std::string versionID;       ///< identifier of this version
  std::string derivedFrom;     ///< stored as plain text, where other tools may expect a structure
  std::string renditionClass;  ///< which rendition of the document this is
};

/// @}

#endif
