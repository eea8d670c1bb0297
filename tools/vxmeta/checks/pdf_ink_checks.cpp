// SPDX-License-Identifier: Apache-2.0
// Inks of the packet against the colours of the PDF.
#include <fmt/format.h>
#include <algorithm>
#include <set>
#include <string>

#include "checks/folded_name.h"
#include "checks/packet_reading.h"
#include "checks/pdf_checks.h"
#include "checks/shared_names.h"

namespace vxmeta {
namespace {

constexpr const char* kInkList = "vxGr:inks";

bool isProcessType(const XMPlInkBasic& ink) { return folded(ink.type) == U"process"; }

// A process colour by the name that it has in PDFs.
bool isProcessName(const std::u32string& name) {
  return name == U"cyan" || name == U"magenta" || name == U"yellow" || name == U"black";
}

// A process ink under a name of its own, "Schwarz" or "K": which of the process colours it is, is
// not known.
bool isRenamedProcess(const XMPlInkBasic& ink) {
  return isProcessType(ink) && !isProcessName(folded(ink.name));
}

bool isUsed(const PdfFacts& pdf, const std::set<std::u32string>& colorants,
            const XMPlInkBasic& ink) {
  const std::u32string name = folded(ink.name);
  if (colorants.contains(name)) return true;
  const bool isRenamed = isRenamedProcess(ink);
  if (!isRenamed && !isProcessName(name)) return false;
  if (pdf.usesProcess) return true;
  if (pdf.usesGray && (isRenamed || name == U"black")) return true;
  return isRenamed && std::any_of(colorants.begin(), colorants.end(), isProcessName);
}

void checkInksMissing(const PdfFacts& pdf, const Subject& subject, Findings& found) {
  if (!hasList(subject, kInkList)) return;
  const std::vector<XMPlInkBasic> inks = readInks(subject.packet);
  const bool hasRenamed = std::any_of(inks.begin(), inks.end(), isRenamedProcess);
  const char* list = inksPath(subject.packet);
  const std::set<std::u32string> names = foldedNames(namedRecords(inks, list));
  for (const std::string& colorant : pdf.colorants) {
    const std::u32string name = folded(colorant);
    if (names.contains(name) || (hasRenamed && isProcessName(name))) continue;
    found.add(list,
              fmt::format("the PDF has a separation \"{}\" that is no ink of the packet: nobody "
                          "plans a plate or screen for it",
                          colorant),
              "add the ink to the packet, or map the separation to one of its inks in the PDF");
  }
}

void checkInksUnused(const PdfFacts& pdf, const Subject& subject, Findings& found) {
  const std::set<std::u32string> colorants = foldedNames(pdf.colorants);
  const std::vector<XMPlInkBasic> inks = readInks(subject.packet);
  const char* list = inksPath(subject.packet);
  for (std::size_t i = 0; i < inks.size(); ++i) {
    if (inks[i].attribute == "omask" || isUsed(pdf, colorants, inks[i])) continue;
    found.add(indexed(list, i),
              fmt::format("no page of the PDF uses the ink \"{}\": its plate would stay empty",
                          inks[i].name),
              "remove the ink from the packet, or look whether its separation has another name");
  }
}

void checkInkSpelling(const PdfFacts& pdf, const Subject& subject, Findings& found) {
  tellSpelling(namedRecords(readInks(subject.packet), inksPath(subject.packet)), pdf.colorants,
               found);
}

}  // namespace

std::vector<Check> pdfInkChecks() {
  return {
      {"pdf-ink-missing", Severity::warning, "a separation of the PDF is no ink of the packet",
       ofPdf<checkInksMissing>},
      {"pdf-ink-unused", Severity::warning, "an ink of the packet is on no page of the PDF",
       ofPdf<checkInksUnused>},
      {"pdf-ink-spelling", Severity::warning,
       "packet and PDF spell an ink with other case or blanks", ofPdf<checkInkSpelling>},
  };
}

}  // namespace vxmeta
