// SPDX-License-Identifier: Apache-2.0
// vxmeta json, vxmeta schema
#include <fmt/format.h>

#include <nlohmann/json.hpp>

#include "commands/inputs.h"
#include "model/json.h"
#include "model/known_paths.h"
#include "model/schema.h"

namespace vxmeta {
namespace {

struct Options {
  std::vector<std::string> files;
  Inputs inputs;
  bool isLines = false;
  bool expandRefs = false;
};

std::string errorObject(const std::string& file, const std::string& why, bool isPretty) {
  return jsonText(Json{{"vxmeta", 1}, {"file", file}, {"error", why}}, isPretty) + '\n';
}

Outcome printed(const std::string& file, const Options& options) {
  const bool isPretty = !options.isLines && options.files.size() == 1;
  Outcome outcome;
  try {
    const Wanted wanted{{}, options.expandRefs};
    const Document document = loadDocument(file, options.inputs, wanted, outcome);
    outcome.out = jsonText(toJson(viewOf(document)), isPretty) + '\n';
  } catch (const std::exception& error) {
    outcome.out = errorObject(file, error.what(), isPretty);
    fail(outcome, file, error.what());
  }
  return outcome;
}

struct SchemaOptions {
  bool arePaths = false;
  std::optional<std::string> begun;
};

std::string asLines(const std::vector<KnownPath>& paths) {
  std::string lines;
  for (const KnownPath& known : paths) {
    lines += fmt::format("{}\t{}\n", known.path, known.help);
  }
  return lines;
}

std::string schema(const SchemaOptions& options) {
  const Type& document = typeOf<Document>();
  if (options.begun) return asLines(completions(*options.begun, document));
  return options.arePaths ? asLines(knownPaths(document)) : jsonText(documentSchema(), true) + '\n';
}

}  // namespace

void addJson(CLI::App& app, Run& run) {
  const auto options = std::make_shared<Options>();
  CLI::App* command = app.add_subcommand("json", "Print the metadata as JSON");
  command->add_option("FILE", options->files, "Files; - is standard input")->required();
  command->add_flag("--lines", options->isLines,
                    "One line for each file, as always with several files");
  command->add_flag("--expand", options->expandRefs,
                    "A run of numbered files as one reference for each file");
  addReadOptions(*command, options->inputs);
  addJobsOption(*command, options->inputs);
  command->footer(
      "A file that cannot be read becomes {\"vxmeta\":1,\"file\":...,\"error\":...}; the others go "
      "on, and the exit code is 2.\n\n"
      "Example: vxmeta json *.pdf | jq -r 'select(.job.orderid == \"2026-1121\").file'");
  command->callback([&run, options] {
    run.exitCode = forEachFile(options->files, options->inputs,
                               [&](const std::string& file) { return printed(file, *options); });
  });
}

void addSchema(CLI::App& app, Run&) {
  const auto options = std::make_shared<SchemaOptions>();
  CLI::App* command =
      app.add_subcommand("schema", "Print the JSON Schema (2020-12) of what json prints");
  command->add_flag("--paths", options->arePaths,
                    "Print all paths instead, and behind a tab what stands there");
  command
      ->add_option("--complete", options->begun,
                   "Print what the beginning of a path can become (for the shells)")
      ->type_name("PATH");
  command->footer(
      "Example: vxmeta schema > vxmeta.schema.json\n"
      "         vxmeta json carton.pdf > carton.json\n"
      "         jsonschema -i carton.json vxmeta.schema.json\n"
      "         vxmeta schema --paths | grep angle");
  command->callback([options] { printOut(schema(*options)); });
}

}  // namespace vxmeta
