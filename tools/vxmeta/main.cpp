// The commands' wiring.
#include "commands/commands.h"

int main(int argc, char** argv) {
  CLI::App app("Shows, checks, compares and changes the production metadata of documents",
               "vxmeta");
  app.require_subcommand(1);
  vxmeta::Run run;
  vxmeta::addExtract(app, run);
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    return app.exit(error) == 0 ? vxmeta::kDone : vxmeta::kTrouble;
  }
  return run.exitCode;
}
