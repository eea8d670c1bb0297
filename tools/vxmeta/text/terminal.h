// SPDX-License-Identifier: Apache-2.0
// Text for people: safe and measured for a terminal, the same without escapes elsewhere.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace vxmeta {

// Where text goes.
struct Screen {
  bool hasColours = false;
  std::size_t width = 0;  // in cells; 0: no terminal, nothing is cut
};

enum class ColourChoice { automatic, always, never };

// Standard output. Colours by choice; else in a terminal without NO_COLOR and with a TERM that is
// not "dumb".
Screen screenOf(ColourChoice choice);

bool isTerminal();  // standard output is one

// With every character that could steer a terminal, or reorder what it shows, as an escape: \n,
// \x1b, \u202e. Bytes that are not UTF-8 too.
std::string visible(std::string_view text);

// Cells that visible text takes.
std::size_t widthOf(std::string_view text);

// Visible text in at most that many cells, "…" for what does not fit.
std::string cutTo(std::string_view text, std::size_t width);

enum class Style { plain, bold, dim, warning, added, removed };

// In the style, where the screen has colours.
std::string styled(const Screen& screen, Style style, std::string_view text);

}  // namespace vxmeta
