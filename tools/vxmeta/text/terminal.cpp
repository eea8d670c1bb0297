// SPDX-License-Identifier: Apache-2.0
#include "text/terminal.h"

#include <fmt/format.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <cstdlib>

#include "text/characters.h"

namespace vxmeta {
namespace {

// Controls, marks of writing direction, line and paragraph separators, and tags.
bool steers(char32_t code) {
  return code < 0x20 || (code >= 0x7F && code < 0xA0) || code == 0x61C ||
         (code >= 0x200B && code <= 0x200F) || (code >= 0x2028 && code <= 0x202E) ||
         (code >= 0x2060 && code <= 0x206F) || code == 0xFEFF ||
         (code >= 0xFFF9 && code <= 0xFFFB) || (code >= 0xE0000 && code <= 0xE007F);
}

std::string escaped(const Character& character) {
  const auto code = static_cast<unsigned>(character.code);
  if (code == '\n') return "\\n";
  if (code == '\t') return "\\t";
  if (code == '\r') return "\\r";
  return character.isValid && code > 0xFF ? fmt::format("\\u{:04x}", code)
                                          : fmt::format("\\x{:02x}", code);
}

const char* codeOf(Style style) {
  switch (style) {
    case Style::bold:
      return "\x1b[1m";
    case Style::dim:
      return "\x1b[2m";
    case Style::warning:
      return "\x1b[33m";
    case Style::added:
      return "\x1b[32m";
    case Style::removed:
      return "\x1b[31m";
    default:
      return "";
  }
}

bool wantsColours() {
  const char* no = std::getenv("NO_COLOR");
  const char* term = std::getenv("TERM");
  const bool isDumb = term == nullptr || std::string_view(term) == "dumb";
  return isTerminal() && !isDumb && (no == nullptr || *no == '\0');
}

std::size_t terminalWidth() {
  winsize size{};
  if (ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0) return size.ws_col;
  return 80;
}

}  // namespace

bool isTerminal() { return isatty(STDOUT_FILENO) == 1; }

Screen screenOf(ColourChoice choice) {
  Screen screen;
  screen.hasColours =
      choice == ColourChoice::automatic ? wantsColours() : choice == ColourChoice::always;
  if (isTerminal()) screen.width = terminalWidth();
  return screen;
}

std::string visible(std::string_view text) {
  std::string shown;
  shown.reserve(text.size());
  while (!text.empty()) {
    const Character character = firstOf(text);
    const bool isPlain = character.isValid && !steers(character.code);
    isPlain ? shown.append(text.substr(0, character.bytes)) : shown.append(escaped(character));
    text.remove_prefix(character.bytes);
  }
  return shown;
}

std::size_t widthOf(std::string_view text) {
  std::size_t width = 0;
  while (!text.empty()) {
    const Character character = firstOf(text);
    width += widthOf(character);
    text.remove_prefix(character.bytes);
  }
  return width;
}

std::string cutTo(std::string_view text, std::size_t width) {
  if (widthOf(text) <= width) return std::string(text);
  if (width == 0) return "";
  std::size_t taken = 0;
  std::size_t bytes = 0;
  while (bytes < text.size()) {
    const Character character = firstOf(text.substr(bytes));
    taken += widthOf(character);
    if (taken >= width) break;
    bytes += character.bytes;
  }
  return std::string(text.substr(0, bytes)) + "…";
}

std::string styled(const Screen& screen, Style style, std::string_view text) {
  if (!screen.hasColours || style == Style::plain || text.empty()) return std::string(text);
  return fmt::format("{}{}\x1b[0m", codeOf(style), text);
}

}  // namespace vxmeta
