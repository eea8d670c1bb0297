#include "commands/read_options.h"

#include <CLI/CLI.hpp>
#include <cstdlib>

#include "files/input_file.h"

namespace vxmeta {
namespace {

// The first line of the file.
std::string passwordIn(const std::string& file) {
  constexpr std::size_t kMostBytes = 1024;
  try {
    const std::string text = InputFile(file).read(0, kMostBytes);
    return text.substr(0, text.find_first_of("\r\n"));
  } catch (const FileError& error) {
    throw CLI::ValidationError("--password-file", file + ": " + error.what());
  }
}

}  // namespace

void addReadOptions(CLI::App& command, ReadOptions& options) {
  if (const char* password = std::getenv("VXMETA_PASSWORD")) options.password = password;
  command
      .add_option_function<std::string>(
          "--password-file",
          [&options](const std::string& file) { options.password = passwordIn(file); },
          "Password of an encrypted PDF: the file's first line (else VXMETA_PASSWORD)")
      ->type_name("FILE");
  command.add_flag("--scan", options.scan,
                   "Look for a packet in the bytes of a file of an unknown kind");
}

}  // namespace vxmeta
