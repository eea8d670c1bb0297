// SPDX-License-Identifier: Apache-2.0
// Writes that are cut short: the file is the old one or the new one, and nothing lies about.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <set>

#include "support/pdf.h"
#include "support/program.h"

namespace {

namespace fs = std::filesystem;

const std::string kBegin =
    "<?xpacket begin='' id='x'?><x:xmpmeta xmlns:x='adobe:ns:meta/'><rdf:RDF xmlns:rdf="
    "'http://www.w3.org/1999/02/22-rdf-syntax-ns#'><rdf:Description rdf:about='' xmlns:own="
    "'http://example.com/own/' own:a='";
const std::string kEnd = "'/></rdf:RDF></x:xmpmeta>       <?xpacket end='w'?>";

bool canTrace() { return std::system("strace -o /dev/null true >/dev/null 2>&1") == 0; }

// A system call, and which one of its name it is.
struct Call {
  std::string name;
  int number;
};

// A file in a directory of its own, and runs that put a packet into it.
class Write {
 public:
  Write(const std::string& name, std::string before, std::string options)
      : before_(std::move(before)),
        options_(std::move(options)),
        packet_(scratchFile("fault.xmp", kBegin + "b" + kEnd)) {
    directory_ = scratchPath("faults");
    file_ = directory_ + "/" + name;
  }

  void reset() {
    fs::remove_all(directory_);
    fs::create_directories(directory_);
    std::ofstream(file_, std::ios::binary) << before_;
  }

  // A sanitizer's search for leaks is a tracer too, and a process has one at most.
  Outcome run(const std::string& tracer) {
    return runTool("embed " + options_ + " " + file_ + " " + packet_, "",
                   "ASAN_OPTIONS=detect_leaks=0 " + tracer);
  }

  // The calls that change a file, from the first on that does.
  std::vector<Call> calls();

  // The call that looks for the file before it is replaced.
  Call lastLook() { return calls(), lastLook_; }

  // Whether the file is the old one or holds the new packet, whole.
  bool isWhole() const {
    const std::string now = contentOf(file_);
    if (now == before_) return true;
    if (after_ != 0 && now.size() != after_) return false;
    const std::string packet = runTool("extract " + file_).out;
    return packet.find("own:a='b'") != std::string::npos ||
           packet.find("own:a=\"b\"") != std::string::npos ||
           packet.find("<own:a>b<") != std::string::npos;
  }
  bool isOld() const { return contentOf(file_) == before_; }

  bool isAlone() const {
    for (const auto& entry : fs::directory_iterator(directory_)) {
      const std::string path = entry.path();
      if (path != file_ && path != file_ + "~") return false;
    }
    return true;
  }

 private:
  std::string before_, options_, packet_, directory_, file_;
  Call lastLook_;
  std::size_t after_ = 0;  // bytes of the new file, where a run was let through
};

std::vector<Call> Write::calls() {
  const std::string log = scratchPath("strace.log");
  reset();
  const Outcome outcome = run("strace -f -o " + log);
  EXPECT_EQ(outcome.code, 0) << outcome.err;
  after_ = contentOf(file_).size();
  reset();
  static const std::set<std::string> kChanging = {
      "openat", "write", "writev", "pwrite64", "ftruncate", "fsync", "mkdir",     "rename",
      "chmod",  "chown", "unlink", "unlinkat", "rmdir",     "link",  "fallocate", "close"};
  std::vector<Call> calls;
  std::map<std::string, int> counts;
  std::ifstream lines(log);
  bool begun = false;
  for (std::string line; std::getline(lines, line);) {
    line.erase(0, line.find_first_not_of("0123456789 "));  // some versions put the process first
    const std::string name = line.substr(0, line.find('('));
    const int number = ++counts[name];
    const bool isRenamed = counts.contains("rename");
    if (!isRenamed && line.find("stat") != std::string::npos &&
        line.find("\"" + file_ + "\"") != std::string::npos) {
      lastLook_ = {name, number};
    }
    begun = begun || line.find(".vxmeta-") != std::string::npos;
    if (begun && kChanging.contains(name)) calls.push_back({name, number});
  }
  EXPECT_GT(calls.size(), 5U);
  return calls;
}

std::string tracerFor(const Call& call, const std::string& fault) {
  return "strace -f -o /dev/null -e inject=" + call.name + ":" + fault +
         ":when=" + std::to_string(call.number);
}

Pdf document() {
  Pdf pdf;
  pdf.packet = kBegin + "a" + kEnd;
  return pdf;
}

std::vector<Write> writes() {
  return {{"text.xmp", kBegin + "a" + kEnd, "--backup"},
          {"splice.pdf", document().text(), "--how splice"},
          {"append.pdf", document().text(), "--how append"},
          {"rewrite.pdf", document().text(), "--how rewrite"},
          {"image.gif", contentOf(sample("BlueSquare.gif")), ""}};
}

TEST(EmbedFaults, AKillBetweenAnyTwoCallsLeavesAWholeFile) {
  if (!canTrace()) GTEST_SKIP() << "strace may not trace here";
  for (Write& write : writes()) {
    for (const Call& call : write.calls()) {
      const Outcome outcome = write.run(tracerFor(call, "signal=KILL"));
      EXPECT_TRUE(write.isWhole()) << call.name << call.number << outcome.err;
      write.reset();
    }
  }
}

TEST(EmbedFaults, AFailureOfAnyCallLeavesAWholeFileAlone) {
  if (!canTrace()) GTEST_SKIP() << "strace may not trace here";
  for (Write& write : writes()) {
    for (const Call& call : write.calls()) {
      const Outcome outcome = write.run(tracerFor(call, "error=ENOSPC"));
      EXPECT_TRUE(write.isWhole()) << call.name << call.number << outcome.err;
      // What is said of it comes behind the write.
      const bool isUnsaid = outcome.err.find("standard output") != std::string::npos;
      EXPECT_TRUE(outcome.code == 0 || isUnsaid || write.isOld())
          << call.name << call.number << outcome.err;
      // What fails behind the rename is the cleaning itself.
      const bool isCleaning = outcome.code == 0 || call.name == "unlinkat" || call.name == "rmdir";
      EXPECT_TRUE(isCleaning || write.isAlone()) << call.name << call.number << outcome.err;
      write.reset();
    }
  }
}

TEST(EmbedFaults, ASignalWaitsForTheWrite) {
  if (!canTrace()) GTEST_SKIP() << "strace may not trace here";
  // What runs in the background may ignore an interrupt.
  const std::string tracer = "env --default-signal=INT strace -f -o /dev/null -e inject=";
  for (const char* signal : {"TERM", "INT"}) {
    Write write("text.xmp", kBegin + "a" + kEnd, "");
    write.reset();
    write.run(tracer + "mkdir:signal=" + signal);
    EXPECT_TRUE(write.isOld() && write.isAlone()) << signal;
    write.run(tracer + "rename:signal=" + signal);
    EXPECT_TRUE(!write.isOld() && write.isWhole() && write.isAlone()) << signal;
  }
}

TEST(EmbedFaults, ATargetThatVanishesIsNotMadeAnew) {
  if (!canTrace()) GTEST_SKIP() << "strace may not trace here";
  Write write("text.xmp", kBegin + "a" + kEnd, "");
  const Outcome outcome = write.run(tracerFor(write.lastLook(), "error=ENOENT"));
  EXPECT_NE(outcome.err.find("has vanished"), std::string::npos) << outcome.err;
  EXPECT_EQ(outcome.code, 2);
  EXPECT_TRUE(write.isOld() && write.isAlone()) << outcome.err;
}

TEST(EmbedFaults, AFileOverItsLimitIsAnError) {
  Pdf large = document();
  large.content = std::string(40000, ' ');
  Write write("large.pdf", large.text(), "--how append");
  write.reset();
  const Outcome outcome = write.run("ulimit -f 16; ");
  EXPECT_EQ(outcome.code, 2);
  EXPECT_NE(outcome.err.find("make room"), std::string::npos) << outcome.err;
  EXPECT_TRUE(write.isOld() && write.isAlone());
}

}  // namespace
