// Whatever stands in the place of its properties, after a Set the packet can be saved and loaded,
// and reads the same.
#include <gtest/gtest.h>

#include "core/toolkit/client.h"
#include "support/kinds.h"
#include "support/odd_trees.h"

namespace {

template <class Value>
Value filled() {
  Value value{};
  visitFields(
      value, [](auto& items) { items.resize(1); },
      []<class Field>(Field& field) {
        if constexpr (std::is_same_v<Field, std::string>) field = "new";
        if constexpr (!std::is_same_v<Field, std::string>) field = 1;
      });
  if constexpr (std::is_same_v<Value, XMPlColorSpace>) value.colorprofloc = "PDFOutputIntent";
  if constexpr (std::is_same_v<Value, XMPlDimDatDigFilm>) value.basicOnly = false;
  return value;
}

struct Property {
  std::string schema;
  std::string name;
};

// What the Set writes into empty metadata.
std::vector<Property> propertiesOf(const std::function<void(XMPlib&)>& set) {
  XMPlib xmp;
  set(xmp);
  const std::string text = xmp.GetXML();
  const xmpl::Metadata metadata(text.data(), static_cast<XMP_StringLen>(text.size()));
  TXMPIterator<std::string> nodes(metadata, kXMP_IterJustLeafName);
  std::vector<Property> properties;
  Property property;
  XMP_OptionBits options = 0;
  while (nodes.Next(&property.schema, &property.name, nullptr, &options)) {
    if ((options & kXMP_SchemaNode) != 0) continue;
    properties.push_back(property);
    nodes.Skip(kXMP_IterSkipSubtree);
  }
  return properties;
}

std::string reloaded(const std::string& text) {
  XMPlib xmp;
  xmp.SetXML(text);
  EXPECT_EQ(xmp.ErrStr(), "") << text;
  return xmp.GetXML();
}

// The name of the property, or of an alias of it.
std::string anyName(const std::string& name, OddTrees& trees) {
  const std::vector<std::string> titles = {name, "xmp:Title", "pdf:Title"};
  const std::vector<std::string> descriptions = {name, "xmp:Description", "pdf:Subject"};
  if (name == "dc:title") return titles[trees.pick(titles.size())];
  return name == "dc:description" ? descriptions[trees.pick(descriptions.size())] : name;
}

// What no packet brings: a number in the place of anything.
void putNumber(XMPlib& xmp, const Property& property, OddTrees& trees) {
  const char* const steps[] = {"", "[1]", "[last()]", "/stLoc:name", "[1]/stLoc:name"};
  try {
    const std::string path = property.name + steps[trees.pick(std::size(steps))];
    xmp.SetProperty_Float(property.schema.c_str(), path.c_str(), 5);
  } catch (const XMP_Error&) {  // NOLINT(bugprone-empty-catch): it stays as it is
  }
}

void tryOn(const std::vector<Property>& properties, const std::function<void(XMPlib&)>& set) {
  for (unsigned seed = 0; seed < 60; ++seed) {
    OddTrees trees(seed, {"stLoc:name", "stRef:instanceID", "dc:type"});
    std::string content;
    for (const Property& property : properties) {
      if (trees.pick(3) != 0) content += trees.property(anyName(property.name, trees));
    }
    const Loaded first(content);
    if (!first.ErrStr().empty()) continue;
    XMPlib xmp;
    xmp.SetXML(first.GetXML());
    const bool isOdder = trees.pick(3) == 0;
    if (isOdder) putNumber(xmp, properties[trees.pick(properties.size())], trees);
    if (xmp.GetXML().empty()) continue;
    set(xmp);
    std::string text = xmp.GetXML();
    if (isOdder) text = reloaded(text);  // a number for a title, say: loading makes it an array
    ASSERT_NE(text, "") << seed << content;
    ASSERT_EQ(reloaded(text), text) << seed << content;
  }
}

}  // namespace

TEST(OddShapes, EverySetLeavesWhatCanBeSavedAndLoaded) {
  const auto trySet = [](const std::function<void(XMPlib&)>& set) {
    tryOn(propertiesOf(set), set);
  };
  forEachKind([&]<class Value>(const Kind<Value>& kind) {
    trySet([&](XMPlib& xmp) { kind.set(xmp, filled<Value>()); });
  });
  trySet([](XMPlib& xmp) { xmp.SetPDFData(filled<XMPlPDFData>()); });
  trySet([](XMPlib& xmp) { xmp.SetMMData(filled<XMPlMMData>()); });
  trySet([](XMPlib& xmp) { xmp.SetMetaDataDigFilms({{}}); });
}
