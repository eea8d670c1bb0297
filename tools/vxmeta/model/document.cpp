// SPDX-License-Identifier: Apache-2.0
#include "model/document.h"

#include <algorithm>
#include <array>

namespace vxmeta {

template <>
Type describe<PacketInfo>() {
  using R = PacketInfo;
  return recordType<R>(
      "packet",
      {
          VXMETA_FIELD(bytes, "length of the packet as it lies in the file, wrapper included")
              .in("bytes"),
          VXMETA_FIELD(padding, "blanks before the closing wrapper line").in("bytes"),
          VXMETA_FIELD(writable, "the packet may be changed in place"),
          VXMETA_FIELD(encoding,
                       "encoding of the packet's text: UTF-8, UTF-16BE, UTF-16LE, or what else its "
                       "XML declaration names"),
          VXMETA_FIELD(source, "where in the file it was: packet, pdf object 12, TIFF ..."),
      });
}

template <>
Type describe<Scalars>() {
  using R = Scalars;
  return recordType<R>(
      "scalars",
      {
          VXMETA_FIELD(nrPages, "number of pages"),
          VXMETA_FIELD(screenReg, "the document carries screen registration"),
          VXMETA_FIELD(isTrapped, "the document is trapped"),
          VXMETA_FIELD(startLogPage, "first logical page"),
          VXMETA_FIELD(smartID, "smart identifier").dateOrId(),
          VXMETA_FIELD(rectoVerso, "how the sides are printed"),
          VXMETA_FIELD(pdfNativeVersion, "version of the native PDF"),
          VXMETA_FIELD(pdfNativeType, "type of the native PDF"),
          VXMETA_FIELD(pdfNativeVindrelVersion, "version of the RIP that made the native PDF"),
          VXMETA_FIELD(digitalFilmVersion, "version of the digital film, as film.version.version"),
          VXMETA_FIELD(nrInksOriginalDocument, "number of inks of the original document"),
          VXMETA_FIELD(digitalJobVersion, "version of the digital job"),
          VXMETA_FIELD(vdpVersion, "version of the variable-data content"),
      });
}

template <>
Type describe<Film>() {
  using R = Film;
  return recordType<R>(
      "film", {
                  VXMETA_FIELD(version, "version of the digital-film data"),
                  VXMETA_FIELD(dimensions, "dimensions of the film"),
                  VXMETA_FIELD(inks, "inks of the film; a packet has these or the document's inks"),
                  VXMETA_FIELD(jobReferences, "digital jobs that the film was made from"),
                  VXMETA_FIELD(metadata, "the separations"),
              });
}

template <>
Type describe<ForeignSchema>() {
  using R = ForeignSchema;
  return recordType<R>("foreignSchema", {
                                            VXMETA_FIELD(schema, "URI of the schema"),
                                            VXMETA_FIELD(prefix, "its prefix"),
                                            VXMETA_FIELD(properties, "number of its properties"),
                                        });
}

template <>
Type describe<UnreadPart>() {
  using R = UnreadPart;
  return recordType<R>(
      "unread",
      {
          VXMETA_FIELD(list,
                       "path of what is not read whole; of a property of no record, its name"),
          VXMETA_FIELD(property, "the stored property"),
          VXMETA_FIELD(stored, "number of items stored; of a single value 1"),
          VXMETA_FIELD(read, "number of items read"),
          VXMETA_FIELD(reason,
                       "the required field or property that is not there, or what else is wrong"),
          VXMETA_FIELD(item, "index of the item, from 0; absent: the list or value itself"),
          VXMETA_FIELD(field, "what stands in it and in no record"),
          VXMETA_FIELD(value, "what is stored there: a text, or a list or structure as JSON"),
      });
}

template <>
Type describe<Document>() {
  using R = Document;
  return recordType<R>(
      "document",
      {
          VXMETA_FIELD(vxmeta, "version of this form"),
          VXMETA_FIELD(file, "the file as named; - is standard input"),
          VXMETA_FIELD(packet, "the packet as it lies in its file"),
          VXMETA_FIELD(scalars, "single values of the document"),
          VXMETA_FIELD(job, "the job that the document belongs to"),
          VXMETA_FIELD(product, "the product, and the part of it, that the document makes"),
          VXMETA_FIELD(document, "the document's own data"),
          VXMETA_FIELD(version, "the version of the document"),
          VXMETA_FIELD(baseDocument, "the document that this one was derived from").dateOrId(),
          VXMETA_FIELD(page, "dimensions of the page"),
          VXMETA_FIELD(film, "data of a digital film"),
          VXMETA_FIELD(colorSpace, "the colour profile that describes the document's colours"),
          VXMETA_FIELD(inks, "inks of the document with their coverage"),
          VXMETA_FIELD(inkProperties, "properties of inks"),
          VXMETA_FIELD(screens, "screens, in groups"),
          VXMETA_FIELD(dgcs, "DGC (dot-gain) curves").unordered(),
          VXMETA_FIELD(usedRefs, "files that the document uses"),
          VXMETA_FIELD(extRefs, "files that the document refers to").unordered(),
          VXMETA_FIELD(cadFiles, "files of the structural design").unordered(),
          VXMETA_FIELD(fonts, "fonts").unordered(),
          VXMETA_FIELD(barcodes, "barcodes").unordered(),
          VXMETA_FIELD(layers, "layers"),
          VXMETA_FIELD(pageRanges, "ranges of pages and the inks used on them"),
          VXMETA_FIELD(smartNames, "named texts that a workflow puts into the artwork").unordered(),
          VXMETA_FIELD(repeats, "placements of a step-and-repeat layout").unordered(),
          VXMETA_FIELD(cadRegistration, "how the document is registered on a CAD drawing"),
          VXMETA_FIELD(pdfData, "standard PDF data, for other tools"),
          VXMETA_FIELD(mmData, "standard media-management data, for other tools"),
          VXMETA_FIELD(foreign, "other schemas, and the number of their properties"),
          VXMETA_FIELD(unread, "what is stored and not read; writing a list again would delete it"),
      });
}

bool isAboutTheFile(const Field& section) {
  constexpr std::array<std::string_view, 5> kNames = {"vxmeta", "file", "packet", "foreign",
                                                      "unread"};
  return std::find(kNames.begin(), kNames.end(), section.name) != kNames.end();
}

}  // namespace vxmeta
