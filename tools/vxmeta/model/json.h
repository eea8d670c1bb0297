// Values as JSON, in the order and under the names of their fields.
#pragma once

#include <nlohmann/json_fwd.hpp>
#include <string>

#include "model/type.h"

namespace vxmeta {

using Json = nlohmann::ordered_json;

// Reals that JSON has no number for are the texts "nan", "inf" and "-inf".
Json toJson(const View& value);

// Text of one line; `isPretty`: indented, an item of a list a line where it is a plain value.
std::string jsonText(const Json& json, bool isPretty);

}  // namespace vxmeta
