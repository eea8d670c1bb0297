// SPDX-License-Identifier: Apache-2.0
#include "commands/outputs.h"

#include <fmt/format.h>

#include "commands/changes.h"
#include "commands/words.h"

namespace vxmeta {
namespace {

std::string outOf(const Target& target, const Outputs& outputs) {
  const std::string& out = outputs.options.out;
  return out.empty() && target.name == "-" ? "-" : out;
}

// Standard input has been read: the file that it was is opened again.
std::string pathOf(const Target& target) {
  return target.name == "-" ? target.file->path() : target.name;
}

WriteOptions optionsFor(const Target& target, const Inputs& inputs, const Outputs& outputs) {
  WriteOptions options = outputs.options;
  options.read = inputs.options;
  options.out = outOf(target, outputs);
  return options;
}

void say(const Written& written, const Target& target, const Outputs& outputs, Outcome& outcome) {
  addNotes(target.name, written.notes, outcome);
  if (isToStdout(target, outputs)) return;
  const std::string& name = outputs.options.out.empty() ? target.name : outputs.options.out;
  outcome.out += fmt::format("{}: {}\n", visible(name), visible(written.how));
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

void addStampOption(CLI::App& command, Outputs& outputs) {
  command.add_flag("--stamp", outputs.isStamped, "Set xmp:MetadataDate, when anything changes");
}

void loadTarget(const std::string& name, const Inputs& inputs, Target& target, Outcome& outcome) {
  target.name = name;
  target.file = std::make_unique<InputFile>(name);
  target.packet = read(name, *target.file, inputs, outcome);
  loadPacket(target.packet.text, target.xmp);
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

bool isToStdout(const Target& target, const Outputs& outputs) {
  return outOf(target, outputs) == "-";
}

void writeEdit(const Edit& edit, Target& target, const Inputs& inputs, const Outputs& outputs,
               Outcome& outcome) {
  const Writing writing = writeDocument(edit, outputs.options.force, target.xmp);
  addNotes(target.name, writing.notes, outcome);
  if (outputs.isDryRun) {
    outcome.out += changesText(edit.before, writing.result);
  } else if (writing.written.empty()) {
    copyTarget(target, inputs, outputs, outcome);
  } else {
    writeTarget(target, inputs, outputs, outcome);
  }
}

void copyTarget(const Target& target, const Inputs& inputs, const Outputs& outputs,
                Outcome& outcome) {
  const WriteOptions options = optionsFor(target, inputs, outputs);
  if (options.out.empty()) {
    outcome.out += fmt::format("{}: nothing to change\n", visible(target.name));
    return;
  }
  say(writePacketText(pathOf(target), target.packet.text, options), target, outputs, outcome);
}

void writeTarget(Target& target, const Inputs& inputs, const Outputs& outputs, Outcome& outcome) {
  if (outputs.isStamped) stamp(target.xmp);
  const WriteOptions options = optionsFor(target, inputs, outputs);
  say(writePacket(pathOf(target), target.xmp, options), target, outputs, outcome);
}

}  // namespace vxmeta
