// SPDX-License-Identifier: Apache-2.0
// Properties and items of lists, as text for packets.
#pragma once

#include <string>
#include <utility>
#include <vector>

namespace parts {

inline constexpr const char* kStructure = " rdf:parseType=\"Resource\"";

// A packet with these properties in its wrapper.
std::string wrapped(const std::string& properties, std::size_t padding = 1024,
                    const std::string& end = "w");

std::string element(const std::string& name, const std::string& content,
                    const std::string& attributes = "");

// An array of items that are written as attributes, or, where they begin with "<", as elements.
std::string list(const std::string& name, const std::vector<std::string>& items);

// vxInk:name="Cyan" for ("vxInk", {{"name", "Cyan"}}).
using Fields = std::vector<std::pair<std::string, std::string>>;
std::string fields(const std::string& prefix, const Fields& all);

// Items of lists.
std::string anyInk(const std::string& name, const Fields& more);
std::string ink(const std::string& name, const std::string& angle = "45");
std::string filmInk(const std::string& name);
std::string coverage(const std::string& pct);
std::string font(const std::string& name, const std::string& location = "embedded");
std::string ref(const std::string& file, const std::string& page = "0");
std::string oldRef(const std::string& file);
std::string usedRef(const std::string& page);
std::string range(const std::string& start, const std::string& end,
                  const std::vector<std::string>& inks = {});
std::string screen(const std::string& curve);
std::string group(const std::vector<std::string>& screens);

// Properties.
std::string covered(const std::vector<std::string>& percents);
std::string twoInks();
std::string barcode(const std::string& symbology, const std::string& code);
std::string grid(const std::string& rows, const std::string& type = "grid");
std::string ranges(const std::vector<std::string>& all);
std::string pages(const std::string& count);
std::string pageSize(const std::string& units);
std::string filmSize(const std::string& units);
std::string groups(const std::vector<std::string>& all);
std::string curve(const std::string& values);
std::string described(const std::string& language);
std::string nested(int levels);

}  // namespace parts
