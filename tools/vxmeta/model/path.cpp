// SPDX-License-Identifier: Apache-2.0
#include "model/path.h"

#include <fmt/format.h>

#include <charconv>

#include "model/json.h"
#include "model/place.h"

#include <nlohmann/json.hpp>

namespace vxmeta {
namespace {

[[noreturn]] void refuse(std::string_view path, const std::string& why) {
  throw PathError(fmt::format("'{}': {}", path, why));
}

const Type& withoutOptional(const Type& type) {
  return type.kind == Kind::optional ? withoutOptional(*type.item) : type;
}

std::string namesOf(const Type& record) {
  std::string names;
  for (const Field& field : record.fields) {
    if (field.isStored) names += (names.empty() ? "" : ", ") + std::string(field.name);
  }
  return names;
}

Step stepOf(Step::Way way, std::string_view name) {
  Step step;
  step.way = way;
  step.name = name;
  return step;
}

// Reads one path from the left; knows the type of what it has reached.
class Parser {
 public:
  Parser(std::string_view text, const Type& root) : text_(text), root_(root), type_(&root) {}

  Path parse() {
    Path path = {fieldStep()};
    while (at_ < text_.size()) path.push_back(nextStep());
    return path;
  }

  const Type& type() const { return *type_; }  // of what the path leads to

 private:
  Step nextStep() {
    const char sign = text_[at_++];
    if (sign == '.') return fieldStep();
    if (sign == '[') return bracketStep();
    refuse(text_, fmt::format("expected '.' or '[' at '{}'", text_.substr(at_ - 1)));
  }

  std::string_view upTo(std::string_view signs) {
    const std::size_t end = std::min(text_.find_first_of(signs, at_), text_.size());
    const std::string_view word = text_.substr(at_, end - at_);
    at_ = end;
    return word;
  }

  Step fieldStep() {
    const std::string_view name = upTo(".[");
    if (type_->kind == Kind::list) {
      refuse(text_, fmt::format("'{}' is a list: choose an item, as in '{}[0]'", before(name),
                                before(name)));
    }
    type_ = &withoutOptional(*fieldOf(*type_, name).type);
    return stepOf(Step::Way::field, name);
  }

  const Field& fieldOf(const Type& record, std::string_view name) {
    const Field* field = record.kind == Kind::record ? record.field(name) : nullptr;
    if (field != nullptr && field->isStored) return *field;
    if (record.kind != Kind::record) refuse(text_, fmt::format("no field '{}' in there", name));
    const bool isSelection = at_ < text_.size() && text_[at_] == '=';
    const auto near = isSelection ? nearestPaths(name, record) : nearestPaths(text_, root_);
    refuse(text_,
           fmt::format("no field '{}'; {}there are: {}", name, guess(near), namesOf(record)));
  }

  // "did you mean job.orderid? "
  static std::string guess(const std::vector<std::string>& paths) {
    return paths.empty() ? "" : fmt::format("did you mean {}? ", fmt::join(paths, ", "));
  }

  Step bracketStep() {
    if (type_->kind != Kind::list) refuse(text_, "only a list has items in [ ]");
    type_ = &withoutOptional(*type_->item);
    const std::size_t end = std::min(text_.find_first_of("=]", at_), text_.size());
    Step step = end < text_.size() && text_[end] == '=' ? matchStep() : indexStep();
    if (at_ >= text_.size() || text_[at_] != ']') refuse(text_, "a ']' is missing");
    ++at_;
    return step;
  }

  Step indexStep() {
    const std::string_view digits = upTo("]");
    Step step = stepOf(Step::Way::index, {});
    const char* end = digits.data() + digits.size();
    const auto [rest, error] = std::from_chars(digits.data(), end, step.index);
    if (error != std::errc() || rest != end) {
      refuse(text_, fmt::format("'{}' is neither a number nor field=value", digits));
    }
    return step;
  }

  Step matchStep() {
    const std::string_view name = upTo("=");
    const Type& type = withoutOptional(*fieldOf(*type_, name).type);
    if (type.kind == Kind::record || type.kind == Kind::list) {
      refuse(text_, fmt::format("'{}' is no single value to look for", name));
    }
    ++at_;
    Step step = stepOf(Step::Way::match, name);
    step.value = matchedValue();
    requireValueOf(type, step);
    return step;
  }

  void requireValueOf(const Type& type, Step& step) {
    if (type.kind == Kind::text) return;
    if (type.kind == Kind::truth) {
      if (step.value == "true" || step.value == "false") return;
      refuse(text_, fmt::format("'{}' is true or false, not '{}'", step.name, step.value));
    }
    const char* end = step.value.data() + step.value.size();
    const auto [rest, error] = std::from_chars(step.value.data(), end, step.number);
    if (error == std::errc() && rest == end) return;
    refuse(text_, fmt::format("'{}' is a number, and '{}' is none", step.name, step.value));
  }

  // Up to the next "]"; in double quotes, where it holds one.
  std::string matchedValue() {
    if (at_ >= text_.size() || text_[at_] != '"') return std::string(upTo("]"));
    ++at_;
    std::string value(upTo("\""));
    if (at_ < text_.size()) ++at_;
    return value;
  }

  std::string_view before(std::string_view name) const {
    return text_.substr(0, at_ - name.size() - 1);
  }

  std::string_view text_;
  const Type& root_;
  std::size_t at_ = 0;
  const Type* type_;
};

std::optional<View> itemAt(const View& list, std::ptrdiff_t index) {
  const auto size = static_cast<std::ptrdiff_t>(list.size());
  const std::ptrdiff_t place = index < 0 ? index + size : index;
  if (place < 0 || place >= size) return std::nullopt;
  return list.item(static_cast<std::size_t>(place));
}

std::optional<View> itemWith(const View& list, const Step& step) {
  for (std::size_t i = 0; i < list.size(); ++i) {
    if (matches(list.item(i), step)) return list.item(i);
  }
  return std::nullopt;
}

std::optional<View> partOf(const View& value, const Step& step) {
  switch (step.way) {
    case Step::Way::field:
      return value.field(step.name);
    case Step::Way::index:
      return itemAt(value, step.index);
    case Step::Way::match:
      return itemWith(value, step);
  }
  return std::nullopt;
}

}  // namespace

Path parsePath(std::string_view text, const Type& root) { return Parser(text, root).parse(); }

const Type& typeOfPath(std::string_view text, const Type& root) {
  Parser parser(text, root);
  parser.parse();
  return parser.type();
}

std::optional<View> valueAt(const View& root, const Path& path) {
  View value = root;
  for (const Step& step : path) {
    const std::optional<View> part = partOf(value, step);
    if (!part) return std::nullopt;
    value = part->present();
    if (value.type == nullptr) return std::nullopt;
  }
  return value;
}

const Type& typeAt(const Path& path, const Type& root) {
  const Type* type = &root;
  for (const Step& step : path) {
    const bool isField = step.way == Step::Way::field;
    type = &withoutOptional(isField ? *type->field(step.name)->type : *type->item);
  }
  return *type;
}

bool matches(const View& record, const Step& step) {
  const View field = record.field(step.name).present();
  if (field.type == nullptr) return false;
  if (!field.isNumber()) return plainText(field) == step.value;
  return isSame(viewOf(step.number), viewOf(field.number()));
}

std::string plainText(const View& value) {
  if (value.is(Kind::text)) return value.text();
  const Json json = toJson(value);
  return json.is_string() ? json.get<std::string>() : json.dump();
}

}  // namespace vxmeta
