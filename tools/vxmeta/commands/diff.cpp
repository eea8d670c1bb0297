#include "commands/commands.h"
namespace vxmeta {
void addDiff(CLI::App&, Run&) {}
}  // namespace vxmeta
