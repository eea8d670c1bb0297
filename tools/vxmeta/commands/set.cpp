// SPDX-License-Identifier: Apache-2.0
// vxmeta set
#include "commands/outputs.h"
#include "model/path.h"

namespace vxmeta {
namespace {

struct Options {
  std::string file;
  std::vector<std::string> assignments;
  Inputs inputs;
  Outputs outputs;
};

void write(const Options& options, Outcome& outcome) {
  Target target;
  loadTarget(options.file, options.inputs, options.outputs, target, outcome);
  Edit edit(target.document);
  for (const std::string& assignment : options.assignments) putAssignment(edit, assignment);
  settleSharedProperties(edit);
  writeEdit(edit, target, options.inputs, options.outputs, outcome);
}

Outcome changed(const Options& options) {
  Outcome outcome;
  try {
    write(options, outcome);
  } catch (const LossError& error) {
    fail(outcome, options.file, lossMessage(error.what()));
  } catch (const std::exception& error) {
    fail(outcome, options.file, error.what());
  }
  return outcome;
}

}  // namespace

void addSet(CLI::App& app, Run& run) {
  const auto options = std::make_shared<Options>();
  CLI::App* command = app.add_subcommand("set", "Change single values");
  command->add_option("FILE", options->file, "The file to change; - is standard input")->required();
  command
      ->add_option("CHANGE", options->assignments,
                   "PATH=VALUE or PATH+=JSON; paths are those of get")
      ->required();
  addEditOptions(*command, options->outputs);
  addPasswordOption(*command, options->inputs);
  command->footer(
      "Texts are taken as they are, all else as JSON. PATH= deletes a value or empties it, as the "
      "field can; PATH+=JSON appends an item to a list. Nothing is written unless all can be.\n"
      "Example: vxmeta set carton.pdf job.orderid=2026-1121 'inks[name=Leaf green].angle=22.5'\n"
      "         vxmeta set carton.pdf 'layers+={\"name\": \"Varnish\", \"printable\": true}'");
  command->callback([&run, options] {
    run.exitCode = forEachFile({options->file}, options->inputs,
                               [&](const std::string&) { return changed(*options); });
  });
}

}  // namespace vxmeta
