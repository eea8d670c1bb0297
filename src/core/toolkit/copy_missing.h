// SPDX-License-Identifier: Apache-2.0
// Copying what one tree has and another lacks.
#pragma once

#include <string_view>

#include "core/toolkit/client.h"

namespace xmpl {

// Which nodes of a top-level property are meant.
enum class Part { nothing, all, allButItself };
using PartOf = Part (*)(std::string_view schemaUri, std::string_view property);

bool holdsAny(const Metadata& metadata, PartOf partOf);

// Copies the nodes that `to` has not got, in their form; URIs become plain texts. What it has stays
// as it is, but gets the fields and qualifiers that it lacks and, by position, the items. Throws
// the toolkit's XMP_Error where the forms contradict each other, with all before that copied.
void copyMissing(const Metadata& from, Metadata& to, PartOf partOf);

}  // namespace xmpl
