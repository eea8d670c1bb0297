// SPDX-License-Identifier: Apache-2.0
// What a PDF says of itself beside its packet.
#pragma once

#include <cstddef>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "files/input_file.h"

namespace vxmeta {

// A page's box as one sees the page: scaled and turned.
struct PdfBox {
  const char* name = "";  // "trim box" ...
  double width = 0;       // in points
  double height = 0;
};

struct PdfInfo {  // the Info dictionary; absent fields are empty
  std::string title;
  std::string producer;
  std::string trapped;  // "True", "False", "Unknown"
};

struct PdfFacts {
  std::size_t pages = 0;
  std::optional<PdfBox> firstPage;  // its trim box, else crop box, else media box

  // Of all pages, with the forms, patterns, Type 3 fonts and annotations on them.
  std::set<std::string> colorants;  // of Separation and DeviceN spaces, without All and None
  std::set<std::string> fonts;      // PostScript names without subset prefix

  // Colours that become process inks: in CMYK, or in a space that is separated into it, as RGB and
  // Lab; and those that become black alone. Also where content cannot be read, so that it may hold
  // such colours.
  bool usesProcess = false;
  bool usesGray = false;

  std::set<std::string> layers;  // names of the optional-content groups
  PdfInfo info;
  bool metadataIsCompressed = false;
  bool metadataIsEncrypted = false;
  std::size_t metadataStreams = 0;  // in the whole file
};

// Throws FileError.
PdfFacts readPdfFacts(const InputFile& file, const std::string& password);

}  // namespace vxmeta
