// SPDX-License-Identifier: Apache-2.0
#include "files/held_signals.h"

#include <array>
#include <atomic>
#include <csignal>
#include <mutex>

#include "files/packet_file.h"

namespace vxmeta {
namespace {

constexpr std::array kEnding = {SIGINT, SIGTERM, SIGHUP};

std::mutex guard;
int holders = 0;
std::array<struct sigaction, kEnding.size()> before;
struct sigaction beforeLimit;
std::atomic<int> came = 0;
static_assert(std::atomic<int>::is_always_lock_free, "a signal handler writes it");

void note(int signal) { came = signal; }

void hold() {
  struct sigaction noting = {};
  noting.sa_handler = note;
  noting.sa_flags = SA_RESTART;
  for (std::size_t i = 0; i < kEnding.size(); ++i) {
    ::sigaction(kEnding[i], nullptr, &before[i]);
    const bool isIgnored = before[i].sa_handler == SIG_IGN;  // as nohup has it
    if (!isIgnored) ::sigaction(kEnding[i], &noting, nullptr);
  }
  struct sigaction ignoring = {};
  ignoring.sa_handler = SIG_IGN;
  ::sigaction(SIGXFSZ, &ignoring, &beforeLimit);
}

void release() {
  for (std::size_t i = 0; i < kEnding.size(); ++i) ::sigaction(kEnding[i], &before[i], nullptr);
  ::sigaction(SIGXFSZ, &beforeLimit, nullptr);
}

}  // namespace

HeldSignals::HeldSignals() {
  const std::lock_guard lock(guard);
  if (holders++ == 0) hold();
}

HeldSignals::~HeldSignals() {
  const std::lock_guard lock(guard);
  if (--holders != 0) return;
  release();
  const int signal = came.exchange(0);
  if (signal != 0) std::raise(signal);
}

void HeldSignals::check() {
  if (came != 0) throw FileError("is left as it was: the program was told to end");
}

}  // namespace vxmeta
