// SPDX-License-Identifier: Apache-2.0
// What the commands that write have in common.
#pragma once

#include <XMPlib.h>

#include <memory>
#include <string>
#include <vector>

#include "commands/inputs.h"
#include "files/input_file.h"
#include "files/packet_writer.h"
#include "model/write_document.h"

namespace vxmeta {

// The options of every command that writes.
struct Outputs {
  WriteOptions options;
  bool isDryRun = false;
  bool isStamped = false;
  bool isNew = false;  // a file without a packet gets its first one
};

void addWriteOptions(CLI::App& command, Outputs& outputs);
void addEditOptions(CLI::App& command, Outputs& outputs);  // of those that change a packet

// A file that is opened to be changed.
struct Target {
  std::string name;
  std::unique_ptr<InputFile> file;
  FilePacket packet;
  XMPlib xmp;
  Document document;
  bool hasPacket = true;
};

// Warnings go to the outcome. Throws FileError.
void loadTarget(const std::string& name, const Inputs& inputs, const Outputs& outputs,
                Target& target, Outcome& outcome);

// Adds notes to the messages, a line each.
void addNotes(const std::string& file, const std::vector<std::string>& notes, Outcome& outcome);

// The changes as `diff` prints them.
std::string changesText(const Document& before, const Document& after);

// Writes what the edit has changed; in a dry run says what would be. Throws FileError, EditError,
// LossError.
void writeEdit(const Edit& edit, Target& target, const Inputs& inputs, const Outputs& outputs,
               Outcome& outcome);

// Stamps the handle, when asked to, and writes it to where the options say. A dry run writes
// nothing, and throws all the same where the write would be refused. Throws FileError.
void writeTarget(Target& target, const Inputs& inputs, const Outputs& outputs, Outcome& outcome);

// Where nothing has changed: writes the file as it was read, if it goes to another place, or with
// its first packet, which is empty. Throws FileError.
void copyTarget(Target& target, const Inputs& inputs, const Outputs& outputs, Outcome& outcome);

// Of what a command would lose.
std::string lossMessage(const std::string& losses);

// Whether standard output takes the file.
bool isToStdout(const std::string& file, const Outputs& outputs);

// Says what was done with the file: on standard output, unless that takes it.
void say(const Written& written, const std::string& file, const Outputs& outputs, Outcome& outcome);

}  // namespace vxmeta
