// SPDX-License-Identifier: Apache-2.0
#include "core/packet/text_output.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace xmpl {
namespace {

// What a character becomes: most stay what they are.
struct Written {
  std::array<char, 7> text{};
  std::uint8_t size = 0;
};
static_assert(sizeof(Written) == 8, "copied in one go");
constexpr std::size_t kMostWritten = 6;  // bytes that one becomes

constexpr Written written(std::string_view text) {
  Written result;
  std::copy(text.begin(), text.end(), result.text.begin());
  result.size = static_cast<std::uint8_t>(text.size());
  return result;
}

constexpr unsigned char kDelete = 0x7F;

using WrittenByPlace = std::array<Written, 256>;

constexpr WrittenByPlace writtenWhere(bool isGreaterEscaped, bool isQuoteEscaped) {
  WrittenByPlace table;
  for (std::size_t c = 0; c < table.size(); ++c) {
    const char character = static_cast<char>(c);
    table[c] = written(c < 0x20 ? " " : std::string_view(&character, 1));  // as a Set stores it
  }
  table['\n'] = written("&#xA;");
  table['\t'] = written("&#x9;");
  table['\r'] = written("&#xD;");
  table[kDelete] = written("&#127;");  // a load makes a blank of it, but not of a reference to it
  table['&'] = written("&amp;");
  table['<'] = written("&lt;");
  if (isGreaterEscaped) table['>'] = written("&gt;");
  if (isQuoteEscaped) table['"'] = written("&quot;");
  return table;
}

template <Place kPlace>
constexpr WrittenByPlace kWritten = writtenWhere(true, true);
template <>
constexpr WrittenByPlace kWritten<Place::element> = writtenWhere(true, false);
// The toolkit writes '>' here as it is, and a load takes it.
template <>
constexpr WrittenByPlace kWritten<Place::toolkitForgets> = writtenWhere(false, true);

// What may not stay what it is: that and some signs that are rare in texts. Each comparison is for
// characters that differ in the bits that are set or turned: controls with 0x21 to 0x27, which
// turned stand below the blank, and "<=>?" with "|}~" and DEL.
auto mayChange(const Block& block) { return ((block ^ 0x07) < 0x27) | ((block | 0x43) == kDelete); }

// How far a text has come.
struct Progress {
  const char* from;
  const char* end;
  char* to;

  std::size_t left() const { return static_cast<std::size_t>(end - from); }
  void advance(std::size_t characters) {
    from += characters;
    to += characters;
  }
};

Found copyBlock(const Block& block, char* to) {
  std::memcpy(to, &block, kBlockBytes);
  return Found(mayChange(block));
}

// Goes over as many characters as have been copied, or to what is found among them and over that.
inline void goOn(Progress& at, std::size_t copied, const Found& found,
                 const WrittenByPlace& table) {
  if (!found.any()) return at.advance(copied);
  at.advance(found.before());
  const Written& written = table[static_cast<unsigned char>(*at.from++)];
  std::memcpy(at.to, &written, sizeof written);
  at.to += written.size;
}

// Writes what becomes of some characters, of less than a block more, or of all that are left. May
// write kBlockBytes behind it.
void writePiece(Progress& progress, std::size_t characters, const WrittenByPlace& table) {
  Progress at = progress;
  const char* const until = at.from + characters;
  const char* const wholeUntil =
      at.left() < kBlockBytes ? at.from : std::min(until, at.end - kBlockBytes + 1);
  while (at.from < wholeUntil) {
    goOn(at, kBlockBytes, copyBlock(blockAt(at.from), at.to), table);
  }
  while (at.from < until) {
    goOn(at, at.left(), copyBlock(blockAt(at.from, at.left()), at.to), table);
  }
  progress = at;
}

}  // namespace

void TextOutput::flush() {
  text_.append(buffer_.data(), static_cast<std::size_t>(at_ - buffer_.data()));
  at_ = buffer_.data();
  if (text_.size() > limit_.bytes) limit_.onMore(text_);
}

template <Place kPlace>
void TextOutput::escape(std::string_view text) {
  if (text.size() < kBlockBytes) {  // most are, and stay what they are
    room(kBlockBytes);
    if (!copyBlock(blockAt(text.data(), text.size()), at_).any()) {
      at_ += text.size();
      return;
    }
  }
  constexpr std::size_t kPiece = 480;
  static_assert((kPiece + kBlockBytes) * kMostWritten + kRoom <= sizeof buffer_);
  Progress progress{text.data(), text.data() + text.size(), nullptr};
  do {
    const std::size_t piece = std::min(kPiece, progress.left());
    room((piece + kBlockBytes) * kMostWritten);
    progress.to = at_;
    writePiece(progress, piece, kWritten<kPlace>);
    at_ = progress.to;
  } while (progress.left() > 0);
}

template void TextOutput::escape<Place::element>(std::string_view);
template void TextOutput::escape<Place::attribute>(std::string_view);
template void TextOutput::escape<Place::toolkitForgets>(std::string_view);

void TextOutput::blanks(std::size_t count) {
  for (; count > kRoom; count -= kRoom) blanks(kRoom);
  room(count);
  std::memset(at_, ' ', count);
  at_ += count;
}

}  // namespace xmpl
