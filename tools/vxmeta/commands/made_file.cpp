// SPDX-License-Identifier: Apache-2.0
#include "commands/made_file.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>

#include "files/packet_file.h"

namespace vxmeta {

void refuseToOverwrite(const std::string& file, const std::string& out) {
  std::error_code ignored;
  if (file == "-" || out == "-" || !std::filesystem::equivalent(file, out, ignored)) return;
  throw FileError("is one of the files that are read; name another one behind -o");
}

void writeOutput(const std::string& out, const std::string& text) {
  if (out == "-") return (void)std::fwrite(text.data(), 1, text.size(), stdout);
  std::ofstream file(out, std::ios::binary | std::ios::trunc);
  file.write(text.data(), static_cast<std::streamsize>(text.size()));
  file.close();
  if (!file) throw FileError(std::string("cannot be written: ") + std::strerror(errno));
}

}  // namespace vxmeta
