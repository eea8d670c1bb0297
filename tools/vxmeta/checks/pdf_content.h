// SPDX-License-Identifier: Apache-2.0
// The colours that content paints with by itself, without a colour space among its resources.
#pragma once

#include <set>
#include <string>

namespace vxmeta {

struct ContentColours {
  bool process = false;  // DeviceCMYK or DeviceRGB
  bool gray = false;     // DeviceGray: set, or left as content begins with it
};

// `masks` are the names of the image masks among the resources ("/Im0"): they are painted in the
// colour of the content. Text that is invisible counts like any other.
// What is behind a process colour is not read.
ContentColours coloursIn(const std::string& content, const std::set<std::string>& masks);

}  // namespace vxmeta
