// Runs of the built program.
#pragma once

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

// A folder of a test's own, which goes with it.
class Folder {
 public:
  Folder() {
    std::string name = ::testing::TempDir() + "vxmetaXXXXXX";
    if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("no folder: " + name);
    path_ = name;
  }
  ~Folder() { std::filesystem::remove_all(path_); }
  Folder(const Folder&) = delete;
  Folder& operator=(const Folder&) = delete;

  std::string file(const std::string& name) const { return path_ + "/" + name; }
  std::string write(const std::string& name, const std::string& text) const {
    std::ofstream(file(name), std::ios::binary) << text;
    return file(name);
  }

 private:
  std::string path_;
};

inline std::string contentOf(const std::string& file) {
  std::ifstream in(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

struct Ending {
  int exitCode = -1;
  std::string out;
  std::string messages;
};

// `arguments` as the shell takes them.
inline Ending runTool(const std::string& arguments, const std::string& input = "") {
  const Folder folder;
  const std::string command = "\"" VXMETA_PROGRAM "\" <" + folder.write("in", input) + " >" +
                              folder.file("out") + " 2>" + folder.file("err") + " " + arguments;
  const int status = std::system(command.c_str());
  const int exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  return {exitCode, contentOf(folder.file("out")), contentOf(folder.file("err"))};
}
