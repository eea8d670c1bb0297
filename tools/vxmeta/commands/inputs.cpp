// SPDX-License-Identifier: Apache-2.0
#include "commands/inputs.h"

#include <fmt/format.h>

#include <algorithm>
#include <condition_variable>
#include <cstdlib>
#include <limits>
#include <map>
#include <mutex>
#include <thread>

#include "files/input_file.h"
#include "text/terminal.h"

namespace vxmeta {
namespace {

// The first line: editors end a file with a line feed.
std::string passwordIn(const std::string& file) {
  constexpr std::size_t kMostBytes = 1024;
  const std::string text = InputFile(file).read(0, kMostBytes);
  return text.substr(0, text.find_first_of("\r\n"));
}

void takePassword(Inputs& inputs) {
  const char* password = std::getenv("VXMETA_PASSWORD");
  if (password != nullptr) inputs.options.password = password;
  if (!inputs.passwordFile.empty()) inputs.options.password = passwordIn(inputs.passwordFile);
}

// Hands out files to workers and their outcomes, in order, to one printer. A worker does not run
// further ahead than the printer can keep.
class Line {
 public:
  Line(std::size_t files, std::size_t ahead) : files_(files), ahead_(ahead) {}

  // The next file to work on; `files` when there is none.
  std::size_t take() {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [&] { return next_ == files_ || next_ < printed_ + ahead_; });
    return next_ == files_ ? files_ : next_++;
  }

  void finish(std::size_t file, Outcome outcome) {
    const std::lock_guard lock(mutex_);
    done_.emplace(file, std::move(outcome));
    changed_.notify_all();
  }

  Outcome await(std::size_t file) {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [&] { return done_.contains(file); });
    Outcome outcome = std::move(done_.at(file));
    done_.erase(file);
    printed_ = file + 1;
    changed_.notify_all();
    return outcome;
  }

 private:
  std::size_t files_;
  std::size_t ahead_;
  std::mutex mutex_;
  std::condition_variable changed_;
  std::map<std::size_t, Outcome> done_;
  std::size_t next_ = 0;
  std::size_t printed_ = 0;
};

int print(const Outcome& outcome) {
  printOut(outcome.out);
  if (!outcome.messages.empty()) {
    std::fflush(stdout);
    std::fwrite(outcome.messages.data(), 1, outcome.messages.size(), stderr);
  }
  return outcome.exitCode;
}

int inParallel(const std::vector<std::string>& files, std::size_t jobs,
               const std::function<Outcome(const std::string& file)>& work) {
  Line line(files.size(), 8 * jobs);
  std::vector<std::thread> workers(jobs);
  for (std::thread& worker : workers) {
    worker = std::thread([&] {
      for (std::size_t i = line.take(); i < files.size(); i = line.take()) {
        line.finish(i, work(files[i]));
      }
    });
  }
  int exitCode = kDone;
  for (std::size_t i = 0; i < files.size(); ++i)
    exitCode = std::max(exitCode, print(line.await(i)));
  for (std::thread& worker : workers) worker.join();
  return exitCode;
}

}  // namespace

void addPasswordOption(CLI::App& command, Inputs& inputs) {
  command
      .add_option("--password-file", inputs.passwordFile,
                  "File with the password of encrypted PDFs (or set VXMETA_PASSWORD)")
      ->type_name("FILE");
}

void addScanOption(CLI::App& command, Inputs& inputs) {
  command.add_flag("--scan", inputs.options.scan,
                   "Look for a packet in the bytes of files of unknown kinds");
}

void addReadOptions(CLI::App& command, Inputs& inputs) {
  addPasswordOption(command, inputs);
  addScanOption(command, inputs);
  command
      .add_option("--object", inputs.options.object,
                  "Take the packet of this object of a PDF, or the N-th of a scan")
      ->type_name("N")
      ->check(CLI::Range(1, std::numeric_limits<int>::max()));
}

void addJobsOption(CLI::App& command, Inputs& inputs) {
  command.add_option("-j,--jobs", inputs.jobs, "Files to work on at once")
      ->type_name("N")
      ->check(CLI::Range(1, 256));
}

void printOut(const std::string& text) { std::fwrite(text.data(), 1, text.size(), stdout); }

std::string messageLine(const std::string& file, const std::string& what) {
  return fmt::format("vxmeta: {}: {}\n", file == "-" ? "standard input" : visible(file),
                     visible(what));
}

void fail(Outcome& outcome, const std::string& file, const std::string& why) {
  outcome.messages += messageLine(file, why);
  outcome.exitCode = kTrouble;
}

void addWarnings(const std::string& file, const std::vector<std::string>& warnings,
                 Outcome& outcome) {
  for (const std::string& warning : warnings) {
    outcome.messages += messageLine(file, "warning: " + warning);
  }
}

FilePacket read(const std::string& name, const InputFile& file, const Inputs& inputs,
                Outcome& outcome) {
  try {
    FilePacket packet = readPacket(file, inputs.options);
    addWarnings(name, packet.warnings, outcome);
    return packet;
  } catch (const NoPacketError& error) {
    addWarnings(name, error.warnings, outcome);
    throw;
  }
}

FilePacket load(const std::string& file, const Inputs& inputs, XMPlib& xmp, Outcome& outcome) {
  FilePacket packet = read(file, InputFile(file), inputs, outcome);
  loadPacket(packet.text, xmp);
  return packet;
}

Document loadDocument(const std::string& file, const Inputs& inputs, const Wanted& wanted,
                      Outcome& outcome) {
  XMPlib xmp;
  const FilePacket packet = load(file, inputs, xmp, outcome);
  Document document = readDocument(xmp, wanted);
  document.file = file;
  document.packet = packetInfo(packet);
  return document;
}

int forEachFile(const std::vector<std::string>& files, Inputs& inputs,
                const std::function<Outcome(const std::string& file)>& work) {
  try {
    takePassword(inputs);
  } catch (const FileError& error) {
    return fmt::print(stderr, "{}", messageLine(inputs.passwordFile, error.what())), kTrouble;
  }
  const std::size_t jobs = std::min(static_cast<std::size_t>(inputs.jobs), files.size());
  if (jobs > 1) return inParallel(files, jobs, work);
  int exitCode = kDone;
  for (const std::string& file : files) exitCode = std::max(exitCode, print(work(file)));
  return exitCode;
}

}  // namespace vxmeta
