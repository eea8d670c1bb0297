// SPDX-License-Identifier: Apache-2.0
// vxmeta embed: a packet into a file.
#include <memory>

#include "commands/commands.h"
#include "commands/outputs.h"
#include "files/file_kind.h"
#include "files/input_file.h"

namespace vxmeta {
namespace {

struct Options {
  std::string file;
  std::string packet;
  Inputs inputs;
  Outputs outputs;
};

// One that the library reads.
std::string newPacket(const std::string& path) {
  const InputFile file(path);
  if (fileKind(file.head()).family != FileKind::packet) {
    throw FileError("is no XMP packet; `vxmeta extract` takes one out of a document");
  }
  std::string packet = readPacket(file, {}).text;
  XMPlib xmp;
  loadPacket(packet, xmp);
  return packet;
}

Document documentOf(const std::string& packet) {
  XMPlib xmp;
  loadPacket(packet, xmp);
  return readDocument(xmp, {});
}

// Of a file without a packet all is new.
Document documentNow(const Options& options, Outcome& outcome) {
  try {
    return loadDocument(options.file, options.inputs, {}, outcome);
  } catch (const NoPacketError&) {
    return {};
  }
}

void showDifference(const Options& options, const std::string& packet, Outcome& outcome) {
  const Document now = documentNow(options, outcome);
  const Document then = documentOf(packet);
  outcome.out = changesText(now, then);
}

void write(const Options& options, const std::string& packet, Outcome& outcome) {
  WriteOptions chosen = options.outputs.options;
  chosen.read = options.inputs.options;
  if (options.outputs.isDryRun) {
    showDifference(options, packet, outcome);
    return requireWritableText(options.file, packet, chosen);
  }
  say(writePacketText(options.file, packet, chosen), options.file, options.outputs, outcome);
}

Outcome embedded(const Options& options) {
  Outcome outcome;
  std::string read = options.packet;
  try {
    const std::string packet = newPacket(read);
    read = options.file;
    write(options, packet, outcome);
  } catch (const std::exception& error) {
    fail(outcome, read, error.what());
  }
  return outcome;
}

void requireOneStdin(const Options& options) {
  if (options.file == "-" && options.packet == "-") {
    throw CLI::ValidationError("embed", "standard input cannot be both the file and the packet");
  }
}

}  // namespace

void addEmbed(CLI::App& app, Run& run) {
  const auto options = std::make_shared<Options>();
  CLI::App* command = app.add_subcommand("embed", "Put a packet into a file");
  command->add_option("FILE", options->file, "The document; - is standard input")->required();
  command->add_option("PACKET", options->packet, "The packet; - is standard input")->required();
  addWriteOptions(*command, options->outputs);
  addPasswordOption(*command, options->inputs);
  command->footer(
      "The packet goes in as it is; where it is spliced, with more or less padding. The new file "
      "is read again and compared before it takes the old one's place; else nothing changes.\n"
      "A PDF is written in the least invasive way that is exact: spliced where the metadata lies "
      "plain and the padding allows, appended to from 64 MB on and when signed, else rewritten.\n"
      "Example: vxmeta extract carton.pdf -o carton.xmp; edit carton.xmp; "
      "vxmeta embed carton.pdf carton.xmp");
  command->callback([options, &run] {
    requireOneStdin(*options);
    run.exitCode = forEachFile({options->file}, options->inputs,
                               [&](const std::string&) { return embedded(*options); });
  });
}

}  // namespace vxmeta
