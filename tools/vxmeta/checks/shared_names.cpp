// SPDX-License-Identifier: Apache-2.0
#include "checks/shared_names.h"

#include <fmt/format.h>
#include <algorithm>

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
  for (const NamedRecord& record : records) {
    if (names.contains(record.name)) continue;
    const auto isIt = [&](const std::string& name) { return folded(name) == folded(record.name); };
    const auto other = std::find_if(names.begin(), names.end(), isIt);
    if (other == names.end()) continue;
    found.add(record.path,
              fmt::format("{} is \"{}\" in the packet and \"{}\" in the PDF: programs that compare "
                          "names letter by letter take them for two",
                          record.path, record.name, *other),
              "give both one spelling");
  }
}

}  // namespace vxmeta
