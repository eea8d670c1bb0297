// SPDX-License-Identifier: Apache-2.0
#include "text/table.h"

#include <fmt/format.h>

#include <algorithm>

namespace vxmeta {
namespace {

constexpr std::size_t kGap = 2;     // blanks between columns
constexpr std::size_t kSwatch = 3;  // cells of a swatch and the blank behind it
constexpr std::size_t kLeastHeading = 3;
constexpr std::size_t kLeastWidth = 6;  // of a column that is cut

std::size_t widthOf(const Cell& cell) {
  return vxmeta::widthOf(cell.text) + (cell.swatch ? kSwatch : 0);
}

std::size_t digitsBehindPoint(const std::string& number) {
  const std::size_t point = number.find('.');
  return point == std::string::npos ? 0 : number.size() - point;
}

class Formatter {
 public:
  Formatter(const Table& table, const Screen& screen, std::size_t indent)
      : table_(table), screen_(screen), indent_(indent), widths_(table.columns.size()) {
    alignPoints();
    for (std::size_t c = 0; c < widths_.size(); ++c) widths_[c] = naturalWidth(c);
    if (screen_.width == 0) return;
    for (std::size_t& width : widths_) width = std::min(width, screen_.width);
    shrink();
    if (isHeaded()) leaveOutColumns();
  }

  std::string format() {
    std::vector<Cell> headings;
    for (const Column& column : table_.columns) {
      headings.push_back({column.heading, {}, Style::dim});
    }
    std::string text = isHeaded() ? line(headings) : "";
    for (const std::vector<Cell>& row : table_.rows) text += line(row);
    return text;
  }

 private:
  bool isHeaded() const {
    return std::any_of(table_.columns.begin(), table_.columns.end(),
                       [](const Column& column) { return !column.heading.empty(); });
  }

  bool isBlank(std::size_t column) const {
    return std::all_of(table_.rows.begin(), table_.rows.end(), [&](const auto& row) {
      return row[column].text.empty() && !row[column].swatch;
    });
  }

  std::size_t naturalWidth(std::size_t column) const {
    if (isBlank(column)) return 0;
    std::size_t width = vxmeta::widthOf(table_.columns[column].heading);
    for (const auto& row : table_.rows) width = std::max(width, widthOf(row[column]));
    return width;
  }

  // Fills up what stands behind decimal points, so that they come below each other.
  void alignPoints() {
    for (std::size_t c = 0; c < table_.columns.size(); ++c) {
      if (!table_.columns[c].isNumeric) continue;
      std::size_t digits = 0;
      for (const auto& row : table_.rows) digits = std::max(digits, digitsBehindPoint(row[c].text));
      for (auto& row : table_.rows) {
        if (row[c].text.empty()) continue;
        row[c].text.append(digits - digitsBehindPoint(row[c].text), ' ');
      }
    }
  }

  std::size_t total() const {
    std::size_t width = indent_;
    for (const std::size_t column : widths_) width += column == 0 ? 0 : column + kGap;
    return width < kGap ? 0 : width - kGap;
  }

  std::size_t contentWidth(std::size_t column) const {
    std::size_t width = 0;
    for (const auto& row : table_.rows) width = std::max(width, widthOf(row[column]));
    return width;
  }

  // What a column can be cut to: first its heading, then, where it is text, what stands in it.
  std::size_t leastWidth(std::size_t column, bool isTextCut) const {
    const std::size_t content = contentWidth(column);
    const bool isSwatch = std::any_of(table_.rows.begin(), table_.rows.end(), [&](const auto& row) {
      return row[column].swatch.has_value();
    });
    const bool isFixed = !isTextCut || isSwatch || table_.columns[column].isNumeric;
    return std::max(isFixed ? content : std::min(content, kLeastWidth), kLeastHeading);
  }

  void shrink() {
    shrinkTo(false);
    shrinkTo(true);
  }

  // Leaves out texts, the last first, then numbers, the first first; never the first of either, by
  // which a row is known.
  void leaveOutColumns() {
    std::vector<std::size_t> texts;
    std::vector<std::size_t> numbers;
    for (std::size_t c = 0; c < widths_.size(); ++c) {
      if (widths_[c] > 0) (table_.columns[c].isNumeric ? numbers : texts).push_back(c);
    }
    std::reverse(texts.begin(), texts.end());
    if (!texts.empty()) texts.pop_back();
    if (!numbers.empty()) numbers.erase(numbers.begin());
    texts.insert(texts.end(), numbers.begin(), numbers.end());
    for (const std::size_t column : texts) {
      if (total() <= screen_.width) return;
      widths_[column] = 0;
    }
  }

  // Takes from the widest column that has some to give, again and again.
  void shrinkTo(bool isTextCut) {
    std::vector<std::size_t> least(widths_.size());
    for (std::size_t c = 0; c < least.size(); ++c) least[c] = leastWidth(c, isTextCut);
    while (total() > screen_.width) {
      std::size_t widest = widths_.size();
      for (std::size_t c = 0; c < widths_.size(); ++c) {
        const bool isWider = widest == widths_.size() || widths_[c] > widths_[widest];
        if (widths_[c] > least[c] && isWider) widest = c;
      }
      if (widest == widths_.size()) return;
      --widths_[widest];
    }
  }

  std::string line(const std::vector<Cell>& cells) {
    Line line(screen_);
    std::size_t pending = indent_;
    for (std::size_t c = 0; c < cells.size(); ++c) {
      if (widths_[c] == 0) continue;
      pending = put(line, cells[c], c, pending) + kGap;
    }
    return line.end();
  }

  // Blanks come with the next cell, so that no line ends in any. Answers those that are left.
  std::size_t put(Line& line, const Cell& cell, std::size_t column, std::size_t before) {
    const std::size_t swatch = cell.swatch ? kSwatch : 0;
    const std::size_t room = std::max(widths_[column], swatch) - swatch;
    const std::string text = cutTo(cell.text, room);
    const std::size_t left = room - vxmeta::widthOf(text);
    if (text.empty() && !cell.swatch) return before + left;
    const bool isRight = table_.columns[column].isNumeric;
    line.add(Style::plain, std::string(before + (isRight ? left : 0), ' '));
    if (cell.swatch) line.swatch(*cell.swatch).add(Style::plain, " ");
    line.add(cell.style, text);
    return isRight ? 0 : left;
  }

  Table table_;
  const Screen& screen_;
  std::size_t indent_;
  std::vector<std::size_t> widths_;
};

}  // namespace

Line& Line::add(Style style, std::string_view visibleText) {
  parts_.push_back({std::string(visibleText), style, {}});
  width_ += widthOf(visibleText);
  return *this;
}

Line& Line::swatch(const Rgb& colour) {
  parts_.push_back({"  ", Style::plain, colour});
  width_ += 2;
  return *this;
}

std::string Line::formatted(const Part& part, const std::string& text) const {
  if (!screen_.hasColours || !part.colour) return styled(screen_, part.style, text);
  const Rgb& colour = *part.colour;
  return fmt::format("\x1b[48;2;{};{};{}m{}\x1b[0m", colour.r, colour.g, colour.b, text);
}

std::string Line::end() const {
  const bool isCut = screen_.width > 0 && width_ > screen_.width;
  std::size_t room = isCut ? screen_.width : width_;
  std::string line;
  for (const Part& part : parts_) {
    const std::size_t width = widthOf(part.text);
    // The last part that begins on the screen shows that there is more.
    const bool isLast = isCut && width >= room;
    line += formatted(part, isLast ? cutTo(part.text + "  ", room) : part.text);
    if (isLast) break;
    room -= width;
  }
  line.erase(line.find_last_not_of(' ') + 1);
  return line + '\n';
}

std::string formatTable(const Table& table, const Screen& screen, std::size_t indent) {
  return Formatter(table, screen, indent).format();
}

}  // namespace vxmeta
