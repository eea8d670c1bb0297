// SPDX-License-Identifier: Apache-2.0
#include "support/packets.h"

#include <algorithm>

#include "core/namespaces.h"

std::string packet(const std::string& properties) {
  std::string text =
      "<x:xmpmeta xmlns:x='adobe:ns:meta/'>"
      "<rdf:RDF xmlns:rdf='http://www.w3.org/1999/02/22-rdf-syntax-ns#'>"
      "<rdf:Description rdf:about=''";
  for (const xmpl::Namespace& row : xmpl::kNamespaces) {
    text += " xmlns:" + std::string(row.prefix) + "='" + row.uri + "'";
  }
  return text + ">" + properties + "</rdf:Description></rdf:RDF></x:xmpmeta>";
}

std::string alternative(const std::string& property, const Texts& texts) {
  std::string items;
  for (const auto& [language, text] : texts) {
    items += "<rdf:li xml:lang=\"" + language + "\">" + text + "</rdf:li>";
  }
  return "<" + property + "><rdf:Alt>" + items + "</rdf:Alt></" + property + ">";
}

std::string elements(const std::string& prefix, const std::string& names) {
  std::istringstream words(names);
  std::string text, word;
  for (int number = 1; words >> word; ++number) {
    if (word.find('=') == std::string::npos) word += "=" + std::to_string(number);
    const std::size_t sign = word.find('=');
    const std::string element = prefix + word.substr(0, sign), value = word.substr(sign + 1);
    text +=
        value.empty() ? "<" + element + "/>" : "<" + element + ">" + value + "</" + element + ">";
  }
  return text;
}

std::string swapped(const std::string& names, const std::string& name, const std::string& other) {
  std::istringstream words(names);
  std::string text;
  for (std::string word; words >> word;) text += (word == name ? other : word) + " ";
  return text;
}

std::string list(const std::string& array, const std::string& kind, const Items& items) {
  std::string text = "<" + array + "><rdf:" + kind + ">";
  for (const std::string& item : items) {
    text += "<rdf:li rdf:parseType=\"Resource\">" + item + "</rdf:li>";
  }
  return text + "</rdf:" + kind + "></" + array + ">";
}

std::string utf16(const std::string& utf8, bool bigEndian) {
  std::string wide;
  const auto append = [&](std::uint32_t unit) {
    const char high = static_cast<char>(unit >> 8), low = static_cast<char>(unit & 0xFF);
    wide += bigEndian ? high : low;
    wide += bigEndian ? low : high;
  };
  for (std::size_t at = 0; at < utf8.size();) {
    const auto first = static_cast<unsigned char>(utf8[at++]);
    const int more = first < 0xC0 ? 0 : first < 0xE0 ? 1 : first < 0xF0 ? 2 : 3;
    std::uint32_t point = more == 0 ? first : first & (0x3FU >> more);
    for (int i = 0; i < more; ++i) {
      point = point << 6 | (static_cast<unsigned char>(utf8.at(at++)) & 0x3FU);
    }
    if (point >= 0x10000) append(0xD800 + ((point - 0x10000) >> 10));
    append(point < 0x10000 ? point : 0xDC00 + ((point - 0x10000) & 0x3FF));
  }
  return wide;
}

std::string stored(const XMPlib& xmp) {
  const std::string xml = xmp.GetXML();
  const std::size_t open = xml.find('>', xml.find("<rdf:Description rdf:about=")) + 1;
  const std::size_t close = xml.rfind("</rdf:Description>");
  if (close == std::string::npos) return {};  // one empty element: nothing is stored
  std::istringstream lines(xml.substr(open, close - open));
  std::string text;
  for (std::string line; std::getline(lines, line);) {
    text += line.erase(0, std::min(line.find_first_not_of(' '), line.size()));
  }
  return text;
}

int pagesOf(const XMPlib& xmp) {
  int pages = 0;
  return xmp.GetNrPages(pages) ? pages : -1;
}

std::string smartIdOf(const XMPlib& xmp) {
  std::string id;
  return xmp.GetSmartID(id) ? id : "none";
}
