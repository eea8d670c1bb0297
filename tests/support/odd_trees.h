// SPDX-License-Identifier: Apache-2.0
// Properties in any shape, right or wrong.
#pragma once

#include "support/grammar.h"

class OddTrees {
 public:
  using Names = std::vector<std::string>;

  // Structures have some of the fields.
  OddTrees(unsigned seed, const Names& fields) : grammar_(rules(fields), 9, randomNumbers(seed)) {}

  std::string property(const std::string& name) {
    return "<" + name + grammar_.text("content") + "</" + name + ">";
  }

  std::size_t pick(std::size_t count) { return grammar_.below(count); }
  std::string oneOf(const Names& names) { return names[pick(names.size())]; }

 private:
  // "content" is the rest of a start tag and what follows.
  static Grammar::Rules rules(const Names& fields) {
    std::string some;
    for (const std::string& field : fields) some += "{field=" + field + "}";
    return {
        {"content",
         {" rdf:resource='file:a'>",
          "{language}>{text}",
          "{language} rdf:parseType='Resource'>{structure}",
          " rdf:parseType='Resource'><rdf:value{content}</rdf:value><dc:source>q</dc:source>",
          {"{language}>{array}", 2}}},
        {"flat content", {" rdf:resource='file:a'>", "{language}>{text}"}},
        {"structure", {some.c_str()}},
        {"field", {"", {"<%{content}</%>", 2}}},
        {"array",
         {"<rdf:Bag>{items}</rdf:Bag>", "<rdf:Seq>{items}</rdf:Seq>",
          "<rdf:Alt>{items}</rdf:Alt>"}},
        {"items", {"", "{item}", "{item}{item}", "{item}{item}{item}"}},
        {"item",
         {"<rdf:li{content}</rdf:li>", "<rdf:li xml:lang='x-default'>{text}</rdf:li>",
          "<rdf:li rdf:parseType='Resource'>{structure}</rdf:li>"}},
        {"language", {{"", 2}, " xml:lang='x-default'", " xml:lang='de'"}},
        {"text", {{"{any text}", 2}, "{number}"}},
        {"any text", {"", "A", "&amp;", "\u00e9", " True", "True", "FALSE", "f", "t", "yes"}},
        {"number",
         {"0", "1", "12", " -7 ", "+3", "2.5", "1e3", "1,5", "nan", "0x1F", "12a", "2147483647",
          "-2147483648", "2147483648", "-99999999999999999999"}},
    };
  }

  Grammar grammar_;
};
