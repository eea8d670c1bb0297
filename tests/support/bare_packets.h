// SPDX-License-Identifier: Apache-2.0
// Packets in bare RDF, and what makes them long.
#pragma once

#include <cstddef>
#include <string>

// Makes a packet one that only the toolkit's reader takes.
inline const std::string kNotPlain = "<atk:odd rdf:ID='i'/>";

// Descriptions, with the namespaces that attacks use.
inline std::string rdf(const std::string& descriptions) {
  return "<rdf:RDF xmlns:rdf='http://www.w3.org/1999/02/22-rdf-syntax-ns#'"
         " xmlns:dc='http://purl.org/dc/elements/1.1/' xmlns:atk='http://attack.example/'"
         " xmlns:tiff='http://ns.adobe.com/tiff/1.0/' xmlns:pdf='http://ns.adobe.com/pdf/1.3/'>" +
         descriptions + "</rdf:RDF>";
}

inline std::string described(const std::string& content,
                             const std::string& attributes = "rdf:about=''") {
  return rdf("<rdf:Description " + attributes + ">" + content + "</rdf:Description>");
}

// text("0"), text("1") and so on.
template <class Text>
std::string numbered(std::size_t count, Text text) {
  std::string all;
  for (std::size_t i = 0; i < count; ++i) all += text(std::to_string(i));
  return all;
}

inline std::string times(std::size_t count, const std::string& text) {
  return numbered(count, [&](const std::string&) { return text; });
}

// As often as it fits.
inline std::string repeated(const std::string& text, std::size_t bytes) {
  return times(bytes / text.size(), text);
}

inline std::string structures(std::size_t depth, const std::string& content) {
  return times(depth, "<dc:s rdf:parseType='Resource'>") + content + times(depth, "</dc:s>");
}

inline std::string properties(std::size_t count) {
  return numbered(count, [](const std::string& i) { return "<dc:p" + i + "/>"; });
}

inline std::string bagOf(const std::string& items) {
  return "<atk:l><rdf:Bag>" + items + "</rdf:Bag></atk:l>";
}
