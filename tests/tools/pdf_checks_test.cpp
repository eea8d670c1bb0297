// SPDX-License-Identifier: Apache-2.0
// Findings on PDFs with known faults.
#include <gtest/gtest.h>

#include <functional>
#include <regex>
#include <set>
#include <sstream>

#include "support/checked_pdf.h"
#include "support/program.h"

namespace {

using Json = nlohmann::json;

using Change = std::function<void(CheckedPdf&)>;

struct Fault {
  Change make;
  Names names;
};

// Every check of a PDF, raised by a document that is otherwise right.
const std::vector<Fault>& faults() {
  static const std::vector<Fault> kFaults = {
      {[](CheckedPdf&) {}, {}},
      {[](CheckedPdf& d) { d.xmp.SetNrPages(2); }, {"pdf-page-count scalars.nrPages"}},
      {[](CheckedPdf& d) { setSize(d.xmp, "mm", 254.2, 127); }, {"pdf-page-size page"}},
      {[](CheckedPdf& d) { d.xmp.SetInks({ink("Cyan")}, true); }, {"pdf-ink-missing inks"}},
      {[](CheckedPdf& d) {
         d.xmp.SetInks({ink("Cyan"), ink("Spot 485"), ink("Gold")}, true);
       },
       {"pdf-ink-unused inks[2]"}},
      {[](CheckedPdf& d) {
         d.xmp.SetInks({ink("Cyan"), ink("SPOT485")}, true);
       },
       {"pdf-ink-spelling inks[1]"}},
      {[](CheckedPdf& d) {
         d.pdf.content = "/F 1 Tf";
         d.pdf.page += "/Annots[<</AP<</N 8 0 R>>>>]";
         d.pdf.objects[2] = stream("/Resources<</Font<</G<</BaseFont/Times>>>>>>", "1 0 0 0 K");
       },
       {"pdf-font-missing fonts"}},
      {[](CheckedPdf& d) {
         d.pdf.catalogue =
             "/OCProperties<</OCGs[<</Name(Artwork)>><</Name(Lacquer)>><</Name(Lacquer)>>]>>";
       },
       {"pdf-layer-missing layers"}},
      {[](CheckedPdf& d) { d.xmp.SetLayers({layer("Art work")}); },
       {"pdf-layer-spelling layers[0]"}},
      {[](CheckedPdf& d) {
         d.xmp.SetLayers({layer("Artwork"), layer("Die")});
       },
       {"pdf-layer-unknown layers[1]"}},
      {[](CheckedPdf& d) { d.pdf.info = "/Title(Other)"; }, {"pdf-title pdfData.title"}},
      {[](CheckedPdf& d) { d.pdf.info = "/Producer(Other)"; }, {"pdf-producer pdfData.producer"}},
      {[](CheckedPdf& d) { d.pdf.info = "/Trapped/False"; },
       {"pdf-trapped pdfData.trapped", "pdf-trapped scalars.isTrapped"}},
      {[](CheckedPdf& d) { d.pdf.metadata = "/Filter[]"; }, {"pdf-packet-hidden packet"}},
      {[](CheckedPdf& d) { d.pdf.objects[2] = stream("/Type/Metadata", "x"); },
       {"pdf-several-packets packet"}},
  };
  return kFaults;
}

TEST(PdfChecks, EachIsRaisedByItsFaultAlone) {
  for (const Fault& fault : faults()) {
    CheckedPdf document;
    fault.make(document);
    EXPECT_EQ(found(document.text()), fault.names) << document.pdf.text();
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

TEST(PdfChecks, AnEmptyListSaysThatThereIsNone) {
  CheckedPdf document;
  document.xmp.SetInks({}, true);
  document.xmp.SetFonts({});
  document.xmp.SetLayers({});
  EXPECT_EQ(found(document.text()),
            Names({"pdf-ink-missing inks", "pdf-font-missing fonts", "pdf-layer-missing layers"}));
}

TEST(PdfChecks, AnAbsentListSaysNothing) {
  CheckedPdf document;
  document.xmp.SetXML("");
  document.xmp.SetNrPages(1);
  EXPECT_EQ(found(document.text()), Names());
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
    CheckedPdf document;
    document.pdf.pages = "/MediaBox[0 0 1440 720]";
    document.pdf.page = size.page;
    setSize(document.xmp, size.units, size.width, size.height);
    EXPECT_EQ(findings(document.text(), "--only pdf-page-size"), Json::array()) << size.page;
    setSize(document.xmp, size.units, size.height, size.width);
    EXPECT_EQ(findings(document.text(), "--only pdf-page-size").size(), 1U) << size.page;
  }
}

TEST(PdfChecks, TheInfoDictionaryMaySayTheSameInOtherWays) {
  struct Case {
    const char *title, *info;
    Names names;
  };
  const Names other = {"pdf-title pdfData.title"};
  const Case cases[] = {
      {"Carton", "(Carton\\000)", {}},
      {"Carton", "(Carton\\r\\n )", {}},
      {"a\nb", "(a\\r\\nb)", {}},
      {"Grün", "<FEFF001B00640065001B0047007200750308006E>", {}},
      {"Grün", "<FEFF001B0064006500440045001B0047007200FC006E>", {}},
      {"Grün", "(Grun)", other},
      {"carton", "(Carton)", other},
      {"a b", "(ab)", other},
  };
  for (const Case& one : cases) {
    CheckedPdf document;
    XMPlPDFData data;
    data.title = one.title;
    document.xmp.SetPDFData(data);
    document.pdf.info = std::string("/Title") + one.info;
    EXPECT_EQ(found(document.text(), "--only pdf-title"), one.names) << one.title << one.info;
  }
}

TEST(PdfChecks, FontsAreListedByTheirNameOrTheirPostScriptName) {
  struct Case {
    const char *listed, *used;
    bool isSame;
  };
  const Case cases[] = {
      {"Arial", "ArialMT", true},
      {"Arial Bold", "Arial-BoldMT", true},
      {"Times New Roman", "TimesNewRomanPSMT", true},
      {"Times New Roman Bold", "TimesNewRomanPS-BoldMT", true},
      {"Myriad Pro", "MyriadPro-Regular", true},
      {"MyriadPro-Regular", "MyriadPro-Regular", true},
      {"Times Roman", "Times-Roman", true},
      {"Arial", "Arial-BoldMT", false},
      {"Arial", "Arimo", false},
  };
  for (const Case& one : cases) {
    CheckedPdf document;
    XMPlFont font;
    font.name = one.listed;
    document.xmp.SetFonts({font});
    document.pdf.page =
        std::string("/Resources<</Font<</F<</Subtype/Type1/BaseFont/") + one.used + ">>>>>>";
    EXPECT_EQ(found(document.text(), "--only pdf-font-missing"),
              one.isSame ? Names() : Names({"pdf-font-missing fonts"}))
        << one.listed << one.used;
  }
}

TEST(PdfChecks, TrappedIsComparedAsATruth) {
  for (const char* packets : {"true", "TRUE", "Unknown", "False"}) {
    CheckedPdf document;
    document.xmp.SetXML(std::regex_replace(document.xmp.GetXML(), std::regex("Trapped>True<"),
                                           std::string("Trapped>") + packets + "<"));
    const bool isOther = packets == std::string("False");
    EXPECT_EQ(found(document.text(), "--only pdf-trapped"),
              isOther ? Names({"pdf-trapped pdfData.trapped"}) : Names())
        << packets;
  }
  CheckedPdf document;
  document.pdf.info = "/Trapped/true";
  EXPECT_EQ(found(document.text(), "--only pdf-trapped"), Names());
}

// --- The command --------------------------------------------------------------------------------

TEST(CheckCommand, ExitCodeAndLines) {
  CheckedPdf right;
  const std::string fine = scratchFile("fine.pdf", right.text());
  CheckedPdf wrong;
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
  CheckedPdf document;
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
