// The commands' wiring.
#include <exception>

#include "commands/commands.h"
#include "commands/messages.h"

namespace {

int runCommand(int argc, char** argv) {
  CLI::App app("Shows, checks, compares and changes the production metadata of documents",
               "vxmeta");
  app.require_subcommand(1);
  vxmeta::Run run;
  vxmeta::addExtract(app, run);
  vxmeta::addCheck(app, run);
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    return app.exit(error) == 0 ? vxmeta::kDone : vxmeta::kTrouble;
  }
  return run.exitCode;
}

}  // namespace

int main(int argc, char** argv) {
  try {
    return runCommand(argc, argv);
  } catch (const std::exception& error) {
    vxmeta::sayTrouble("cannot go on", error.what());
    return vxmeta::kTrouble;
  }
}
