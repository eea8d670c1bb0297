// SPDX-License-Identifier: Apache-2.0
// vxmeta merge
#include "model/merge.h"
#include <algorithm>

#include "commands/outputs.h"
#include "commands/words.h"

namespace vxmeta {
namespace {

struct Options {
  std::string target;
  std::vector<std::string> sources;
  MergeWishes wishes;
  Inputs inputs;
  Outputs outputs;
};

// Those that cannot be read are all named before the merge is given up.
std::vector<MergeSource> readSources(const Options& options, Outcome& outcome) {
  std::vector<MergeSource> sources;
  for (const std::string& name : options.sources) {
    try {
      sources.push_back({name, read(name, InputFile(name), options.inputs, outcome).text});
    } catch (const std::exception& error) {
      fail(outcome, name, error.what());
    }
  }
  return sources;
}

// What was added stands on standard output, unless the file does.
void summarise(const Target& target, const Merging& merging, const Outputs& outputs,
               Outcome& outcome) {
  addNotes(target.name, merging.notes, outcome);
  const std::string text = changesText(target.document, merging.result);
  (isToStdout(target.name, outputs) && !outputs.isDryRun ? outcome.messages : outcome.out) += text;
}

void write(Target& target, const Merging& merging, const Options& options, Outcome& outcome) {
  const std::string losses = lossesInWords(merging.losses);
  if (!losses.empty() && !options.outputs.options.force) throw LossError(losses);
  if (!losses.empty()) addNotes(target.name, {"lost: " + losses}, outcome);
  summarise(target, merging, options.outputs, outcome);
  if (merging.isChanged) return writeTarget(target, options.inputs, options.outputs, outcome);
  copyTarget(target, options.inputs, options.outputs, outcome);
}

void merged(const Options& options, Outcome& outcome) {
  Target target;
  loadTarget(options.target, options.inputs, options.outputs, target, outcome);
  const std::vector<MergeSource> sources = readSources(options, outcome);
  if (outcome.exitCode != kDone) return;
  const MergeSource first{options.target, target.packet.text};
  write(target, merge(first, sources, options.wishes, target.xmp), options, outcome);
}

Outcome merged(const Options& options) {
  Outcome outcome;
  try {
    merged(options, outcome);
  } catch (const MergeError& error) {
    fail(outcome, error.name, error.what());
  } catch (const LossError& error) {
    fail(outcome, options.target, lossMessage(error.what()));
  } catch (const std::exception& error) {
    fail(outcome, options.target, error.what());
  }
  return outcome;
}

void requireOneStdin(const Options& options) {
  const auto count = std::count(options.sources.begin(), options.sources.end(), "-");
  if (count + (options.target == "-" ? 1 : 0) > 1) {
    throw CLI::ValidationError("merge", "standard input cannot be several files");
  }
}

}  // namespace

void addMerge(CLI::App& app, Run& run) {
  static const std::map<std::string, FilmMerge> kWays = {{"separations", FilmMerge::separations},
                                                         {"pages", FilmMerge::pages}};
  const auto options = std::make_shared<Options>();
  CLI::App* command = app.add_subcommand("merge", "Gather the resources of other files");
  command->add_option("TARGET", options->target, "The file to change; - is standard input")
      ->required();
  command->add_option("SOURCE", options->sources, "Files to merge into it, in this order")
      ->required();
  command
      ->add_option("--films", options->wishes.films,
                   "Merge digital films, TARGET being the first: separations or pages")
      ->type_name("HOW")
      ->transform(wordOf(kWays));
  command->add_flag("--foreign", options->wishes.isForeign,
                    "Copy properties of other schemas too, where TARGET has none");
  addEditOptions(*command, options->outputs);
  addPasswordOption(*command, options->inputs);
  addScanOption(*command, options->inputs);
  command->footer(
      "Inks, external references, fonts, CAD files, barcodes and layers that TARGET has not yet "
      "are "
      "added to it. What was added is printed as by diff. A source that cannot be read stops the "
      "merge, and nothing is written.\n"
      "Example: vxmeta merge carton.pdf logo.ai photo.tif\n"
      "         vxmeta merge --films separations cyan.xmp magenta.xmp yellow.xmp -o job.xmp");
  command->callback([&run, options] {
    requireOneStdin(*options);
    run.exitCode = forEachFile({options->target}, options->inputs,
                               [&](const std::string&) { return merged(*options); });
  });
}

}  // namespace vxmeta
