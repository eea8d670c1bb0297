#include "checks/finding.h"

#include "checks/pdf_checks.h"

namespace vxmeta {

const char* nameOf(Severity severity) {
  constexpr const char* kNames[] = {"error", "warning", "note"};
  return kNames[static_cast<int>(severity)];
}

const std::vector<Check>& allChecks() {
  static const std::vector<Check> kAll = [] {
    std::vector<Check> all;
    for (const auto& family : {pdfChecks()}) all.insert(all.end(), family.begin(), family.end());
    return all;
  }();
  return kAll;
}

std::vector<Finding> run(const Check& check, const Subject& subject) {
  Findings found;
  check.run(subject, found);
  std::vector<Finding> findings;
  for (const Findings::Row& row : found.rows()) {
    findings.push_back({check.id, check.severity, row.path, row.message, row.hint});
  }
  return findings;
}

}  // namespace vxmeta
