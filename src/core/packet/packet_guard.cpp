#include "core/packet/packet_guard.h"

#include <algorithm>
#include <array>
#include <set>

#include "core/packet/xml_text.h"

namespace xmpl {
namespace {

constexpr std::size_t kIndent = 3;  // of the toolkit's serialiser

constexpr CharacterSet kNameEnds(" \t\r\n>/");
constexpr CharacterSet kTagStops("\"'>");

// An element that is still open.
struct Element {
  std::size_t namedChildren = 0;  // all but array items
  std::size_t properties = 0;     // of the elements in an rdf:RDF: children and attributes
  bool isRdf = false;
};

class Scanner {
 public:
  // What the toolkit shall parse may differ from the packet only where that may be edited.
  Scanner(std::string_view packet, bool mayEdit) : packet_(packet), mayEdit_(mayEdit) {
    result_.text.reserve(packet.size());
  }

  GuardedPacket scan() && {
    while (scanTag()) {
    }
    result_.text.append(packet_.substr(copied_));
    return std::move(result_);
  }

 private:
  enum class Token { none, startTag, endTag, other };

  // The text up to the next tag, and the tag. False at the end, and where the packet breaks off.
  bool scanTag() {
    const std::size_t open = packet_.find('<', position_);
    if (open == kNone || open + 1 == packet_.size()) return false;
    const Token token = tokenAt(open);
    dropBlanks(position_, open, token);
    last_ = token;
    switch (token) {
      case Token::startTag:
        return scanStartTag(open);
      case Token::endTag:
        return scanEndTag(open);
      default:
        return skipOther(open);
    }
  }

  Token tokenAt(std::size_t open) const {
    const char next = packet_[open + 1];
    if (next == '/') return Token::endTag;
    return next == '!' || next == '?' ? Token::other : Token::startTag;
  }

  // Blanks between two tags are layout, unless they are all that an element holds. Those beside
  // comments, CDATA sections and processing instructions may be part of a text.
  void dropBlanks(std::size_t begin, std::size_t end, Token next) {
    const bool betweenTags = (last_ == Token::endTag && next != Token::other) ||
                             (last_ == Token::startTag && next == Token::startTag);
    if (begin == end || !betweenTags || !isXmlBlank(packet_[begin])) return;
    const std::string_view text = packet_.substr(begin, end - begin);
    if (!std::all_of(text.begin(), text.end(), isXmlBlank)) return;
    replace(begin, end, "");
  }

  // Comments, CDATA sections and processing instructions, each up to its own end.
  bool skipOther(std::size_t open) {
    constexpr std::pair<std::string_view, std::string_view> kOthers[] = {
        {"<!--", "-->"}, {"<![CDATA[", "]]>"}, {"<?", "?>"}, {"<!", ">"}};
    const std::string_view rest = packet_.substr(open);
    if (rest.starts_with("<!DOCTYPE")) refuse("DOCTYPE is not allowed", open);
    for (const auto& [begin, end] : kOthers) {
      if (!rest.starts_with(begin)) continue;
      const std::size_t found = rest.find(end, begin.size());
      position_ = found == kNone ? packet_.size() : open + found + end.size();
      break;
    }
    return true;
  }

  bool scanEndTag(std::size_t open) {
    const std::size_t close = packet_.find('>', open);
    if (close == kNone) return false;
    if (depth_ > 0) --depth_;
    position_ = close + 1;
    return true;
  }

  bool scanStartTag(std::size_t open) {
    const std::size_t name = open + 1;
    std::size_t end = name;
    while (end < packet_.size() && isNameCharacter(packet_[end])) ++end;
    const bool isWhole = end < packet_.size() && kNameEnds.has(packet_[end]);
    openElement(isWhole ? localName(packet_.substr(name, end - name)) : "", open);
    const std::size_t close = scanAttributes(end);
    if (close == kNone) return false;
    estimateSerialised(close - open, open);
    position_ = close + 1;
    if (packet_[close - 1] == '/') {
      --depth_;
      last_ = Token::endTag;
    }
    return true;
  }

  // `local` is the local name, empty for one with characters that are not ASCII.
  void openElement(std::string_view local, std::size_t open) {
    if (depth_ == limits::kElementDepth) refuse("more than 128 levels of elements", open);
    if (local != "li") {
      if (depth_ > 0) countNamedChild(open_[depth_ - 1], open);
      if (depth_ > 1) countProperty(open_[depth_ - 2], open);
    }
    open_[depth_++] = Element{0, 0, local == "RDF"};
  }

  void countNamedChild(Element& parent, std::size_t position) {
    if (++parent.namedChildren > limits::kNamedChildren) {
      refuse("more than 16,384 named children of one element", position);
    }
    countSearch(parent.namedChildren, position);
  }

  // A child or an attribute of an element whose parent is `grandparent`.
  void countProperty(Element& grandparent, std::size_t position) {
    if (!grandparent.isRdf) return;
    if (++grandparent.properties > limits::kNamedChildren) {
      refuse("more than 16,384 properties", position);
    }
    countSearch(grandparent.properties, position);
  }

  void countSearch(std::size_t names, std::size_t position) {
    searched_ += names;
    if (searched_ > limits::kNameSearches) refuse("too many elements of many children", position);
  }

  // Reads the attributes of the tag from `from` on; answers the position of its '>'.
  std::size_t scanAttributes(std::size_t from) {
    std::size_t count = 0;
    while (true) {
      std::size_t found = from;
      while (found < packet_.size() && !kTagStops.has(packet_[found])) ++found;
      if (found == packet_.size()) return kNone;
      if (packet_[found] == '>') return found;
      const std::size_t end = packet_.find(packet_[found], found + 1);
      if (end == kNone) return kNone;
      if (++count > limits::kAttributes) refuse("more than 4,096 attributes of one element", from);
      countSearch(count, from);
      noteAttribute(packet_.substr(from, found - from), packet_.substr(found + 1, end - found - 1),
                    from);
      from = end + 1;
    }
  }

  // `before` is what stands in the tag before the quoted value.
  void noteAttribute(std::string_view before, std::string_view value, std::size_t position) {
    serialised_ += kIndent * depth_;  // it may come out as an element of its own
    const std::size_t declaration = declarationIn(before);
    const bool declares = declaration != kNone;
    const bool isPlain = declares && declaration > 0 && isXmlBlank(before[declaration - 1]);
    if (declares) {
      noteDeclaration(declaredPrefix(before.substr(declaration)), value, isPlain, position);
    }
    if (!isPlain && depth_ > 1 && attributeName(before) != "rdf:about") {
      countProperty(open_[depth_ - 2], position);
    }
  }

  void noteDeclaration(std::string_view prefix, std::string_view uri, bool isPlain,
                       std::size_t position) {
    const bool isNew = !uri.empty() && declared_.insert(uri).second;
    if (declared_.size() > limits::kNamespaces) refuse("more than 1,024 namespaces", position);
    if (uri.find_first_of("&\"") == kNone) {
      if (isNew) result_.declarations.push_back({std::string(prefix), std::string(uri)});
      return;
    }
    const std::optional<std::string> written = quotable(uri);
    if (!written) refuse("a namespace URI with a reference that XML does not know", position);
    if (!mayEdit_) refuse(causeInUtf16(uri), position);
    if (!isPlain) refuse("a namespace URI with a reference or quote behind an odd blank", position);
    // The toolkit writes URIs as they are. So it gets, for the URI, the text that shall be written.
    const auto begin = static_cast<std::size_t>(uri.data() - packet_.data());
    const std::string escaped = replaced(*written, '&', "&amp;");
    replace(begin, begin + uri.size(), escaped);
    serialised_ += escaped.size();
    if (isNew) result_.declarations.push_back({std::string(prefix), *written});
  }

  static const char* causeInUtf16(std::string_view uri) {
    if (uri.find('&') == kNone) return "a double quote in a namespace URI of a UTF-16 packet";
    return uri.find("&#") == kNone ? "an entity reference in a namespace URI of a UTF-16 packet"
                                   : "a character reference in a namespace URI of a UTF-16 packet";
  }

  void replace(std::size_t begin, std::size_t end, std::string_view text) {
    result_.text.append(packet_.substr(copied_, begin - copied_)).append(text);
    copied_ = end;
  }

  // An upper estimate: every tag on a line of its own, indented by its depth.
  void estimateSerialised(std::size_t tagBytes, std::size_t open) {
    serialised_ += kIndent * (depth_ + 2) + tagBytes;
    if (serialised_ > limits::kSerialisedBytes) refuse("more than 1 GiB when serialised", open);
  }

  [[noreturn]] static void refuse(const char* what, std::size_t position) {
    throw PacketRefused("Packet refused at offset " + std::to_string(position) + ": " + what);
  }

  std::string_view packet_;
  bool mayEdit_;
  std::size_t position_ = 0;  // scanned up to here
  std::size_t copied_ = 0;    // copied, or dropped, up to here
  Token last_ = Token::none;
  std::array<Element, limits::kElementDepth> open_{};
  std::size_t depth_ = 0;
  std::size_t serialised_ = 0;
  std::size_t searched_ = 0;
  std::set<std::string_view> declared_;
  GuardedPacket result_;
};

}  // namespace

GuardedPacket guardPacket(std::string_view packet) {
  if (packet.size() > limits::kTextBytes) {
    throw PacketRefused("Packet refused: more than 256 MiB of text");
  }
  const Encoding encoding = encodingOf(packet);
  if (encoding == Encoding::bytes) return Scanner(packet, true).scan();
  const std::string narrow = narrowed(packet, encoding);
  GuardedPacket guarded = Scanner(narrow, false).scan();
  guarded.text = packet;
  return guarded;
}

}  // namespace xmpl
