// SPDX-License-Identifier: Apache-2.0
// Which paths there are: for those who look one up, and for the shells that complete one.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "model/type.h"

namespace vxmeta {

struct KnownPath {
  std::string path;
  std::string_view help;  // what the value says, in a few words
};

// Every path of fields of the type; an item is any of its list: "inks[].angle".
std::vector<KnownPath> knownPaths(const Type& root);

// What the beginning of a path may become by one step more: "job.orderid" of "job.o", "inks[name="
// of "inks[". None for what is no beginning of a path.
std::vector<KnownPath> completions(std::string_view begun, const Type& root);

}  // namespace vxmeta
