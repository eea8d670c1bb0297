// How a packet lies in its file: seen in its text, which may be UTF-16.
#include <algorithm>

#include "model/read_document.h"

namespace vxmeta {
namespace {

// The text with one byte for each unit of UTF-16; what is not ASCII in it is of no interest here.
std::string narrowed(const std::string& text, std::size_t first) {
  std::string narrow;
  narrow.reserve(text.size() / 2);
  for (std::size_t i = first; i < text.size(); i += 2) narrow += text[i];
  return narrow;
}

std::string encodingOf(const std::string& text) {
  const std::string_view begin = std::string_view(text).substr(0, 2);
  if (begin == "\xFE\xFF" || (begin.size() == 2 && begin[0] == '\0')) return "UTF-16BE";
  if (begin == "\xFF\xFE" || (begin.size() == 2 && begin[1] == '\0')) return "UTF-16LE";
  return "UTF-8";
}

bool isBlank(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; }

// The instruction that ends the packet, and the whole packet around the text.
struct Wrapper {
  std::size_t begin = 0;
  std::size_t closing = std::string::npos;  // none
  std::size_t end = 0;
};

Wrapper wrapperOf(const std::string& text) {
  Wrapper wrapper;
  wrapper.end = text.size();
  wrapper.closing = text.rfind("<?xpacket end=");
  if (wrapper.closing == std::string::npos) return wrapper;
  const std::size_t begin = text.find("<?xpacket begin=");
  if (begin < wrapper.closing) wrapper.begin = begin;
  const std::size_t end = text.find("?>", wrapper.closing);
  if (end != std::string::npos) wrapper.end = end + 2;
  return wrapper;
}

std::int64_t paddingBefore(const std::string& text, std::size_t closing) {
  const std::size_t end = std::min(closing, text.size());
  const auto blanks =
      std::find_if_not(text.rend() - static_cast<std::ptrdiff_t>(end), text.rend(), isBlank);
  return std::distance(text.rend() - static_cast<std::ptrdiff_t>(end), blanks);
}

}  // namespace

PacketInfo packetInfo(const FilePacket& packet) {
  PacketInfo info;
  info.source = packet.source;
  info.encoding = encodingOf(packet.text);
  const bool isWide = info.encoding != "UTF-8";
  const std::string text =
      isWide ? narrowed(packet.text, info.encoding == "UTF-16BE" ? 1 : 0) : packet.text;
  const Wrapper wrapper = wrapperOf(text);
  info.bytes = static_cast<std::int64_t>((wrapper.end - wrapper.begin) * (isWide ? 2 : 1));
  if (wrapper.closing == std::string::npos) return info.writable = true, info;
  info.padding = paddingBefore(text, wrapper.closing);
  const char mode = text.substr(wrapper.closing, 16).back();
  info.writable = mode != 'r';
  return info;
}

}  // namespace vxmeta
