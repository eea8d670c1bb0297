// Memory that runs out when a test says so, for the thread that says it.
#pragma once

enum class Shortage { once, forGood };

// Whether malloc runs out too: a sanitizer keeps it to itself, and only operator new is left.
bool reachesMalloc();

// From here on `passing` allocations of this thread succeed; then one fails, or all do.
void runOutAfter(long passing, Shortage shortage);

// Ends that. Answers whether an allocation has failed.
bool endShortage();
