// SPDX-License-Identifier: Apache-2.0
// Packets that cost more than their size would make one think.
#pragma once

#include <algorithm>
#include <functional>
#include <vector>

#include "support/bare_packets.h"

// What the others are held against.
inline std::string plainList(std::size_t bytes) {
  return described(bagOf(repeated("<rdf:li>an item of a list</rdf:li>", bytes)));
}

struct CostlyPacket {
  std::string name;
  std::string text;
};

// Each of about so many bytes.
inline std::vector<CostlyPacket> costlyPackets(std::size_t bytes) {
  const auto fields = [](std::size_t count) {
    return numbered(count, [](const std::string& i) { return "<atk:f" + i + "/>"; });
  };
  const auto structure = [](const std::string& content) {
    return "<rdf:li rdf:parseType='Resource'>" + content + "</rdf:li>";
  };
  const auto namespaces = numbered(bytes / 300, [](const std::string& i) {
    return "<rdf:li xmlns:n='http://attack.example/" + std::string(100, 'u') + i + "'/>";
  });
  // Each field that the outer structure gets has been one of an inner structure before.
  const auto alternating = [](std::size_t count) {
    return numbered(count, [](const std::string& i) {
      const std::string next = "atk:f" + std::to_string(std::stoul(i) + 1);
      return "<atk:f" + i + " " + next + "=''/>";
    });
  };
  // Short names, all different; and so many prefixes, each for two namespaces, that differ at their
  // ends.
  const auto item = [](std::size_t first) {
    std::string attributes;
    for (std::size_t i = first; i < first + 1000; ++i) {
      std::string name = "aaaa";
      for (std::size_t rest = i, at = 0; at < 4; ++at, rest /= 26)
        name[at] = static_cast<char>('a' + rest % 26);
      attributes += " atk:" + name + "=''";
    }
    return "<rdf:li" + attributes + "/>";
  };
  const std::string names =
      numbered(bytes / 12000, [&](const std::string& i) { return item(1000 * std::stoul(i)); });
  const std::string prefixes =
      numbered(std::min(bytes / 250, std::size_t{500}), [](const std::string& i) {
        const std::string prefix = std::string(60, 'q') + i;
        const std::string begin = "<rdf:li xmlns:" + prefix + "='u:" + i;
        return begin + "a'/>" + begin + "b'/>";
      });
  // The fields of an outer structure, behind an inner one that has them too.
  const std::string again = fields(2000);
  std::string behind = again;
  for (std::size_t size = again.size(); size < bytes; size += again.size()) {
    behind = "<atk:s rdf:parseType='Resource'>" + behind + "</atk:s>" + again;
  }
  // In one bucket of a table of the standard library's.
  std::string colliding;
  for (std::size_t i = 0, found = 0; found < 2000; ++i) {
    const std::string name = "atk:c" + std::to_string(i);
    if (std::hash<std::string>()(name) % 2357 != 0) continue;
    colliding += "<" + name + "/>";
    ++found;
  }
  // Every item has a long path.
  const std::string longName = "atk:" + std::string(200, 'n');
  std::string buried = bagOf(repeated("<rdf:li/>", bytes));
  for (int i = 0; i < 110; ++i) {
    buried = "<" + longName + " rdf:parseType='Resource'>" + buried + "</" + longName + ">";
  }
  // The parser looks through the URI of each, and the toolkit keeps it.
  std::string attributes;
  for (char letter = 'a'; letter <= 'z'; ++letter) {
    for (const char c : {letter, static_cast<char>(letter - 'a' + 'A')}) {
      attributes.append(" z:").append(1, c).append("=''");
    }
  }
  const std::string longUris = bagOf(repeated("<rdf:li" + attributes + "/>", bytes));
  const std::string longUri = "rdf:about='' xmlns:z='u:" + std::string(126, 'z') + "'";
  const std::string most = fields(2000), value = "<rdf:value>v</rdf:value>";
  return {
      {"structures", described(bagOf(repeated(structure(most), bytes)))},
      {"structures_not_plain", described(kNotPlain + bagOf(repeated(structure(most), bytes)))},
      {"fields_behind", described("<atk:s rdf:parseType='Resource'>" + behind + "</atk:s>")},
      {"colliding_names", described(kNotPlain + bagOf(repeated(structure(colliding), bytes)))},
      {"alternating_fields", described(bagOf(repeated(structure(alternating(2000)), bytes)))},
      {"qualifiers", described(bagOf(repeated(structure(value + most), bytes)))},
      {"qualifiers_not_plain",
       described(kNotPlain + bagOf(repeated(structure(value + most), bytes)))},
      {"too_many_properties", described(kNotPlain + fields(bytes / 10))},
      {"distinct_names", described(bagOf(names))},
      {"distinct_names_not_plain", described(kNotPlain + bagOf(names))},
      {"alike_prefixes", described(bagOf(prefixes))},
      {"long_paths", described(buried)},
      {"long_uri", described(longUris, longUri)},
      {"long_uri_not_plain", described(kNotPlain + longUris, longUri)},
      {"values", described(structure(repeated("<rdf:value/>", bytes)))},
      {"line_ends", described(kNotPlain + "<atk:p>" + std::string(bytes, '\n') + "</atk:p>")},
      {"controls", described("<atk:p atk:q='" + std::string(bytes, '\x01') + "'/>")},
      {"references", described("<atk:p>" + repeated("&amp;", bytes) + "</atk:p>")},
      {"one_prefix", described(bagOf(namespaces))},
      {"comments", described(kNotPlain + repeated("<!---->", bytes))},
      {"deep", described(bagOf(repeated("<rdf:li>" + repeated("<rdf:Bag><rdf:li>", 800) +
                                            repeated("</rdf:li></rdf:Bag>", 893) + "</rdf:li>",
                                        bytes)))},
  };
}
