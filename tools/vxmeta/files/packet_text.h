// SPDX-License-Identifier: Apache-2.0
// Packet text, made to lie where another lies.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "files/encoding.h"

namespace vxmeta {

// UTF-8 as it is stored in `encoding`. Throws FileError for what is not UTF-8.
std::string storedText(std::string_view utf8, Encoding encoding);

// `body`, an element in UTF-8, in the place of the one of `old`: in its encoding, its wrapper and
// what stands around that. A writeable wrapper keeps its length where the body fits, else its
// padding. A text without wrapper keeps what precedes its element, unless that names an encoding.
std::string inPlaceOf(const std::string& old, const std::string& body);

// The packet in exactly so many bytes, by more or less padding: none where it does not fit. What
// has no wrapper is padded behind its end.
std::optional<std::string> atLength(const std::string& packet, std::size_t bytes);

// Whether two packets differ in their padding at most.
bool isSameButPadding(const std::string& a, const std::string& b);

}  // namespace vxmeta
