// SPDX-License-Identifier: Apache-2.0
// The JSON Schema (2020-12) of a document, made from the descriptions of the fields.
#pragma once

#include "model/json.h"

namespace vxmeta {

Json documentSchema();

}  // namespace vxmeta
