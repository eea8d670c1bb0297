// SPDX-License-Identifier: Apache-2.0
// Names in a PDF as text.
#pragma once

#include <qpdf/QPDFObjectHandle.hh>
#include <string>

namespace vxmeta {

// The name in UTF-8, without its slash. A name is bytes; what is no UTF-8 is read as Windows-1252,
// which most programs that write such names mean.
std::string textOfName(QPDFObjectHandle name);

}  // namespace vxmeta
