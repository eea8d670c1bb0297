// SPDX-License-Identifier: Apache-2.0
// Packets out of files of every kind, by the built program.
#include <gtest/gtest.h>

#include "support/pdf.h"
#include "support/program.h"

namespace {

const char* const kPacket =
    "<?xpacket begin='' id='x'?><x:xmpmeta xmlns:x='adobe:ns:meta/'/>"
    "<?xpacket end='w'?>";
const char* const kOther =
    "<?xpacket begin='' id='y'?><x:xmpmeta xmlns:x='adobe:ns:meta/'/>"
    "<?xpacket end='w'?>";

Pdf withPacket() {
  Pdf pdf;
  pdf.packet = kPacket;
  return pdf;
}

// --- PDF ----------------------------------------------------------------------------------------

TEST(ExtractFromPdf, TheSamePacketHoweverTheFileIsBuilt) {
  const char* const kBuilds[] = {
      "",
      "--linearize",
      "--object-streams=generate --linearize",
      "--stream-data=compress --recompress-flate",
      "--encrypt u o 256 --",
      "--encrypt '' o 256 --",
      "--encrypt u o 256 --cleartext-metadata --",
      "--allow-weak-crypto --encrypt u o 128 --use-aes=y --",
      "--allow-weak-crypto --encrypt u o 40 --",
  };
  for (const char* build : kBuilds) {
    const std::string file = throughQpdf(withPacket().text(), build);
    const Outcome outcome = runTool("extract " + file, "", "VXMETA_PASSWORD=u");
    EXPECT_EQ(outcome.out, kPacket) << build;
    EXPECT_EQ(outcome.err, "") << build;
    EXPECT_EQ(outcome.code, 0) << build;
  }
}

TEST(ExtractFromPdf, DecodesTheStream) {
  Pdf pdf;
  pdf.packet = "3C3F78 6D6C3F3E>";
  pdf.metadata = "/Filter/ASCIIHexDecode";
  EXPECT_EQ(runTool("extract -", pdf.text()).out, "<?xml?>");
}

TEST(ExtractFromPdf, TheLastRevisionCounts) {
  const std::string pdf = updated(withPacket().text(), 2, stream("/Type/Metadata", kOther));
  EXPECT_EQ(runTool("extract -", pdf).out, kOther);
}

TEST(ExtractFromPdf, ThePasswordComesFromAFileOrTheEnvironment) {
  const std::string file = throughQpdf(withPacket().text(), "--encrypt user owner 256 --");
  const std::string right = scratchFile("right", "owner\r\nand another line\n");
  const std::string wrong = scratchFile("wrong", "guess\n");
  EXPECT_EQ(runTool("extract --password-file " + right + " " + file).out, kPacket);
  EXPECT_EQ(runTool("extract " + file, "", "VXMETA_PASSWORD=user").out, kPacket);

  const Outcome none = runTool("extract " + file);
  EXPECT_EQ(none.code, 2);
  EXPECT_NE(none.err.find("--password-file"), std::string::npos) << none.err;
  const Outcome guessed = runTool("extract --password-file " + wrong + " " + file);
  EXPECT_EQ(guessed.code, 2);
  EXPECT_NE(guessed.err.find("the password does not open it"), std::string::npos) << guessed.err;
}

TEST(ExtractFromPdf, APasswordInAnotherEncodingOpens) {
  const std::string file = throughQpdf(
      withPacket().text(), "--allow-weak-crypto --password-mode=hex-bytes --encrypt 6fe9 o 128 --");
  EXPECT_EQ(runTool("extract " + file, "", "VXMETA_PASSWORD=o\xC3\xA9").out, kPacket);
}

// An image's packet stands behind the document's, or alone in the file.
Pdf withPlacedImage() {
  Pdf pdf = withPacket();
  pdf.page = "/Resources<</XObject<</Im 6 0 R>>>>/Metadata 8 0 R";
  pdf.objects = {stream("/Subtype/Image/Metadata 7 0 R", ""), stream("/Type/Metadata", kOther),
                 stream("/Type/Metadata", "12345"), stream("/Type/Metadata", "1234567")};
  return pdf;
}

TEST(ExtractFromPdf, APlacedImagesPacketIsNotTheDocuments) {
  Pdf pdf = withPlacedImage();
  EXPECT_EQ(runTool("extract -", pdf.text()).out, kPacket);
  EXPECT_EQ(runTool("extract --object 7 -", pdf.text()).out, kOther);
  pdf.packet.clear();
  const Outcome none = runTool("extract -", pdf.text());
  EXPECT_EQ(none.code, 2);
  EXPECT_NE(none.err.find("no metadata packet of its own"), std::string::npos) << none.err;
}

TEST(ExtractFromPdf, ListsAllPacketsWithTheirOwners) {
  EXPECT_EQ(runTool("extract --list -", withPlacedImage().text()).out,
            "* pdf object 2        83 bytes  document\n"
            "  pdf object 7        83 bytes  image\n"
            "  pdf object 8         5 bytes  page 1\n"
            "  pdf object 9         7 bytes  nothing\n");
}

TEST(ExtractFromPdf, ADamagedFileIsMendedWithAWarning) {
  std::string pdf = withPacket().text();
  pdf.replace(pdf.find("startxref"), 9, "startxxxx");
  const Outcome outcome = runTool("extract -", pdf);
  EXPECT_EQ(outcome.out, kPacket);
  EXPECT_EQ(outcome.code, 0);
  const std::string warning = "vxmeta: standard input: warning: damaged PDF: ";
  EXPECT_NE(outcome.err.find(warning), std::string::npos);
  const Outcome list = runTool("extract --list -", pdf);
  EXPECT_NE(list.out.find("* pdf object 2"), std::string::npos) << list.out;
  EXPECT_NE(list.err.find(warning), std::string::npos) << list.err;
}

TEST(ExtractFromPdf, ADamagedMetadataObjectIsSaidToBeThat) {
  std::string pdf = withPacket().text();
  pdf.replace(pdf.find("2 0 obj"), 7, "2 0 bjo");
  for (const char* command : {"extract -", "extract --list -"}) {
    const Outcome outcome = runTool(command, pdf);
    EXPECT_NE(outcome.err.find("warning: damaged PDF: "), std::string::npos) << outcome.err;
  }
  const Outcome outcome = runTool("get - job", pdf);
  EXPECT_EQ(outcome.code, 2);
  EXPECT_NE(outcome.err.find("metadata object of this PDF is damaged or missing"),
            std::string::npos)
      << outcome.err;
}

// --- Artwork ------------------------------------------------------------------------------------

TEST(ExtractFromArtwork, ThePacketAsItLiesInTheFile) {
  for (const char* kind : {"tif", "jpg", "psd", "eps", "indd", "gif", "png", "ai", "pdf"}) {
    const std::string file = sample(std::string("BlueSquare.") + kind);
    const Outcome outcome = runTool("extract " + file);
    EXPECT_EQ(outcome.code, 0) << kind;
    EXPECT_EQ(outcome.out.rfind("<?xpacket begin=", 0), 0U) << kind;
    EXPECT_NE(outcome.out.find("<?xpacket end="), std::string::npos) << kind;
    EXPECT_NE(contentOf(file).find(outcome.out), std::string::npos) << kind;
    EXPECT_EQ(runTool("extract -", contentOf(file)).out, outcome.out) << kind;
  }
}

// A TIFF of one directory with nothing in it but what the reading needs.
std::string tiff(const std::string& packet) {
  const auto little = [](std::size_t value, int bytes) {
    std::string text;
    for (int i = 0; i < bytes; ++i) text += static_cast<char>(value >> (8 * i) & 0xFF);
    return text;
  };
  const auto entry = [&](int tag, int type, std::size_t count, std::size_t value) {
    return little(static_cast<std::size_t>(tag), 2) + little(static_cast<std::size_t>(type), 2) +
           little(count, 4) + little(value, 4);
  };
  return "II*" + std::string(1, '\0') + little(8, 4) + little(3, 2) + entry(256, 3, 1, 1) +
         entry(257, 3, 1, 1) + entry(700, 1, packet.size(), 50) + little(0, 4) + packet;
}

TEST(ExtractFromArtwork, Utf16ComesWhole) {
  std::string packet = "\xFE\xFF";
  for (const char* c = kPacket; *c != '\0'; ++c) packet += {'\0', *c};
  const Outcome outcome = runTool("extract -", tiff(packet));
  EXPECT_EQ(outcome.out, packet) << outcome.err;
}

std::string segment(const std::string& data) {
  const std::size_t length = data.size() + 2;
  return std::string("\xFF\xE1") + static_cast<char>(length >> 8) +
         static_cast<char>(length & 0xFF) + data;
}

TEST(ExtractFromArtwork, AJpegsPacketThatGoesOnElsewhereIsRefused) {
  const std::string id = std::string("http://ns.adobe.com/xap/1.0/") + '\0';
  const std::string note =
      "<x:xmpmeta xmlns:x='adobe:ns:meta/'><rdf:RDF xmlns:rdf='http://www.w3.org"
      "/1999/02/22-rdf-syntax-ns#'><rdf:Description rdf:about='' xmlns:xmpNote="
      "'http://ns.adobe.com/xmp/note/' xmpNote:%='0'/></rdf:RDF></x:xmpmeta>";
  const auto jpeg = [&](const std::string& property) {
    std::string packet = note;
    packet.replace(packet.find('%'), 1, property);
    const std::string image = contentOf(sample("BlueSquare.jpg"));
    return "\xFF\xD8" + segment(id + packet) + image.substr(image.find("\xFF\xDB"));
  };
  EXPECT_EQ(runTool("extract -", jpeg("Other")).code, 0);
  const Outcome outcome = runTool("extract -", jpeg("HasExtendedXMP"));
  EXPECT_EQ(outcome.code, 2);
  EXPECT_EQ(outcome.out, "");
  EXPECT_NE(outcome.err.find("cut off"), std::string::npos) << outcome.err;
}

// --- Text, scans, output ------------------------------------------------------------------------

TEST(Extract, PacketTextComesAsItIs) {
  for (const std::string& text :
       {std::string(kPacket) + "\n\n", std::string("\xEF\xBB\xBF<?xml version='1.0'?>\n<!-- a -->"
                                                   "<rdf:RDF xmlns:rdf='r'/>")}) {
    EXPECT_EQ(runTool("extract -", text).out, text);
    EXPECT_EQ(runTool("extract " + scratchFile("packet.pdf", text)).out, text);
  }
}

TEST(Extract, OtherFilesAreScannedWhereThatIsAsked) {
  const std::string one = std::string("something <?xpacket begin") + kPacket + " more";
  const std::string two = one + kOther;
  EXPECT_EQ(runTool("extract -", one).code, 2);
  EXPECT_EQ(runTool("extract --scan -", one).out, kPacket);

  const Outcome which = runTool("extract --scan -", two);
  EXPECT_EQ(which.code, 2);
  EXPECT_NE(which.err.find("holds 2 packets"), std::string::npos) << which.err;
  EXPECT_EQ(runTool("extract --scan --object 2 -", two).out, kOther);
  EXPECT_NE(runTool("extract --scan --list -", two).out.find("scan, byte 25"), std::string::npos);
}

TEST(Extract, WritesAFileAndNeverTheDocument) {
  const std::string pdf = scratchFile("document.pdf", withPacket().text());
  const std::string out = scratchPath("out.xmp");
  EXPECT_EQ(runTool("extract " + pdf + " -o " + out).out, "");
  EXPECT_EQ(contentOf(out), kPacket);
  EXPECT_EQ(runTool("extract " + pdf + " -o " + pdf).code, 2);
  EXPECT_EQ(contentOf(pdf), withPacket().text());
  EXPECT_EQ(runTool("extract " + pdf + " -o /dev/full").code, 2);
}

}  // namespace
