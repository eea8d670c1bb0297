// SPDX-License-Identifier: Apache-2.0
#include "checks/pdf_content.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <limits>
#include <memory>
#include <qpdf/BufferInputSource.hh>
#include <qpdf/QPDFTokenizer.hh>

namespace vxmeta {
namespace {

using Token = QPDFTokenizer::Token;

bool isOneOf(const std::string& text, std::initializer_list<const char*> words) {
  return std::any_of(words.begin(), words.end(), [&](const char* word) { return text == word; });
}

enum Effect : unsigned {
  kFills = 1,
  kStrokes = 2,
  kSetsFill = 4,
  kSetsStroke = 8,
  kInProcess = 16,
  kInGray = 32,
  kShowsText = 64,
};

struct Operator {
  const char* word;
  unsigned effects;
};

// Values alone ("sc") are of the space that is set. A glyph that begins with "d1" has no colours of
// its own.
constexpr Operator kOperators[] = {
    {"k", kSetsFill | kInProcess},
    {"K", kSetsStroke | kInProcess},
    {"rg", kSetsFill | kInProcess},
    {"RG", kSetsStroke | kInProcess},
    {"g", kSetsFill | kInGray},
    {"G", kSetsStroke | kInGray},
    {"cs", kSetsFill},
    {"CS", kSetsStroke},
    {"d1", kSetsFill | kSetsStroke},
    {"f", kFills},
    {"F", kFills},
    {"f*", kFills},
    {"B", kFills | kStrokes},
    {"B*", kFills | kStrokes},
    {"b", kFills | kStrokes},
    {"b*", kFills | kStrokes},
    {"S", kStrokes},
    {"s", kStrokes},
    {"Tj", kShowsText},
    {"TJ", kShowsText},
    {"'", kShowsText},
    {"\"", kShowsText},
};

unsigned effectsOf(const std::string& word) {
  const auto* found = std::find_if(std::begin(kOperators), std::end(kOperators),
                                   [&](const Operator& one) { return word == one.word; });
  return found == std::end(kOperators) ? 0 : found->effects;
}

// Whether the colour is still the one that content begins with.
class Colour {
 public:
  bool isFirst() const { return setAt_ == kNever; }
  void set(std::size_t depth) { setAt_ = std::min(setAt_, depth); }
  // The state of `depth` is back: what was set deeper is undone.
  void restore(std::size_t depth) {
    if (setAt_ > depth) setAt_ = kNever;
  }

 private:
  static constexpr std::size_t kNever = std::numeric_limits<std::size_t>::max();
  std::size_t setAt_ = kNever;
};

class Painting {
 public:
  explicit Painting(const std::set<std::string>& masks) : masks_(masks) {}

  void note(const Token& before, const Token& token) {
    const std::string& text = token.getValue();
    const bool isMask = isOneOf(before.getValue(), {"/IM", "/ImageMask"});
    if (token.getType() == QPDFTokenizer::tt_name) noteName(before, text);
    if (token.getType() == QPDFTokenizer::tt_bool && isMask && text == "true") apply(kFills);
    if (token.isWord()) noteOperator(before, text);
  }

  const ContentColours& colours() const { return colours_; }

 private:
  // The name of a space; those of inline images may be short.
  void noteName(const Token& before, const std::string& name) {
    const bool isImages = isOneOf(before.getValue(), {"/CS", "/ColorSpace", "/I", "/Indexed"});
    const bool isProcess = isOneOf(name, {"/DeviceCMYK", "/DeviceRGB"}) ||
                           (isImages && isOneOf(name, {"/CMYK", "/RGB"}));
    const bool isGray = name == "/DeviceGray" || (isImages && name == "/G");
    colours_.process = colours_.process || isProcess;
    colours_.gray = colours_.gray || isGray;
  }

  void noteOperator(const Token& before, const std::string& word) {
    if (word == "q") ++depth_;
    if (word == "Q") restore();
    if (word == "Tr" && isOneOf(before.getValue(), {"1", "2", "5", "6"})) textStrokes_ = true;
    apply(effectsOf(word));
    if (word == "Do" && masks_.count(before.getValue()) != 0) apply(kFills);
  }

  void restore() {
    if (depth_ == 0) return;
    --depth_;
    fill_.restore(depth_);
    stroke_.restore(depth_);
  }

  void apply(unsigned effects) {
    if ((effects & kShowsText) != 0) effects |= textStrokes_ ? kFills | kStrokes : kFills;
    if ((effects & kSetsFill) != 0) fill_.set(depth_);
    if ((effects & kSetsStroke) != 0) stroke_.set(depth_);
    const bool isBlack = ((effects & kFills) != 0 && fill_.isFirst()) ||
                         ((effects & kStrokes) != 0 && stroke_.isFirst());
    colours_.process = colours_.process || (effects & kInProcess) != 0;
    colours_.gray = colours_.gray || (effects & kInGray) != 0 || isBlack;
  }

  const std::set<std::string>& masks_;
  ContentColours colours_;
  Colour fill_, stroke_;
  bool textStrokes_ = false;  // from the first mode that strokes on
  std::size_t depth_ = 0;     // of saved states
};

}  // namespace

ContentColours coloursIn(const std::string& content, const std::set<std::string>& masks) {
  const auto input = std::make_shared<BufferInputSource>("", content);
  QPDFTokenizer tokenizer;
  tokenizer.allowEOF();
  Painting painting(masks);
  Token before;
  while (!painting.colours().process) {
    const Token token = tokenizer.readToken(input, "", true);
    if (token.getType() == QPDFTokenizer::tt_eof) break;
    painting.note(before, token);
    if (token.isWord("ID")) {
      char blank = 0;
      input->read(&blank, 1);
      tokenizer.expectInlineImage(input);
    }
    before = token;
  }
  return painting.colours();
}

}  // namespace vxmeta
