// SPDX-License-Identifier: Apache-2.0
// Values as JSON, in the order and under the names of their fields.
#pragma once

#include <nlohmann/json_fwd.hpp>
#include <string>

#include "model/type.h"

namespace vxmeta {

using Json = nlohmann::ordered_json;

// Reals that JSON has no number for are the texts "nan", "inf" and "-inf".
Json toJson(const View& value);

// Its text: one line, or indented. Bytes that are not UTF-8 become U+FFFD.
std::string jsonText(const Json& json, bool isPretty);

}  // namespace vxmeta
