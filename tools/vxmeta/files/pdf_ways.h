// SPDX-License-Identifier: Apache-2.0
// The ways of a packet into a PDF. Each writes a new file, and throws FileError.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <qpdf/QPDFObjGen.hh>
#include <string>

#include "files/input_file.h"

class QPDF;

namespace vxmeta {

// A PDF that a packet goes into.
struct PdfSource {
  const InputFile& file;
  QPDF& pdf;
  std::uint64_t header = 0;  // where "%PDF-" is: offsets in the file count from there
};

// What the objects of the old file are called in the new one; none: the same.
using Renumbered = std::map<QPDFObjGen, QPDFObjGen>;

// Where the metadata stream's bytes lie in the file as they are: none where they do not.
std::optional<std::uint64_t> plainMetadataAt(const PdfSource& source);

// The new file is the old one but for `bytes` at that offset.
void splicePdf(const PdfSource& source, std::uint64_t offset, const std::string& bytes,
               const std::string& to);

// The new file is the old one and an update behind it. Answers the update's bytes.
std::size_t appendToPdf(const PdfSource& source, const std::string& packet, const std::string& to);

// Changes the PDF's objects. Answers what they are called in the new file.
Renumbered rewritePdf(const PdfSource& source, const std::string& packet, const std::string& to);

}  // namespace vxmeta
