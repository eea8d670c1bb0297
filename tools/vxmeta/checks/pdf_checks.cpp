// SPDX-License-Identifier: Apache-2.0
#include "checks/pdf_checks.h"

#include <fmt/format.h>
#include <algorithm>
#include <cctype>
#include <cmath>
#include <optional>
#include <set>
#include <string>

#include "checks/reading.h"
#include "checks/standard_properties.h"

namespace vxmeta {
namespace {

// --- Pages --------------------------------------------------------------------------------------

void checkPageCount(const PdfFacts& pdf, const XMPlib& packet, Findings& found) {
  int pages = 0;
  if (!packet.GetNrPages(pages) || static_cast<std::size_t>(std::max(pages, 0)) == pdf.pages)
    return;
  found.add(
      "scalars.nrPages",
      fmt::format("the packet says {} pages, the PDF has {}: imposition and page ranges count "
                  "with pages that are not these",
                  pages, pdf.pages),
      fmt::format("set scalars.nrPages to {}, or embed the packet that was made for this PDF",
                  pdf.pages));
}

struct Size {
  double width, height;  // in mm
  std::string path;      // of the record that says so
};

// A unit's length in mm; none for words that have no fixed one.
std::optional<double> millimetresOf(const std::string& unit) {
  constexpr std::pair<const char*, double> kUnits[] = {
      {"mm", 1}, {"cm", 10}, {"m", 1000}, {"in", 25.4}, {"inch", 25.4}, {"pt", 25.4 / 72}};
  for (const auto& [word, length] : kUnits) {
    if (unit == word) return length;
  }
  return {};
}

template <class Dimensions>
std::optional<Size> sizeOf(const Dimensions& dimensions, const char* path) {
  const std::optional<double> unit = millimetresOf(dimensions.units);
  if (!unit) return {};
  return Size{dimensions.hsize * *unit, dimensions.vsize * *unit, path};
}

std::optional<Size> sizeOfPage(const XMPlib& packet) {
  XMPlDimDat page;
  if (isRead([&] { return packet.GetDimDat(page); })) return sizeOf(page, "page");
  XMPlDimDatDigFilm film;
  if (isRead([&] { return packet.GetDimDatDigFilm(film); })) return sizeOf(film, "film.dimensions");
  return {};
}

void checkPageSize(const PdfFacts& pdf, const XMPlib& packet, Findings& found) {
  constexpr double kTolerance = 0.1;  // mm
  constexpr double kMillimetres = 25.4 / 72;
  const std::optional<Size> said = sizeOfPage(packet);
  if (!said || !pdf.firstPage) return;
  const double width = pdf.firstPage->width * kMillimetres;
  const double height = pdf.firstPage->height * kMillimetres;
  const bool isSame = std::fabs(width - said->width) <= kTolerance &&
                      std::fabs(height - said->height) <= kTolerance;
  if (isSame) return;
  found.add(said->path,
            fmt::format("the packet's page is {:.6g} x {:.6g} mm, the {} of page 1 {:.6g} x {:.6g} "
                        "mm: what goes by the packet's size cuts or places it wrong",
                        said->width, said->height, pdf.firstPage->name, width, height),
            "correct the dimensions in the packet, or the page box of the PDF");
}

// --- Inks ---------------------------------------------------------------------------------------

std::string lowered(std::string text) {
  for (char& c : text) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return text;
}

bool isUsed(const PdfFacts& pdf, const std::string& ink) {
  if (pdf.colorants.contains(ink)) return true;
  const std::string name = lowered(ink);
  if (name == "black") return pdf.usesCmyk || pdf.usesGray;
  return pdf.usesCmyk && (name == "cyan" || name == "magenta" || name == "yellow");
}

void checkInksMissing(const PdfFacts& pdf, const XMPlib& packet, Findings& found) {
  std::vector<NamedInk> inks;
  if (!readInks(packet, inks)) return;
  for (const std::string& colorant : pdf.colorants) {
    const auto isIt = [&](const NamedInk& ink) { return ink.name == colorant; };
    if (std::any_of(inks.begin(), inks.end(), isIt)) continue;
    found.add("inks",
              fmt::format("the PDF has a separation \"{}\" that is no ink of the packet: nobody "
                          "plans a plate or screen for it",
                          colorant),
              "add the ink to the packet, or map the separation to one of its inks in the PDF");
  }
}

void checkInksUnused(const PdfFacts& pdf, const XMPlib& packet, Findings& found) {
  std::vector<NamedInk> inks;
  readInks(packet, inks);
  for (const NamedInk& ink : inks) {
    if (ink.isMask || isUsed(pdf, ink.name)) continue;
    found.add(
        ink.path,
        fmt::format("no page of the PDF uses the ink \"{}\": its plate would stay empty", ink.name),
        "remove the ink from the packet, or look whether its separation has another name");
  }
}

// --- Fonts and layers ---------------------------------------------------------------------------

// Names are spelt with blanks, hyphens or commas, as the program likes.
std::string plainName(const std::string& name) {
  std::string plain;
  for (const char c : lowered(name)) {
    if (c != ' ' && c != '-' && c != ',') plain += c;
  }
  return plain;
}

void checkFonts(const PdfFacts& pdf, const XMPlib& packet, Findings& found) {
  std::vector<XMPlFont> fonts;
  if (!packet.GetFonts(fonts)) return;
  std::set<std::string> listed;
  for (const XMPlFont& font : fonts) listed.insert(plainName(font.name));
  for (const std::string& name : pdf.fonts) {
    if (listed.contains(plainName(name))) continue;
    found.add("fonts",
              fmt::format("the PDF uses the font \"{}\", which the packet does not list: who "
                          "edits the text does not know to have it",
                          name),
              "add the font to the packet");
  }
}

void checkLayersMissing(const PdfFacts& pdf, const XMPlib& packet, Findings& found) {
  std::vector<XMPlLay> layers;
  if (!packet.GetLayers(layers)) return;
  for (const std::string& name : pdf.layers) {
    const auto isIt = [&](const XMPlLay& layer) { return layer.name == name; };
    if (std::any_of(layers.begin(), layers.end(), isIt)) continue;
    found.add("layers",
              fmt::format("the PDF has a layer \"{}\" that the packet does not list: whether it "
                          "prints is not said",
                          name),
              "add the layer to the packet");
  }
}

void checkLayersUnknown(const PdfFacts& pdf, const XMPlib& packet, Findings& found) {
  std::vector<XMPlLay> layers;
  packet.GetLayers(layers);
  for (std::size_t i = 0; i < layers.size(); ++i) {
    const auto& names = pdf.layers;
    if (std::find(names.begin(), names.end(), layers[i].name) != names.end()) continue;
    found.add(indexed("layers", i),
              fmt::format("the layer \"{}\" is no layer of the PDF: what the packet says of it "
                          "cannot be applied",
                          layers[i].name),
              "remove the layer from the packet, or write the PDF with its layers");
  }
}

// --- The Info dictionary ------------------------------------------------------------------------

// Two statements that exist and differ.
bool isContradiction(const std::string& a, const std::string& b) {
  return !a.empty() && !b.empty() && a != b;
}

void addContradiction(const char* path, const std::string& packets, const std::string& pdfs,
                      Findings& found) {
  if (!isContradiction(packets, pdfs)) return;
  found.add(path,
            fmt::format("the packet says \"{}\", the PDF's Info dictionary \"{}\": which one is "
                        "believed depends on the program",
                        packets, pdfs),
            "write the right one into both");
}

void checkTitle(const PdfFacts& pdf, const XMPlib& packet, Findings& found) {
  if (pdf.info.title.empty()) return;
  addContradiction("pdfData.title", standardPdfData(packet).title, pdf.info.title, found);
}

void checkProducer(const PdfFacts& pdf, const XMPlib& packet, Findings& found) {
  if (pdf.info.producer.empty()) return;
  addContradiction("pdfData.producer", standardPdfData(packet).producer, pdf.info.producer, found);
}

void checkTrapped(const PdfFacts& pdf, const XMPlib& packet, Findings& found) {
  const std::string& info = pdf.info.trapped;
  if (info != "True" && info != "False") return;
  addContradiction("pdfData.trapped", standardPdfData(packet).trapped, info, found);
  bool isTrapped = false;
  if (!packet.GetIsTrapped(isTrapped)) return;
  addContradiction("scalars.isTrapped", isTrapped ? "True" : "False", info, found);
}

// --- The metadata stream ------------------------------------------------------------------------

void checkHidden(const PdfFacts& pdf, const XMPlib&, Findings& found) {
  if (!pdf.metadataIsCompressed && !pdf.metadataIsEncrypted) return;
  found.add("packet",
            fmt::format("the metadata stream is {}: tools that search the bytes of the file do not "
                        "find the packet",
                        pdf.metadataIsEncrypted ? "encrypted" : "compressed"),
            "write the PDF with its metadata in plain, where such tools are in use");
}

void checkSeveral(const PdfFacts& pdf, const XMPlib&, Findings& found) {
  if (pdf.metadataStreams < 2) return;
  found.add("packet",
            fmt::format("the PDF holds {} metadata packets: tools that search the bytes may take "
                        "one that is not the document's",
                        pdf.metadataStreams),
            "`vxmeta extract --list` shows them");
}

// Of documents that are no PDF, these checks say nothing.
template <auto check>
void ofPdf(const Subject& subject, Findings& found) {
  if (subject.pdf) check(*subject.pdf, subject.packet, found);
}

}  // namespace

std::vector<Check> pdfChecks() {
  return {
      {"pdf-page-count", Severity::error,
       "the PDF has another number of pages than the packet says", ofPdf<checkPageCount>},
      {"pdf-page-size", Severity::warning,
       "page 1 is more than 0.1 mm larger or smaller than the packet says", ofPdf<checkPageSize>},
      {"pdf-ink-missing", Severity::warning, "a separation of the PDF is no ink of the packet",
       ofPdf<checkInksMissing>},
      {"pdf-ink-unused", Severity::warning, "an ink of the packet is on no page of the PDF",
       ofPdf<checkInksUnused>},
      {"pdf-font-missing", Severity::warning, "a font of the PDF is not listed in the packet",
       ofPdf<checkFonts>},
      {"pdf-layer-missing", Severity::warning, "a layer of the PDF is not listed in the packet",
       ofPdf<checkLayersMissing>},
      {"pdf-layer-unknown", Severity::warning, "a layer of the packet is none of the PDF",
       ofPdf<checkLayersUnknown>},
      {"pdf-title", Severity::warning, "packet and Info dictionary have different titles",
       ofPdf<checkTitle>},
      {"pdf-producer", Severity::warning, "packet and Info dictionary name different producers",
       ofPdf<checkProducer>},
      {"pdf-trapped", Severity::warning, "packet and Info dictionary disagree about trapping",
       ofPdf<checkTrapped>},
      {"pdf-packet-hidden", Severity::note, "the packet is compressed or encrypted in the PDF",
       ofPdf<checkHidden>},
      {"pdf-several-packets", Severity::note, "the PDF holds more packets than the document's own",
       ofPdf<checkSeveral>},
  };
}

}  // namespace vxmeta
