// SPDX-License-Identifier: Apache-2.0
#include "support/program.h"

#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace {

struct Scratch {
  std::filesystem::path path =
      std::filesystem::temp_directory_path() / ("vxmeta-tests-" + std::to_string(::getpid()));
  Scratch() { std::filesystem::create_directories(path); }
  ~Scratch() {
    std::error_code ignored;
    std::filesystem::remove_all(path, ignored);
  }
};

int shell(const std::string& command) {
  const int status = std::system(command.c_str());
  return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

}  // namespace

std::string scratchPath(const std::string& name) {
  static const Scratch scratch;
  return scratch.path / name;
}

std::string scratchFile(const std::string& name, const std::string& content) {
  std::ofstream(scratchPath(name), std::ios::binary) << content;
  return scratchPath(name);
}

std::string contentOf(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

Outcome runTool(const std::string& arguments, const std::string& input, const std::string& before) {
  const std::string in = scratchFile("stdin", input);
  const std::string out = scratchPath("stdout");
  const std::string err = scratchPath("stderr");
  Outcome outcome;
  outcome.code =
      shell(before + " " VXMETA_PROGRAM " <" + in + " >" + out + " 2>" + err + " " + arguments);
  outcome.out = contentOf(out);
  outcome.err = contentOf(err);
  return outcome;
}

std::string throughQpdf(const std::string& pdf, const std::string& options) {
  const std::string in = scratchFile("before.pdf", pdf);
  std::string out = scratchPath("after.pdf");
  const int code = shell("qpdf " + options + " " + in + " " + out);
  if (code != 0) throw std::runtime_error("qpdf " + options + " ends with " + std::to_string(code));
  return out;
}

std::string sample(const std::string& name) { return VXMETA_SAMPLES "/" + name; }
