// SPDX-License-Identifier: Apache-2.0
// docs/format.md says what the code does.
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <regex>

#include "XMPlib.h"
#include "core/namespaces.h"

namespace {

std::string document() {
  std::ifstream file(XMPLIB_TEST_DOCS "/format.md");
  return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace

TEST(FormatDocument, HasThePrefixesOfTheCode) {
  const std::string text = document();
  const std::string table = text.substr(text.find("## Prefixes"));
  const std::regex row(R"(\| `(\w+)` \| `([^`]+)` \|)");
  std::vector<std::pair<std::string, std::string>> written, known;
  for (std::sregex_iterator it(table.begin(), table.end(), row), end; it != end; ++it) {
    const std::string uri = (*it)[2];
    written.emplace_back((*it)[1], uri.starts_with("http") ? uri : XMPLIB_PRIVATE_BASE + uri);
  }
  for (const xmpl::Namespace& each : xmpl::kNamespaces) known.emplace_back(each.prefix, each.uri);
  EXPECT_EQ(written, known);
}

TEST(FormatDocument, HasAnExampleThatReadsAsItSays) {
  const std::string text = document();
  const std::size_t begin = text.find("<rdf:RDF"), end = text.find("```", begin);
  XMPlib xmp;
  xmp.SetXML(text.substr(begin, end - begin));
  EXPECT_EQ(xmp.ErrStr(), "");
  int pages = 0;
  std::vector<XMPlLay> layers;
  EXPECT_TRUE(xmp.GetNrPages(pages) && xmp.GetLayers(layers));
  EXPECT_EQ(pages, 2);
  ASSERT_EQ(layers.size(), 1U);
  EXPECT_EQ(layers[0].name, "Varnish");
  EXPECT_TRUE(layers[0].printable && !layers[0].locked);
}
