// SPDX-License-Identifier: Apache-2.0
// Names that both a PDF and its packet have. Case and blanks do not make another one, but two
// spellings of one.
#pragma once

#include <set>
#include <string>
#include <vector>

#include "checks/finding.h"
#include "checks/reading.h"

namespace vxmeta {

struct NamedRecord {
  std::string name;
  std::string path;  // "inks[2]"
};

template <class Record>
std::vector<NamedRecord> namedRecords(const std::vector<Record>& records, const char* list) {
  std::vector<NamedRecord> named;
  for (std::size_t i = 0; i < records.size(); ++i) {
    named.push_back({records[i].name, indexed(list, i)});
  }
  return named;
}

std::set<std::u32string> foldedNames(const std::vector<NamedRecord>& records);
std::set<std::u32string> foldedNames(const std::set<std::string>& names);

// Tells of records that are in the PDF under another spelling alone.
void tellSpelling(const std::vector<NamedRecord>& records, const std::set<std::string>& names,
                  Findings& found);

}  // namespace vxmeta
