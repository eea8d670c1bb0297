// SPDX-License-Identifier: Apache-2.0
// bench --list         names the cases
// bench --list-counted names those whose instructions are counted
// bench --check        whether the sides of each group make the same of the same
// bench --count CASE   one run between callgrind's marks, for valgrind --tool=callgrind
// bench --peak SIDE    peak memory of loading a large list (memory.h)
// bench [OPTION...]    times of all cases; options are Google Benchmark's
#include <benchmark/benchmark.h>
#include <valgrind/callgrind.h>

#include <chrono>
#include <iostream>
#include <map>
#include <optional>
#include <string_view>

#include "cases.h"
#include "memory.h"

namespace {

using bench::Case;
using bench::Work;

int listCases(const std::vector<Case>& cases) {
  for (const Case& each : cases) std::cout << each.name() << '\n';
  return 0;
}

// Counting takes fifty times as long as running.
int listCounted(const std::vector<Case>& cases) {
  constexpr std::size_t kLargest = 10000;
  for (const Case& each : cases) {
    if (each.isCounted && each.size <= kLargest) std::cout << each.name() << '\n';
  }
  return 0;
}

std::optional<std::size_t> outcomeOf(const Case& each) {
  const Work work = each.prepare();
  work.before();
  work.run();
  if (!work.outcome) return {};
  return work.outcome();
}

int check(const std::vector<Case>& cases) {
  constexpr std::size_t kLargest = 1000;
  std::map<std::string, std::size_t> outcomes;
  int failures = 0;
  for (const Case& each : cases) {
    if (each.size > kLargest) continue;
    const std::optional<std::size_t> outcome = outcomeOf(each);
    if (!outcome) continue;
    const auto first = outcomes.try_emplace(each.group + std::to_string(each.size), *outcome).first;
    if (first->second == *outcome) continue;
    std::cerr << each.name() << " does not make what the others make\n";
    ++failures;
  }
  return failures == 0 ? 0 : 1;
}

// The first run is not counted: it fills what is filled once in a process.
int count(const Case& each) {
  const Work work = each.prepare();
  work.before();
  work.run();
  work.before();
  CALLGRIND_START_INSTRUMENTATION;
  work.run();
  CALLGRIND_STOP_INSTRUMENTATION;
  return 0;
}

int count(const std::vector<Case>& cases, std::string_view name) {
  for (const Case& each : cases) {
    if (each.name() == name) return count(each);
  }
  std::cerr << "no case " << name << '\n';
  return 1;
}

// The benchmark of a case is called several times: it stays prepared until another one's turn.
const Work& prepared(const Case& each) {
  static const Case* current = nullptr;
  static Work work;
  if (current != &each) {
    work = {};
    work = each.prepare();
    current = &each;
  }
  return work;
}

void time(benchmark::State& state, const Case& each) {
  using Clock = std::chrono::steady_clock;
  const Work& work = prepared(each);
  for ([[maybe_unused]] auto iteration : state) {
    work.before();
    const Clock::time_point start = Clock::now();
    work.run();
    state.SetIterationTime(std::chrono::duration<double>(Clock::now() - start).count());
  }
}

int timeAll(const std::vector<Case>& cases, int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  for (const Case& each : cases) {
    benchmark::RegisterBenchmark(each.name().c_str(), time, each)->UseManualTime();
  }
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  const std::vector<Case> cases = bench::allCases();
  const std::string_view option = argc > 1 ? argv[1] : "";
  if (option == "--list") return listCases(cases);
  if (option == "--list-counted") return listCounted(cases);
  if (option == "--check") return check(cases);
  if (option == "--count" && argc == 3) return count(cases, argv[2]);
  if (option == "--peak" && argc == 3) return bench::printPeak(argv[2]);
  return timeAll(cases, argc, argv);
}
