// SPDX-License-Identifier: Apache-2.0
// All that is measured, for both ways of measuring: by time, and by counting instructions.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace bench {

// A case made ready. `before` is not measured and precedes every run; `outcome` is a digest of
// what the last run made, or null where it makes nothing to compare.
struct Work {
  std::function<void()> before = [] {};
  std::function<void()> run;
  std::function<std::size_t()> outcome = nullptr;
};

// One side's way ("ours", "by_hand", "exempi", ...) of doing what a group is about, with so many
// records; 1 where it is a whole packet. The sides of a group have equal outcomes.
struct Case {
  std::string group;
  std::string side;
  std::size_t size;
  std::function<Work()> prepare;
  bool isCounted = true;  // else it is only timed

  std::string name() const { return group + '/' + side + '/' + std::to_string(size); }
};

std::vector<Case> allCases();

// The parts of the above.
void addReading(std::vector<Case>& cases);
void addWriting(std::vector<Case>& cases);
void addPackets(std::vector<Case>& cases);
void addDocuments(std::vector<Case>& cases);
void addThreads(std::vector<Case>& cases);
void addGrowth(std::vector<Case>& cases);

}  // namespace bench
