// SPDX-License-Identifier: Apache-2.0
#include "files/file_kind.h"

#include <string>

#include "files/encoding.h"

namespace vxmeta {
namespace {

using namespace std::string_view_literals;
constexpr std::size_t kNone = std::string_view::npos;

struct Signature {
  std::string_view bytes;
  const char* name;
};

constexpr Signature kArtwork[] = {
    {"II*\0"sv, "TIFF"},
    {"MM\0*"sv, "TIFF"},
    {"\xFF\xD8\xFF"sv, "JPEG"},
    {"8BPS"sv, "PSD"},
    {"\x89PNG\r\n\x1A\n"sv, "PNG"},
    {"GIF87a"sv, "GIF"},
    {"GIF89a"sv, "GIF"},
    {"%!PS-Adobe-"sv, "EPS"},
    {"\xC5\xD0\xD3\xC6"sv, "EPS"},  // with a preview
    {"\x06\x06\xED\xF5\xD8\x1D\x46\xE5\xBD\x31\xEF\xE7\xFE\x74\xB7\x1D"sv, "INDD"},
};

bool beginsWith(std::string_view text, std::string_view begin) {
  return text.substr(0, begin.size()) == begin;
}

void skipBlanks(std::string_view& text) {
  const std::size_t first = text.find_first_not_of(" \t\r\n");
  text.remove_prefix(first == kNone ? text.size() : first);
}

// Whether a DOCTYPE declares something of its own, as those of HTML do not: XML, whatever it is.
bool hasInternalSubset(std::string_view text) {
  const std::size_t end = text.find_first_of("[>");
  return beginsWith(text, "<!DOCTYPE") && end != kNone && text[end] == '[';
}

// Skips what XML allows before the first element, up to an internal subset.
void skipProlog(std::string_view& text) {
  constexpr std::string_view kParts[][2] = {{"<!--", "-->"}, {"<!DOCTYPE", ">"}, {"<?", "?>"}};
  skipBlanks(text);
  for (bool skipped = true; skipped;) {
    skipped = false;
    for (const auto& [begin, end] : kParts) {
      if (!beginsWith(text, begin) || hasInternalSubset(text)) continue;
      const std::size_t at = text.find(end);
      text.remove_prefix(at == kNone ? text.size() : at + end.size());
      skipBlanks(text);
      skipped = true;
    }
  }
}

std::string_view localNameOf(std::string_view element) {
  const std::string_view name = element.substr(0, element.find_first_of(" \t\r\n/>"));
  const std::size_t colon = name.find(':');
  return name.substr(colon == kNone ? 1 : colon + 1);
}

// A wrapper, or an element that a packet begins with. A long prolog leaves the element out of the
// head: that counts as a packet, and the parse decides.
bool isPacketText(std::string_view head) {
  if (isUtf32(head)) return true;
  const std::string ascii = asAscii(head, encodingOf(head));
  std::string_view text = ascii;
  skipBlanks(text);
  if (!beginsWith(text, "<")) return false;
  if (beginsWith(text, "<?xpacket")) return true;
  skipProlog(text);
  if (text.empty() || hasInternalSubset(text)) return true;
  const std::string_view name = beginsWith(text, "<") ? localNameOf(text) : "";
  return name == "xmpmeta" || name == "xapmeta" || name == "RDF";
}

}  // namespace

FileKind fileKind(std::string_view head) {
  for (const Signature& known : kArtwork) {
    if (beginsWith(head, known.bytes)) return {FileKind::artwork, known.name};
  }
  if (isPacketText(head)) return {FileKind::packet, ""};
  if (head.substr(0, 1024).find("%PDF-") != kNone) return {FileKind::pdf, ""};
  return {};
}

}  // namespace vxmeta
