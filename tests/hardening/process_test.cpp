// SPDX-License-Identifier: Apache-2.0
// What a process lives through: a first handle for which memory is short, a fork, its end. Each
// case has a process of its own; the one that forks them never uses the library itself.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
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

// What `body` answers in a child that then leaves.
std::string inChild(const std::function<std::string()>& body, void (*leave)(int) = std::exit) {
  std::FILE* const answer = std::tmpfile();
  if (answer == nullptr) return "no file";
  const pid_t child = fork();
  if (child == 0) {
    std::fputs(body().c_str(), answer);
    std::fflush(answer);
    leave(EXIT_SUCCESS);
  }
  int status = 0;
  waitpid(child, &status, 0);
  std::fseek(answer, 0, SEEK_END);
  std::string text(static_cast<std::size_t>(std::ftell(answer)), ' ');
  std::rewind(answer);
  text.resize(std::fread(text.data(), 1, text.size(), answer));
  std::fclose(answer);
  return status == 0 ? text : text + "\nchild ended with status " + std::to_string(status);
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
  return completes<XMP_Error>(passing, shortage, [] { const XMPlib first; });
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
