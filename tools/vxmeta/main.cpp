// SPDX-License-Identifier: Apache-2.0
// The commands' wiring.
#include <XMPlib.h>
#include <fmt/format.h>

#include <algorithm>
#include <cstdio>
#include <exception>

#include "commands/commands.h"
#include "commands/help.h"
#include "text/terminal.h"

namespace {

std::string versions() {
  const std::int32_t library = XMPlib::Version();
  return fmt::format("vxmeta {}.{}.{}, library {}.{}.{}", XMPLIB_VERSION_MAJOR,
                     XMPLIB_VERSION_MINOR, XMPLIB_VERSION_PATCH, library / 10000,
                     library / 100 % 100, library % 100);
}

// What was printed may not have arrived: a full disk, a reader that has gone.
int afterPrinting(int exitCode) {
  if (std::fflush(stdout) == 0 && std::ferror(stdout) == 0) return exitCode;
  fmt::print(stderr, "vxmeta: standard output: cannot be written; look at where it goes\n");
  return vxmeta::kTrouble;
}

// What looks like an option of the command and is none; empty: nothing.
std::string unknownOption(const CLI::App& command) {
  const std::vector<std::string> rest = command.remaining();
  const auto found = std::find_if(rest.begin(), rest.end(), [](const std::string& word) {
    return word.size() > 1 && word[0] == '-' && word != "--";
  });
  return found == rest.end() ? "" : *found;
}

std::string usageMessage(const CLI::App& app, const CLI::ParseError& error) {
  const std::vector<std::string> rest = app.remaining();
  if (app.get_subcommands().empty()) {
    return rest.empty() ? error.what() : fmt::format("there is no command or option '{}'", rest[0]);
  }
  const std::string option = unknownOption(*app.get_subcommands()[0]);
  if (option.empty()) return error.what();
  return fmt::format("there is no option '{}'; in front of a file or path of this name put --",
                     option);
}

int usageError(const CLI::App& app, const CLI::ParseError& error) {
  fmt::print(stderr, "vxmeta: {}\n", vxmeta::visible(usageMessage(app, error)));
  const auto chosen = app.get_subcommands();
  const std::string command = chosen.empty() ? "" : chosen[0]->get_name() + " ";
  fmt::print(stderr, "see: vxmeta {}--help\n", command);
  return vxmeta::kTrouble;
}

int run(CLI::App& app, vxmeta::Run& run, int argc, char** argv) {
  try {
    app.parse(argc, argv);
    return run.exitCode;
  } catch (const CLI::Success& request) {  // --help, --version
    return app.exit(request);
  } catch (const CLI::ParseError& error) {
    return usageError(app, error);
  }
}

}  // namespace

int main(int argc, char** argv) {
  try {
    CLI::App app("Shows, checks, compares and changes the production metadata of documents.",
                 "vxmeta");
    app.formatter(std::make_shared<vxmeta::HelpFormatter>());
    app.require_subcommand(1);
    app.set_version_flag("--version", versions, "Show the versions of the tool and its library");
    app.set_help_flag("-h,--help", "Show this help");
    app.get_formatter()->column_width(26);
    app.footer(
        "Exit codes: 0 done, 1 the answer is no, 2 trouble. vxmeta COMMAND --help tells more.\n"
        "Example: vxmeta show carton.pdf");
    vxmeta::Run state;
    vxmeta::addShow(app, state);
    vxmeta::addJson(app, state);
    vxmeta::addGet(app, state);
    vxmeta::addCheck(app, state);
    vxmeta::addDiff(app, state);
    vxmeta::addSet(app, state);
    vxmeta::addApply(app, state);
    vxmeta::addMerge(app, state);
    vxmeta::addExtract(app, state);
    vxmeta::addEmbed(app, state);
    vxmeta::addReport(app, state);
    vxmeta::addSchema(app, state);
    return afterPrinting(run(app, state, argc, argv));
  } catch (const std::exception& error) {
    fmt::print(stderr, "vxmeta: {}\n", error.what());
    return vxmeta::kTrouble;
  }
}
