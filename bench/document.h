// SPDX-License-Identifier: Apache-2.0
// The records and scalars that a document has one of each.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "XMPlib.h"

namespace bench {

struct Document {
  int pages = 0;
  int firstPage = 0;
  int originalInks = 0;
  int nativeVersion = 0;
  int filmVersion = 0;
  int jobVersion = 0;
  int dataVersion = 0;
  bool screenRegistration = false;
  bool trapped = false;
  std::string smartId;
  std::string sides;
  std::string nativeType;
  std::string ripVersion;
  XMPlJobData job;
  XMPlProdData product;
  XMPlDocData data;
  XMPlDocVersion version;
  XMPlDigFilmVersion film;
  XMPlExtRef base;
  XMPlDimDat page;
  XMPlDimDatDigFilm filmPage;
  XMPlColorSpace colours;
  XMPlCadReg registration;
};

Document readDocument(const XMPlib& xmp);
std::string documentPacket();  // holds every one of them
std::size_t digest(const Document& document);

// Reads all lists that a document may have; answers how many records they hold.
std::size_t readLists(const XMPlib& xmp);

}  // namespace bench
