// SPDX-License-Identifier: Apache-2.0
// The toolkit's table of namespaces from inside.
#pragma once

#include <string>

namespace xmpl {

// Registers `prefix`, without colon, for `uri`: in both directions of the table or, where memory
// ends, in neither. The toolkit's own function may stop between the two; another namespace then
// gets the same prefix. False when the prefix is taken; true when the URI has one already. Throws
// the toolkit's XMP_Error for a prefix that it would refuse.
bool registerWholly(const std::string& uri, const std::string& prefix);

}  // namespace xmpl
