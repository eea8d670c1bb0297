// SPDX-License-Identifier: Apache-2.0
// Files that cannot be read, by mistake or made to harm: a line that says what to do, and an end.
#include <gtest/gtest.h>

#include <algorithm>

#include "support/pdf.h"
#include "support/program.h"

namespace {

// The one line that a run ends with.
void expectRefusal(const std::string& arguments, const std::string& input,
                   const std::string& reason) {
  const Outcome outcome = runTool(arguments, input);
  EXPECT_EQ(outcome.code, 2) << arguments << ": " << reason;
  EXPECT_EQ(outcome.out, "") << arguments << ": " << reason;
  EXPECT_EQ(outcome.err.rfind("vxmeta: ", 0), 0U) << outcome.err;
  EXPECT_EQ(std::count(outcome.err.begin(), outcome.err.end(), '\n'), 1) << outcome.err;
  EXPECT_NE(outcome.err.find(reason), std::string::npos) << outcome.err;
}

std::string beginOf(const std::string& name, std::size_t bytes) {
  return contentOf(sample(name)).substr(0, bytes);
}

TEST(BadFiles, WhatIsNoReadableFile) {
  const std::string pipe = scratchPath("pipe");
  ASSERT_EQ(std::system(("mkfifo " + pipe).c_str()), 0);
  expectRefusal("extract " + scratchPath("nothing"), "", "no such file");
  expectRefusal("extract /", "", "is a directory");
  expectRefusal("extract /dev/zero", "", "is a pipe or a device");
  expectRefusal("extract " + pipe, "", "is a pipe or a device");
  expectRefusal("extract -", "", "is empty");
  expectRefusal("extract -", "just words", "--scan");
  expectRefusal("extract --scan -", "just words", "no metadata packet is found");
  expectRefusal("extract --object 1 -", "<?xpacket?>", "no numbered objects");
}

TEST(BadFiles, TruncatedArtwork) {
  expectRefusal("extract -", beginOf("BlueSquare.tif", 3000), "damaged or truncated TIFF");
  expectRefusal("extract -", beginOf("BlueSquare.jpg", 2000), "damaged or truncated JPEG");
  expectRefusal("extract -", beginOf("BlueSquare.psd", 5000), "or is truncated");
  expectRefusal("extract -", beginOf("BlueSquare.indd", 5000), "or is truncated");
}

TEST(BadFiles, PacketsInAnEncodingThatIsNotRead) {
  const std::string packet = "<?xpacket begin=''?><rdf:RDF/>";
  for (const bool isMarked : {false, true}) {
    for (const bool isBigEndian : {false, true}) {
      std::string wide = !isMarked     ? ""
                         : isBigEndian ? std::string("\0\0\xFE\xFF", 4)
                                       : std::string("\xFF\xFE\0\0", 4);
      for (const char c : packet) {
        const std::string zeros(3, '\0');
        wide += isBigEndian ? zeros + c : c + zeros;
      }
      expectRefusal("get - job", wide, "is in UTF-32, which is not read; have it written in UTF-8");
    }
  }
}

TEST(BadFiles, ADocumentTypeIsNoPacketOfAnotherKind) {
  const std::string packet = "<rdf:RDF xmlns:rdf='http://www.w3.org/1999/02/22-rdf-syntax-ns#'/>";
  expectRefusal("get - job", "<!DOCTYPE x [<!ENTITY a '>'>]>" + packet, "DOCTYPE");
  expectRefusal("get - job", "<!DOCTYPE x>" + packet, "DOCTYPE");
  expectRefusal("get - job", "<!DOCTYPE html><html/>", "is no XMP packet");
}

std::string withMetadata(const std::string& dictionary, const std::string& data) {
  return pdfOf({"<</Type/Catalog/Metadata 2 0 R>>", stream("/Type/Metadata" + dictionary, data)});
}

TEST(BadFiles, PdfsThatCannotBeMended) {
  expectRefusal("extract -", "%PDF-1.4 and no more", "damaged PDF that cannot be mended");
  expectRefusal("extract -", pdfOf({"<</Type/Catalog>>"}), "no metadata packet of its own");
  expectRefusal("extract -", pdfOf({"<</Type/Catalog/Metadata 9 0 R>>"}), "damaged or missing");
  expectRefusal("extract -", withMetadata("", ""), "empty stream; `vxmeta embed`");
  expectRefusal("extract -", withMetadata("/Filter/FlateDecode", "no zlib"), "cannot be decoded");
  expectRefusal("extract -", withMetadata("/Filter/Unheard", "x"), "cannot be decoded");
  expectRefusal("extract --object 1 -", withMetadata("", "x"), "object 1 is no stream");
}

TEST(BadFiles, APacketThatUnpacksWithoutEnd) {
  std::string blanks;  // 128 from every two bytes
  for (int i = 0; i < 2200000; ++i) blanks += "\x81 ";
  expectRefusal("extract -", withMetadata("/Filter/RunLengthDecode", blanks), "over 256 MiB");
  expectRefusal("extract -", withMetadata("/Filter[/RunLengthDecode/Fl/LZWDecode]", blanks),
                "compressed more than once");
}

TEST(BadFiles, ObjectsThatReferToEachOtherWithoutEnd) {
  std::vector<std::string> objects = {"<</Type/Catalog/Metadata 2 0 R>>"};
  for (int i = 3; i < 20000; ++i) {
    objects.push_back("<</Length " + std::to_string(i) + " 0 R>>stream\nx\nendstream");
  }
  expectRefusal("extract -", pdfOf(objects), "damaged in over 1,000 places");
  expectRefusal("extract --list -", pdfOf(objects), "damaged in over 1,000 places");
}

TEST(BadFiles, PageTreesAndFormsInCirclesAreGoneThroughOnce) {
  Pdf pdf;
  pdf.packet = "<x:xmpmeta xmlns:x='adobe:ns:meta/'/>";
  pdf.pages = "/Kids[3 0 R 4 0 R 3 0 R]";
  pdf.page = "/Resources 6 0 R";
  pdf.objects = {"<</XObject<</A 7 0 R>>/Font<</F 8 0 R>>>>",
                 stream("/Subtype/Form/Resources 6 0 R", ""),
                 "<</Subtype/Type3/Resources 6 0 R/CharProcs<</a 7 0 R>>>>"};
  EXPECT_EQ(runTool("check -", pdf.text()).code, 0);
  EXPECT_EQ(runTool("extract --list -", pdf.text()).code, 0);
}

TEST(BadFiles, ADeepPageTreeIsGoneThrough) {
  std::vector<std::string> objects = {"<</Type/Catalog/Pages 2 0 R/Metadata 20000 0 R>>"};
  for (int i = 3; i < 20000; ++i) {
    objects.push_back("<</Type/Pages/Kids[" + std::to_string(i) + " 0 R]>>");
  }
  objects.emplace_back("<</Type/Page/MediaBox[0 0 1 1]>>");
  objects.push_back(stream("/Type/Metadata", "<x:xmpmeta xmlns:x='adobe:ns:meta/'/>"));
  EXPECT_EQ(runTool("check -", pdfOf(objects)).code, 0);
}

}  // namespace
