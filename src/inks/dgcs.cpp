// SPDX-License-Identifier: Apache-2.0
// DGC curves: vxDGCL:dgcs, an unordered array of
//   vxDGC:name    text
//   vxDGC:values  text, optional; every number with six decimals and one blank behind it
#include <stdexcept>
#include <string_view>

#include "core/call_guard.h"
#include "core/unread.h"
#include "core/value_text.h"

using xmpl::ItemReader;
using xmpl::ItemWriter;

namespace {

constexpr xmpl::List kDgcs{"vxDGCL:dgcs", xmpl::ArrayKind::unordered};

// Deliberate: a number ends at a blank, but a blank where a number should begin takes the next
// number too, and takes it again for every further blank. Looking for that number once for all of
// the blanks before it keeps the reading of a text in step with its length.
class ValuesText {
 public:
  explicit ValuesText(const std::string& text) : text_(text) {}

  bool atEnd() const { return position_ >= text_.size(); }

  double next() {
    const std::size_t blank = text_.find(' ', position_);
    if (blank == std::string::npos) {
      throw std::length_error("DGC values: no blank behind the last number");
    }
    const double value = blank > position_
                             ? xmpl::leadingReal(text_.substr(position_, blank - position_).c_str())
                             : numberAhead();
    position_ = blank + 1;
    return value;
  }

 private:
  double numberAhead() {
    if (!hasAhead_ || ahead_ < position_) {
      ahead_ = std::min(text_.find_first_not_of(" \t\n\v\f\r", position_), text_.size());
      numberAhead_ = xmpl::leadingReal(text_.c_str() + ahead_);
      hasAhead_ = true;
    }
    return numberAhead_;
  }

  const std::string& text_;
  std::size_t position_ = 0;
  bool hasAhead_ = false;
  std::size_t ahead_ = 0;  // where the number behind the blanks begins
  double numberAhead_ = 0;
};

std::vector<double> valuesOf(const std::string& text) {
  std::vector<double> values;
  for (ValuesText rest(text); !rest.atEnd();) values.push_back(rest.next());
  return values;
}

std::string textOf(const std::vector<double>& values) {
  std::string text;
  for (const double value : values) text.append(xmpl::fixedText(value, 6)).push_back(' ');
  return text;
}

bool readDgc(const ItemReader& item, XMPlDgcc& dgc) {
  std::string values;
  if (!item.text("vxDGC:name", dgc.name) || !item.optionalText("vxDGC:values", values)) {
    return false;
  }
  dgc.values = valuesOf(values);
  return true;
}

void writeDgc(const ItemWriter& item, const XMPlDgcc& dgc) {
  item.text("vxDGC:name", dgc.name);
  item.text("vxDGC:values", textOf(dgc.values));
}

}  // namespace

bool XMPlDgcc::operator==(const XMPlDgcc& other) const {
  return name == other.name && values == other.values;
}

bool XMPlDgcc::operator<(const XMPlDgcc& other) const {
  if (name != other.name) return name < other.name;
  if (values.size() != other.values.size()) return values.size() < other.values.size();
  for (std::size_t i = 0; i < values.size(); ++i) {
    if (values[i] != other.values[i]) return values[i] < other.values[i];
  }
  return true;  // Deliberate: a curve is less than its equal.
}

void xmpl::findUnreadDgcs(const Metadata& metadata, Unread& unread) {
  findUnread<XMPlDgcc>(metadata, kDgcs, readDgc, writeDgc, unread);
}

bool XMPlib::GetDgcs(std::vector<XMPlDgcc>& dgcs) const {
  return guarded(reading(kDgcs, readDgc, dgcs));
}

bool XMPlib::SetDgcs(const std::vector<XMPlDgcc>& dgcs) {
  return guarded(writing(kDgcs, writeDgc, dgcs));
}
