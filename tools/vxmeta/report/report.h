// SPDX-License-Identifier: Apache-2.0
// The page of a report.
#pragma once

#include <string>
#include <vector>

#include "checks/finding.h"
#include "model/document.h"

namespace vxmeta {

// One file of a report.
struct ReportEntry {
  Document document;  // its file's name is there in any case
  std::vector<Finding> findings;
  std::string error;  // why the file could not be read; then the rest is empty
};

// One page that holds all it needs: HTML that is well-formed XML too, with nothing loaded from
// elsewhere and no script. Texts of the documents stand in it as they are, but for control
// characters, shown as their pictures, and bytes that are no UTF-8, shown as U+FFFD.
std::string reportPage(const std::vector<ReportEntry>& entries);

}  // namespace vxmeta
