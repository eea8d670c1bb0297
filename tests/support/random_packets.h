// SPDX-License-Identifier: Apache-2.0
// Packets by chance: RDF of every shape that is seen, and of many that are not, some of it damaged.
#pragma once

#include "support/grammar.h"

class RandomPackets {
 public:
  explicit RandomPackets(Numbers below) : grammar_(rules(), 20, std::move(below)) {}
  explicit RandomPackets(unsigned seed) : RandomPackets(randomNumbers(seed)) {}

  std::string next() {
    std::string text = grammar_.text("packet");
    for (unsigned i = below(4) == 0 ? below(4) : 0; i > 0; --i) damage(text);
    return text;
  }

 private:
  // "%" is the name of an element. Most names are met once alone.
  static Grammar::Rules rules() {
    return {
        {"packet",
         {{"{whole}", 3}, "<?xpacket begin='\uFEFF' id='W5M0'?>{whole}<?xpacket end='w'?>"}},
        {"whole",
         {"<x:xmpmeta xmlns:x='adobe:ns:meta/' x:xmptk='t'>{rdf}</x:xmpmeta>", "{rdf}",
          "<?xml version='1.0'?>{rdf}"}},
        {"rdf",
         {"<rdf:RDF xmlns:rdf='http://www.w3.org/1999/02/22-rdf-syntax-ns#'>{blank}{descriptions}"
          "</rdf:RDF>"}},
        {"descriptions", {{"{description}", 3}, "{description}{description}"}},
        {"description",
         {"<rdf:Description{about}{namespaces}{b}{rare attribute}>{blank}{properties}{properties}"
          "</rdf:Description>{blank}"}},
        {"namespaces",
         {" xmlns:a='http://a.example/' xmlns:dc='http://purl.org/dc/elements/1.1/'"
          " xmlns:xmp='http://ns.adobe.com/xap/1.0/' xmlns:tiff='http://ns.adobe.com/tiff/1.0/'"
          " xmlns:vxGr='http://ns.orvo.example/xmp/grinfo/1.0/'"}},
        {"about", {{" rdf:about=''", 9}, "{odd about}"}},
        {"odd about",
         {"", " rdf:about='http://a/?b&amp;c=\"'", " about=''", " rdf:about='uuid:1'",
          " rdf:ID='i'"}},
        {"b", {{" xmlns:b='http://b.example/'", 9}, "{odd b}"}},
        {"odd b",
         {"", " xmlns:b='http://a.example/'", " xmlns='http://c.example/' xmlns:b='u:b'",
          " xmlns:b='http://purl.org/dc/1.1/'"}},
        {"rare attribute", {{"", 2}, "{attribute}"}},
        {"attribute", {" {any name}=''", " {any name}='v'", " {any name}='a&quot;b'"}},
        {"blank", {"", "\n", " \n  ", "\t"}},
        {"any name", {{"{name}", 79}, "{odd name}"}},
        {"name", {"a:n{digit}{digit}{digit}", "b:n{digit}{digit}{digit}", "{known name}"}},
        {"known name",
         {"a:p", "a:q", "a:r", "a:s", "b:p", "b:q", "b:t", "dc:title", "dc:creator", "dc:subject",
          "dc:x", "xmp:Title", "xmp:CreateDate", "tiff:ImageDescription", "tiff:Artist",
          "vxGr:nrpages", "vxGr:inks"}},
        {"digit", {"0", "1", "2", "3", "4", "5", "6", "7", "8", "9"}},
        {"odd name",
         {"rdf:value", "rdf:type", "c", "rdf:li", "xml:p", "rdf:_1", "xmlns:e", "xmlns"}},
        {"text",
         {"", "one", "two words", " padded ", "a&amp;b&lt;c", "line\nline", "&#x41;&#66;",
          "<![CDATA[<x>]]>", "\u00E9\u20AC", "\xE9", "&#x9;&#xA;\x01", " \n "}},
        {"language",
         {" xml:lang='x-default'", " xml:lang='de'", " xml:lang='EN-us'", " xml:lang='fr'"}},
        {"rare language", {{"", 9}, "{language}"}},
        {"properties",
         {"", "{property}", "{property}{property}", "{property}{property}{property}"}},
        {"property", {"{element=any name}{blank}"}},
        {"items", {"", "{item}", "{item}{item}", "{item}{item}{item}"}},
        {"item", {{"{element=rdf:li}{blank}", 29}, "{property}"}},
        {"element",
         {{"<%{rare language}/>", 3},
          {"<%{rare language} rdf:resource='{resource}'/>", 3},
          {"<%{rare language}{attribute}{attribute}/>", 3},
          {"<%{rare language}>{text}</%>", 11},
          {"<%{rare language} rdf:parseType='Resource'>{blank}{properties}</%>", 6},
          {"<%{rare language}>{blank}<rdf:Description{rare attribute}>{blank}{properties}"
           "</rdf:Description>{blank}</%>",
           3},
          {"<%{rare language}>{blank}{array}{blank}</%>", 30},
          "{rare element=%}"}},
        {"flat element",
         {"<%{rare language}/>",
          "<%{rare language} rdf:resource='{resource}'/>",
          "<%{rare language}{attribute}{attribute}/>",
          {"<%{rare language}>{text}</%>", 2}}},
        {"resource", {"", "http://r/?a&amp;b"}},
        {"array",
         {"<rdf:Bag>{blank}{items}</rdf:Bag>",
          "<rdf:Seq>{blank}{items}</rdf:Seq>",
          {"<rdf:Alt>{blank}{items}</rdf:Alt>", 2},
          {"<rdf:Alt>{alternatives}</rdf:Alt>", 2}}},
        {"alternatives",
         {"{alternative}", "{alternative}{alternative}",
          "{alternative}{alternative}{alternative}"}},
        {"alternative", {"<rdf:li{language}>{text}</rdf:li>"}},
        {"rare element",
         {"<% rdf:ID='i'>{text}</%>", "<% rdf:datatype='d'>{text}</%>",
          "<%><a:Typed>{properties}</a:Typed></%>", "<% rdf:parseType='Literal'>{text}</%>",
          "<%><!-- c -->{text}<?p i?></%>", "<%><?xpacket x?></%>", "<%>{text}{property}</%>",
          "<% rdf:parseType='Resource'><rdf:value>{text}</rdf:value>{properties}</%>",
          "<% rdf:value='v'{attribute}/>"}},
    };
  }

  unsigned below(std::size_t limit) { return grammar_.below(limit); }

  void damage(std::string& text) {
    const std::size_t at = below(text.size());
    switch (below(4)) {
      case 0:
        text.erase(at, below(8) + 1);
        break;
      case 1:
        text.insert(at, text.substr(below(text.size()), 1 + at % 12));
        break;
      case 2:
        text[at] = static_cast<char>(below(256));
        break;
      default:
        text[at] = "<>&'\"/:= 1-"[below(11)];
    }
  }

  Grammar grammar_;
};
