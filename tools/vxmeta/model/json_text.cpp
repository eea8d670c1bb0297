// SPDX-License-Identifier: Apache-2.0
#include "model/json_text.h"

#include <fmt/format.h>

#include <iterator>
#include <nlohmann/json.hpp>
#include <set>
#include <vector>

namespace vxmeta {
namespace {

constexpr std::size_t kMostDepth = 32;
constexpr std::size_t kMostFields = 256;

// Where a reader of the text is. A line feed still belongs to the line that it ends: the parser
// looks one character ahead behind a number.
struct Position {
  int line = 1;
  bool isAtEnd = false;

  void pass(char c) {
    if (isAtEnd) ++line;
    isAtEnd = c == '\n';
  }
};

struct Reader {
  using iterator_category = std::input_iterator_tag;
  using value_type = char;
  using difference_type = std::ptrdiff_t;
  using pointer = const char*;
  using reference = const char&;

  const char* at;
  Position* position;

  const char& operator*() const { return *at; }
  Reader& operator++() { return position->pass(*at), ++at, *this; }
  bool operator==(const Reader& other) const { return at == other.at; }
  bool operator!=(const Reader& other) const { return at != other.at; }
};

struct Level {
  std::string step;  // of the value that is being read
  std::ptrdiff_t index = -1;
  bool isArray = false;
  std::set<std::string, std::less<>> names;
};

// Walks through the text, up to the value of a pointer where one is wanted.
class Walk : public nlohmann::json_sax<Json> {
 public:
  Walk(const Position& position, const std::string* wanted)
      : position_(position), wanted_(wanted) {}

  const std::string& error() const { return error_; }
  std::optional<int> line() const { return line_; }

  bool null() override { return value(); }
  bool boolean(bool) override { return value(); }
  bool number_integer(number_integer_t) override { return value(); }
  bool number_unsigned(number_unsigned_t) override { return value(); }
  bool number_float(number_float_t, const string_t&) override { return value(); }
  bool string(string_t&) override { return value(); }
  bool binary(binary_t&) override { return value(); }
  bool start_object(std::size_t) override { return open(false); }
  bool start_array(std::size_t) override { return open(true); }
  bool end_object() override { return levels_.pop_back(), true; }
  bool end_array() override { return levels_.pop_back(), true; }

  bool key(string_t& name) override {
    Level& object = levels_.back();
    object.step = pointerStep(name);
    if (!object.names.insert(name).second) return refuse("stands there twice");
    return object.names.size() <= kMostFields || refuse("there are too many fields");
  }

  bool parse_error(std::size_t, const std::string&, const Json::exception& error) override {
    const std::string_view what = error.what();
    constexpr std::string_view kFront = "parse error at ";
    const std::size_t front = what.find(kFront);
    const std::size_t bracket = what.find("] ");
    error_ = front != what.npos ? std::string(what.substr(front + kFront.size()))
                                : fmt::format("line {}: {}", position_.line,
                                              what.substr(bracket == what.npos ? 0 : bracket + 2));
    return false;
  }

 private:
  std::string pointer() const {
    std::string text;
    for (const Level& level : levels_) text += level.step;
    return text;
  }

  bool refuse(const char* why) {
    error_ = fmt::format("line {}: {}: {}", position_.line, pointer(), why);
    return false;
  }

  // False ends the walk.
  bool value() {
    if (!levels_.empty() && levels_.back().isArray) {
      levels_.back().step = '/' + std::to_string(++levels_.back().index);
    }
    if (wanted_ == nullptr || pointer() != *wanted_) return true;
    line_ = position_.line;
    return false;
  }

  bool open(bool isArray) {
    if (!value()) return false;
    if (levels_.size() == kMostDepth) return refuse("is nested too deep");
    levels_.push_back({{}, -1, isArray, {}});
    return true;
  }

  const Position& position_;
  const std::string* wanted_;
  std::vector<Level> levels_;
  std::string error_;
  std::optional<int> line_;
};

struct Walked {
  std::string error;
  std::optional<int> line;
};

Walked walk(const std::string& text, const std::string* wanted) {
  Position position;
  Walk walk(position, wanted);
  const char* begin = text.data();
  Json::sax_parse(Reader{begin, &position}, Reader{begin + text.size(), &position}, &walk);
  return {walk.error(), walk.line()};
}

}  // namespace

Json parseJson(const std::string& text) {
  const std::string error = walk(text, nullptr).error;
  if (!error.empty()) throw JsonTextError(error);
  return Json::parse(text);
}

std::optional<int> lineOf(const std::string& text, const std::string& pointer) {
  return walk(text, &pointer).line;
}

std::string withLine(const std::string& text, const std::string& pointer, const std::string& why) {
  const std::optional<int> line = lineOf(text, pointer);
  return line ? fmt::format("line {}: {}", *line, why) : why;
}

std::string pointerStep(std::string_view name) {
  std::string escaped = "/";
  for (const char c : name) escaped += c == '~' ? "~0" : c == '/' ? "~1" : std::string(1, c);
  return escaped;
}

}  // namespace vxmeta
