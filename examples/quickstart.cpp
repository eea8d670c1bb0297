// quickstart FILE [-o PACKET]
//
// Takes the XMP packet out of a document (PDF, AI, EPS, INDD, TIFF, ... or a bare packet), shows
// what it says as typed values, changes some, and prints the packet that comes back.
#include <XMPlib.h>

#include <fstream>
#include <iostream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

std::string readFile(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) throw std::runtime_error("cannot read " + path);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

// From the last `first` in `bytes` up to the end of the `last` behind it; empty if not there.
std::string lastBetween(const std::string& bytes, const std::string& first,
                        const std::string& last) {
  const std::size_t begin = bytes.rfind(first);
  if (begin == std::string::npos) return {};
  const std::size_t end = bytes.find(last, begin);
  return end == std::string::npos ? std::string() : bytes.substr(begin, end + last.size() - begin);
}

// Any program can find a packet without knowing the file's format. The last one counts: where a
// file was saved incrementally, it is the current one. The trailer is written in one of two ways.
std::string packetIn(const std::string& bytes) {
  for (const char* trailer : {"<?xpacket end=\"w\"?>", "<?xpacket end='w'?>",
                              "<?xpacket end=\"r\"?>", "<?xpacket end='r'?>"}) {
    std::string packet = lastBetween(bytes, "<?xpacket begin=", trailer);
    if (!packet.empty()) return packet;
  }
  return lastBetween(bytes, "<x:xmpmeta", "</x:xmpmeta>");
}

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

  std::vector<XMPlSmartName> names;
  xmp.GetSmartNames(names);
  names.emplace_back();
  names.back().name = "Proof";
  names.back().value = "quickstart";
  require(xmp.SetSmartNames(names), xmp);
}

void run(const std::string& input, const std::string& output) {
  const std::string packet = packetIn(readFile(input));
  if (packet.empty()) throw std::runtime_error("no XMP packet in " + input);

  XMPlib xmp;
  xmp.SetXML(packet);
  if (!xmp.ErrStr().empty()) throw std::runtime_error("unreadable packet: " + xmp.ErrStr());
  std::cout << input << ": a packet of " << packet.size() << " bytes\n";
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

  const std::string& changed = xmp.GetXMLPacket(false, 0);
  if (output.empty()) {
    std::cout << changed << '\n';
  } else if (!(std::ofstream(output, std::ios::binary) << changed)) {
    throw std::runtime_error("cannot write " + output);
  }
}

}  // namespace

int main(int argc, char** argv) {
  std::string input;
  std::string output;
  for (int i = 1; i < argc; ++i) {
    const bool hasOutput = std::string(argv[i]) == "-o" && i + 1 < argc;
    (hasOutput ? output : input) = argv[hasOutput ? ++i : i];
  }
  if (input.empty()) {
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
