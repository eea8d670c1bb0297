// SPDX-License-Identifier: Apache-2.0
#include "packet_in_file.h"

#include <cctype>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <stdexcept>
#include <string_view>
#include <vector>

namespace {

constexpr std::size_t kNone = std::string_view::npos;

// --- Packets ------------------------------------------------------------------------------------

// All stretches from `head` through the first `close` from `tail` on. A head without a tail before
// the next head is what is left of a packet that was overwritten.
std::vector<std::string_view> stretches(std::string_view file, std::string_view head,
                                        std::string_view tail, std::string_view close) {
  std::vector<std::string_view> found;
  for (std::size_t begin = file.find(head), next; begin != kNone; begin = next) {
    next = file.find(head, begin + head.size());
    const std::string_view stretch = file.substr(begin, next - begin);
    const std::size_t end = stretch.find(close, stretch.find(tail));
    if (end != kNone) found.push_back(stretch.substr(0, end + close.size()));
  }
  return found;
}

std::vector<std::string_view> packetsIn(std::string_view file) {
  const auto wrapped = stretches(file, "<?xpacket begin=", "<?xpacket end=", "?>");
  return wrapped.empty() ? stretches(file, "<x:xmpmeta", "</x:xmpmeta", ">") : wrapped;
}

// --- PDF: as much as plain text shows -----------------------------------------------------------

bool endsWith(std::string_view text, std::string_view end) {
  return text.size() >= end.size() && text.substr(text.size() - end.size()) == end;
}

bool isTypeCatalogue(std::string_view before, std::string_view after) {
  const std::size_t last = before.find_last_not_of(" \t\r\n");
  const bool longerName = !after.empty() && std::isalnum(static_cast<unsigned char>(after[0])) != 0;
  return last != kNone && endsWith(before.substr(0, last + 1), "/Type") && !longerName;
}

// The last catalogue's text, up to the end of its object; empty if there is none.
std::string_view lastCatalogue(std::string_view file) {
  constexpr std::string_view kName = "/Catalog";
  std::size_t at = file.rfind(kName);
  while (at != kNone && !isTypeCatalogue(file.substr(0, at), file.substr(at + kName.size()))) {
    at = at == 0 ? kNone : file.rfind(kName, at - 1);
  }
  if (at == kNone) return {};
  const std::size_t begin = file.rfind(" obj", at);
  return begin == kNone ? std::string_view() : file.substr(begin, file.find("endobj", at) - begin);
}

// "N G" of "/Metadata N G R"; empty if it is not there.
std::string metadataReference(std::string_view catalogue) {
  constexpr std::string_view kKey = "/Metadata";
  const std::size_t key = catalogue.find(kKey);
  if (key == kNone) return {};
  std::istringstream text{std::string(catalogue.substr(key + kKey.size()))};
  unsigned number = 0;
  unsigned generation = 0;
  char r = 0;
  if (!(text >> number >> generation >> r) || r != 'R') return {};
  return std::to_string(number) + ' ' + std::to_string(generation);
}

// The object that was written last under this reference; empty if there is none.
std::string_view lastObject(std::string_view file, const std::string& reference) {
  const std::string header = reference + " obj";
  std::size_t at = file.rfind(header);
  while (at != kNone && at != 0 && std::isdigit(static_cast<unsigned char>(file[at - 1])) != 0) {
    at = file.rfind(header, at - 1);
  }
  return at == kNone ? std::string_view() : file.substr(at, file.find("endobj", at) - at);
}

// Which of the packets is in the object that the catalogue names, counted from 1; 0 if it names
// none.
std::size_t namedPacket(std::string_view file, const std::vector<std::string_view>& packets) {
  const std::string reference = metadataReference(lastCatalogue(file));
  if (reference.empty()) return 0;
  const std::string_view object = lastObject(file, reference);
  for (std::size_t i = 0; i < packets.size(); ++i) {
    if (packets[i].data() >= object.data() && packets[i].data() < object.data() + object.size()) {
      return i + 1;
    }
  }
  throw std::runtime_error("the document's packet, PDF object " + reference +
                           ", is not there as plain text");
}

bool isPdf(std::string_view file) { return file.substr(0, 1024).find("%PDF-") != kNone; }

}  // namespace

PacketInFile packetIn(const std::string& file) {
  const std::vector<std::string_view> packets = packetsIn(file);
  PacketInFile found;
  found.count = packets.size();
  const std::size_t named = isPdf(file) ? namedPacket(file, packets) : 0;
  found.named = named != 0;
  found.which = found.named ? named : found.count;
  if (found.which != 0) found.text = packets[found.which - 1];
  return found;
}

std::string readFile(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file || std::filesystem::is_directory(path)) throw std::runtime_error("cannot read " + path);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}
