// Reading by nodes answers exactly what reading by the toolkit's paths answers, errors included.
#include "core/properties.h"

#include <gtest/gtest.h>

#include <random>

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

using Names = std::vector<std::string>;
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

// A property in any shape, right or wrong, and damage that no packet brings.
class OddTrees {
 public:
  OddTrees(unsigned seed, Names fields) : random_(seed), fields_(std::move(fields)) {}

  std::string property(const std::string& name) {
    return "<" + name + content(3) + "</" + name + ">";
  }

  void damage(Metadata& metadata, const char* schema, const std::string& name) {
    const std::string places[] = {name, name + "[1]", name + "[last()]", name + "/" + fields_[0]};
    const XMP_OptionBits forms[] = {0, kXMP_PropArrayIsAltText, kXMP_PropValueIsStruct};
    try {
      const std::string& place = places[pick(std::size(places))];
      const XMP_OptionBits form = forms[pick(std::size(forms))];
      metadata.SetProperty(schema, place.c_str(), form == 0 ? "5" : nullptr, form);
      if (pick(2) == 0)
        metadata.SetQualifier(schema, place.c_str(), kXMP_NS_XML, "lang", "x-DEFAULT");
    } catch (const XMP_Error&) {  // a half-done refusal is damage too
    }
  }

  std::size_t pick(std::size_t count) { return random_() % count; }

 private:
  // The rest of a start tag and the content: simple text, structure or array.
  std::string content(int depth) {
    static const char* const kTexts[] = {"",     "A",      "12",   " -7 ", "2.5",        "1e3",
                                         "True", "f",      "0x1F", "1,5",  "9999999999", "&amp;",
                                         "nan",  "\u00e9", "+3",   "yes",  "1"};
    static const char* const kLanguages[] = {"", "", " xml:lang='x-default'", " xml:lang='de'"};
    const std::string language = kLanguages[pick(std::size(kLanguages))];
    switch (depth == 0 ? 0 : pick(5)) {
      case 0:
        return language + ">" + kTexts[pick(std::size(kTexts))];
      case 1:
        return language + " rdf:parseType='Resource'>" + structure(depth);
      case 2:
        return " rdf:parseType='Resource'><rdf:value" + content(depth - 1) +
               "</rdf:value><dc:source>q</dc:source>";
      default:
        return language + ">" + array(depth);
    }
  }
  std::string structure(int depth) {
    std::string text;
    for (const std::string& field : fields_) {
      if (pick(3) != 0) text += "<" + field + content(depth - 1) + "</" + field + ">";
    }
    return text;
  }
  std::string array(int depth) {
    const char* const kinds[] = {"Bag", "Seq", "Alt"};
    const std::string kind = kinds[pick(std::size(kinds))];
    std::string text = "<rdf:" + kind + ">";
    for (std::size_t items = pick(4); items > 0; --items) {
      text += pick(3) == 0   ? "<rdf:li" + content(depth - 1) + "</rdf:li>"
              : pick(2) == 0 ? "<rdf:li xml:lang='x-default'>" + std::to_string(items) + "</rdf:li>"
                             : "<rdf:li rdf:parseType='Resource'>" + structure(depth) + "</rdf:li>";
    }
    return text + "</rdf:" + kind + ">";
  }

  std::mt19937 random_;
  Names fields_;
};

Metadata parsed(const std::string& properties) {
  const XMPlib starter;  // the toolkit runs
  const std::string text = packet(properties);
  return Metadata(text.data(), static_cast<XMP_StringLen>(text.size()));
}

// An odd property of that name, read in two ways.
template <class ByNodes, class ByPath>
void expectSame(PropertyName name, const Names& fields, const ByNodes& byNodes,
                const ByPath& byPath) {
  for (unsigned seed = 0; seed < 2000; ++seed) {
    OddTrees trees(seed, fields);
    const std::string property = trees.pick(20) == 0 ? "" : trees.property(name.path);
    Metadata metadata = parsed(property);
    if (trees.pick(3) == 0) trees.damage(metadata, name.schema, name.path);
    ASSERT_EQ(byNodes(metadata), byPath(metadata)) << property << seed;
  }
}

}  // namespace

TEST(Items, ReadAsTheToolkitReadsByPath) {
  constexpr PropertyName kArray = "vxFontL:fonts";
  for (unsigned seed = 0; seed < 2000; ++seed) {
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
