// SPDX-License-Identifier: Apache-2.0
// What a report of several files begins with.
#pragma once

#include <vector>

#include "report/html.h"
#include "report/report.h"

namespace vxmeta {

// A row a file, linked to its part.
Markup summaryTable(const std::vector<ReportEntry>& entries);

// Which ink, by name, is in which file.
Markup inkMatrix(const std::vector<ReportEntry>& entries);

}  // namespace vxmeta
