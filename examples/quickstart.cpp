// SPDX-License-Identifier: Apache-2.0
// quickstart FILE [-o PACKET]
//
// Takes the XMP packet out of a document (PDF, AI, EPS, INDD, TIFF, ... or a bare packet), shows
// what it says as typed values, changes some, and shows the packet that comes back, blank lines and
// the rest of long lines left out. With -o it writes the whole packet to a file instead.
#include <XMPlib.h>

#include <fstream>
#include <iostream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "packet_in_file.h"

namespace {

template <class Value>
void show(const char* what, bool found, const Value& value) {
  std::cout << "  " << what << ": ";
  if (found) {
    std::cout << value << '\n';
  } else {
    std::cout << "none\n";
  }
}

void showJob(const XMPlib& xmp) {
  XMPlJobData job;
  const bool hasJob = xmp.GetJobData(job);
  show("job", hasJob, job.name + " [" + job.id + "], order " + job.orderid);
  XMPlProdData product;
  const bool hasProduct = xmp.GetProdData(product);
  show("product", hasProduct, product.prodname + ", part " + product.prodpartname);
}

void showDocumentData(const XMPlib& xmp) {
  XMPlDocData data;
  const bool found = xmp.GetDocumentData(data);
  show("created", found, data.createDate + " by " + data.creatorTool);
  show("modified", found, data.modifyDate);
  show("description", found, data.description);
}

void showDimensions(const XMPlib& xmp) {
  XMPlDimDat page;
  const bool found = xmp.GetDimDat(page);
  show("page", found,
       std::to_string(page.hsize) + " x " + std::to_string(page.vsize) + " " + page.units);
}

void showDocument(const XMPlib& xmp) {
  std::cout << "Document\n" << std::boolalpha;
  int number = 0;
  bool flag = false;
  std::string text;
  show("pages", xmp.GetNrPages(number), number);
  show("trapped", xmp.GetIsTrapped(flag), flag);
  show("first logical page", xmp.GetStartLogPage(number), number);
  show("inks of the original document", xmp.GetNrInksOriginalDocument(number), number);
  show("smart identifier", xmp.GetSmartID(text), text);
  show("native PDF type", xmp.GetPDFNativeType(text), text);
  showJob(xmp);
  showDocumentData(xmp);
  showDimensions(xmp);
}

void showInks(const XMPlib& xmp) {
  std::vector<XMPlInk> inks;
  xmp.GetInks(inks);
  std::cout << "Inks: " << inks.size() << '\n';
  for (const XMPlInk& ink : inks) {
    std::cout << "  " << ink.name << " (" << ink.type << ", " << ink.attribute << "), "
              << ink.frequency << " lpi at " << ink.angle << " degrees";
    if (ink.coverageValid) std::cout << ", covers " << ink.pct << " %, " << ink.mm2 << " mm2";
    std::cout << '\n';
  }
}

void showScreens(const XMPlib& xmp) {
  std::vector<std::vector<XMPlScreen>> groups;
  xmp.GetScreenContainer(groups);
  std::cout << "Screen groups: " << groups.size() << '\n';
  for (const std::vector<XMPlScreen>& group : groups) {
    for (const XMPlScreen& screen : group) {
      std::cout << "  " << screen.usedrefs << ": ";
      if (screen.hasScreening) std::cout << screen.dotname << ' ' << screen.frequency << ", ";
      std::cout << "plate curve " << screen.autoplateDGCCT << '\n';
    }
  }
  std::vector<XMPlDgcc> curves;
  xmp.GetDgcs(curves);
  std::cout << "DGC curves: " << curves.size() << '\n';
  for (const XMPlDgcc& curve : curves) {
    std::cout << "  " << curve.name << ':';
    for (const double value : curve.values) std::cout << ' ' << value;
    std::cout << '\n';
  }
}

void showResources(const XMPlib& xmp) {
  std::vector<XMPlExtRef> stored;
  std::vector<XMPlExtRef> files;
  xmp.GetExtRefs(stored, true);
  xmp.GetExtRefs(files);
  std::cout << "External references: " << files.size() << " files in " << stored.size()
            << " entries\n";
  for (const XMPlExtRef& ref : stored) std::cout << "  " << ref.instanceID << '\n';

  std::vector<XMPlFont> fonts;
  xmp.GetFonts(fonts, false);
  std::cout << "Fonts, embedded duplicates left out: " << fonts.size() << '\n';
  for (const XMPlFont& font : fonts)
    std::cout << "  " << font.name << ", " << font.location << '\n';

  std::vector<XMPlBarcode> barcodes;
  xmp.GetBarcodes(barcodes);
  std::cout << "Barcodes: " << barcodes.size() << '\n';
  for (const XMPlBarcode& code : barcodes) {
    std::cout << "  " << code.symbolType << ' ' << code.code << '\n';
  }
}

void showLayout(const XMPlib& xmp) {
  std::vector<XMPlLay> layers;
  xmp.GetLayers(layers);
  std::cout << "Layers: " << layers.size() << '\n';
  for (const XMPlLay& layer : layers) {
    std::cout << "  " << layer.name << (layer.printable ? "" : ", does not print") << '\n';
  }
  std::vector<XMPlPagRange> ranges;
  xmp.GetPagRanges(ranges);
  std::cout << "Page ranges: " << ranges.size() << '\n';
  for (const XMPlPagRange& range : ranges) {
    std::cout << "  " << range.start << " to " << range.end << ", " << range.inks.size()
              << " inks\n";
  }
  std::vector<XMPlRepeat> repeats;
  xmp.GetRepeats(repeats);
  std::cout << "Step and repeat: " << repeats.size() << '\n';
  for (const XMPlRepeat& repeat : repeats) {
    std::cout << "  " << repeat.name << " (" << repeat.type << "): " << repeat.count << " of "
              << repeat.front << '\n';
  }
}

void showSmartNames(const XMPlib& xmp) {
  std::vector<XMPlSmartName> names;
  xmp.GetSmartNames(names);
  std::cout << "Smart names: " << names.size() << '\n';
  for (const XMPlSmartName& name : names) {
    std::cout << "  " << name.name << " = " << name.value << '\n';
  }
}

void require(bool done, const XMPlib& xmp) {
  if (!done) throw std::runtime_error(xmp.ErrStr());
}

void change(XMPlib& xmp) {
  int pages = 0;
  if (!xmp.GetNrPages(pages)) require(xmp.SetNrPages(1), xmp);
  require(xmp.SetIsTrapped(true), xmp);

  XMPlDocData data;  // its empty fields leave what is stored
  data.modifyDate = data.metadataDate = "now";
  require(xmp.SetDocumentData(data), xmp);

  XMPlJobData job;
  job.name = "Folding carton";
  job.orderid = "2026-1121";
  require(xmp.SetJobData(job), xmp);

  XMPlDimDat page;
  if (!xmp.GetDimDat(page)) {
    page.hsize = 210;
    page.vsize = 297;
    require(xmp.SetDimDat(page), xmp);
  }

  // Where an item of the list is incomplete, this would delete it and those behind it: the Get ends
  // there, and the Set replaces the whole list. README shows how to ask beforehand.
  std::vector<XMPlSmartName> names;
  xmp.GetSmartNames(names);
  names.emplace_back();
  names.back().name = "Proof";
  names.back().value = "quickstart";
  require(xmp.SetSmartNames(names), xmp);
}

// --- Input and output ----------------------------------------------------------------------------

// Throws unless the file has a packet that can be read.
void load(XMPlib& xmp, const std::string& path) {
  const PacketInFile packet = packetIn(readFile(path));
  if (packet.text.empty()) throw std::runtime_error("no XMP packet in plain text in " + path);
  std::cout << path << ": packet " << packet.which << " of " << packet.count << " ("
            << (packet.named ? "the one that the PDF's catalogue names" : "the last") << "), "
            << packet.text.size() << " bytes\n";
  xmp.SetXML(packet.text);  // answers true always; the error text tells
  if (!xmp.ErrStr().empty()) throw std::runtime_error("unreadable packet: " + xmp.ErrStr());
}

// Up to `most` bytes from the beginning of `line`, whole characters (UTF-8) alone.
std::string beginning(const std::string& line, std::size_t most) {
  if (line.size() <= most) return line;
  while (most > 0 && (static_cast<unsigned char>(line[most]) & 0xC0) == 0x80) --most;
  return line.substr(0, most);
}

void showPacket(const std::string& packet) {
  constexpr std::size_t kLongest = 120;
  std::istringstream lines(packet);
  std::size_t blank = 0;
  for (std::string line; std::getline(lines, line);) {
    const std::string shown = beginning(line, kLongest);
    if (line.find_first_not_of(' ') == std::string::npos) {
      blank += line.size() + 1;
    } else if (shown.size() == line.size()) {
      std::cout << line << '\n';
    } else {
      std::cout << shown << " ... " << line.size() - shown.size() << " bytes left out\n";
    }
  }
  std::cout << blank << " bytes of blank lines left out; -o writes the whole packet\n";
}

void write(const std::string& packet, const std::string& path) {
  std::ofstream file(path, std::ios::binary);
  if (!(file << packet << std::flush)) throw std::runtime_error("cannot write " + path);
}

void run(const std::string& input, const std::string& output) {
  XMPlib xmp;
  load(xmp, input);
  showDocument(xmp);
  showInks(xmp);
  showScreens(xmp);
  showResources(xmp);
  showLayout(xmp);
  showSmartNames(xmp);

  change(xmp);
  std::cout << "\nAfter the changes\n";
  showDocument(xmp);
  showSmartNames(xmp);

  const std::string& packet = xmp.GetXMLPacket(false, 0);
  if (output.empty()) {
    showPacket(packet);
  } else {
    write(packet, output);
  }
}

}  // namespace

int main(int argc, char** argv) {
  std::string input;
  std::string output;
  bool understood = true;
  for (int i = 1; i < argc; ++i) {
    const std::string arg = argv[i];
    const bool isOutput = arg == "-o" && i + 1 < argc;
    understood = understood && (isOutput || (input.empty() && arg[0] != '-'));
    (isOutput ? output : input) = isOutput ? argv[++i] : arg;
  }
  if (!understood || input.empty()) {
    std::cerr << "usage: quickstart FILE [-o PACKET]\n";
    return 2;
  }
  try {
    run(input, output);
  } catch (const std::exception& error) {
    std::cerr << "quickstart: " << error.what() << '\n';
    return 1;
  }
  return 0;
}
