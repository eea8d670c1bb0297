// Reading by nodes answers exactly what reading by the toolkit's paths answers, errors included.
#include "core/items.h"

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

const char* const kFields[] = {"vxFont:name", "vxFont:type", "vxInk:name"};

std::string byNodes(const Metadata& metadata, PropertyName array, std::size_t index,
                    const char* field, int type) {
  return answer([&] {
    const ItemReader item = ArrayReader(metadata, array).item(index);
    switch (type) {
      case 0:
        return valueOr(std::string(), [&](auto& v) { return item.text(field, v); });
      case 1:
        return valueOr(std::int32_t(), [&](auto& v) { return item.integer(field, v); });
      case 2:
        return valueOr(double(), [&](auto& v) { return item.real(field, v); });
      default:
        return valueOr(bool(), [&](auto& v) { return item.boolean(field, v); });
    }
  });
}

std::string byPath(const Metadata& metadata, PropertyName array, std::size_t index,
                   const char* field, int type) {
  const std::string path = std::string(array.path) + "/*[" + std::to_string(index) + "]/" + field;
  const char* ns = array.schema;
  return answer([&] {
    switch (type) {
      case 0:
        return valueOr(std::string(), [&](auto& v) {
          return metadata.GetProperty(ns, path.c_str(), &v, nullptr);
        });
      case 1:
        return valueOr(XMP_Int32(), [&](auto& v) {
          return metadata.GetProperty_Int(ns, path.c_str(), &v, nullptr);
        });
      case 2:
        return valueOr(double(), [&](auto& v) {
          return metadata.GetProperty_Float(ns, path.c_str(), &v, nullptr);
        });
      default:
        return valueOr(bool(), [&](auto& v) {
          return metadata.GetProperty_Bool(ns, path.c_str(), &v, nullptr);
        });
    }
  });
}

class OddTrees {
 public:
  explicit OddTrees(unsigned seed) : random_(seed) {}

  std::string property() {
    const std::string name = "vxFontL:fonts";
    return "<" + name + content(3) + "</" + name + ">";
  }

 private:
  std::size_t pick(std::size_t count) { return random_() % count; }

  // The rest of a start tag and the content: simple text, structure or array.
  std::string content(int depth) {
    static const char* const kTexts[] = {"",     "A",      "12",   " -7 ", "2.5",        "1e3",
                                         "True", "f",      "0x1F", "1,5",  "9999999999", "&amp;",
                                         "nan",  "\u00e9", "+3",   "yes",  "1"};
    switch (depth == 0 ? 0 : pick(4)) {
      case 0:
        return std::string(">") + kTexts[pick(std::size(kTexts))];
      case 1:
        return " rdf:parseType='Resource'>" + structure(depth);
      default:
        return ">" + array(depth);
    }
  }
  std::string structure(int depth) {
    std::string text;
    for (const char* field : kFields) {
      if (pick(3) != 0) text += "<" + std::string(field) + content(depth - 1) + "</" + field + ">";
    }
    return text;
  }
  std::string array(int depth) {
    const char* const kind = pick(2) == 0 ? "Bag" : "Seq";
    std::string text = "<rdf:" + std::string(kind) + ">";
    for (std::size_t items = pick(4); items > 0; --items) {
      text += pick(4) == 0 ? "<rdf:li" + content(depth - 1) + "</rdf:li>"
                           : "<rdf:li rdf:parseType='Resource'>" + structure(depth) + "</rdf:li>";
    }
    return text + "</rdf:" + kind + ">";
  }

  std::mt19937 random_;
};

}  // namespace

TEST(Items, ReadAsTheToolkitReadsByPath) {
  constexpr PropertyName kArray = "vxFontL:fonts";
  for (unsigned seed = 0; seed < 2000; ++seed) {
    const std::string property = OddTrees(seed).property();
    const std::string text = packet(property);
    XMPlib starter;  // the toolkit runs
    Metadata metadata(text.data(), static_cast<XMP_StringLen>(text.size()));
    for (std::size_t index = 1; index <= 4; ++index) {
      for (const char* field : kFields) {
        for (int type = 0; type < 4; ++type) {
          ASSERT_EQ(byNodes(metadata, kArray, index, field, type),
                    byPath(metadata, kArray, index, field, type))
              << property << index << field << type;
        }
      }
    }
  }
}
