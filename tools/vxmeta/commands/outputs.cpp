// SPDX-License-Identifier: Apache-2.0
#include "commands/outputs.h"

#include <fmt/format.h>

#include "commands/changes.h"
#include "commands/words.h"

namespace vxmeta {
namespace {

std::string outOf(const std::string& file, const Outputs& outputs) {
  const std::string& out = outputs.options.out;
  return out.empty() && file == "-" ? "-" : out;
}

// Standard input has been read: the file that it was is opened again.
std::string pathOf(const Target& target) {
  return target.name == "-" ? target.file->path() : target.name;
}

WriteOptions optionsFor(const Target& target, const Inputs& inputs, const Outputs& outputs) {
  WriteOptions options = outputs.options;
  options.read = inputs.options;
  options.out = outOf(target.name, outputs);
  return options;
}

[[noreturn]] void throwNoPacket(const NoPacketError& error) {
  throw FileError(std::string(error.what()) +
                  "; --new starts one, `vxmeta embed FILE PACKET` puts one in");
}

void stamp(XMPlib& xmp) {
  XMPlDocData date;
  date.metadataDate = "now";
  if (!xmp.SetDocumentData(date)) throw EditError("document.metadataDate", xmp.ErrStr());
}

}  // namespace

void addWriteOptions(CLI::App& command, Outputs& outputs) {
  WriteOptions& options = outputs.options;
  static const std::map<std::string, How> kWays = {
      {"splice", How::splice}, {"append", How::append}, {"rewrite", How::rewrite}};
  command.add_option("-o,--output", options.out, "Write to this file; - is standard output")
      ->type_name("FILE");
  command.add_flag("--dry-run", outputs.isDryRun, "Print what would change, and write nothing");
  command.add_flag("--backup", options.backup, "Keep the old file as FILE~");
  command.add_flag(
      "--force", options.force,
      "Write also where something is lost, or the file is signed, protected or mended");
  command
      .add_option("--how", options.how, "Way into a PDF: splice (same length), append or rewrite")
      ->type_name("WAY")
      ->transform(wordOf(kWays));
}

void addEditOptions(CLI::App& command, Outputs& outputs) {
  addWriteOptions(command, outputs);
  command.add_flag("--new", outputs.isNew, "Start a packet in a file that has none");
  command.add_flag("--stamp", outputs.isStamped, "Set xmp:MetadataDate, when anything changes");
}

void loadTarget(const std::string& name, const Inputs& inputs, const Outputs& outputs,
                Target& target, Outcome& outcome) {
  target.name = name;
  target.file = std::make_unique<InputFile>(name);
  try {
    target.packet = read(name, *target.file, inputs, outcome);
    loadPacket(target.packet.text, target.xmp);
  } catch (const NoPacketError& error) {
    if (!outputs.isNew) throwNoPacket(error);
    target.hasPacket = false;
  }
  target.document = readDocument(target.xmp, {});
}

void addNotes(const std::string& file, const std::vector<std::string>& notes, Outcome& outcome) {
  for (const std::string& note : notes) outcome.messages += messageLine(file, "note: " + note);
}

std::string changesText(const Document& before, const Document& after) {
  return changesText(compare(before, after, false), screenOf(ColourChoice::automatic));
}

std::string lossMessage(const std::string& losses) {
  return fmt::format(
      "writing this would delete {}; nothing is written, --force writes all the same", losses);
}

bool isToStdout(const std::string& file, const Outputs& outputs) {
  return outOf(file, outputs) == "-";
}

void say(const Written& written, const std::string& file, const Outputs& outputs,
         Outcome& outcome) {
  addNotes(file, written.notes, outcome);
  if (isToStdout(file, outputs)) return;
  const std::string& name = outputs.options.out.empty() ? file : outputs.options.out;
  outcome.out += fmt::format("{}: {}\n", visible(name), visible(written.how));
}

void writeEdit(const Edit& edit, Target& target, const Inputs& inputs, const Outputs& outputs,
               Outcome& outcome) {
  const Writing writing = writeDocument(edit, outputs.options.force, target.xmp);
  addNotes(target.name, writing.notes, outcome);
  if (outputs.isDryRun) outcome.out += changesText(edit.before, writing.result);
  if (writing.written.empty()) return copyTarget(target, inputs, outputs, outcome);
  writeTarget(target, inputs, outputs, outcome);
}

void copyTarget(Target& target, const Inputs& inputs, const Outputs& outputs, Outcome& outcome) {
  if (!target.hasPacket) return writeTarget(target, inputs, outputs, outcome);
  const WriteOptions options = optionsFor(target, inputs, outputs);
  if (options.out.empty()) {
    if (!outputs.isDryRun) outcome.out += visible(target.name) + ": nothing to change\n";
    return;
  }
  if (outputs.isDryRun) return requireWritableText(pathOf(target), target.packet.text, options);
  say(writePacketText(pathOf(target), target.packet.text, options), target.name, outputs, outcome);
}

void writeTarget(Target& target, const Inputs& inputs, const Outputs& outputs, Outcome& outcome) {
  if (outputs.isStamped) stamp(target.xmp);
  const WriteOptions options = optionsFor(target, inputs, outputs);
  if (outputs.isDryRun) return requireWritable(pathOf(target), target.xmp, options);
  say(writePacket(pathOf(target), target.xmp, options), target.name, outputs, outcome);
}

}  // namespace vxmeta
