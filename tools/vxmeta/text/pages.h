// SPDX-License-Identifier: Apache-2.0
// A document for people: on one screen, or a section in full.
#pragma once

#include <string>
#include <string_view>

#include "model/document.h"
#include "text/terminal.h"

namespace vxmeta {

// What the document holds: a line a section, the inks as a table.
std::string summaryOf(const Document& document, const Screen& screen);

// A section, or a part of one, in full under its path.
std::string sectionInFull(std::string_view path, const View& value, const Screen& screen);

// All sections in full.
std::string documentInFull(const Document& document, const Screen& screen);

}  // namespace vxmeta
