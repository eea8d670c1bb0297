// What the tool says on stderr.
#pragma once

#include <string>
#include <string_view>

namespace vxmeta {

// "vxmeta: FILE: text", a line of its own. Threads may say something at once.
void sayTrouble(const std::string& file, const std::string& text);
void sayWarning(const std::string& file, const std::string& text);

// Text from a file with its control characters as "?": they would steer the terminal.
std::string printable(std::string_view text);

// Data on stdout. Throws FileError when it cannot be written.
void writeOut(std::string_view data);

}  // namespace vxmeta
