// SPDX-License-Identifier: Apache-2.0
// The encodings of a packet.
#pragma once

#include <string>
#include <string_view>

namespace vxmeta {

enum class Encoding { utf8, utf16be, utf16le };

const char* nameOf(Encoding encoding);

// By the first bytes of an XML text: its byte order mark, or how its "<" is stored.
Encoding encodingOf(std::string_view text);

// Whether the text is XML in UTF-32, by the same; no function here takes it apart.
bool isUtf32(std::string_view text);

// The encoding that an XML declaration at the beginning of eight-bit text names; empty: none.
std::string declaredEncoding(std::string_view text);

// ASCII text as it is stored in `encoding`.
std::string stored(std::string_view ascii, Encoding encoding);

// Text with its characters beyond ASCII replaced by "?", without the byte order mark.
std::string asAscii(std::string_view text, Encoding encoding);

}  // namespace vxmeta
