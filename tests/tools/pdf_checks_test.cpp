// SPDX-License-Identifier: Apache-2.0
// Findings on PDFs with known faults.
#include <gtest/gtest.h>

#include <XMPlib.h>

#include <functional>
#include <nlohmann/json.hpp>
#include <set>
#include <sstream>

#include "support/pdf.h"
#include "support/program.h"

namespace {

using Json = nlohmann::json;
using Names = std::multiset<std::string>;

// A PDF and the records of its packet.
struct Document {
  XMPlib xmp;
  Pdf pdf;

  // They agree on everything.
  Document();

  std::string text() {
    pdf.packet = xmp.GetXMLPacket(false, 0);
    return pdf.text();
  }
};

XMPlInk ink(const std::string& name) {
  XMPlInk result;
  result.name = name;
  result.type = "process";
  return result;
}

XMPlLay layer(const std::string& name) {
  XMPlLay result;
  result.name = name;
  return result;
}

void setSize(XMPlib& xmp, const std::string& units, double width, double height) {
  XMPlDimDat page;
  page.units = units;
  page.hsize = width;
  page.vsize = height;
  xmp.SetDimDat(page);
}

Document::Document() {
  xmp.SetNrPages(1);
  setSize(xmp, "mm", 254, 127);
  xmp.SetInks({ink("Cyan"), ink("Spot 485")}, true);
  XMPlFont font;
  font.name = "Helvetica Bold";
  xmp.SetFonts({font});
  xmp.SetLayers({layer("Artwork")});
  XMPlPDFData data;
  data.title = "Carton";
  data.producer = "A program";
  data.trapped = data.trappedValid = true;
  xmp.SetPDFData(data);
  xmp.SetIsTrapped(true);

  pdf.catalogue = "/OCProperties<</OCGs[<</Name(Artwork)>>]>>";
  pdf.pages = "/MediaBox[0 0 740 380]";
  pdf.info = "/Title(Carton)/Producer(A program)/Trapped/True";
  pdf.page =
      "/TrimBox[10 10 730 370]/Resources<</ColorSpace<</S 6 0 R>>"
      "/Font<</F<</Subtype/Type1/BaseFont/ABCDEF+Helvetica-Bold>>>>>>";
  pdf.content = "1 0 0 0 k";
  pdf.objects = {"[/Separation/Spot#20485/DeviceCMYK 7 0 R]", "null", "null", "null"};
}

Json findings(Document& document, const std::string& arguments = "") {
  return Json::parse(runTool("check --json " + arguments + " -", document.text()).out);
}

// "id path" of every finding.
Names found(Document& document) {
  Names names;
  for (const Json& finding : findings(document)) {
    names.insert(finding["id"].get<std::string>() + ' ' + finding["path"].get<std::string>());
  }
  return names;
}

using Change = std::function<void(Document&)>;

struct Fault {
  Change make;
  Names names;
};

// Every check of a PDF, raised by a document that is otherwise right.
const std::vector<Fault>& faults() {
  static const std::vector<Fault> kFaults = {
      {[](Document&) {}, {}},
      {[](Document& d) { d.xmp.SetNrPages(2); }, {"pdf-page-count scalars.nrPages"}},
      {[](Document& d) { setSize(d.xmp, "mm", 254.2, 127); }, {"pdf-page-size page"}},
      {[](Document& d) { d.xmp.SetInks({ink("Cyan")}, true); }, {"pdf-ink-missing inks"}},
      {[](Document& d) {
         d.xmp.SetInks({ink("Cyan"), ink("Spot 485"), ink("Gold")}, true);
       },
       {"pdf-ink-unused inks[2]"}},
      {[](Document& d) {
         d.pdf.content = "/F 1 Tf";
         d.pdf.page += "/Annots[<</AP<</N 8 0 R>>>>]";
         d.pdf.objects[2] = stream("/Resources<</Font<</G<</BaseFont/Times>>>>>>", "1 0 0 0 K");
       },
       {"pdf-font-missing fonts"}},
      {[](Document& d) {
         d.pdf.catalogue = "/OCProperties<</OCGs[<</Name(Artwork)>><</Name(Lacquer)>>]>>";
       },
       {"pdf-layer-missing layers"}},
      {[](Document& d) {
         d.xmp.SetLayers({layer("Artwork"), layer("Die")});
       },
       {"pdf-layer-unknown layers[1]"}},
      {[](Document& d) { d.pdf.info = "/Title(Other)"; }, {"pdf-title pdfData.title"}},
      {[](Document& d) { d.pdf.info = "/Producer(Other)"; }, {"pdf-producer pdfData.producer"}},
      {[](Document& d) { d.pdf.info = "/Trapped/False"; },
       {"pdf-trapped pdfData.trapped", "pdf-trapped scalars.isTrapped"}},
      {[](Document& d) { d.pdf.metadata = "/Filter[]"; }, {"pdf-packet-hidden packet"}},
      {[](Document& d) { d.pdf.objects[2] = stream("/Type/Metadata", "x"); },
       {"pdf-several-packets packet"}},
  };
  return kFaults;
}

TEST(PdfChecks, EachIsRaisedByItsFaultAlone) {
  for (const Fault& fault : faults()) {
    Document document;
    fault.make(document);
    EXPECT_EQ(found(document), fault.names) << document.pdf.text();
  }
}

TEST(PdfChecks, EachOfThePublishedOnesHasItsFault) {
  std::set<std::string> raised;
  for (const Fault& fault : faults()) {
    for (const std::string& name : fault.names) raised.insert(name.substr(0, name.find(' ')));
  }
  std::istringstream lines(runTool("check --list-checks").out);
  for (std::string line; std::getline(lines, line);) {
    const std::string id = line.substr(0, line.find(' '));
    EXPECT_TRUE(id.rfind("pdf-", 0) != 0 || raised.count(id) == 1) << id;
  }
}

// --- Where colours stand ------------------------------------------------------------------------

const char* const kDeep = "/ColorSpace<</D[/DeviceN[/Deep/None/All]/DeviceRGB 7 0 R]>>";

TEST(PdfChecks, SeparationsAreFoundWhereverTheyAre) {
  const std::string deep = std::string("/Resources<<") + kDeep + ">>";
  const std::string form = stream("/Subtype/Form" + deep, "");
  const Change changes[] = {
      [&](Document& d) { d.pdf.objects[0] = "[/Indexed[/Separation/Deep/DeviceRGB 7 0 R]1(a)]"; },
      [&](Document& d) { d.pdf.objects[0] = "[/Pattern[/Separation/Deep/DeviceRGB 7 0 R]]"; },
      [&](Document& d) {
        d.pdf.page = "";
        d.pdf.pages += deep;
      },
      [&](Document& d) {
        d.pdf.page = "/Resources<</XObject<</A 8 0 R>>>>";
        d.pdf.objects[2] = stream("/Subtype/Form/Resources<</XObject<</B 9 0 R>>>>", "");
        d.pdf.objects[3] = form;
      },
      [&](Document& d) {
        d.pdf.page = "/Resources<</Pattern<</P 8 0 R>>>>";
        d.pdf.objects[2] = stream("/PatternType 1" + deep, "");
      },
      [&](Document& d) {
        d.pdf.page =
            "/Resources<</Pattern<</P<</PatternType 2/Shading<</ShadingType 2/ColorSpace"
            "[/Separation/Deep/DeviceRGB 7 0 R]>>>>>>>>";
      },
      [&](Document& d) {
        d.pdf.page =
            "/Resources<</Font<</F<</Subtype/Type3/CharProcs<</a 8 0 R>>" + deep + ">>>>>>";
        d.pdf.objects[2] = stream("", "");
      },
      [&](Document& d) {
        d.pdf.page = "/Annots[<</AP<</N<</On 8 0 R>>>>>>]";
        d.pdf.objects[2] = form;
      },
      [&](Document& d) {
        d.pdf.page = "/Resources<</XObject<</I 8 0 R>>>>";
        d.pdf.objects[2] =
            stream("/Subtype/Image/ColorSpace[/Separation/Deep/DeviceRGB 7 0 R]", "");
      },
  };
  for (const Change& change : changes) {
    Document document;
    change(document);
    const Json missing = findings(document, "--only pdf-ink-missing");
    ASSERT_EQ(missing.size(), 1U) << document.pdf.text();
    EXPECT_NE(missing[0]["message"].get<std::string>().find("\"Deep\""), std::string::npos);
  }
}

TEST(PdfChecks, ProcessInksAreUsedByWhatPrintsInThem) {
  struct Use {
    const char* content;
    const char* resources;
    bool cyan, black;
  };
  const Use uses[] = {
      {"1 0 0 rg", "", false, false},
      {"(k g) Tj % k g", "", false, false},
      {"0 0 0 1 k", "", true, true},
      {"0 G", "", false, true},
      {"/DeviceCMYK cs", "", true, true},
      {"BI /W 1 /CS /CMYK ID g k EI", "", true, true},
      {"BI /W 1 /CS /RGB ID g k EI", "", false, false},
      {"", "/ColorSpace<</C[/ICCBased 8 0 R]>>", true, true},
      {"", "/XObject<</I<</Subtype/Image/ColorSpace/DeviceGray>>>>", false, true},
  };
  for (const Use& use : uses) {
    Document document;
    document.xmp.SetInks({ink("cyan"), ink("Black")}, true);
    document.pdf.content = use.content;
    document.pdf.page = std::string("/Resources<<") + use.resources + ">>";
    document.pdf.objects[2] = stream("/N 4", "");
    Names unused;
    for (const Json& finding : findings(document, "--only pdf-ink-unused")) {
      unused.insert(finding["path"].get<std::string>());
    }
    EXPECT_EQ(unused.count("inks[0]"), use.cyan ? 0U : 1U) << use.content << use.resources;
    EXPECT_EQ(unused.count("inks[1]"), use.black ? 0U : 1U) << use.content << use.resources;
  }
}

TEST(PdfChecks, PageOneIsMeasuredAsItIsSeen) {
  struct Size {
    const char* page;
    const char* units;
    double width, height;
  };
  const Size sizes[] = {
      {"/CropBox[0 0 720 360]", "mm", 254, 127},
      {"/CropBox[0 0 720 360]/TrimBox[720 0 0 36]", "cm", 25.4, 1.27},
      {"/UserUnit 2/Rotate 90/CropBox[0 0 720 360]", "inch", 10, 20},
      {"/TrimBox[1 2 3]", "pt", 1440, 720},
      {"/CropBox[-100 -100 5000 5000]", "pt", 1440, 720},
      {"/TrimBox[720 5000 -10 360]", "pt", 720, 360},
      {"/TrimBox[1500 0 1600 100]/CropBox[0 0 720 360]", "mm", 254, 127},
  };
  for (const Size& size : sizes) {
    Document document;
    document.pdf.pages = "/MediaBox[0 0 1440 720]";
    document.pdf.page = size.page;
    setSize(document.xmp, size.units, size.width, size.height);
    EXPECT_EQ(findings(document, "--only pdf-page-size"), Json::array()) << size.page;
    setSize(document.xmp, size.units, size.height, size.width);
    EXPECT_EQ(findings(document, "--only pdf-page-size").size(), 1U) << size.page;
  }
}

// --- The command --------------------------------------------------------------------------------

TEST(CheckCommand, ExitCodeAndLines) {
  Document right;
  const std::string fine = scratchFile("fine.pdf", right.text());
  Document wrong;
  wrong.pdf.info = "/Title(\\033[31m)";
  const std::string warned = scratchFile("warned.pdf", wrong.text());
  wrong.xmp.SetNrPages(3);
  const std::string failed = scratchFile("failed.pdf", wrong.text());

  EXPECT_EQ(runTool("check " + fine).out, "");
  EXPECT_EQ(runTool("check --strict " + fine).code, 0);
  const Outcome warning = runTool("check " + warned);
  EXPECT_EQ(warning.code, 0);
  EXPECT_EQ(warning.out.rfind(warned + ": warning: the packet says \"Carton\"", 0), 0U);
  EXPECT_NE(warning.out.find(" [pdf-title]\n    write "), std::string::npos) << warning.out;
  EXPECT_EQ(warning.out.find('\033'), std::string::npos);
  EXPECT_EQ(runTool("check --strict " + warned).code, 1);
  EXPECT_EQ(runTool("check " + failed).code, 1);
  EXPECT_EQ(runTool("check --ignore pdf-page-count " + failed).code, 0);
  EXPECT_EQ(runTool("check --only pdf-title " + failed).code, 0);
}

TEST(CheckCommand, TheOtherFilesGoOn) {
  Document document;
  document.xmp.SetNrPages(3);
  const std::string file = scratchFile("failed.pdf", document.text());
  const Outcome outcome = runTool("check --json nothing " + file + " -", "<x:xmpmeta>");
  EXPECT_EQ(outcome.code, 2);
  EXPECT_NE(outcome.err.find("vxmeta: nothing: no such file"), std::string::npos);
  EXPECT_NE(outcome.err.find("vxmeta: standard input: the packet cannot be read"),
            std::string::npos);
  const Json list = Json::parse(outcome.out);
  ASSERT_EQ(list.size(), 1U);
  EXPECT_EQ(list[0]["file"], file);
  EXPECT_EQ(list[0]["severity"], "error");
  EXPECT_EQ(list[0]["path"], "scalars.nrPages");
}

TEST(CheckCommand, UsageIsTrouble) {
  for (const char* arguments : {"", "--only nothing -", "--nonsense -"}) {
    EXPECT_EQ(runTool(std::string("check ") + arguments).code, 2) << arguments;
  }
  EXPECT_EQ(runTool("check --help").code, 0);
}

}  // namespace
