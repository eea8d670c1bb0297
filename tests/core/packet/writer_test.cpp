// SPDX-License-Identifier: Apache-2.0
// The writer beside the toolkit's own serialisation: the same bytes wherever those can be loaded.
#include "core/packet/writer.h"

#include <gtest/gtest.h>

#include "core/toolkit/nodes.h"
#include "support/bare_packets.h"
#include "support/random_trees.h"
#include "support/readings.h"
#include "support/samples.h"
#include "support/trips.h"

namespace {

using xmpl::Metadata;

// The text, or the error's.
template <class Write>
std::string textOf(const Write& write) {
  std::string text;
  try {
    write(text);
  } catch (const XMP_Error& error) {
    EXPECT_EQ(text, "");
    return xmpl::messageOf(error);
  }
  return text;
}

std::string written(const Metadata& metadata) {
  return textOf([&](std::string& text) { xmpl::writePacket(metadata, text); });
}

std::string writtenByToolkit(const Metadata& metadata, XMP_OptionBits options, unsigned padding) {
  return textOf(
      [&](std::string& text) { metadata.SerializeToBuffer(&text, options, padding, "", "", 0); });
}

std::string writtenByToolkit(const Metadata& metadata) {
  return writtenByToolkit(metadata, kXMP_OmitPacketWrapper, 0);
}

bool isLoadable(const std::string& text) {
  Metadata metadata;
  return unguardedReading(text, metadata).end == Reading::End::read;
}

// What this library wrote can be loaded; what it refused, in its own words, cannot be. Where the
// toolkit's own text can be loaded, it is the same.
void expectAlike(const std::string& ours, const std::string& toolkits) {
  const bool isToolkits = ours == toolkits;
  const bool isText = ours.starts_with("<x:xmpmeta");
  EXPECT_TRUE(isToolkits || isText || ours.starts_with("Packet not written: ")) << ours;
  const bool losesTabs = toolkits.find('\t') != std::string::npos;  // left in an attribute
  EXPECT_EQ(isToolkits && isText, isLoadable(toolkits) && !losesTabs)
      << ours << "\nby the toolkit:\n"
      << toolkits;
  EXPECT_EQ(isText, isLoadable(ours)) << ours;
}

void expectAlikePadded(const Metadata& metadata) {
  for (const unsigned padding : {0U, 1U, 2U, 100U, 101U, 102U, 2050U, 1U << 28}) {
    const auto write = [&](std::string& text) { xmpl::writeWrapped(metadata, padding, text); };
    ASSERT_EQ(textOf(write), writtenByToolkit(metadata, 0, padding)) << padding;
  }
}

}  // namespace

TEST(Writer, WritesRandomTreesAsTheToolkitDoesOrSoThatTheyLoad) {
  XMPlib started;
  for (unsigned seed = 0; seed < 3000; ++seed) {
    Metadata metadata;
    RandomTree(seed).fill(xmpl::insideOf(metadata).tree);
    const Metadata clone = metadata.Clone();
    const std::string ours = written(metadata);
    expectAlike(ours, writtenByToolkit(clone));
    // Language alternatives are moved alike.
    EXPECT_TRUE(!ours.starts_with('<') || written(metadata) == written(clone));
    ASSERT_FALSE(testing::Test::HasFailure()) << seed;
  }
}

TEST(Writer, WritesEveryPacketOfTheSamplesAsTheToolkitDoes) {
  XMPlib started;
  std::size_t packets = 0;
  for (const std::string& text : samplePackets()) {
    Metadata metadata;
    if (unguardedReading(text, metadata).end != Reading::End::read) continue;
    ASSERT_EQ(written(metadata), writtenByToolkit(metadata)) << text;
    expectAlikePadded(metadata);
    ++packets;
  }
  EXPECT_GE(packets, 16U);
}

// In texts and attributes; in blocks of any position and length, and where long texts are split.
TEST(Writer, EscapesEachCharacterAsTheToolkitDoes) {
  const XMPlib started;
  Tree tree;
  XMP_Node& array = tree.property("dc:s", "", kXMP_PropValueIsArray);
  const auto addItem = [&](std::size_t before, char c, std::size_t after) {
    const std::string text = std::string(before, 'x') + c + std::string(after, 'x');
    add(array.children, array, "[]", 0, text);
    add(array.children, array, "[]", kXMP_PropValueIsURI, text);
  };
  for (int c = 0x20; c < 0x7F; ++c) {
    for (std::size_t before = 0; before < 33; ++before) {
      for (const std::size_t after : {0U, 1U, 15U, 33U})
        addItem(before, static_cast<char>(c), after);
    }
  }
  for (const char c : {'\n', '\t', '\r', '&', '=', '\xE4'}) {
    for (std::size_t before = 470; before < 500; ++before) addItem(before, c, 600);
  }
  EXPECT_EQ(written(tree.metadata), writtenByToolkit(tree.metadata));
}

TEST(Writer, EscapesWhatTheToolkitForgets) {
  const FromText xmp(described("<w:a xmlns:w='http://writer.example/?a&amp;b'>1</w:a>",
                               "rdf:about='x?a&amp;b\"&gt;&#9;'"));
  expectToSurviveATrip(xmp);
  EXPECT_NE(xmp.GetXML().find("rdf:about=\"x?a&amp;b&quot;>&#x9;\""), std::string::npos);

  Tree tree;
  XMP_Node& structure = tree.property("dc:s", "", kXMP_PropValueIsStruct);
  qualify(structure, "rdf:resource", "r&s");
  add(structure.children, structure, "dc:f", 0, "<\"&\n");
  EXPECT_NE(written(tree.metadata)
                .find("<dc:s rdf:resource=\"r&amp;s\"\n"
                      "             dc:f=\"&lt;&quot;&amp;&#xA;\"/>"),
            std::string::npos);
}

TEST(Writer, RefusesWhatTheToolkitRefusesInItsWords) {
  const XMPlib started;
  Tree both, nested, plain;
  XMP_Node& node = both.property("dc:a", "");
  qualify(node, "rdf:resource", "r");
  qualify(node, "dc:q", "q");
  XMP_Node& structure = nested.property("dc:s", "", kXMP_PropValueIsStruct);
  qualify(structure, "rdf:resource", "r");
  add(structure.children, structure, "dc:f", kXMP_PropValueIsURI, "u");
  XMP_Node& title = plain.property("dc:title", "", 0x1E00);
  add(title.children, title, "[]", 0, "no language");
  EXPECT_EQ(written(both.metadata), "Can't mix rdf:resource and general qualifiers");
  EXPECT_EQ(written(nested.metadata), "Can't mix rdf:resource and complex fields");
  EXPECT_EQ(written(plain.metadata), "AltText array items must have an xml:lang qualifier");
}

TEST(Writer, RefusesTreesThatAreHalfMade) {
  const XMPlib started;
  Tree child, item, qualifier, schema;
  child.property("dc:a", "", kXMP_PropValueIsStruct).children.push_back(nullptr);
  item.property("dc:a", "", 0x1E00).children.push_back(nullptr);
  qualifier.property("dc:a", "").qualifiers.push_back(nullptr);
  schema.root.children.push_back(nullptr);
  for (const Tree* tree : {&child, &item, &qualifier, &schema}) {
    EXPECT_EQ(written(tree->metadata), "Packet not written: the metadata is incomplete");
  }
}

TEST(Writer, RefusesNamesThatNoLoadTakes) {
  const XMPlib started;
  const std::string unread = "Packet not written: a name that cannot be read again";
  const auto expectRefused = [](const std::string& name, const std::string& why) {
    Tree tree, qualified;
    tree.property(name, "v");
    qualify(qualified.property("dc:a", "v"), name, "q");
    EXPECT_EQ(written(tree.metadata), why) << name;
    EXPECT_EQ(written(qualified.metadata), why) << name;
  };
  for (const char* name : {"dc:", "dc", "", ":a", "dc:a:b", "dc:1", "dc:a]", "dc:a b", "dc:a\u200c",
                           "dc:\U00010000", "xmlns:a", "rdf:li", "rdf:Description"}) {
    expectRefused(name, unread);
  }
  expectRefused("nobodys:a", "Packet not written: a prefix without a namespace");
  expectRefused("dc:" + std::string(257, 'a'), "Packet not written: a name that is too long");
  Tree value;  // would become the value of the structure around it
  XMP_Node& structure = value.property("dc:s", "", kXMP_PropValueIsStruct);
  add(structure.children, structure, "rdf:value", 0, "v");
  EXPECT_EQ(written(value.metadata), unread);
  for (const std::string& name : {"dc:" + std::string(256, 'a'), std::string("dc:\xE7\xB4\x99")}) {
    Tree tree;
    tree.property(name, "v");
    EXPECT_TRUE(isLoadable(written(tree.metadata))) << name;
  }
}

// A property at level 4 of the text; each structure is one level more, each array two.
TEST(Writer, RefusesMoreThan128LevelsOfElements) {
  const XMPlib started;
  const auto nested = [](int structures, bool isArrayWithin) {
    Tree tree;
    XMP_Node* node = &tree.property("dc:a", "");
    for (int i = 0; i < structures; ++i) {
      node->options = kXMP_PropValueIsStruct;
      node = &add(node->children, *node, "dc:a", 0, "v");
    }
    if (isArrayWithin) *node = XMP_Node(node->parent, "dc:a", kXMP_PropValueIsArray);
    return written(tree.metadata);
  };
  const std::string tooDeep = "Packet not written: more than 128 levels of elements";
  EXPECT_TRUE(isLoadable(nested(124, false)));
  EXPECT_EQ(nested(125, false), tooDeep);
  EXPECT_TRUE(isLoadable(nested(123, true)));  // the empty array is an element
  EXPECT_EQ(nested(124, true), tooDeep);
  const auto qualified = [](int depth) {
    Tree tree;
    XMP_Node* node = &tree.property("dc:a", "v");
    for (int i = 0; i < depth; ++i) node = &qualify(*node, "dc:q", "v");
    return written(tree.metadata);
  };
  EXPECT_TRUE(isLoadable(qualified(124)));
  EXPECT_EQ(qualified(125), tooDeep);
}

TEST(Writer, RefusesMoreThan1024ForeignNamespaces) {
  const XMPlib started;
  Tree tree;
  const auto addSchema = [&](int number) {
    const std::string uri = "http://writer.example/" + std::to_string(number);
    std::string prefix;
    Metadata::RegisterNamespace(uri.c_str(), ("wr" + std::to_string(number)).c_str(), &prefix);
    XMP_Node& schema = add(tree.root.children, tree.root, uri, kXMP_SchemaNode, prefix);
    add(schema.children, schema, prefix + "a", 0, "v");
  };
  for (int i = 0; i < 1024; ++i) addSchema(i);
  tree.property("dc:a", "the library's own does not count");
  EXPECT_EQ(written(tree.metadata), writtenByToolkit(tree.metadata));
  addSchema(1024);
  EXPECT_EQ(written(tree.metadata), "Packet not written: more than 1,024 namespaces");
}

TEST(Writer, RefusesMoreThan256MiBOfText) {
  const XMPlib started;
  Tree tree;
  XMP_Node& node = tree.property("dc:a", "");
  const std::size_t around = written(tree.metadata).size() - 2 + 8;  // <dc:a/>, <dc:a></dc:a>
  node.value.assign((256U << 20) - around, 'v');
  EXPECT_EQ(written(tree.metadata).size(), 256U << 20);
  const std::string tooMuch = "Packet not written: more than 256 MiB of text";
  const auto wrap = [&](std::string& text) { xmpl::writeWrapped(tree.metadata, 1, text); };
  EXPECT_EQ(textOf(wrap), tooMuch);
  node.value.assign(64U << 20, '&');
  EXPECT_EQ(written(tree.metadata), tooMuch);
}
