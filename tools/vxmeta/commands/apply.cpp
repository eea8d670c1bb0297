// SPDX-License-Identifier: Apache-2.0
// vxmeta apply
#include <fmt/format.h>

#include "commands/outputs.h"
#include "model/json_text.h"

namespace vxmeta {
namespace {

struct Options {
  std::string file;
  std::string json;
  Inputs inputs;
  Outputs outputs;
};

constexpr std::uint64_t kMostJsonBytes = std::uint64_t{256} << 20;

std::string textOf(const std::string& file) {
  const InputFile opened(file);
  if (opened.size() > kMostJsonBytes) throw FileError("is over 256 MiB, too large for JSON");
  return opened.read(0, static_cast<std::size_t>(opened.size()));
}

// "inks[3].angle" is "/inks/3/angle".
std::string pointerOf(const std::string& path) {
  std::string pointer = "/";
  for (const char c : path) {
    if (c != ']') pointer += c == '.' || c == '[' ? '/' : c;
  }
  return pointer;
}

void write(Target& target, const std::string& text, const Options& options, Outcome& outcome) {
  Edit edit(target.document);
  putJson(edit, text);
  try {
    settleSharedProperties(edit);
    writeEdit(edit, target, options.inputs, options.outputs, outcome);
  } catch (const EditError& error) {
    const std::string pointer = pointerOf(error.path);
    const std::string why = pointer + std::string(error.what()).substr(error.path.size());
    throw JsonTextError(withLine(text, pointer, why));
  }
}

void applied(const std::string& text, const Options& options, Outcome& outcome) {
  try {
    Target target;
    loadTarget(options.file, options.inputs, options.outputs, target, outcome);
    write(target, text, options, outcome);
  } catch (const JsonTextError& error) {
    fail(outcome, options.json, error.what());
  } catch (const LossError& error) {
    fail(outcome, options.file, lossMessage(error.what()));
  } catch (const std::exception& error) {
    fail(outcome, options.file, error.what());
  }
}

Outcome applied(const Options& options) {
  Outcome outcome;
  try {
    applied(textOf(options.json), options, outcome);
  } catch (const FileError& error) {
    fail(outcome, options.json, error.what());
  }
  return outcome;
}

void requireOneStdin(const Options& options) {
  if (options.file == "-" && options.json == "-") {
    throw CLI::ValidationError("apply", "standard input cannot be both files");
  }
}

}  // namespace

void addApply(CLI::App& app, Run& run) {
  const auto options = std::make_shared<Options>();
  CLI::App* command = app.add_subcommand("apply", "Change what JSON says");
  command->add_option("FILE", options->file, "The file to change; - is standard input")->required();
  command->add_option("JSON", options->json, "JSON as json prints it; - is standard input")
      ->required();
  addEditOptions(*command, options->outputs);
  addPasswordOption(*command, options->inputs);
  command->footer(
      "Sections and fields that the JSON lacks stay as they are; [] empties a list, null deletes "
      "what can be deleted. file, packet, foreign and unread are passed over. Only what differs is "
      "written. JSON that is not right in every part is refused as a whole.\n"
      "Example: vxmeta json proof.pdf | vxmeta apply plate.pdf - --dry-run\n"
      "         echo '{\"job\": {\"orderid\": \"2026-1121\"}}' | vxmeta apply carton.pdf -");
  command->callback([&run, options] {
    requireOneStdin(*options);
    run.exitCode = forEachFile({options->file}, options->inputs,
                               [&](const std::string&) { return applied(*options); });
  });
}

}  // namespace vxmeta
