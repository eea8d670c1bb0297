// SPDX-License-Identifier: Apache-2.0
// One document's production metadata. The sections stand in the order and have the names that they
// have in JSON. What is not in the packet is empty as an optional, and apart from an empty list.
#pragma once

#include <XMPlib.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "model/records.h"

namespace vxmeta {

// The packet as it lies in its file.
struct PacketInfo {
  std::int64_t bytes = 0;
  std::int64_t padding = 0;
  bool writable = false;
  std::string encoding = "UTF-8";
  std::string source;
};

struct Scalars {
  std::optional<std::int32_t> nrPages;
  std::optional<bool> screenReg;
  std::optional<bool> isTrapped;
  std::optional<std::int32_t> startLogPage;
  std::optional<std::string> smartID;
  std::optional<std::string> rectoVerso;
  std::optional<std::int32_t> pdfNativeVersion;
  std::optional<std::string> pdfNativeType;
  std::optional<std::string> pdfNativeVindrelVersion;
  std::optional<std::int32_t> digitalFilmVersion;
  std::optional<std::int32_t> nrInksOriginalDocument;
  std::optional<std::int32_t> digitalJobVersion;
  std::optional<std::int32_t> vdpVersion;
};

struct Film {
  std::optional<XMPlDigFilmVersion> version;
  std::optional<XMPlDimDatDigFilm> dimensions;
  std::optional<std::vector<XMPlInkDigFilm>> inks;
  std::optional<std::vector<XMPlUsedDigFilmRef>> jobReferences;
  std::optional<std::vector<XMPlMetaDataDigFilm>> metadata;
};

// A schema that the library does not manage.
struct ForeignSchema {
  std::string schema;
  std::string prefix;
  std::int32_t properties = 0;
};

// What a reading leaves out: the end of a list, or a value (stored, read, reason), or something
// inside one (item, field).
struct UnreadPart {
  std::string list;      // path of the section, or of a list in it
  std::string property;  // in which it is stored
  std::optional<std::int32_t> stored;
  std::optional<std::int32_t> read;
  std::optional<std::string> reason;
  std::optional<std::int32_t> item;
  std::optional<std::string> field;
  std::optional<std::string> value;  // what is stored there: a text, or JSON
};

struct Document {
  std::int32_t vxmeta = 1;
  std::string file;
  PacketInfo packet;
  std::optional<Scalars> scalars;
  std::optional<XMPlJobData> job;
  std::optional<XMPlProdData> product;
  std::optional<XMPlDocData> document;
  std::optional<XMPlDocVersion> version;
  std::optional<XMPlExtRef> baseDocument;
  std::optional<XMPlDimDat> page;
  std::optional<Film> film;
  std::optional<XMPlColorSpace> colorSpace;
  std::optional<std::vector<XMPlInk>> inks;
  std::optional<std::vector<XMPlInkProperty>> inkProperties;
  std::optional<std::vector<std::vector<XMPlScreen>>> screens;
  std::optional<std::vector<XMPlDgcc>> dgcs;
  std::optional<std::vector<XMPlUsedRef>> usedRefs;
  std::optional<std::vector<XMPlExtRef>> extRefs;
  std::optional<std::vector<XMPlExtRef>> cadFiles;
  std::optional<std::vector<XMPlFont>> fonts;
  std::optional<std::vector<XMPlBarcode>> barcodes;
  std::optional<std::vector<XMPlLay>> layers;
  std::optional<std::vector<XMPlPagRange>> pageRanges;
  std::optional<std::vector<XMPlSmartName>> smartNames;
  std::optional<std::vector<XMPlRepeat>> repeats;
  std::optional<XMPlCadReg> cadRegistration;
  std::optional<XMPlPDFData> pdfData;
  std::optional<XMPlMMData> mmData;
  std::vector<ForeignSchema> foreign;
  std::vector<UnreadPart> unread;
};

template <>
Type describe<PacketInfo>();
template <>
Type describe<Scalars>();
template <>
Type describe<Film>();
template <>
Type describe<ForeignSchema>();
template <>
Type describe<UnreadPart>();
template <>
Type describe<Document>();

// What the application knows of the packet, or says about the file: not the packet's own data, and
// the same in no two files. `apply` and `diff` leave it out.
bool isAboutTheFile(const Field& section);

}  // namespace vxmeta
