// SPDX-License-Identifier: Apache-2.0
// Which stored property belongs to which section of a document.
#pragma once

#include <string>
#include <string_view>

namespace vxmeta {

// The section's path ("fonts", "scalars.nrPages") for a property at the top level
// ("vxFontL:fonts"); empty for one that no record covers.
std::string_view sectionOf(std::string_view storedProperty);

// The path of a list as the library names it ("vxScreenC:screenContainer[2]/vxScreenL:screens"),
// as paths of a document go ("screens[1]"); itself where it is in no section.
std::string pathOfList(const std::string& storedList);

}  // namespace vxmeta
