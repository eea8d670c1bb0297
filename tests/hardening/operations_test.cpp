// SPDX-License-Identifier: Apache-2.0
// Every operation meets a handle without metadata, properties of a wrong shape, texts that do not
// convert, and texts that XML cannot hold. Toolkit errors leave the four operations that let them
// pass, and no other.
#include <gtest/gtest.h>

#include "core/toolkit/client.h"
#include "support/kinds.h"
#include "support/odd_trees.h"

namespace {

template <class Value, class... Values>
constexpr bool isAnyOf = (std::is_same_v<Value, Values> || ...);

// Toolkit errors pass to the caller; the kind takes them for a failure without text.
template <class Value>
constexpr bool kGetPasses =
    isAnyOf<Value, XMPlDigFilmVersion, XMPlDimDatDigFilm, std::vector<XMPlInkDigFilm>>;
template <class Value>
constexpr bool kSetPasses = isAnyOf<Value, XMPlDimDatDigFilm>;

template <class Value>
constexpr bool kHasTexts = !isAnyOf<Value, int, bool, std::vector<XMPlPagRange>>;

template <class Visit>
void forEachSet(const Visit& visit) {
  forEachKind(visit);
  forEachWriter(visit);
}

struct Property {
  std::string schema, name, value;
  XMP_OptionBits options = 0;
};

// What the Set writes into empty metadata.
template <class Value>
std::vector<Property> propertiesOf(const Kind<Value>& kind) {
  XMPlib xmp;
  kind.set(xmp, filled<Value>());
  const std::string text = xmp.GetXML();
  const xmpl::Metadata metadata(text.data(), static_cast<XMP_StringLen>(text.size()));
  TXMPIterator<std::string> nodes(metadata, kXMP_IterJustLeafName);
  std::vector<Property> properties;
  Property property;
  while (nodes.Next(&property.schema, &property.name, &property.value, &property.options)) {
    if ((property.options & kXMP_SchemaNode) != 0) continue;
    properties.push_back(property);
    nodes.Skip(kXMP_IterSkipSubtree);
  }
  return properties;
}

std::string reloaded(const std::string& text) {
  const FromText xmp(text);
  EXPECT_EQ(xmp.ErrStr(), "") << text;
  return xmp.GetXML();
}

// The name of the property, or of an alias of it.
std::string anyName(const std::string& name, OddTrees& trees) {
  if (name == "dc:title") return trees.oneOf({"dc:title", "xmp:Title", "pdf:Title"});
  if (name != "dc:description") return name;
  return trees.oneOf({"dc:description", "xmp:Description", "pdf:Subject"});
}

// What no packet brings: a number in the place of anything.
void putNumber(XMPlib& xmp, const Property& property, OddTrees& trees) {
  const std::string path =
      property.name + trees.oneOf({"", "[1]", "[last()]", "/stLoc:name", "[1]/stLoc:name"});
  attempt<XMP_Error>([&] {
    xmp.SetProperty_Float(property.schema.c_str(), path.c_str(), 5);
    return true;
  });
}

}  // namespace

TEST(Operations, WithoutMetadataAnswerFalse) {
  forEachSet([]<class Value>(const Kind<Value>& kind) {
    Empty empty;
    auto value = filled<Value>();
    EXPECT_FALSE(kind.set(empty, value)) << typeid(Value).name();
    EXPECT_EQ(empty.ErrStr(), "Illegal XAP");
    if (!kind.get) return;
    EXPECT_FALSE(kind.get(empty, value)) << typeid(Value).name();
    EXPECT_EQ(empty.ErrStr(), "Illegal XAP");
  });
}

TEST(Operations, TakeAWrongShapeForAnError) {
  int tried = 0;
  forEachKind([&]<class Value>(const Kind<Value>& kind) {
    const auto properties = propertiesOf(kind);
    const auto isTyped = [](const Property& each) {
      const bool isComposite = (each.options & kXMP_PropCompositeMask) != 0;
      return isComposite || each.value == "1" || each.value == "True";
    };
    const auto typed = std::find_if(properties.begin(), properties.end(), isTyped);
    if (typed == properties.end() || typed->name == "dc:description") return;
    SCOPED_TRACE(typed->name);
    std::string others;
    for (const Property& each : properties) {
      if (&each != &*typed && !isTyped(each)) others += elements("", each.name + "=" + each.value);
    }
    const std::string name = typed->name;
    Loaded simple(others + elements("", name + "=text"));
    Loaded structure(others + "<" + name + " rdf:parseType='Resource'><dc:a/></" + name + ">");
    for (XMPlib* odd : {&simple, &structure}) {
      Value value{};
      EXPECT_FALSE(kind.get(*odd, value));
    }
    EXPECT_EQ(simple.ErrStr().empty(), kGetPasses<Value>);
    ++tried;
  });
  EXPECT_GT(tried, 30);
}

TEST(Operations, RefuseWhatIsNoUtf8AndStoreTheRest) {
  const std::string texts[] = {"",
                               " ",
                               "a\1b",
                               std::string("a\0b", 3),
                               "<&>\"'",
                               "\xf0\x9f\x8e\xa8",
                               std::string(100'000, 'x')};
  forEachSet([&]<class Value>(const Kind<Value>& kind) {
    if (!kHasTexts<Value>) return;
    SCOPED_TRACE(typeid(Value).name());
    for (const std::string& text : texts) {
      XMPlib xmp;
      EXPECT_TRUE(kind.set(xmp, filled<Value>(text)));
      EXPECT_EQ(xmp.ErrStr(), "");
      EXPECT_EQ(stored(FromText(reloaded(xmp.GetXML()))), stored(xmp));
    }
    XMPlib xmp;
    EXPECT_EQ(kind.set(xmp, filled<Value>("\xc3(")), kind.isMerge);
    EXPECT_EQ(xmp.ErrStr(), kSetPasses<Value> ? "" : "Invalid UTF-8 data byte");
    EXPECT_FALSE(xmp.GetXML().empty());  // what is there can still be serialised
  });
}

// Whatever stands in the place of its properties, after a Set the packet can be saved and loaded,
// and reads the same.
TEST(Operations, LeaveWhatCanBeSavedAndLoaded) {
  forEachSet([]<class Value>(const Kind<Value>& kind) {
    const std::vector<Property> properties = propertiesOf(kind);
    for (unsigned seed = 0; seed < 60; ++seed) {
      OddTrees trees(seed, {"stLoc:name", "stRef:instanceID", "dc:type"});
      std::string content;
      for (const Property& property : properties) {
        if (trees.pick(3) != 0) content += trees.property(anyName(property.name, trees));
      }
      const Loaded first(content);
      if (!first.ErrStr().empty()) continue;
      FromText xmp(first.GetXML());
      const bool isOdder = trees.pick(3) == 0;
      if (isOdder) putNumber(xmp, properties[trees.pick(properties.size())], trees);
      if (xmp.GetXML().empty()) continue;
      kind.set(xmp, filled<Value>());
      std::string text = xmp.GetXML();
      if (isOdder) text = reloaded(text);  // a number for a title, say: loading makes it an array
      ASSERT_NE(text, "") << seed << content;
      ASSERT_EQ(reloaded(text), text) << seed << content;
    }
  });
}
