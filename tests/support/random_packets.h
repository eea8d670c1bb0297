// Packets by chance: RDF of every shape that is seen, and of many that are not, some of it damaged.
#pragma once

#include <cstddef>
#include <functional>
#include <initializer_list>
#include <random>
#include <string>
#include <utility>

class RandomPackets {
 public:
  // Where chance comes from: a number below the limit.
  using Numbers = std::function<unsigned(unsigned limit)>;

  explicit RandomPackets(Numbers below) : below_(std::move(below)) {}
  explicit RandomPackets(unsigned seed)
      : below_([random = std::mt19937(seed)](unsigned limit) mutable {
          return static_cast<unsigned>(random() % limit);
        }) {}

  std::string next() {
    std::string text =
        oneOf({"<x:xmpmeta xmlns:x='adobe:ns:meta/' x:xmptk='t'>", "", "<?xml version='1.0'?>"});
    const bool isWrapped = text.find("xmpmeta") != std::string::npos;
    text += "<rdf:RDF xmlns:rdf='http://www.w3.org/1999/02/22-rdf-syntax-ns#'>" + blank();
    for (unsigned i = below(4) / 3 + 1; i > 0; --i) text += joined({description(), blank()});
    text += "</rdf:RDF>";
    if (isWrapped) text += "</x:xmpmeta>";
    if (below(4) == 0)
      text = "<?xpacket begin='\xEF\xBB\xBF' id='W5M0'?>" + text + "<?xpacket end='w'?>";
    for (unsigned i = below(4) == 0 ? below(4) : 0; i > 0; --i) damage(text);
    return text;
  }

 private:
  unsigned below(std::size_t limit) { return below_(static_cast<unsigned>(limit)); }

  std::string oneOf(std::initializer_list<const char*> texts) {
    return *(texts.begin() + below(texts.size()));
  }

  std::string blank() { return oneOf({"", "\n", " \n  ", "\t"}); }

  // In that order: what is drawn first stands first, whatever the compiler.
  static std::string joined(std::initializer_list<std::string> parts) {
    std::string all;
    for (const std::string& part : parts) all += part;
    return all;
  }

  // The first, but for one time in ten.
  std::string usually(const char* usual, std::initializer_list<const char*> others) {
    return below(10) == 0 ? oneOf(others) : usual;
  }

  std::string description() {
    std::string text = "<rdf:Description";
    text += usually(" rdf:about=''", {"", " rdf:about='http://a/?b&amp;c=\"'", " about=''",
                                      " rdf:about='uuid:1'", " rdf:ID='i'"});
    text +=
        " xmlns:a='http://a.example/' xmlns:dc='http://purl.org/dc/elements/1.1/'"
        " xmlns:xmp='http://ns.adobe.com/xap/1.0/' xmlns:tiff='http://ns.adobe.com/tiff/1.0/'"
        " xmlns:vxGr='http://ns.orvo.example/xmp/grinfo/1.0/'";
    text += usually(" xmlns:b='http://b.example/'",
                    {" xmlns:b='http://a.example/'", " xmlns='http://c.example/' xmlns:b='u:b'",
                     " xmlns:b='http://purl.org/dc/1.1/'", ""});
    if (below(3) == 0) text += attribute();
    text += ">" + blank();
    for (unsigned i = below(5); i > 0; --i) text += joined({property(0), blank()});
    return text + "</rdf:Description>";
  }

  // Most are met once alone.
  std::string name() {
    if (below(3) > 0) return joined({oneOf({"a:n", "b:n"}), std::to_string(below(1000))});
    return oneOf({"a:p", "a:q", "a:r", "a:s", "b:p", "b:q", "b:t", "dc:title", "dc:creator",
                  "dc:subject", "dc:x", "xmp:Title", "xmp:CreateDate", "tiff:ImageDescription",
                  "tiff:Artist", "vxGr:nrpages", "vxGr:inks"});
  }

  std::string rareName() {
    return below(80) == 0 ? oneOf({"rdf:value", "rdf:type", "c", "rdf:li", "xml:p", "rdf:_1"})
                          : name();
  }

  std::string text() {
    return oneOf({"", "one", "two words", " padded ", "a&amp;b&lt;c", "line\nline", "&#x41;&#66;",
                  "<![CDATA[<x>]]>", "\xC3\xA9\xE2\x82\xAC", "\xE9", "&#x9;&#xA;\x01", " \n "});
  }

  std::string attribute() {
    return joined({" ", rareName(), "='", oneOf({"", "v", "a&quot;b", "w w"}), "'"});
  }

  std::string language() { return " xml:lang='" + oneOf({"x-default", "de", "EN-us", "fr"}) + "'"; }

  std::string items(unsigned depth) {
    std::string all = blank();
    for (unsigned i = below(4); i > 0; --i) {
      all += joined({below(30) == 0 ? property(depth) : element("rdf:li", depth), blank()});
    }
    return all;
  }

  std::string property(unsigned depth) { return element(rareName(), depth); }

  std::string properties(unsigned depth) {
    std::string all = blank();
    for (unsigned i = below(4); i > 0; --i) all += joined({property(depth), blank()});
    return all;
  }

  std::string array(unsigned depth) {
    const std::string kind = oneOf({"rdf:Bag", "rdf:Seq", "rdf:Alt", "rdf:Alt"});
    if (below(3) == 0) return alternative();
    return "<" + kind + ">" + items(depth + 1) + "</" + kind + ">";
  }

  std::string alternative() {
    std::string all = "<rdf:Alt>";
    for (unsigned i = below(3) + 1; i > 0; --i)
      all += joined({"<rdf:li", language(), ">", text(), "</rdf:li>"});
    return all + "</rdf:Alt>";
  }

  std::string element(const std::string& name, unsigned depth) {
    const std::string open = "<" + name + (below(10) == 0 ? language() : "");
    const std::string close = "</" + name + ">";
    switch (below(depth < 4 ? 20 : 5)) {
      case 0:
        return open + "/>";
      case 1:
        return open + " rdf:resource='" + oneOf({"", "http://r/?a&amp;b"}) + "'/>";
      case 2:
        return joined({open, attribute(), attribute(), "/>"});
      case 3:
      case 4:
      case 5:
        return open + ">" + text() + close;
      case 6:
      case 7:
        return open + " rdf:parseType='Resource'>" + properties(depth + 1) + close;
      case 8:
        return joined({open, ">", blank(), "<rdf:Description", below(3) == 0 ? attribute() : "",
                       ">", properties(depth + 1), "</rdf:Description>", blank(), close});
      case 9:
        return below(3) == 0 ? rare(open, close, depth) : open + ">" + text() + close;
      default:
        return joined({open, ">", blank(), array(depth), blank(), close});
    }
  }

  std::string rare(const std::string& open, const std::string& close, unsigned depth) {
    switch (below(9)) {
      case 0:
        return open + " rdf:ID='i'>" + text() + close;
      case 1:
        return open + " rdf:datatype='d'>" + text() + close;
      case 2:
        return open + "><a:Typed>" + properties(depth + 1) + "</a:Typed>" + close;
      case 3:
        return open + " rdf:parseType='Literal'>" + text() + close;
      case 4:
        return open + "><!-- c -->" + text() + "<?p i?>" + close;
      case 5:
        return open + "><?xpacket x?>" + close;
      case 6:
        return joined({open, ">", text(), property(depth + 1), close});
      case 7:
        return joined({open, " rdf:parseType='Resource'><rdf:value>", text(), "</rdf:value>",
                       properties(depth + 1), close});
      default:
        return open + " rdf:value='" + "v'" + attribute() + "/>";
    }
  }

  std::string copied(const std::string& text) {
    const std::size_t at = below(text.size());
    return text.substr(at, below(12));
  }

  void damage(std::string& text) {
    const std::size_t at = below(text.size());
    switch (below(4)) {
      case 0:
        text.erase(at, below(8) + 1);
        break;
      case 1:
        text.insert(at, copied(text));
        break;
      case 2:
        text[at] = static_cast<char>(below(256));
        break;
      default:
        text[at] = "<>&'\"/:= 1-"[below(11)];
    }
  }

  Numbers below_;
};
