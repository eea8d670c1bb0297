// Reading by nodes answers exactly what reading by the toolkit's paths answers, errors included.
#include "core/properties.h"

#include <gtest/gtest.h>

#include "support/odd_trees.h"
#include "support/packets.h"

using namespace xmpl;

namespace {

// One answer as text: the value, "absent", or the error.
template <class Read>
std::string answer(const Read& read) {
  try {
    return read();
  } catch (const XMP_Error& error) {
    return "error: " + messageOf(error);
  }
}

template <class Value, class Get>
std::string valueOr(Value value, Get get) {
  if (!get(value)) return "absent";
  if constexpr (std::is_same_v<Value, std::string>) {
    return value;
  } else {
    return std::to_string(value);
  }
}

using Names = OddTrees::Names;
const Names kFields = {"vxFont:name", "vxFont:type", "vxInk:name"};

// What reading in each of the four types yields; `read(value)` answers whether it is there.
template <class Read>
std::string answers(const Read& read) {
  const auto typed = [&](auto value) { return answer([&] { return valueOr(value, read); }) + '|'; };
  return typed(std::string()) + typed(std::int32_t()) + typed(0.0) + typed(false);
}

std::string byPath(const Metadata& metadata, const char* ns, const std::string& path) {
  const char* const name = path.c_str();
  return answers([&]<class Value>(Value& v) {
    if constexpr (std::is_same_v<Value, std::string>) {
      return metadata.GetProperty(ns, name, &v, nullptr);
    } else if constexpr (std::is_same_v<Value, double>) {
      return metadata.GetProperty_Float(ns, name, &v, nullptr);
    } else if constexpr (std::is_same_v<Value, bool>) {
      return metadata.GetProperty_Bool(ns, name, &v, nullptr);
    } else {
      return metadata.GetProperty_Int(ns, name, &v, nullptr);
    }
  });
}

// `reader` makes a PropertyReader or an ItemReader, `name` is what it reads.
template <class Reader, class Name>
std::string byNodes(const Reader& reader, Name name) {
  return answers([&]<class Value>(Value& v) {
    if constexpr (std::is_same_v<Value, std::string>) {
      return reader().text(name, v);
    } else if constexpr (std::is_same_v<Value, double>) {
      return reader().real(name, v);
    } else if constexpr (std::is_same_v<Value, bool>) {
      return reader().boolean(name, v);
    } else {
      return reader().integer(name, v);
    }
  });
}

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

Metadata parsed(const std::string& properties) {
  const XMPlib starter;  // the toolkit runs
  const std::string text = packet(properties);
  return {text.data(), static_cast<XMP_StringLen>(text.size())};
}

// An odd property of that name, read in two ways.
template <class ByNodes, class ByPath>
void expectSame(PropertyName name, const Names& fields, const ByNodes& byNodes,
                const ByPath& byPath) {
  for (unsigned seed = 0; seed < 1000; ++seed) {
    OddTrees trees(seed, fields);
    const std::string property = trees.pick(20) == 0 ? "" : trees.property(name.path);
    Metadata metadata = parsed(property);
    if (trees.pick(3) == 0) damage(metadata, name.schema, name.path, trees, fields[0]);
    ASSERT_EQ(byNodes(metadata), byPath(metadata)) << property << seed;
  }
}

}  // namespace

TEST(Items, ReadAsTheToolkitReadsByPath) {
  constexpr PropertyName kArray = "vxFontL:fonts";
  for (unsigned seed = 0; seed < 1000; ++seed) {
    const std::string property = OddTrees(seed, kFields).property(kArray.path);
    const Metadata metadata = parsed(property);
    for (std::size_t index = 1; index <= 4; ++index) {
      for (const std::string& field : kFields) {
        const std::string path = "/*[" + std::to_string(index) + "]/" + field;
        ASSERT_EQ(byNodes([&] { return ArrayReader(metadata, kArray).item(index); }, field),
                  byPath(metadata, kArray.schema, kArray.path + path))
            << property << index << field;
      }
    }
  }
}

TEST(Properties, ReadAsTheToolkitReadsByPath) {
  constexpr PropertyName kPages = "vxGr:nrpages";
  expectSame(
      kPages, kFields,
      [&](const Metadata& m) { return byNodes([&] { return PropertyReader(m); }, kPages); },
      [&](const Metadata& m) { return byPath(m, kPages.schema, kPages.path); });
  constexpr PropertyName kBase = "vxPrF:DerivedFrom";
  const std::string id = "stRef:instanceID";
  expectSame(
      kBase, {id, "stRef:renditionClass"},
      [&](const Metadata& m) {
        return byNodes([&] { return PropertyReader(m).structure(kBase); }, id);
      },
      [&](const Metadata& m) { return byPath(m, kBase.schema, kBase.path + ("/" + id)); });
  constexpr PropertyName kJobs = "xmpBJ:JobRef";
  const std::string name = "stLoc:name";
  expectSame(
      kJobs, {name, "stLoc:id"},
      [&](const Metadata& m) {
        return byNodes([&] { return PropertyReader(m).array(kJobs).last(); }, name);
      },
      [&](const Metadata& m) {
        return byPath(m, kJobs.schema, kJobs.path + ("/*[last()]/" + name));
      });
}

TEST(DefaultLanguage, IsReadAsTheToolkitReadsItByAliasAndPath) {
  constexpr PropertyName kDescription = "dc:description";
  const auto text = [](const auto& read) {
    return answer([&] { return valueOr(std::string(), read); });
  };
  expectSame(
      kDescription, {"dc:source", "dc:type"},
      [&](const Metadata& m) {
        return text([&](std::string& value) {
          return PropertyReader(m).array(kDescription).defaultTextOrEmpty(value);
        });
      },
      [&](const Metadata& m) {
        return text([&](std::string& value) {
          return m.GetProperty(kXMP_NS_XMP, "xmp:Description/*[@xml:lang='x-default']", &value,
                               nullptr);
        });
      });
}
