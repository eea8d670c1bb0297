// SPDX-License-Identifier: Apache-2.0
// A second copy of the library in one process, as a plug-in brings it along: loaded from a file of
// its own, beside the one that the application is linked with.
#include <XMP_Const.h>
#include <XMPlib.h>
#include <dlfcn.h>
#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <memory>
#include <new>
#include <string>
#include <thread>

#include "support/failing_memory.h"

namespace {

struct Close {
  void operator()(void* library) const { dlclose(library); }
};
using Library = std::unique_ptr<void, Close>;

// Another file, for the loader takes the same one for the same library.
Library loadCopy(const std::string& name, int scope) {
  const std::filesystem::path copy = std::filesystem::temp_directory_path() / (name + ".so");
  std::filesystem::copy_file(XMPLIB_TEST_LIBRARY, copy,
                             std::filesystem::copy_options::overwrite_existing);
  Library library(dlopen(copy.c_str(), RTLD_NOW | scope));
  std::filesystem::remove(copy);
  return library;
}

// std::string has another name in each standard library.
#ifdef _LIBCPP_VERSION
constexpr const char* kSetXml =
    "_ZN6XMPlib6SetXMLERKNSt3__112basic_stringIcNS0_11char_traitsIcEENS0_9allocatorIcEEEE";
constexpr const char* kGetXml = "_ZNK6XMPlib6GetXMLEv";
#else
constexpr const char* kSetXml =
    "_ZN6XMPlib6SetXMLERKNSt7__cxx1112basic_stringIcSt11char_traitsIcESaIcEEE";
constexpr const char* kGetXml = "_ZNK6XMPlib6GetXMLB5cxx11Ev";
#endif

// A handle of the library that was loaded, called by the names that its functions have there.
class Handle {
 public:
  explicit Handle(void* library) : library_(library) { call<void>("_ZN6XMPlibC1Ev"); }
  ~Handle() { call<void>("_ZN6XMPlibD1Ev"); }
  Handle(const Handle&) = delete;
  Handle& operator=(const Handle&) = delete;

  bool load(const std::string& text) { return call<bool>(kSetXml, &text); }
  std::string saved() { return *call<const std::string*>(kGetXml); }
  void setReal(const char* schema) {
    call<void>("_ZN6XMPlib17SetProperty_FloatEPKcS1_d", schema, "x", 1.0);
  }

 private:
  template <class Result, class... Arguments>
  Result call(const char* name, Arguments... arguments) {
    void* function = dlsym(library_, name);
    if (function == nullptr) std::abort();
    return reinterpret_cast<Result (*)(void*, Arguments...)>(function)(memory_.data(),
                                                                       arguments...);
  }

  void* library_;
  alignas(XMPlib) std::array<std::byte, sizeof(XMPlib)> memory_;
};

std::string packet(const std::string& prefix) {
  return "<rdf:RDF xmlns:rdf='http://www.w3.org/1999/02/22-rdf-syntax-ns#'><rdf:Description "
         "xmlns:" +
         prefix + "='http://copies.example/' " + prefix + ":a='of " + prefix + "'/></rdf:RDF>";
}

}  // namespace

// Each copy has its own tables: the prefix that the other gave the namespace is unknown to it.
TEST(SecondCopy, WorksBesideTheFirst) {
  for (const int scope : {RTLD_LOCAL, RTLD_GLOBAL}) {
    const Library copy = loadCopy("second" + std::to_string(scope), scope);
    ASSERT_NE(copy, nullptr) << dlerror();
    XMPlib ours;
    Handle theirs(copy.get());
    ours.SetXML(packet("p1"));
    theirs.load(packet("p2"));
    EXPECT_NE(ours.GetXML().find("<p1:a>of p1</p1:a>"), std::string::npos) << ours.GetXML();
    EXPECT_NE(theirs.saved().find("<p2:a>of p2</p2:a>"), std::string::npos) << theirs.saved();
    EXPECT_THROW(theirs.setReal("http://unknown.example/"), XMP_Error);
  }
}

// The last handle of the loader goes before the error that the library threw.
TEST(SecondCopy, IsUnloadedWithoutHarm) {
  std::exception_ptr thrown;
  {
    const Library copy = loadCopy("unloaded", RTLD_LOCAL);
    ASSERT_NE(copy, nullptr) << dlerror();
    try {
      Handle(copy.get()).setReal("http://unknown.example/");
    } catch (const XMP_Error&) {
      thrown = std::current_exception();
    }
  }
  ASSERT_TRUE(thrown);
  thrown = nullptr;
  XMPlib ours;
  EXPECT_TRUE(ours.SetNrPages(1));
}

// What a library keeps for each thread, the loader may make only when it is first needed; it ends
// the process when that fails.
TEST(SecondCopy, NeedsNoMemoryForAThreadOfItsOwn) {
  if (!reachesMalloc()) GTEST_SKIP() << "the loader's memory is the sanitizer's";
  const Library copy = loadCopy("threads", RTLD_LOCAL);
  ASSERT_NE(copy, nullptr) << dlerror();
  Handle handle(copy.get());
  for (long passing = 0; passing < 50; ++passing) {
    std::thread([&] {
      completes<XMP_Error>(passing, Shortage::forGood, [&] { handle.load("<a/>"); });
    }).join();
  }
  EXPECT_TRUE(handle.load(packet("p1")));
}
