// SPDX-License-Identifier: Apache-2.0
// Checks of a PDF against the packet in it. Of documents that are no PDF, they say nothing.
#pragma once

#include <vector>

#include "checks/finding.h"

namespace vxmeta {

std::vector<Check> pdfInkChecks();
std::vector<Check> pdfChecks();

template <auto check>
void ofPdf(const Subject& subject, Findings& found) {
  if (subject.pdf) check(*subject.pdf, subject, found);
}

}  // namespace vxmeta
