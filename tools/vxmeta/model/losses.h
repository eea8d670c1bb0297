// SPDX-License-Identifier: Apache-2.0
// What a Set deletes because its Get did not read it.
#pragma once

#include <string_view>
#include <vector>

#include "model/units.h"
#include "model/write_document.h"

namespace vxmeta {

struct StoredProperties;

// What writing the unit deletes of what the document does not show.
std::vector<Loss> lossesOf(const Unit& unit, const Edit& edit);

// Nodes that were there before and are gone, by the property that they are in. Empty texts, values,
// qualifiers and the order of items are not looked at. Of a property named in `but` none.
std::vector<Loss> lostNodes(const StoredProperties& before, const StoredProperties& after,
                            const std::vector<std::string_view>& but);

}  // namespace vxmeta
