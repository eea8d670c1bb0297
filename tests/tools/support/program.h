// SPDX-License-Identifier: Apache-2.0
// Runs of the built program, and the files they work on.
#pragma once

#include <string>

struct Outcome {
  int code = -1;  // exit code; 128 and above: a signal
  std::string out;
  std::string err;
};

// `vxmeta ARGUMENTS`, as the shell takes them; `before` stands in front: "VXMETA_PASSWORD=x".
Outcome runTool(const std::string& arguments, const std::string& input = "",
                const std::string& before = "");

// A path in a directory that goes with the process.
std::string scratchPath(const std::string& name);
std::string scratchFile(const std::string& name, const std::string& content);

std::string contentOf(const std::string& path);

// What qpdf makes of a PDF: its path.
std::string throughQpdf(const std::string& pdf, const std::string& options);

std::string sample(const std::string& name);  // one of the toolkit's files
