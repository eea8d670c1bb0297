// SPDX-License-Identifier: Apache-2.0
#include "model/known_paths.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "model/document.h"
#include "model/path.h"

namespace vxmeta {
namespace {

std::string replacedAll(std::string text, const std::string& what, const std::string& with) {
  for (std::size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + 1)) {
    text.replace(at, what.size(), with);
  }
  return text;
}

TEST(KnownPaths, AreThoseThatAreTaken) {
  const std::vector<KnownPath> paths = knownPaths(typeOf<Document>());
  EXPECT_GT(paths.size(), 200U);
  for (const KnownPath& known : paths) {
    EXPECT_NO_THROW(parsePath(replacedAll(known.path, "[]", "[0]"), typeOf<Document>()))
        << known.path;
    EXPECT_FALSE(known.help.empty()) << known.path;
  }
}

std::vector<std::string> completed(const std::string& begun) {
  std::vector<std::string> paths;
  for (const KnownPath& known : completions(begun, typeOf<Document>())) paths.push_back(known.path);
  return paths;
}

TEST(KnownPaths, AreCompletedByOneStep) {
  using Paths = std::vector<std::string>;
  const std::pair<const char*, Paths> cases[] = {
      {"job.or", {"job.orderid"}},
      {"lay", {"layers"}},
      {"layers", {"layers", "layers[0]", "layers[-1]", "layers[name="}},
      {"layers[", {"layers[0]", "layers[-1]", "layers[name="}},
      {"layers[n", {"layers[name="}},
      {"layers[name=a.b", {}},
      {"layers[name=a.b].lo", {"layers[name=a.b].locked"}},
      {"layers[3]", {"layers[3].name", "layers[3].printable", "layers[3].locked"}},
      {"screens[0]", {"screens[0]", "screens[0][0]", "screens[0][-1]"}},
      {"screens[0][1].frequencyr", {"screens[0][1].frequencyreq"}},
      {"pageRanges[0].inks[", {"pageRanges[0].inks[0]", "pageRanges[0].inks[-1]"}},
      {"film.dim", {"film.dimensions"}},
      {"job.orderid.", {}},
      {"nothing.x", {}},
      {"job[", {}},
      {"[", {}},
      {"layers]x[", {}},
  };
  for (const auto& [begun, wanted] : cases) EXPECT_EQ(completed(begun), wanted) << begun;
  const Paths all = completed("");
  EXPECT_NE(std::find(all.begin(), all.end(), "inks"), all.end());
  EXPECT_EQ(std::find(all.begin(), all.end(), "job.orderid"), all.end());
}

}  // namespace
}  // namespace vxmeta
