// SPDX-License-Identifier: Apache-2.0
#include "checks/shared_names.h"

#include <fmt/format.h>
#include <map>
#include <string_view>

#include "checks/folded_name.h"

namespace vxmeta {

std::set<std::u32string> foldedNames(const std::vector<NamedRecord>& records) {
  std::set<std::u32string> all;
  for (const NamedRecord& record : records) all.insert(folded(record.name));
  return all;
}

std::set<std::u32string> foldedNames(const std::set<std::string>& names) {
  std::set<std::u32string> all;
  for (const std::string& name : names) all.insert(folded(name));
  return all;
}

void tellSpelling(const std::vector<NamedRecord>& records, const std::set<std::string>& names,
                  Findings& found) {
  std::map<std::u32string, std::string_view> spellings;
  for (const std::string& name : names) spellings.emplace(folded(name), name);
  for (const NamedRecord& record : records) {
    if (names.contains(record.name)) continue;
    const auto other = spellings.find(folded(record.name));
    if (other == spellings.end()) continue;
    found.add(record.path,
              fmt::format("{} is \"{}\" in the packet and \"{}\" in the PDF: programs that compare "
                          "names letter by letter take them for two",
                          record.path, record.name, other->second),
              "give both one spelling");
  }
}

}  // namespace vxmeta
