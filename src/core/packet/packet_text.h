// SPDX-License-Identifier: Apache-2.0
// A packet's text as the XML parser shall have it.
#pragma once

#include <string>
#include <string_view>

namespace xmpl {

// The toolkit makes blanks of control characters and of hexadecimal references to them, and takes
// bytes that are not UTF-8 for Windows-1252, unless the packet declares its encoding. Throws
// PacketRefused for an encoding that the XML parser does not know.
class PacketText {
 public:
  explicit PacketText(std::string_view packet);

  std::string_view view() const { return text_; }
  // Without the blanks and the trailer that it ends with. If it is well formed, so is the whole.
  std::string_view document() const { return document_; }
  // Its bytes are to be read by its declaration.
  bool isAsDeclared() const { return isAsDeclared_; }

 private:
  std::string_view text_;
  std::string_view document_;
  std::string repaired_;
  bool isAsDeclared_ = false;
};

}  // namespace xmpl
