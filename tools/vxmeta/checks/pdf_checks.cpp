// SPDX-License-Identifier: Apache-2.0
#include "checks/pdf_checks.h"

#include <fmt/format.h>
#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <regex>
#include <set>
#include <string>

#include "checks/folded_name.h"
#include "checks/packet_reading.h"
#include "checks/shared_names.h"
#include "checks/standard_properties.h"

namespace vxmeta {
namespace {

// --- Pages --------------------------------------------------------------------------------------

void checkPageCount(const PdfFacts& pdf, const Subject& subject, Findings& found) {
  int pages = 0;
  if (!subject.packet.GetNrPages(pages) ||
      static_cast<std::size_t>(std::max(pages, 0)) == pdf.pages)
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

void checkPageSize(const PdfFacts& pdf, const Subject& subject, Findings& found) {
  constexpr double kTolerance = 0.1;  // mm
  constexpr double kMillimetres = 25.4 / 72;
  const std::optional<Size> said = sizeOfPage(subject.packet);
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

// --- Fonts and layers ---------------------------------------------------------------------------

// PostScript names say who made a font, and that it is the regular one: "TimesNewRomanPS-BoldMT".
std::string withoutMarks(const std::string& name) {
  static const std::regex kMarks("PSMT$|MT$|PS(?=-|$)|[- ](Regular|Roman)$");
  return std::regex_replace(name, kMarks, "");
}

// Names are spelt with blanks, hyphens or commas, as the program likes.
std::u32string plainName(const std::string& name) {
  std::u32string plain = folded(name);
  std::erase_if(plain, [](char32_t c) { return c == U'-' || c == U','; });
  return plain;
}

// The ways to write a font's name.
std::array<std::u32string, 2> spellingsOf(const std::string& name) {
  return {plainName(name), plainName(withoutMarks(name))};
}

void checkFonts(const PdfFacts& pdf, const Subject& subject, Findings& found) {
  if (!hasList(subject, "vxFontL:fonts")) return;
  std::vector<XMPlFont> fonts;
  subject.packet.GetFonts(fonts);
  std::set<std::u32string> listed;
  for (const XMPlFont& font : fonts) {
    for (std::u32string& name : spellingsOf(font.name)) listed.insert(std::move(name));
  }
  const auto isListed = [&](const std::u32string& name) { return listed.contains(name); };
  for (const std::string& name : pdf.fonts) {
    const auto spellings = spellingsOf(name);
    if (std::any_of(spellings.begin(), spellings.end(), isListed)) continue;
    found.add("fonts",
              fmt::format("the PDF uses the font \"{}\", which the packet does not list: who "
                          "edits the text does not know to have it",
                          name),
              "add the font to the packet");
  }
}

std::vector<NamedRecord> layersOf(const XMPlib& packet) {
  std::vector<XMPlLay> layers;
  packet.GetLayers(layers);
  return namedRecords(layers, "layers");
}

void checkLayersMissing(const PdfFacts& pdf, const Subject& subject, Findings& found) {
  if (!hasList(subject, "vxLayL:layers")) return;
  const std::set<std::u32string> listed = foldedNames(layersOf(subject.packet));
  for (const std::string& name : pdf.layers) {
    if (listed.contains(folded(name))) continue;
    found.add("layers",
              fmt::format("the PDF has a layer \"{}\" that the packet does not list: whether it "
                          "prints is not said",
                          name),
              "add the layer to the packet");
  }
}

void checkLayersUnknown(const PdfFacts& pdf, const Subject& subject, Findings& found) {
  const std::set<std::u32string> names = foldedNames(pdf.layers);
  for (const NamedRecord& layer : layersOf(subject.packet)) {
    if (names.contains(folded(layer.name))) continue;
    found.add(layer.path,
              fmt::format("the layer \"{}\" is no layer of the PDF: what the packet says of it "
                          "cannot be applied",
                          layer.name),
              "remove the layer from the packet, or write the PDF with its layers");
  }
}

void checkLayerSpelling(const PdfFacts& pdf, const Subject& subject, Findings& found) {
  tellSpelling(layersOf(subject.packet), pdf.layers, found);
}

// --- The Info dictionary ------------------------------------------------------------------------

// Two statements that exist and differ.
bool isContradiction(const std::string& a, const std::string& b) {
  return !a.empty() && !b.empty() && settled(a) != settled(b);
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

void checkTitle(const PdfFacts& pdf, const Subject& subject, Findings& found) {
  if (pdf.info.title.empty()) return;
  addContradiction("pdfData.title", standardPdfData(subject.stored()).title, pdf.info.title, found);
}

void checkProducer(const PdfFacts& pdf, const Subject& subject, Findings& found) {
  if (pdf.info.producer.empty()) return;
  addContradiction("pdfData.producer", standardPdfData(subject.stored()).producer,
                   pdf.info.producer, found);
}

// None for any other word: "Unknown" says nothing.
std::optional<bool> truthIn(const std::string& word) {
  const std::u32string plain = folded(word);
  if (plain == U"true") return true;
  return plain == U"false" ? std::optional(false) : std::nullopt;
}

void checkTrapped(const PdfFacts& pdf, const Subject& subject, Findings& found) {
  const std::string& info = pdf.info.trapped;
  const std::optional<bool> truth = truthIn(info);
  if (!truth) return;
  const std::string packets = standardPdfData(subject.stored()).trapped;
  if (truthIn(packets) == !*truth) addContradiction("pdfData.trapped", packets, info, found);
  bool isTrapped = false;
  if (!subject.packet.GetIsTrapped(isTrapped) || isTrapped == *truth) return;
  addContradiction("scalars.isTrapped", isTrapped ? "True" : "False", info, found);
}

// --- The metadata stream ------------------------------------------------------------------------

void checkHidden(const PdfFacts& pdf, const Subject&, Findings& found) {
  if (!pdf.metadataIsCompressed && !pdf.metadataIsEncrypted) return;
  found.add("packet",
            fmt::format("the metadata stream is {}: tools that search the bytes of the file do not "
                        "find the packet",
                        pdf.metadataIsEncrypted ? "encrypted" : "compressed"),
            "write the PDF with its metadata in plain, where such tools are in use");
}

void checkSeveral(const PdfFacts& pdf, const Subject&, Findings& found) {
  if (pdf.metadataStreams < 2) return;
  found.add("packet",
            fmt::format("the PDF holds {} metadata packets: tools that search the bytes may take "
                        "one that is not the document's",
                        pdf.metadataStreams),
            "`vxmeta extract --list` shows them");
}

}  // namespace

std::vector<Check> pdfChecks() {
  return {
      {"pdf-page-count", Severity::error,
       "the PDF has another number of pages than the packet says", ofPdf<checkPageCount>},
      {"pdf-page-size", Severity::warning,
       "page 1 is more than 0.1 mm larger or smaller than the packet says", ofPdf<checkPageSize>},
      {"pdf-font-missing", Severity::warning, "a font of the PDF is not listed in the packet",
       ofPdf<checkFonts>},
      {"pdf-layer-missing", Severity::warning, "a layer of the PDF is not listed in the packet",
       ofPdf<checkLayersMissing>},
      {"pdf-layer-unknown", Severity::warning, "a layer of the packet is none of the PDF",
       ofPdf<checkLayersUnknown>},
      {"pdf-layer-spelling", Severity::warning,
       "packet and PDF spell a layer with other case or blanks", ofPdf<checkLayerSpelling>},
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
