// SPDX-License-Identifier: Apache-2.0
// Texts by chance, from rules.
#pragma once

#include <functional>
#include <map>
#include <random>
#include <string>
#include <utility>
#include <vector>

// Where chance comes from: a number below the limit.
using Numbers = std::function<unsigned(unsigned limit)>;

inline Numbers randomNumbers(unsigned seed) {
  return [random = std::mt19937(seed)](unsigned limit) mutable {
    return static_cast<unsigned>(random() % limit);
  };
}

// A rule is a choice of texts. "{name}" in a text stands for one of the rule of that name;
// "{name=word}" for one in which "%" stands for the word, or for one of the rule `word`.
class Grammar {
 public:
  struct Choice {
    Choice(const char* chosen, unsigned times = 1) : text(chosen), weight(times) {}
    std::string text;
    unsigned weight;
  };
  using Rules = std::map<std::string, std::vector<Choice>>;

  // More than `depth` rules within each other, "{name}" stands for "{flat name}" if there is one.
  Grammar(Rules rules, int depth, Numbers below)
      : rules_(std::move(rules)), depth_(depth), below_(std::move(below)) {}

  unsigned below(std::size_t limit) { return below_(static_cast<unsigned>(limit)); }

  std::string text(const std::string& name) { return expanded(chosen(name), depth_); }

  // Of that text: what is drawn first stands first.
  std::string expanded(const std::string& text, int depth) {
    const std::size_t open = text.find('{'), close = text.find('}', open);
    if (open == text.npos) return text;
    std::string all = text.substr(0, open) + named(text.substr(open + 1, close - open - 1), depth);
    return all += expanded(text.substr(close + 1), depth);
  }

 private:
  const std::string& chosen(const std::string& name) {
    const std::vector<Choice>& rule = rules_.at(name);
    unsigned total = 0;
    for (const Choice& choice : rule) total += choice.weight;
    auto choice = rule.begin();
    for (unsigned number = below(total); number >= choice->weight; ++choice) {
      number -= choice->weight;
    }
    return choice->text;
  }

  std::string named(const std::string& reference, int depth) {
    const std::size_t sign = reference.find('=');
    std::string name = reference.substr(0, sign), word;
    if (sign != reference.npos) word = reference.substr(sign + 1);
    if (rules_.contains(word)) word = expanded(chosen(word), depth);
    if (depth <= 0 && rules_.contains("flat " + name)) name.insert(0, "flat ");
    std::string text = chosen(name);
    for (std::size_t at = 0; (at = text.find('%', at)) != text.npos; at += word.size()) {
      text.replace(at, 1, word);
    }
    return expanded(text, depth - 1);
  }

  Rules rules_;
  int depth_;
  Numbers below_;
};
