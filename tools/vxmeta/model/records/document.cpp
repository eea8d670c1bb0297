// SPDX-License-Identifier: Apache-2.0
// Records that describe the document as a whole.
#include "model/records.h"

namespace vxmeta {

template <>
Type describe<XMPlJobData>() {
  using R = XMPlJobData;
  return recordType<R>("job", {
                                  VXMETA_FIELD(name, "job name"),
                                  VXMETA_FIELD(id, "job identifier"),
                                  VXMETA_FIELD(url, "location of the job"),
                                  VXMETA_FIELD(description, "free text"),
                                  VXMETA_FIELD(orderid, "order number"),
                                  VXMETA_FIELD(suborderid, "sub-order number"),
                              });
}

template <>
Type describe<XMPlProdData>() {
  using R = XMPlProdData;
  return recordType<R>("product",
                       {
                           VXMETA_FIELD(id, "identifier of this product entry").dateOrId(),
                           VXMETA_FIELD(prodname, "product name"),
                           VXMETA_FIELD(prodid, "product identifier"),
                           VXMETA_FIELD(proddescription, "product description"),
                           VXMETA_FIELD(partid, "identifier of the part entry").dateOrId(),
                           VXMETA_FIELD(prodpartname, "name of the product part"),
                           VXMETA_FIELD(prodpartid, "identifier of the product part"),
                       });
}

template <>
Type describe<XMPlDocData>() {
  using R = XMPlDocData;
  return recordType<R>(
      "documentData",
      {
          VXMETA_FIELD(baseURL, "base of the document's relative URLs"),
          VXMETA_FIELD(createDate, "date of creation").dateOrId(),
          VXMETA_FIELD(modifyDate, "date of the last change").dateOrId(),
          VXMETA_FIELD(metadataDate, "date of the last change of the metadata").dateOrId(),
          VXMETA_FIELD(creatorTool, "application that made the document"),
          VXMETA_FIELD(description, "description in the default language"),
      });
}

template <>
Type describe<XMPlDocVersion>() {
  using R = XMPlDocVersion;
  return recordType<R>(
      "documentVersion",
      {
          VXMETA_FIELD(comments, "comments; written, never read: always empty here"),
          VXMETA_FIELD(modifyDate, "date of the version").dateOrId(),
          VXMETA_FIELD(modifier, "who made the version"),
          VXMETA_FIELD(version, "the version's name or number"),
      });
}

template <>
Type describe<XMPlDigFilmVersion>() {
  using R = XMPlDigFilmVersion;
  return recordType<R>(
      "filmVersion",
      {
          VXMETA_FIELD(version, "number of the data's layout; 100 is the current one"),
          VXMETA_FIELD(structure, "Composite, Separated, or free text"),
          VXMETA_FIELD(type, "type of the film"),
      });
}

template <>
Type describe<XMPlDimDatBasic>() {
  using R = XMPlDimDatBasic;
  return recordType<R>("dimensions", {
                                         VXMETA_FIELD(units, "unit of all lengths"),
                                         VXMETA_FIELD(vsize, "height").inUnitsOf("units"),
                                         VXMETA_FIELD(hsize, "width").inUnitsOf("units"),
                                     });
}

template <>
Type describe<XMPlDimDat>() {
  using R = XMPlDimDat;
  return recordType<R>("pageDimensions",
                       {
                           VXMETA_FIELD(units, "unit of all lengths"),
                           VXMETA_FIELD(vsize, "height").inUnitsOf("units"),
                           VXMETA_FIELD(hsize, "width").inUnitsOf("units"),
                           VXMETA_FIELD(margtop, "margin at the top").inUnitsOf("units"),
                           VXMETA_FIELD(margbot, "margin at the bottom").inUnitsOf("units"),
                           VXMETA_FIELD(margleft, "margin at the left").inUnitsOf("units"),
                           VXMETA_FIELD(margright, "margin at the right").inUnitsOf("units"),
                           VXMETA_FIELD(vshrink, "vertical shrink factor; 1: none"),
                           VXMETA_FIELD(hshrink, "horizontal shrink factor; 1: none"),
                           VXMETA_FIELD(readerspread, "the page is a reader spread"),
                       });
}

template <>
Type describe<XMPlDimDatDigFilm>() {
  using R = XMPlDimDatDigFilm;
  return recordType<R>(
      "filmDimensions",
      {
          VXMETA_FIELD(units, "unit of all lengths"),
          VXMETA_FIELD(vsize, "height").inUnitsOf("units"),
          VXMETA_FIELD(hsize, "width").inUnitsOf("units"),
          VXMETA_FIELD(vresolution, "vertical resolution, its unit the application's"),
          VXMETA_FIELD(hresolution, "horizontal resolution, its unit the application's"),
          VXMETA_FIELD(basicOnly, "only the five fields above are valid"),
          VXMETA_FIELD(vdist, "vertical dot distance").inUnitsOf("units").without("basicOnly"),
          VXMETA_FIELD(hdist, "horizontal dot distance").inUnitsOf("units").without("basicOnly"),
          VXMETA_FIELD(vscale, "vertical scale").without("basicOnly"),
          VXMETA_FIELD(hscale, "horizontal scale").without("basicOnly"),
          VXMETA_FIELD(reverse, "the film is reversed").without("basicOnly"),
          VXMETA_FIELD(scanlinedirection, "direction of exposure, a code of the application's")
              .without("basicOnly"),
          VXMETA_FIELD(spare, "neither read nor written").unstored(),
          VXMETA_FIELD(hasMargins, "the margins are valid"),
          VXMETA_FIELD(margtop, "margin at the top").inUnitsOf("units").with("hasMargins"),
          VXMETA_FIELD(margbot, "margin at the bottom").inUnitsOf("units").with("hasMargins"),
          VXMETA_FIELD(margleft, "margin at the left").inUnitsOf("units").with("hasMargins"),
          VXMETA_FIELD(margright, "margin at the right").inUnitsOf("units").with("hasMargins"),
      });
}

template <>
Type describe<XMPlColorSpace>() {
  using R = XMPlColorSpace;
  return recordType<R>(
      "colorSpace",
      {
          VXMETA_FIELD(colorprofloc, "where the profile is; as stored, whatever it is")
              .oneOf({"Untagged", "PDFOutputIntent", "VXEmbedded", "VXDatabase"}),
          VXMETA_FIELD(colorprofname, "profile name"),
          VXMETA_FIELD(colorprofdesc, "profile description"),
      });
}

template <>
Type describe<XMPlPDFData>() {
  using R = XMPlPDFData;
  return recordType<R>("pdfData",
                       {
                           VXMETA_FIELD(producer, "application that made the PDF"),
                           VXMETA_FIELD(title, "title in the default language"),
                           VXMETA_FIELD(pdfxVersion, "version of PDF/X"),
                           VXMETA_FIELD(trapped, "the document is trapped").with("trappedValid"),
                           VXMETA_FIELD(trappedValid, "the document says whether it is trapped"),
                       });
}

template <>
Type describe<XMPlMMData>() {
  using R = XMPlMMData;
  return recordType<R>(
      "mmData",
      {
          VXMETA_FIELD(documentID, "identifier of the document").dateOrId(),
          VXMETA_FIELD(versionID, "identifier of the version").dateOrId(),
          VXMETA_FIELD(derivedFrom, "what the document was derived from, as plain text").dateOrId(),
          VXMETA_FIELD(renditionClass, "which rendition this is"),
      });
}

}  // namespace vxmeta
