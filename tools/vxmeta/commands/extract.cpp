// SPDX-License-Identifier: Apache-2.0
// vxmeta extract: a packet as it lies in its file.
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <memory>

#include "commands/commands.h"
#include "commands/inputs.h"
#include "files/input_file.h"
#include "text/terminal.h"

#include <fmt/format.h>

namespace vxmeta {
namespace {

struct ExtractOptions {
  std::string file;
  std::string out = "-";
  bool list = false;
  Inputs inputs;
};

void refuseSameFile(const ExtractOptions& options) {
  std::error_code ignored;
  if (options.file == "-" || !std::filesystem::equivalent(options.file, options.out, ignored))
    return;
  throw FileError("would be overwritten by its own packet; name another file behind -o");
}

void writeFile(const std::string& path, const std::string& text) {
  std::ofstream file(path, std::ios::binary | std::ios::trunc);
  file.write(text.data(), static_cast<std::streamsize>(text.size()));
  file.close();
  if (!file) throw FileError(path + " cannot be written: " + std::strerror(errno));
}

void extractPacket(const ExtractOptions& options, Outcome& outcome) {
  refuseSameFile(options);
  FilePacket packet = read(options.file, InputFile(options.file), options.inputs, outcome);
  if (options.out == "-") {
    outcome.out = std::move(packet.text);
  } else {
    writeFile(options.out, packet.text);
  }
}

std::string listed(const ExtractOptions& options, Outcome& outcome) {
  const auto [packets, warnings] = listPackets(options.file, options.inputs.options);
  addWarnings(options.file, warnings, outcome);
  if (packets.empty()) outcome.messages += messageLine(options.file, "holds no packet");
  std::size_t width = 0;
  for (const ListedPacket& packet : packets) width = std::max(width, packet.source.size());
  std::string lines;
  for (const ListedPacket& packet : packets) {
    lines += fmt::format("{} {:<{}}  {:>8} bytes  {}\n", packet.isDocuments ? '*' : ' ',
                         packet.source, width, packet.bytes, visible(packet.owner));
  }
  return lines;
}

Outcome extracted(const ExtractOptions& options) {
  Outcome outcome;
  try {
    if (options.list) {
      outcome.out = listed(options, outcome);
    } else {
      extractPacket(options, outcome);
    }
  } catch (const std::exception& error) {
    fail(outcome, options.file, error.what());
  }
  return outcome;
}

}  // namespace

void addExtract(CLI::App& app, Run& run) {
  CLI::App* command =
      app.add_subcommand("extract", "Take the packet out of a file, as it lies there");
  const auto options = std::make_shared<ExtractOptions>();
  command->add_option("FILE", options->file, "The document; - is standard input")->required();
  command->add_option("-o,--output", options->out, "Where the packet goes; - is standard output")
      ->type_name("OUT");
  command->add_flag("--list", options->list,
                    "Show all packets of the file; * marks the document's own");
  addReadOptions(*command, options->inputs);
  command->footer("Example: vxmeta extract carton.pdf -o carton.xmp");
  command->callback([options, &run] {
    run.exitCode = forEachFile({options->file}, options->inputs,
                               [&](const std::string&) { return extracted(*options); });
  });
}

}  // namespace vxmeta
