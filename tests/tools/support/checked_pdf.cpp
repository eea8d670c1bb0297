// SPDX-License-Identifier: Apache-2.0
#include "support/checked_pdf.h"

#include "support/program.h"

XMPlInk ink(const std::string& name, const std::string& type) {
  XMPlInk result;
  result.name = name;
  result.type = type;
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

CheckedPdf::CheckedPdf() {
  xmp.SetNrPages(1);
  setSize(xmp, "mm", 254, 127);
  xmp.SetInks({ink("Cyan", "process"), ink("Spot 485")}, true);
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

std::string CheckedPdf::text() {
  pdf.packet = xmp.GetXMLPacket(false, 0);
  return pdf.text();
}

nlohmann::json findings(const std::string& pdf, const std::string& arguments) {
  return nlohmann::json::parse(runTool("check --json " + arguments + " -", pdf).out);
}

Names found(const std::string& pdf, const std::string& arguments) {
  Names names;
  for (const nlohmann::json& finding : findings(pdf, arguments)) {
    names.insert(finding["id"].get<std::string>() + ' ' + finding["path"].get<std::string>());
  }
  return names;
}
