// SPDX-License-Identifier: Apache-2.0
// Memory that runs out when a test says so, for the thread that says it.
#pragma once

#include <cstddef>
#include <new>

enum class Shortage { once, forGood };

// Whether malloc runs out too: a sanitizer keeps it to itself, and only operator new is left.
bool reachesMalloc();

// What malloc has given out; 0 where it cannot tell: with sanitizers, in other C libraries.
std::size_t bytesInUse();

// From here on `passing` allocations of this thread succeed; then one fails, or all do.
void runOutAfter(long passing, Shortage shortage);

// Ends that. Answers whether an allocation has failed.
bool endShortage();

// Whether memory for so many is enough: nothing fails, and nothing is thrown.
template <class ToolkitError, class Operation>
bool completes(long passing, Shortage shortage, const Operation& operation) {
  bool thrown = false;
  runOutAfter(passing, shortage);
  try {
    operation();
  } catch (const std::bad_alloc&) {
    thrown = true;
  } catch (const ToolkitError&) {
    thrown = true;
  }
  return !endShortage() && !thrown;
}
