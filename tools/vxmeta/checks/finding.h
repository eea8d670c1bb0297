// SPDX-License-Identifier: Apache-2.0
// What a check finds in a document, and the table of checks.
#pragma once

#include <XMPlib.h>

#include <optional>
#include <string>
#include <vector>

#include "checks/pdf_facts.h"
#include "files/packet_wrapper.h"
#include "model/stored.h"

namespace vxmeta {

enum class Severity { error, warning, note };

const char* nameOf(Severity severity);

struct Finding {
  std::string id;  // of the check
  Severity severity = Severity::note;
  std::string path;     // what it is about, as `get` takes it: "inks[2]"
  std::string message;  // what it means for production
  std::string hint;     // what to do
};

// The document that is checked.
struct Subject {
  const XMPlib& packet;  // its packet, loaded without error
  PacketFacts wrapper;
  std::optional<PdfFacts> pdf;  // where the document is one

  // The packet's properties as they are stored; read when they are first asked for.
  const StoredProperties& stored() const;

  mutable std::optional<StoredProperties> storedOnce = std::nullopt;
};

// What one check has found. A fault that comes a thousand times is told a few times and counted:
// what is kept is bounded.
class Findings {
 public:
  static constexpr std::size_t kMostTold = 20;

  struct Row {
    std::string path, message, hint;
  };

  void add(std::string path, std::string message, std::string hint);
  // With more than `kMostTold` findings, the last row counts the rest.
  std::vector<Row> rows() const;

 private:
  std::vector<Row> told_;
  std::optional<Row> firstUntold_;
  std::size_t untold_ = 0;
};

struct Check {
  const char* id;
  Severity severity;
  const char* summary;  // what it means, for the list of checks
  void (*run)(const Subject& subject, Findings& findings);
};

// Every check, family after family.
const std::vector<Check>& allChecks();

// What `check` finds, with its id and severity.
std::vector<Finding> run(const Check& check, const Subject& subject);

}  // namespace vxmeta
