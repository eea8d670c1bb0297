// SPDX-License-Identifier: Apache-2.0
// Values as the packet stores them: text of integers, reals and booleans. Nothing here depends on
// the process locale or touches it.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace xmpl {

// The reading functions accept what the toolkit's own getters accept, and throw XMP_Error with
// the toolkit's messages for anything else. The toolkit's getters are no use here: they switch
// the process locale for every real, and scan integers with undefined overflow.
std::int32_t toInteger(const std::string& text);
double toReal(const std::string& text);
bool toBoolean(const std::string& text);

std::string integerText(std::int32_t value);
std::string_view booleanText(bool value);

// Throws XMP_Error for UTF-8 that encodes a character in more bytes than it needs. The toolkit
// would store it, and no parser would read the packet again.
void refuseOverlong(const char* text);

// A real as the packet holds it: at most 10 significant digits, no exponent.
std::string realText(double value);

// The C format "%.<decimals>f" with a decimal point in any locale.
std::string fixedText(double value, int decimals);

// The C library's atof with a decimal point in any locale: the longest valid prefix, else 0.
double leadingReal(const char* text);

}  // namespace xmpl
