// SPDX-License-Identifier: Apache-2.0
// The page's style.
#pragma once

namespace vxmeta {

extern const char* const kStyle;  // holds nothing that XML would have escaped

}  // namespace vxmeta
