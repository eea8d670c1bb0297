// SPDX-License-Identifier: Apache-2.0
// The toolkit's own reading, under the guard's eyes.
#pragma once

#include "core/packet/packet_text.h"
#include "core/toolkit/client.h"

namespace xmpl {

// Throws XMP_Error for what is no packet, PacketRefused for what the guard refuses, with
// lastParseFailure() telling where. The metadata is of no use then.
void readByToolkit(const PacketText& packet, Metadata& metadata);

}  // namespace xmpl
