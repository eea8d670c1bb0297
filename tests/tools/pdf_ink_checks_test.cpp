// SPDX-License-Identifier: Apache-2.0
// Inks of a packet against the colours of its PDF.
#include <gtest/gtest.h>

#include <functional>

#include "support/checked_pdf.h"

namespace {

using Json = nlohmann::json;
using Change = std::function<void(CheckedPdf&)>;

// --- Separations --------------------------------------------------------------------------------

const char* const kDeep = "/ColorSpace<</D[/DeviceN[/Deep/None/All]/DeviceRGB 7 0 R]>>";

TEST(PdfInkChecks, SeparationsAreFoundWhereverTheyAre) {
  const std::string deep = std::string("/Resources<<") + kDeep + ">>";
  const std::string form = stream("/Subtype/Form" + deep, "");
  const Change changes[] = {
      [&](CheckedPdf& d) { d.pdf.objects[0] = "[/Indexed[/Separation/Deep/DeviceRGB 7 0 R]1(a)]"; },
      [&](CheckedPdf& d) { d.pdf.objects[0] = "[/Pattern[/Separation/Deep/DeviceRGB 7 0 R]]"; },
      [&](CheckedPdf& d) {
        d.pdf.page = "";
        d.pdf.pages += deep;
      },
      [&](CheckedPdf& d) {
        d.pdf.page = "/Resources<</XObject<</A 8 0 R>>>>";
        d.pdf.objects[2] = stream("/Subtype/Form/Resources<</XObject<</B 9 0 R>>>>", "");
        d.pdf.objects[3] = form;
      },
      [&](CheckedPdf& d) {
        d.pdf.page = "/Resources<</Pattern<</P 8 0 R>>>>";
        d.pdf.objects[2] = stream("/PatternType 1" + deep, "");
      },
      [&](CheckedPdf& d) {
        d.pdf.page =
            "/Resources<</Pattern<</P<</PatternType 2/Shading<</ShadingType 2/ColorSpace"
            "[/Separation/Deep/DeviceRGB 7 0 R]>>>>>>>>";
      },
      [&](CheckedPdf& d) {
        d.pdf.page =
            "/Resources<</Font<</F<</Subtype/Type3/CharProcs<</a 8 0 R>>" + deep + ">>>>>>";
        d.pdf.objects[2] = stream("", "");
      },
      [&](CheckedPdf& d) {
        d.pdf.page = "/Annots[<</AP<</N<</On 8 0 R>>>>>>]";
        d.pdf.objects[2] = form;
      },
      [&](CheckedPdf& d) {
        d.pdf.page = "/Resources<</XObject<</I 8 0 R>>>>";
        d.pdf.objects[2] =
            stream("/Subtype/Image/ColorSpace[/Separation/Deep/DeviceRGB 7 0 R]", "");
      },
  };
  for (const Change& change : changes) {
    CheckedPdf document;
    change(document);
    const Json missing = findings(document.text(), "--only pdf-ink-missing");
    ASSERT_EQ(missing.size(), 1U) << document.pdf.text();
    EXPECT_NE(missing[0]["message"].get<std::string>().find("\"Deep\""), std::string::npos);
  }
}

TEST(PdfInkChecks, NamesAreReadInUtf8OrWindows1252) {
  struct Spelling {
    const char *inPdf, *inPacket;
    Names names;
  };
  const Spelling spellings[] = {
      {"Gr#fcn", "Grün", {}},
      {"Gr#c3#bcn", "Grün", {}},
      {"GR#dcN", "Grün", {"pdf-ink-spelling inks[0]"}},
      {"Gr#fcn#20", "Grün", {"pdf-ink-spelling inks[0]"}},
      {"Grun", "Grün", {"pdf-ink-missing inks", "pdf-ink-unused inks[0]"}},
      {"Black", "black", {"pdf-ink-spelling inks[0]"}},
  };
  for (const Spelling& spelling : spellings) {
    CheckedPdf document;
    document.xmp.SetInks({ink(spelling.inPacket)}, true);
    document.pdf.content = "";
    document.pdf.objects[0] = std::string("[/Separation/") + spelling.inPdf + "/DeviceCMYK 7 0 R]";
    EXPECT_EQ(found(document.text()), spelling.names) << spelling.inPdf;
  }
}

// --- Process inks -------------------------------------------------------------------------------

// Which process inks a page uses.
struct Use {
  const char* content;
  const char* resources;
  bool cyan, black;
};

const Use kContents[] = {
    {"0 0 0 1 k", "", true, true},
    {"1 0 0 rg", "", true, true},
    {"0 G", "", false, true},
    {"/DeviceCMYK cs", "", true, true},
    {"/DeviceRGB CS", "", true, true},
    {"0 0 1 1 re W n q Q", "", false, false},
    // In the colour that content begins with.
    {"BT (k) Tj ET % k", "", false, true},
    {"0 0 1 1 re f", "", false, true},
    {"0.5 sc f", "", false, true},
    {"/S cs 1 scn f", "", false, false},
    {"/S cs 0 0 1 1 re B", "", false, true},
    {"/S cs /S CS 0 0 1 1 re B", "", false, false},
    {"q /S cs q Q Q f", "", false, true},
    {"/S cs q /S cs Q f", "", false, false},
    {"Q /S cs Q f", "", false, false},
    {"/S cs 0 Tr (k) Tj", "", false, false},
    {"/S cs 1 Tr (k) Tj", "", false, true},
    {"1 0 0 0 1 1 d1 f", "", false, false},
};

const Use kImages[] = {
    {"BI /W 1 /CS /CMYK ID g k EI", "", true, true},
    {"BI /W 1 /CS /RGB ID g k EI", "", true, true},
    {"BI /W 1 /CS [/I /CMYK 1 <0000>] ID g EI", "", true, true},
    {"BI /W 1 /CS /G ID rg k EI", "", false, true},
    {"BI /W 1 /IM true ID rg k EI", "", false, true},
    {"/S cs BI /W 1 /IM true ID g k EI", "", false, false},
    {"/M Do", "/XObject<</M<</Subtype/Image/ImageMask true>>>>", false, true},
    {"/S cs /M Do", "/XObject<</M<</Subtype/Image/ImageMask true>>>>", false, false},
    {"/I Do", "/XObject<</I<</Subtype/Image/ColorSpace[/Separation/X/DeviceRGB 7 0 R]>>>>", false,
     false},
    {"/I Do", "/XObject<</I<</Subtype/Image/ColorSpace/DeviceGray>>>>", false, true},
    {"/I Do", "/XObject<</I<</Subtype/Image/ColorSpace/DeviceRGB>>>>", true, true},
    {"/I Do", "/XObject<</I<</Subtype/Image/Filter/JPXDecode>>>>", true, true},
};

const Use kSpaces[] = {
    {"", "/ColorSpace<</C[/ICCBased 8 0 R]>>", true, true},
    {"", "/ColorSpace<</C[/ICCBased 9 0 R]>>", false, true},
    {"", "/ColorSpace<</C[/ICCBased 7 0 R]>>", true, true},
    {"", "/ColorSpace<</C[/CalGray<<>>]>>", false, true},
    {"", "/ColorSpace<</C[/CalRGB<<>>]>>", true, true},
    {"", "/ColorSpace<</C[/Lab<<>>]>>", true, true},
    {"", "/ColorSpace<</C[/Indexed/DeviceGray 1(a)]>>", false, true},
    {"", "/ColorSpace<</C/Pattern>>", false, false},
    {"", "/ColorSpace<</C[/DeviceN[/A/B]/DeviceCMYK 7 0 R]>>", false, false},
};

void expectUse(const Use& use) {
  CheckedPdf document;
  document.xmp.SetInks({ink("cyan"), ink("Black")}, true);
  document.pdf.content = use.content;
  document.pdf.page = std::string("/Resources<<") + use.resources + ">>";
  document.pdf.objects[2] = stream("/N 4", "");
  document.pdf.objects[3] = stream("/N 1", "");
  Names unused;
  if (!use.cyan) unused.insert("pdf-ink-unused inks[0]");
  if (!use.black) unused.insert("pdf-ink-unused inks[1]");
  EXPECT_EQ(found(document.text(), "--only pdf-ink-unused"), unused)
      << use.content << use.resources;
}

TEST(PdfInkChecks, ProcessInksAreUsedByWhatPrintsInThem) {
  for (const Use& use : kContents) expectUse(use);
  for (const Use& use : kImages) expectUse(use);
  for (const Use& use : kSpaces) expectUse(use);
}

TEST(PdfInkChecks, AColourHoldsOverThePartsOfAPagesContent) {
  for (const bool isSet : {true, false}) {
    CheckedPdf document;
    document.xmp.SetInks({ink("Black"), ink("Spot 485")}, true);
    document.pdf.objects[2] = stream("", isSet ? "/S cs 1" : "1");
    document.pdf.objects[3] = stream("", "scn 0 0 1 1 re f");
    const std::string text = updated(document.text(), 4,
                                     "<</Type/Page/Parent 3 0 R/Contents[8 0 R 9 0 R]"
                                     "/Resources<</ColorSpace<</S 6 0 R>>>>>>");
    EXPECT_EQ(found(text, "--only pdf-ink-unused"),
              isSet ? Names({"pdf-ink-unused inks[0]"}) : Names());
  }
}

TEST(PdfInkChecks, AFormWithoutResourcesUsesThoseOfThePage) {
  CheckedPdf document;
  document.xmp.SetInks({ink("Black")}, true);
  document.pdf.content = "/S cs /F Do";
  document.pdf.page = "/Resources<</XObject<</F 8 0 R/M 9 0 R>>>>";
  document.pdf.objects[2] = stream("/Subtype/Form", "/M Do");
  document.pdf.objects[3] = stream("/Subtype/Image/ImageMask true", "");
  EXPECT_EQ(found(document.text(), "--only pdf-ink-unused"), Names());
}

TEST(PdfInkChecks, ProcessInksMayHaveNamesOfTheirOwn) {
  struct Case {
    const char *name, *type, *content, *separation;
    Names names;
  };
  const Names unused = {"pdf-ink-unused inks[0]"};
  const Names another = {"pdf-ink-missing inks", "pdf-ink-unused inks[0]"};
  const Case cases[] = {
      {"Schwarz", "Process", "0 g", "None", {}},
      {"Process Cyan", "process", "0 0 0 1 k", "None", {}},
      {"C", "PROCESS", "1 0 0 rg", "None", {}},
      {"K", "spot", "0 0 0 1 k", "None", unused},
      {"Schwarz", "process", "/S cs f", "None", unused},
      {"Yellow", "process", "0 g", "None", unused},
      {"Gelb", "process", "/S cs f", "Yellow", {}},
      {"Gelb", "spot", "/S cs f", "Yellow", another},
      {"Gelb", "process", "/S cs f", "Gold", another},
  };
  for (const Case& one : cases) {
    CheckedPdf document;
    document.xmp.SetInks({ink(one.name, one.type)}, true);
    document.pdf.content = one.content;
    document.pdf.objects[0] = std::string("[/Separation/") + one.separation + "/DeviceCMYK 7 0 R]";
    EXPECT_EQ(found(document.text()), one.names) << one.name << one.content;
  }
}

}  // namespace
