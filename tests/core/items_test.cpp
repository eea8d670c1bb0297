// SPDX-License-Identifier: Apache-2.0
// Reading by nodes answers exactly what reading by the toolkit's paths answers, errors included.
#include "core/properties.h"

#include <gtest/gtest.h>

#include <sstream>

#include "support/odd_trees.h"
#include "support/packets.h"

using namespace xmpl;

namespace {

using Names = OddTrees::Names;

// What a reading of one type yields: the value, "absent", or the error.
template <class Value, class Read>
std::string answer(const Read& read) {
  std::ostringstream text;
  try {
    Value value{};
    read(value) ? text << value : text << "absent";
  } catch (const XMP_Error& error) {
    text << "error: " << messageOf(error);
  }
  return text.str() + '|';
}

template <class Read>
std::string answers(const Read& read) {
  return answer<std::string>(read) + answer<std::int32_t>(read) + answer<double>(read) +
         answer<bool>(read);
}

struct ByPath {
  bool operator()(std::string& v) const { return metadata.GetProperty(ns, name(), &v, nullptr); }
  bool operator()(double& v) const { return metadata.GetProperty_Float(ns, name(), &v, nullptr); }
  bool operator()(bool& v) const { return metadata.GetProperty_Bool(ns, name(), &v, nullptr); }
  bool operator()(std::int32_t& v) const {
    XMP_Int32 stored = v;  // another type of that size on some machines
    const bool isThere = metadata.GetProperty_Int(ns, name(), &stored, nullptr);
    v = static_cast<std::int32_t>(stored);
    return isThere;
  }
  const char* name() const { return path.c_str(); }

  const Metadata& metadata;
  const char* ns;
  std::string path;
};

// `reader` makes a PropertyReader or an ItemReader, `name` is what it reads.
template <class Reader, class Name>
struct ByNodes {
  bool operator()(std::string& v) const { return reader(metadata).text(name, v); }
  bool operator()(double& v) const { return reader(metadata).real(name, v); }
  bool operator()(bool& v) const { return reader(metadata).boolean(name, v); }
  bool operator()(std::int32_t& v) const { return reader(metadata).integer(name, v); }

  const Metadata& metadata;
  Reader reader;
  Name name;
};

// What no packet brings: the toolkit is asked for an odd property, and may refuse half-way.
void damage(Metadata& metadata, const char* schema, const std::string& name, OddTrees& trees,
            const std::string& field) {
  const std::string places[] = {name, name + "[1]", name + "[last()]", name + "/" + field};
  const XMP_OptionBits forms[] = {0, kXMP_PropArrayIsAltText, kXMP_PropValueIsStruct};
  const char* const place = places[trees.pick(std::size(places))].c_str();
  const XMP_OptionBits form = forms[trees.pick(std::size(forms))];
  try {
    metadata.SetProperty(schema, place, form == 0 ? "5" : nullptr, form);
    if (trees.pick(2) == 0) metadata.SetQualifier(schema, place, kXMP_NS_XML, "lang", "x-DEFAULT");
  } catch (const XMP_Error&) {  // NOLINT(bugprone-empty-catch): damage too
  }
}

// Metadata with an odd property of that name.
template <class Check>
void forOddTrees(PropertyName name, const Names& fields, const Check& check) {
  const XMPlib startsTheToolkit;
  for (unsigned seed = 0; seed < 1000; ++seed) {
    OddTrees trees(seed, fields);
    const std::string text = packet(trees.pick(20) == 0 ? "" : trees.property(name.path));
    Metadata metadata(text.data(), static_cast<XMP_StringLen>(text.size()));
    if (trees.pick(3) == 0) damage(metadata, name.schema, name.path, trees, fields[0]);
    check(metadata);
    ASSERT_FALSE(testing::Test::HasFailure()) << seed << text;
  }
}

// What `reader` reads of it is at that step of the toolkit's path.
template <class Reader, class Name>
void expectSame(PropertyName name, const Names& fields, const Reader& reader, Name read,
                const std::string& step) {
  forOddTrees(name, fields, [&](const Metadata& metadata) {
    EXPECT_EQ(answers(ByNodes<Reader, Name>{metadata, reader, read}),
              answers(ByPath{metadata, name.schema, name.path + step}));
  });
}

}  // namespace

TEST(Items, ReadAsTheToolkitReadsByPath) {
  constexpr PropertyName kArray = "vxFontL:fonts";
  const Names fields = {"vxFont:name", "vxFont:type", "vxInk:name"};
  for (std::size_t index = 1; index <= 4; ++index) {
    const auto item = [&](const Metadata& m) { return ArrayReader(m, kArray).item(index); };
    const std::string& field = fields[index % 3];
    expectSame(kArray, fields, item, field, "/*[" + std::to_string(index) + "]/" + field);
  }
}

TEST(Properties, ReadAsTheToolkitReadsByPath) {
  constexpr PropertyName kPages = "vxGr:nrpages", kBase = "vxPrF:DerivedFrom",
                         kJobs = "xmpBJ:JobRef";
  const auto whole = [](const Metadata& m) { return PropertyReader(m); };
  const auto base = [&](const Metadata& m) { return PropertyReader(m).structure(kBase); };
  const auto job = [&](const Metadata& m) { return PropertyReader(m).array(kJobs).last(); };
  const std::string id = "stRef:instanceID", name = "stLoc:name";
  expectSame(kPages, {"vxFont:name", "vxInk:name"}, whole, kPages, "");
  expectSame(kBase, {id, "stRef:renditionClass"}, base, id, "/" + id);
  expectSame(kJobs, {name, "stLoc:id"}, job, name, "/*[last()]/" + name);
}

TEST(DefaultLanguage, IsReadAsTheToolkitReadsItByAliasAndPath) {
  constexpr PropertyName kDescription = "dc:description";
  forOddTrees(kDescription, {"dc:source", "dc:type"}, [&](const Metadata& m) {
    const auto read = [&](std::string& text) {
      return PropertyReader(m).array(kDescription).defaultTextOrEmpty(text);
    };
    const char* const kPath = "xmp:Description/*[@xml:lang='x-default']";
    EXPECT_EQ(answer<std::string>(read), answer<std::string>(ByPath{m, kXMP_NS_XMP, kPath}));
  });
}
