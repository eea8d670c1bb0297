// SPDX-License-Identifier: Apache-2.0
// JSON as it was written: where in the text its values stand, and what a parser passes over.
#pragma once

#include <optional>
#include <stdexcept>
#include <string>

#include "model/json.h"

namespace vxmeta {

// Text that is no JSON for a document, and where: "line 7: /inks/3/angle: ...".
class JsonTextError : public std::runtime_error {
  using std::runtime_error::runtime_error;
};

// Throws JsonTextError for what is no JSON, for a name that an object has twice, and for more
// depth or more fields than any record has.
Json parseJson(const std::string& text);

// The line, from 1, where the value of that JSON pointer begins. Empty: there is none.
std::optional<int> lineOf(const std::string& text, const std::string& pointer);

// `why` with the line in front, where there is one.
std::string withLine(const std::string& text, const std::string& pointer, const std::string& why);

// The name as a step of a JSON pointer: "/inks", "/a~1b".
std::string pointerStep(std::string_view name);

}  // namespace vxmeta
