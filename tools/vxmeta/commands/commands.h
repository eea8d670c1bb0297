// SPDX-License-Identifier: Apache-2.0
// The commands of the tool. Each adds itself to the command line, and leaves its exit code.
#pragma once

#include <CLI/CLI.hpp>

namespace vxmeta {

// What a run of the tool ends with.
enum ExitCode : int {
  kDone = 0,     // done; diff: the same; check: no errors
  kNo = 1,       // the question's answer is no
  kTrouble = 2,  // usage, a file that cannot be read or written, no packet where one is needed
};

// What all commands share: the options that stand in front of, or behind, any of them.
struct Run {
  int exitCode = kDone;
};

void addShow(CLI::App& app, Run& run);
void addJson(CLI::App& app, Run& run);
void addGet(CLI::App& app, Run& run);
void addCheck(CLI::App& app, Run& run);
void addDiff(CLI::App& app, Run& run);
void addSet(CLI::App& app, Run& run);
void addApply(CLI::App& app, Run& run);
void addMerge(CLI::App& app, Run& run);
void addExtract(CLI::App& app, Run& run);
void addEmbed(CLI::App& app, Run& run);
void addReport(CLI::App& app, Run& run);
void addSchema(CLI::App& app, Run& run);

}  // namespace vxmeta
