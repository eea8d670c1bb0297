// What a process lives through: a first handle for which memory is short, a fork, its end. Each
// case has a process of its own; the one that forks them never uses the library itself.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <functional>
#include <latch>
#include <new>
#include <string>
#include <thread>
#include <vector>

#include "core/toolkit/client.h"
#include "support/failing_memory.h"
#include "support/packets.h"

namespace {

void writeAll(int file, const std::string& text) {
  std::size_t written = 0;
  while (written < text.size()) {
    const ssize_t count = write(file, text.data() + written, text.size() - written);
    if (count <= 0) return;
    written += static_cast<std::size_t>(count);
  }
}

std::string readAll(int file) {
  std::string text;
  std::array<char, 4096> block{};
  for (;;) {
    const ssize_t count = read(file, block.data(), block.size());
    if (count <= 0) return text;
    text.append(block.data(), static_cast<std::size_t>(count));
  }
}

// What `body` answers in a child that then leaves.
std::string inChild(const std::function<std::string()>& body, void (*leave)(int) = std::exit) {
  std::array<int, 2> ends{};
  if (pipe(ends.data()) != 0) return "no pipe";
  const pid_t child = fork();
  if (child == 0) {
    writeAll(ends[1], body());
    leave(EXIT_SUCCESS);
  }
  close(ends[1]);
  const std::string answer = readAll(ends[0]);
  close(ends[0]);
  int status = 0;
  waitpid(child, &status, 0);
  return status == 0 ? answer : answer + "\nchild ended with status " + std::to_string(status);
}

// Every namespace of the process, and a packet through the aliases and Dublin Core's arrays.
std::string loadedAndSaved() {
  XMPlib xmp;
  std::string namespaces;
  xmpl::Metadata::DumpNamespaces(
      [](void* out, const char* text, XMP_StringLen length) -> XMP_Status {
        static_cast<std::string*>(out)->append(text, length);
        return 0;
      },
      &namespaces);
  xmp.SetXML(packet("<xmp:Description>said</xmp:Description><dc:subject>a</dc:subject>"));
  xmp.SetNrPages(3);
  return xmp.GetXML() + xmp.ErrStr() + namespaces;
}

// Whether memory for `passing` allocations was enough for the first handle.
bool starts(long passing, Shortage shortage) {
  runOutAfter(passing, shortage);
  try {
    const XMPlib first;
  } catch (const XMP_Error&) {
  } catch (const std::bad_alloc&) {
  }
  return !endShortage();
}

}  // namespace

TEST(Process, StartsOnceThereIsMemory) {
  const std::string right = inChild(loadedAndSaved);
  ASSERT_NE(right.find("said"), std::string::npos) << right;
  for (const Shortage shortage : {Shortage::once, Shortage::forGood}) {
    // For good it ends much the same; and a fork under a sanitizer takes long.
    const long step = shortage == Shortage::once && reachesMalloc() ? 1 : 20;
    std::string seen;
    for (long passing = 0; seen != "enough " + right; passing += passing < 50 ? 1 : step) {
      seen = inChild([&] {
        const std::string enough = starts(passing, shortage) ? "enough " : "";
        return enough + loadedAndSaved();
      });
      ASSERT_TRUE(seen == right || seen == "enough " + right) << passing << ": " << seen;
    }
  }
}

// All that fails before the first success, in one process: each start begins from nothing.
TEST(Process, StartsAfterAnyNumberOfFailures) {
  const std::string right = inChild(loadedAndSaved);
  const std::string seen = inChild([] {
    for (long passing = 0; !starts(passing, Shortage::once);) ++passing;
    return loadedAndSaved();
  });
  EXPECT_EQ(seen, right);
}

TEST(Process, ForksBesideIdleThreads) {
  const std::string seen = inChild([] {
    XMPlib parents;
    parents.SetNrPages(5);
    std::latch loaded(3), done(1);
    std::vector<std::thread> threads;
    threads.reserve(2);
    for (int t = 0; t < 2; ++t) {
      threads.emplace_back([&] {
        loadedAndSaved();
        loaded.count_down();
        done.wait();
      });
    }
    loaded.arrive_and_wait();
    const std::string before = loadedAndSaved();
    // A sanitizer that looks for leaks then looks for the parent's threads.
    const auto leave = reachesMalloc() ? std::exit : std::_Exit;
    const std::string childs = inChild([&] { return parents.GetXML() + loadedAndSaved(); }, leave);
    done.count_down();
    for (std::thread& thread : threads) thread.join();
    return childs == parents.GetXML() + before && before == loadedAndSaved() ? "same" : childs;
  });
  EXPECT_EQ(seen, "same");
}

// Destroyed behind the statics of the library, and never.
TEST(Process, EndsWithHandlesOfStaticStorage) {
  const std::string seen = inChild([] {
    static XMPlib destroyed;
    static XMPlib& leaked = *new XMPlib;
    destroyed.SetNrPages(5);
    leaked.SetNrPages(5);
    std::atexit([] { destroyed.GetXML(); });
    return destroyed.GetXML() == leaked.GetXML() ? "same" : "";
  });
  EXPECT_EQ(seen, "same");
}
