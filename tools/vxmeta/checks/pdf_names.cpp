// SPDX-License-Identifier: Apache-2.0
#include "checks/pdf_names.h"

#include <qpdf/QUtil.hh>

namespace vxmeta {

std::string textOfName(QPDFObjectHandle name) {
  std::string bytes = name.getName().substr(1);
  bool isBeyondAscii = false, isUtf8 = false, isUtf16 = false;
  QUtil::analyze_encoding(bytes, isBeyondAscii, isUtf8, isUtf16);
  return isBeyondAscii && !isUtf8 ? QUtil::win_ansi_to_utf8(bytes) : bytes;
}

}  // namespace vxmeta
