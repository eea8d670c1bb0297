// SPDX-License-Identifier: Apache-2.0
// vxmeta diff
#include <fmt/format.h>

#include <nlohmann/json.hpp>

#include "commands/changes.h"
#include "commands/inputs.h"
#include "commands/screen_option.h"
#include "model/compare.h"
#include "model/json.h"
#include "model/unread.h"

namespace vxmeta {
namespace {

struct Options {
  std::string before;
  std::string after;
  Inputs inputs;
  ColourChoice colours = ColourChoice::automatic;
  bool isJson = false;
  bool isSemantic = false;
  bool expandRefs = false;
};

std::string jsonOf(const std::vector<Change>& changes, const Options& options) {
  Json list = Json::array();
  for (const Change& change : changes) list.push_back(changeJson(change));
  const Json all = {{"vxmeta", 1},
                    {"before", options.before},
                    {"after", options.after},
                    {"same", changes.empty()},
                    {"changes", list}};
  return jsonText(all, true) + '\n';
}

// Both files are read even when the first cannot be: two messages are better than one at a time.
std::optional<Document> read(const std::string& file, const Options& options, Outcome& outcome) {
  try {
    Document document = loadDocument(file, options.inputs, {{}, options.expandRefs}, outcome);
    if (options.isSemantic) std::erase_if(document.unread, isDateOrId);
    return document;
  } catch (const std::exception& error) {
    fail(outcome, file, error.what());
    return std::nullopt;
  }
}

Outcome compared(const Options& options) {
  Outcome outcome;
  const std::optional<Document> before = read(options.before, options, outcome);
  const std::optional<Document> after = read(options.after, options, outcome);
  if (!before || !after) return outcome;
  const std::vector<Change> changes = compareAll(*before, *after, options.isSemantic);
  outcome.out =
      options.isJson ? jsonOf(changes, options) : changesText(changes, screenOf(options.colours));
  outcome.exitCode = changes.empty() ? kDone : kNo;
  return outcome;
}

void requireOneStdin(const Options& options) {
  if (options.before == "-" && options.after == "-") {
    throw CLI::ValidationError("diff", "standard input cannot be both files");
  }
}

}  // namespace

void addDiff(CLI::App& app, Run& run) {
  const auto options = std::make_shared<Options>();
  CLI::App* command = app.add_subcommand("diff", "Compare the metadata of two files");
  command->add_option("A", options->before, "The first file; - is standard input")->required();
  command->add_option("B", options->after, "The second file")->required();
  command->add_flag("--json", options->isJson, "As JSON, with the values of both sides");
  command->add_flag("--semantic", options->isSemantic,
                    "Leave out dates, and identifiers of documents, versions and entries");
  command->add_flag("--expand", options->expandRefs,
                    "A run of numbered files as one reference for each file");
  addColourOption(*command, options->colours);
  addReadOptions(*command, options->inputs);
  command->footer(
      "Items of lists are found again by what identifies them, wherever they stand. "
      "+ is in B alone, - in A alone, ~ has changed, ^ stands in another order. What is stored and "
      "not read is compared too, as `unread`; how the packets lie in their files, and the "
      "properties of other schemas, is not.\n"
      "Exit code 0: the same; 1: different; 2: trouble.\n"
      "Example: vxmeta diff --semantic proof.pdf plate.pdf && echo same");
  command->callback([&run, options] {
    requireOneStdin(*options);
    run.exitCode = forEachFile({options->before}, options->inputs,
                               [&](const std::string&) { return compared(*options); });
  });
}

}  // namespace vxmeta
