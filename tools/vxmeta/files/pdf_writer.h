// SPDX-License-Identifier: Apache-2.0
// A packet into a PDF.
#pragma once

#include <string>

#include "files/input_file.h"
#include "files/packet_writer.h"

namespace vxmeta {

// PDFs up to this size are compared object by object after a write; of larger ones the packet and
// the number of pages, and where they are rewritten no more.
constexpr std::uint64_t kMostCompared = std::uint64_t{64} << 20;

// From this size on an update is appended, where nothing else is asked for.
constexpr std::uint64_t kMostRewritten = std::uint64_t{64} << 20;

// Throws the FileError with which writePdf would refuse before it writes.
void requireWritablePdf(const InputFile& file, const std::string& packet,
                        const WriteOptions& options);

// Writes the PDF with another packet as a new file, and reads that again. Throws FileError.
Written writePdf(const InputFile& file, const std::string& packet, const WriteOptions& options,
                 const std::string& to);

}  // namespace vxmeta
