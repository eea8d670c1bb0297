// vxmeta extract: a packet as it lies in its file.
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <memory>

#include "commands/commands.h"
#include "commands/messages.h"
#include "commands/read_options.h"
#include "files/packet_file.h"

#include <fmt/format.h>

namespace vxmeta {
namespace {

struct ExtractOptions {
  std::string file;
  std::string out = "-";
  bool list = false;
  ReadOptions read;
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

void extractPacket(const ExtractOptions& options) {
  refuseSameFile(options);
  const FilePacket packet = readPacket(options.file, options.read);
  for (const std::string& warning : packet.warnings) sayWarning(options.file, warning);
  if (options.out == "-") {
    writeOut(packet.text);
  } else {
    writeFile(options.out, packet.text);
  }
}

void listAll(const ExtractOptions& options) {
  const std::vector<ListedPacket> packets = listPackets(options.file, options.read);
  if (packets.empty()) sayTrouble(options.file, "holds no packet");
  std::size_t width = 0;
  for (const ListedPacket& packet : packets) width = std::max(width, packet.source.size());
  std::string lines;
  for (const ListedPacket& packet : packets) {
    lines += fmt::format("{} {:<{}}  {:>8} bytes  {}\n", packet.isDocuments ? '*' : ' ',
                         packet.source, width, packet.bytes, packet.owner);
  }
  writeOut(lines);
}

int extract(const ExtractOptions& options) {
  try {
    options.list ? listAll(options) : extractPacket(options);
    return kDone;
  } catch (const FileError& error) {
    sayTrouble(options.file, error.what());
    return kTrouble;
  }
}

}  // namespace

void addExtract(CLI::App& app, Run& run) {
  CLI::App* command =
      app.add_subcommand("extract", "Take the packet out of a file, as it lies there");
  const auto options = std::make_shared<ExtractOptions>();
  command->add_option("FILE", options->file, "The document; - is standard input")->required();
  command->add_option("-o,--output", options->out, "Where the packet goes; - is standard output")
      ->type_name("OUT");
  CLI::Option* list = command->add_flag("--list", options->list,
                                        "Show all packets of the file; * marks the document's own");
  command
      ->add_option("--object", options->read.object,
                   "Take this object of a PDF, or the N-th packet of a scan")
      ->type_name("N")
      ->check(CLI::PositiveNumber)
      ->excludes(list);
  addReadOptions(*command, options->read);
  command->footer("Example:\n  vxmeta extract carton.pdf -o carton.xmp");
  command->callback([options, &run] { run.exitCode = extract(*options); });
}

}  // namespace vxmeta
