// Properties in any shape, right or wrong.
#pragma once

#include <iterator>
#include <random>
#include <string>
#include <utility>
#include <vector>

class OddTrees {
 public:
  using Names = std::vector<std::string>;

  // Structures have some of the fields.
  OddTrees(unsigned seed, Names fields) : random_(seed), fields_(std::move(fields)) {}

  std::string property(const std::string& name) {
    return "<" + name + content(3) + "</" + name + ">";
  }

  std::size_t pick(std::size_t count) { return random_() % count; }

 private:
  // The rest of a start tag and the content: simple text, structure, qualified value or array.
  std::string content(int depth) {
    static const char* const kTexts[] = {"",     "A",      "12",   " -7 ", "2.5",        "1e3",
                                         "True", "f",      "0x1F", "1,5",  "9999999999", "&amp;",
                                         "nan",  "\u00e9", "+3",   "yes",  "1"};
    static const char* const kLanguages[] = {"", "", " xml:lang='x-default'", " xml:lang='de'"};
    const std::string language = kLanguages[pick(std::size(kLanguages))];
    switch (depth == 0 ? pick(2) : pick(6)) {
      case 0:
        return " rdf:resource='file:a'>";
      case 1:
        return language + ">" + kTexts[pick(std::size(kTexts))];
      case 2:
        return language + " rdf:parseType='Resource'>" + structure(depth);
      case 3:
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
    static const char* const kKinds[] = {"Bag", "Seq", "Alt"};
    const std::string kind = kKinds[pick(std::size(kKinds))];
    std::string text = "<rdf:" + kind + ">";
    for (std::size_t items = pick(4); items > 0; --items) {
      text += "<rdf:li" + item(depth) + "</rdf:li>";
    }
    return text + "</rdf:" + kind + ">";
  }

  std::string item(int depth) {
    switch (pick(3)) {
      case 0:
        return content(depth - 1);
      case 1:
        return " xml:lang='x-default'>" + std::to_string(pick(10));
      default:
        return " rdf:parseType='Resource'>" + structure(depth);
    }
  }

  std::mt19937 random_;
  Names fields_;
};
