// SPDX-License-Identifier: Apache-2.0
#include "files/scan.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string>

#include "files/encoding.h"

namespace vxmeta {
namespace {

constexpr std::size_t kPiece = std::size_t{1} << 20;
constexpr std::size_t kClosing = 128;  // a closing wrapper line is never longer in bytes

bool beginsWith(std::string_view text, std::string_view begin) {
  return text.substr(0, begin.size()) == begin;
}

// What the wrapper of UTF-16 has in its first value: it tells the two orders of bytes apart, where
// a byte further on one looks like the other.
const char* markOf(Encoding encoding) {
  constexpr const char* kMarks[] = {"", "\xFE\xFF", "\xFF\xFE"};
  return kMarks[static_cast<int>(encoding)];
}

// Finds the wrappers of one encoding, piece after piece.
class WrapperFinder {
 public:
  explicit WrapperFinder(Encoding encoding)
      : begins_{stored("<?xpacket begin=\"", encoding) + markOf(encoding),
                stored("<?xpacket begin='", encoding) + markOf(encoding)},
        end_(stored("<?xpacket end=", encoding)),
        close_(stored("?>", encoding)),
        common_(stored("<?xpacket ", encoding)) {}

  // `bytes` begins at `offset` of the file; what begins behind `piece` belongs to the next one.
  void look(std::string_view bytes, std::uint64_t offset, std::size_t piece,
            std::vector<Extent>& found) {
    for (std::size_t at = bytes.find(common_); at < piece; at = bytes.find(common_, at + 1)) {
      const std::string_view line = bytes.substr(at, kClosing);
      if (beginsWith(line, begins_[0]) || beginsWith(line, begins_[1])) open_ = offset + at;
      if (beginsWith(line, end_)) close(line, offset + at, found);
    }
  }

 private:
  void close(std::string_view line, std::uint64_t at, std::vector<Extent>& found) {
    const std::size_t close = line.find(close_);
    if (!open_ || close == std::string_view::npos) return;
    found.push_back({*open_, at + close + close_.size() - *open_});
    open_.reset();
  }

  std::string begins_[2], end_, close_, common_;
  std::optional<std::uint64_t> open_;  // where a packet began whose end has not come yet
};

}  // namespace

std::vector<Extent> scanForPackets(const InputFile& file) {
  std::array<WrapperFinder, 3> finders = {WrapperFinder(Encoding::utf8),
                                          WrapperFinder(Encoding::utf16be),
                                          WrapperFinder(Encoding::utf16le)};
  std::vector<Extent> found;
  for (std::uint64_t offset = 0; offset < file.size(); offset += kPiece) {
    const std::string bytes = file.read(offset, kPiece + kClosing);
    if (bytes.empty()) break;
    for (WrapperFinder& finder : finders) finder.look(bytes, offset, kPiece, found);
  }
  std::sort(found.begin(), found.end(),
            [](const Extent& a, const Extent& b) { return a.offset < b.offset; });
  return found;
}

}  // namespace vxmeta
