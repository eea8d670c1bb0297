// SPDX-License-Identifier: Apache-2.0
// The files that commands read.
#pragma once

#include <XMPlib.h>

#include <functional>
#include <string>
#include <vector>

#include "commands/commands.h"
#include "files/packet_file.h"
#include "model/read_document.h"

namespace vxmeta {

// The options of commands that read files.
struct Inputs {
  ReadOptions options;
  std::string passwordFile;
  int jobs = 1;
};

void addPasswordOption(CLI::App& command, Inputs& inputs);
void addScanOption(CLI::App& command, Inputs& inputs);
void addReadOptions(CLI::App& command, Inputs& inputs);  // all, of those that write nothing
void addJobsOption(CLI::App& command, Inputs& inputs);

// What became of one file.
struct Outcome {
  std::string out;       // for standard output
  std::string messages;  // for standard error
  int exitCode = kDone;
};

// Writes to standard output. Whether it arrives shows when all is done.
void printOut(const std::string& text);

// A line for standard error.
std::string messageLine(const std::string& file, const std::string& what);

// Adds a failure to the outcome: the message, and the exit code of trouble.
void fail(Outcome& outcome, const std::string& file, const std::string& why);

// A line each.
void addWarnings(const std::string& file, const std::vector<std::string>& warnings,
                 Outcome& outcome);

// Reads the packet of the file of that name; warnings go to the outcome. Throws FileError.
FilePacket read(const std::string& name, const InputFile& file, const Inputs& inputs,
                Outcome& outcome);

// Reads and loads the file's packet; warnings go to the outcome. Throws FileError.
FilePacket load(const std::string& file, const Inputs& inputs, XMPlib& xmp, Outcome& outcome);

// The file's records. Throws FileError.
Document loadDocument(const std::string& file, const Inputs& inputs, const Wanted& wanted,
                      Outcome& outcome);

// Works on the files, `inputs.jobs` at once, and prints in the order given. Takes the password from
// its file or the environment first. Answers the exit code: trouble when any file had some.
int forEachFile(const std::vector<std::string>& files, Inputs& inputs,
                const std::function<Outcome(const std::string& file)>& work);

}  // namespace vxmeta
