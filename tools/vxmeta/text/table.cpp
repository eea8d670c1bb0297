#include "text/table.h"

#include <fmt/format.h>

#include <algorithm>
#include <numeric>

namespace vxmeta {
namespace {

constexpr std::size_t kGap = 2;         // blanks between columns
constexpr std::size_t kSwatch = 3;      // cells of a swatch and the blank behind it
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
  }

  std::string format() {
    std::vector<Cell> headings;
    bool isHeaded = false;
    for (const Column& column : table_.columns) {
      headings.push_back({column.heading, {}, Style::dim});
      isHeaded = isHeaded || !column.heading.empty();
    }
    std::string text = isHeaded ? line(headings) : "";
    for (const std::vector<Cell>& row : table_.rows) text += line(row);
    return text;
  }

 private:
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

  // Takes from the widest text again and again; what is still too wide is cut line by line.
  void shrink() {
    while (total() > screen_.width) {
      std::size_t widest = widths_.size();
      for (std::size_t c = 0; c < widths_.size(); ++c) {
        const bool canShrink = !table_.columns[c].isNumeric && widths_[c] > kLeastWidth;
        if (canShrink && (widest == widths_.size() || widths_[c] > widths_[widest])) widest = c;
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
    const std::size_t room = widths_[column] - (cell.swatch ? kSwatch : 0);
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
  if (isFull()) return *this;
  const bool isCut = screen_.width > 0 && used_ + widthOf(visibleText) > screen_.width;
  const std::string text =
      isCut ? cutTo(visibleText, screen_.width - used_) : std::string(visibleText);
  used_ = isCut ? screen_.width : used_ + widthOf(text);
  text_ += styled(screen_, style, text);
  return *this;
}

Line& Line::swatch(const Rgb& colour) {
  if (!screen_.hasColours) return add(Style::plain, "  ");
  if (isFull()) return *this;
  text_ += fmt::format("\x1b[48;2;{};{};{}m  \x1b[0m", colour.r, colour.g, colour.b);
  used_ += 2;
  return *this;
}

std::string Line::end() {
  text_.erase(text_.find_last_not_of(' ') + 1);
  return text_ + '\n';
}

std::string formatTable(const Table& table, const Screen& screen, std::size_t indent) {
  return Formatter(table, screen, indent).format();
}

}  // namespace vxmeta
