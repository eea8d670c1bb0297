// SPDX-License-Identifier: Apache-2.0
// A PDF opened by qpdf, which never prints.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "files/input_file.h"
#include "files/packet_file.h"

class QPDF;
class QPDFObjectHandle;

namespace vxmeta {

// Reads the cross references alone. Throws FileError.
std::shared_ptr<QPDF> openPdf(const InputFile& file, const std::string& password);

// What had to be mended since the last call, in a few lines. Throws FileError where that was too
// much to trust what was read.
std::vector<std::string> repairsOf(QPDF& pdf);

// Calls `work`; what qpdf throws becomes a FileError.
void withPdfErrors(const std::function<void()>& work);

// The decoded bytes of a stream, up to `most`. Throws FileError.
std::string decoded(QPDFObjectHandle stream, std::size_t most = kMostPacketBytes);

}  // namespace vxmeta
