// The options of all commands that read files.
#pragma once

#include "files/packet_file.h"

namespace CLI {
class App;
}

namespace vxmeta {

// --password-file, the environment's VXMETA_PASSWORD, and --scan. `options` outlives `command`.
void addReadOptions(CLI::App& command, ReadOptions& options);

}  // namespace vxmeta
