#include "commands/messages.h"

#include <cerrno>
#include <cstdio>
#include <cstring>

#include "files/packet_file.h"

namespace vxmeta {
namespace {

void sayLine(const std::string& text) {
  const std::string line = "vxmeta: " + printable(text) + '\n';
  std::fwrite(line.data(), 1, line.size(), stderr);
}

const std::string& shown(const std::string& file) {
  static const std::string kStandardInput = "standard input";
  return file == "-" ? kStandardInput : file;
}

}  // namespace

void sayTrouble(const std::string& file, const std::string& text) {
  sayLine(shown(file) + ": " + text);
}

void sayWarning(const std::string& file, const std::string& text) {
  sayLine(shown(file) + ": warning: " + text);
}

std::string printable(std::string_view text) {
  std::string safe(text);
  for (char& c : safe) {
    if (static_cast<unsigned char>(c) < 0x20 || c == 0x7F) c = '?';
  }
  return safe;
}

void writeOut(std::string_view data) {
  const bool isWritten = std::fwrite(data.data(), 1, data.size(), stdout) == data.size();
  if (isWritten && std::fflush(stdout) == 0) return;
  throw FileError("standard output cannot be written: " + std::string(std::strerror(errno)));
}

}  // namespace vxmeta
