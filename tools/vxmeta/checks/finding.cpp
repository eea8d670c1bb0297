// SPDX-License-Identifier: Apache-2.0
#include "checks/finding.h"

#include <fmt/format.h>

#include "checks/packet_checks.h"
#include "checks/pdf_checks.h"

namespace vxmeta {

const StoredProperties& Subject::stored() const {
  if (!storedOnce) storedOnce = readStored(packet.GetXML());
  return *storedOnce;
}

void Findings::add(std::string path, std::string message, std::string hint) {
  Row row = {std::move(path), std::move(message), std::move(hint)};
  if (told_.size() < kMostTold) {
    told_.push_back(std::move(row));
  } else if (untold_++ == 0) {
    firstUntold_ = std::move(row);
  }
}

std::vector<Findings::Row> Findings::rows() const {
  std::vector<Row> rows = told_;
  if (!firstUntold_) return rows;
  rows.push_back(*firstUntold_);
  if (untold_ > 1) rows.back().message = fmt::format("and {} more of these", untold_);
  return rows;
}

const char* nameOf(Severity severity) {
  constexpr const char* kNames[] = {"error", "warning", "note"};
  return kNames[static_cast<int>(severity)];
}

const std::vector<Check>& allChecks() {
  static const std::vector<Check> kAll = [] {
    std::vector<Check> all;
    for (const auto& family :
         {packetLossChecks(), packetValueChecks(), packetBarcodeChecks(), packetInkChecks(),
          packetScreenChecks(), packetPageChecks(), packetListChecks(), packetStateChecks(),
          pdfInkChecks(), pdfChecks()}) {
      all.insert(all.end(), family.begin(), family.end());
    }
    return all;
  }();
  return kAll;
}

std::vector<Finding> run(const Check& check, const Subject& subject) {
  Findings found;
  check.run(subject, found);
  std::vector<Finding> findings;
  for (Findings::Row& row : found.rows()) {
    findings.push_back({check.id, check.severity, std::move(row.path), std::move(row.message),
                        std::move(row.hint)});
  }
  return findings;
}

}  // namespace vxmeta
