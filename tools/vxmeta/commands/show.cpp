// SPDX-License-Identifier: Apache-2.0
// vxmeta show
#include <fmt/format.h>
#include <unistd.h>

#include "commands/inputs.h"
#include "commands/screen_option.h"
#include "model/path.h"
#include "text/pages.h"

namespace vxmeta {
namespace {

struct Options {
  std::vector<std::string> files;
  std::vector<std::string> sections;
  Inputs inputs;
  ColourChoice colours = ColourChoice::automatic;
  bool expandRefs = false;
};

bool isAll(const Options& options) {
  return options.sections.size() == 1 && options.sections[0] == "all";
}

std::string chosenParts(const Document& document, const Options& options, const Screen& screen,
                        Outcome& outcome) {
  std::string text;
  for (const std::string& section : options.sections) {
    const Path path = parsePath(section, typeOf<Document>());
    if (const std::optional<View> value = valueAt(viewOf(document), path)) {
      text += sectionInFull(section, *value, screen);
    } else {
      outcome.messages += messageLine(document.file, "holds no " + section);
    }
  }
  return text;
}

std::string pageOf(const Document& document, const Options& options, const Screen& screen,
                   Outcome& outcome) {
  if (options.sections.empty()) return summaryOf(document, screen);
  if (isAll(options)) return documentInFull(document, screen);
  return chosenParts(document, options, screen, outcome);
}

Outcome shown(const std::string& file, const Options& options, const Screen& screen) {
  Outcome outcome;
  try {
    const Wanted wanted{{}, options.expandRefs};
    const Document document = loadDocument(file, options.inputs, wanted, outcome);
    const bool isNamed = options.files.size() > 1 && !options.sections.empty() && !isAll(options);
    if (isNamed) outcome.out = styled(screen, Style::bold, visible(file)) + "\n\n";
    outcome.out += pageOf(document, options, screen, outcome);
    const bool needsGap = options.files.size() > 1 && !outcome.out.ends_with("\n\n");
    if (needsGap) outcome.out += '\n';
  } catch (const std::exception& error) {
    fail(outcome, file, error.what());
  }
  return outcome;
}

void requireSections(const Options& options) {
  try {
    for (const std::string& section : options.sections) {
      if (!isAll(options)) parsePath(section, typeOf<Document>());
    }
  } catch (const PathError& error) {
    throw CLI::ValidationError("show", error.what());
  }
}

void useStdinWithoutFiles(std::vector<std::string>& files) {
  if (!files.empty()) return;
  if (isatty(STDIN_FILENO) == 1) throw CLI::ValidationError("show", "no FILE is given");
  files = {"-"};
}

}  // namespace

void addShow(CLI::App& app, Run& run) {
  const auto options = std::make_shared<Options>();
  CLI::App* command = app.add_subcommand("show", "Show the metadata in tables");
  command->add_option("FILE", options->files, "Files; - or none is standard input");
  command
      ->add_option("-s,--section", options->sections,
                   "A section in full, named as in the JSON (inks, film.dimensions), or all; "
                   "may come several times")
      ->type_name("SECTION")
      ->allow_extra_args(false);
  command->add_flag("--expand", options->expandRefs,
                    "A run of numbered files as one reference for each file");
  addColourOption(*command, options->colours);
  addReadOptions(*command, options->inputs);
  addJobsOption(*command, options->inputs);
  command->footer(
      "Without -s, what the file holds on one screen. In a terminal, lines are cut to its width.\n"
      "Example: vxmeta show carton.pdf\n"
      "         vxmeta show -s inks -s screens carton.pdf | less");
  command->callback([&run, options] {
    requireSections(*options);
    useStdinWithoutFiles(options->files);
    const Screen screen = screenOf(options->colours);
    run.exitCode = forEachFile(options->files, options->inputs, [&](const std::string& file) {
      return shown(file, *options, screen);
    });
  });
}

}  // namespace vxmeta
