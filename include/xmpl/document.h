// Records that describe the document as a whole.
#ifndef XMPL_DOCUMENT_H
#define XMPL_DOCUMENT_H

#include <cstdint>
#include <string>

// The job that a document belongs to.
struct XMPlJobData {
  std::string name;         // job name
  std::string id;           // job identifier
  std::string url;          // location of the job
  std::string description;  // free text
  std::string orderid;      // order number
  std::string suborderid;   // sub-order number
};

// The product, and the part of it, that a document makes.
struct XMPlProdData {
  std::string id;               // identifier of this product entry
  std::string prodname;         // product name
  std::string prodid;           // product identifier
  std::string proddescription;  // product description
  std::string partid;           // identifier of the part entry
  std::string prodpartname;     // name of the product part
  std::string prodpartid;       // identifier of the product part
};

// The document's own data. Dates are texts, stored unchanged; on writing, "now" is the current
// date and time.
struct XMPlDocData {
  std::string baseURL;
  std::string createDate;    // date
  std::string modifyDate;    // date
  std::string metadataDate;  // date
  std::string creatorTool;
  std::string description;  // in the default language
};

// A version of the document.
struct XMPlDocVersion {
  std::string comments;
  std::string modifyDate;  // date, as in XMPlDocData
  std::string modifier;
  std::string version;
};

// The version of the digital-film data.
struct XMPlDigFilmVersion {
  std::int32_t version = 100;  // number of the data's layout; 100 is the current one
  std::string structure;       // "Composite" or "Separated" after a merge of films; else free text
  std::string type;
};

// What both kinds of dimensions begin with, for code of the application that serves either; no
// operation takes it. Lengths are in `units`.
struct XMPlDimDatBasic {
  std::string units = "mm";  // unit of all lengths: "mm" is millimetres, other words as agreed
  double vsize = 0;          // height
  double hsize = 0;          // width
};

// The dimensions of a page. Lengths are in `units`.
struct XMPlDimDat {
  std::string units = "mm";
  double vsize = 0;    // height
  double hsize = 0;    // width
  double margtop = 0;  // margins
  double margbot = 0;
  double margleft = 0;
  double margright = 0;
  double vshrink = 1.0;       // vertical shrink factor; 1: none
  double hshrink = 1.0;       // horizontal shrink factor
  bool readerspread = false;  // the page is a reader spread
};

// The dimensions of a digital film. Lengths are in `units`.
struct XMPlDimDatDigFilm {
  std::string units = "mm";
  double vsize = 0;                    // height
  double hsize = 0;                    // width
  double vresolution = 0;              // vertical resolution; its unit is the application's
  double hresolution = 0;              // horizontal resolution
  bool basicOnly = true;               // only the five fields above are valid
  double vdist = 1.0;                  // vertical dot distance, as above
  double hdist = 1.0;                  // horizontal dot distance
  double vscale = 1.0;                 // vertical scale
  double hscale = 1.0;                 // horizontal scale
  bool reverse = false;                // the film is reversed
  std::int32_t scanlinedirection = 0;  // direction of exposure, a code of the application's
  std::int32_t spare = 0;              // neither read nor written
  bool hasMargins = false;             // the margins are valid
  double margtop = 0;
  double margbot = 0;
  double margleft = 0;
  double margright = 0;
};

// The colour profile that describes the document's colours.
struct XMPlColorSpace {
  // "Untagged" (none), "PDFOutputIntent", "VXEmbedded" (in the document) or "VXDatabase" (in a
  // profile database); no other text can be written.
  std::string colorprofloc = "Untagged";
  std::string colorprofname;  // profile name
  std::string colorprofdesc;  // profile description
};

// Standard PDF data, for other tools to read.
struct XMPlPDFData {
  std::string producer;
  std::string title;  // in the default language
  std::string pdfxVersion;
  bool trapped = false;
  bool trappedValid = false;  // false: the document does not say whether it is trapped
};

// Standard media-management data, for other tools to read.
struct XMPlMMData {
  std::string documentID;
  std::string versionID;
  std::string derivedFrom;  // stored as plain text, where other tools may expect a structure
  std::string renditionClass;
};

#endif
