// SPDX-License-Identifier: Apache-2.0
// Packets into files of every kind, by the built program.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>

#include "files/packet_text.h"
#include "support/pdf.h"
#include "support/program.h"

namespace {

namespace fs = std::filesystem;

std::string packetOf(const std::string& content, std::size_t padding = 0) {
  return "<?xpacket begin='' id='x'?><x:xmpmeta xmlns:x='adobe:ns:meta/'><rdf:RDF xmlns:rdf="
         "'http://www.w3.org/1999/02/22-rdf-syntax-ns#'><rdf:Description rdf:about='' "
         "xmlns:own='http://example.com/own/'>" +
         content + "</rdf:Description></rdf:RDF></x:xmpmeta>" + std::string(padding, ' ') +
         "<?xpacket end='w'?>";
}

const std::string kOld = packetOf("<own:a>old</own:a>", 200);
const std::string kNew = packetOf("<own:a>new</own:a><own:empty/>");

std::string newPacket() { return scratchFile("new.xmp", kNew); }

Pdf document() {
  Pdf pdf;
  pdf.packet = kOld;
  pdf.content = "0 0 10 10 re f";
  pdf.info = "/Title(A carton)";
  return pdf;
}

Outcome embed(const std::string& file, const std::string& options = "",
              const std::string& packet = kNew) {
  return runTool("embed " + options + " " + file + " -", packet, "VXMETA_PASSWORD=o");
}

std::string extracted(const std::string& file) {
  return runTool("extract " + file, "", "VXMETA_PASSWORD=o").out;
}

bool isWhole(const std::string& pdf) {
  return std::system(("qpdf --password=o --check " + pdf + " >/dev/null 2>&1").c_str()) == 0;
}

void expectRefusal(const Outcome& outcome, const std::string& reason) {
  EXPECT_EQ(outcome.code, 2) << reason;
  EXPECT_NE(outcome.err.find(reason), std::string::npos) << outcome.err;
}

// --- Packet text --------------------------------------------------------------------------------

TEST(EmbedIntoText, ThePacketBecomesTheFile) {
  const std::string file = scratchFile("text.xmp", kOld);
  EXPECT_EQ(embed(file).code, 0);
  EXPECT_EQ(contentOf(file), kNew);

  const Outcome piped = runTool("embed - " + newPacket(), kOld);
  EXPECT_EQ(piped.out, kNew) << piped.err;
  EXPECT_EQ(embed(file, "-o " + scratchPath("other.xmp"), kOld).code, 0);
  EXPECT_EQ(contentOf(file), kNew);
  EXPECT_EQ(contentOf(scratchPath("other.xmp")), kOld);
}

TEST(EmbedIntoText, WhatIsNoPacketIsRefused) {
  const std::string file = scratchFile("text.xmp", kOld);
  expectRefusal(embed(file, "", "words"), "is no XMP packet");
  expectRefusal(embed(file, "", "<x:xmpmeta"), "cannot be read");
  expectRefusal(embed(scratchFile("words", "words"), ""), "is no XMP packet, PDF");
  expectRefusal(embed(file, "--how append"), "--how is for PDFs");
  expectRefusal(runTool("embed " + file + " " + scratchPath("nothing")), "no such file");
  EXPECT_EQ(contentOf(file), kOld);
}

TEST(EmbedIntoText, ADryRunPrintsTheDifference) {
  const std::string file = scratchFile("text.xmp", kOld);
  const Outcome outcome =
      runTool("embed --dry-run " + file + " " VXMETA_EXAMPLES "/folding_carton.xmp");
  EXPECT_EQ(outcome.code, 0) << outcome.err;
  EXPECT_NE(outcome.out.find("+  inks"), std::string::npos) << outcome.out;
  EXPECT_EQ(contentOf(file), kOld);
}

TEST(EmbedIntoText, ADryRunIsRefusedLikeTheWrite) {
  Pdf pdf = document();
  pdf.catalogue = "/Perms<</DocMDP 6 0 R>>";
  pdf.objects = {"<</Type/Sig/ByteRange[0 1 2 3]/Contents<00>>>"};
  const std::string readOnly = scratchFile("readonly.xmp", kOld);
  fs::permissions(readOnly, fs::perms::owner_read);
  struct Refusal {
    std::string file, options;
  };
  for (const Refusal& refusal :
       {Refusal{scratchFile("signed.pdf", pdf.text()), ""},
        Refusal{scratchFile("text.xmp", kOld), "--how append"},
        Refusal{throughQpdf(document().text(), "--encrypt o o 256 --"), "--how append"},
        Refusal{readOnly, ""}}) {
    const std::string before = contentOf(refusal.file);
    const Outcome real = embed(refusal.file, refusal.options);
    const Outcome dry = embed(refusal.file, "--dry-run " + refusal.options);
    EXPECT_EQ(real.code, 2) << refusal.file;
    EXPECT_EQ(dry.code, 2) << refusal.file;
    EXPECT_EQ(dry.err, real.err);
    EXPECT_EQ(contentOf(refusal.file), before);
  }
  const Outcome set = runTool("set --dry-run " + readOnly + " job.orderid=7");
  EXPECT_NE(set.out.find("job"), std::string::npos) << set.out;
  expectRefusal(set, "is read-only");
}

// --- A packet in the place of another -----------------------------------------------------------

TEST(PacketInPlace, KeepsTheWrapperAndItsLength) {
  const std::string old =
      "\xEF\xBB\xBF<?xpacket begin='' id='y'?>\n<x:xmpmeta>long enough"
      "</x:xmpmeta>\n   \n<?xpacket end=\"w\"?>\n";
  const std::string text = vxmeta::inPlaceOf(old, "<x:xmpmeta/>");
  EXPECT_EQ(text.size(), old.size());
  EXPECT_EQ(text.find("\xEF\xBB\xBF<?xpacket begin='' id='y'?>\n<x:xmpmeta/>\n"), 0U);
  EXPECT_NE(text.find("\n<?xpacket end=\"w\"?>\n"), std::string::npos);

  const std::string longer = vxmeta::inPlaceOf(old, "<x:xmpmeta>" + std::string(99, 'x') + "/>");
  EXPECT_NE(longer.find("\n   \n<?xpacket end"), std::string::npos) << "keeps its padding";
  EXPECT_EQ(vxmeta::inPlaceOf("<?xpacket begin=''?><a/><?xpacket end='r'?>", "<b/>"),
            "<?xpacket begin=''?>\n<b/>\n<?xpacket end='r'?>");
  EXPECT_EQ(vxmeta::inPlaceOf("<!-- a --><rdf:RDF>x</rdf:RDF>\n", "<b/>"), "<!-- a --><b/>\n");
  EXPECT_EQ(vxmeta::inPlaceOf("<?xml encoding='latin1'?><rdf:RDF>x</rdf:RDF>\n", "<b/>"), "<b/>\n");
}

TEST(PacketInPlace, StaysUtf16) {
  using vxmeta::Encoding;
  for (const Encoding encoding : {Encoding::utf16be, Encoding::utf16le}) {
    const auto wrapped = [&](const std::string& body) {
      return vxmeta::storedText(
          "\xEF\xBB\xBF<?xpacket begin=''?>\n" + body + "\n<?xpacket end='r'?>", encoding);
    };
    EXPECT_EQ(vxmeta::inPlaceOf(wrapped("<a/>"), "<b>\xC3\xA4\xF0\x9F\x93\xA6</b>"),
              wrapped("<b>\xC3\xA4\xF0\x9F\x93\xA6</b>"));
  }
  EXPECT_EQ(vxmeta::storedText("\xF0\x9F\x93\xA6", Encoding::utf16be), "\xD8\x3D\xDC\xE6");
}

TEST(PacketInPlace, PaddingFitsItIntoALength) {
  for (std::size_t length = kNew.size(); length < kNew.size() + 300; length += 7) {
    const auto text = vxmeta::atLength(kNew, length);
    ASSERT_TRUE(text);
    EXPECT_EQ(text->size(), length);
    EXPECT_TRUE(vxmeta::isSameButPadding(*text, kNew));
  }
  EXPECT_FALSE(vxmeta::atLength(kNew, kNew.size() - 1));
  EXPECT_FALSE(vxmeta::isSameButPadding(kOld, kNew));
}

// --- PDF ----------------------------------------------------------------------------------------

struct Build {
  const char* options;
  bool isEncrypted;
};
const Build kBuilds[] = {
    {"", false},
    {"--linearize", false},
    {"--object-streams=generate", false},
    {"--object-streams=generate --linearize", false},
    {"--compress-streams=y --recompress-flate", false},
    {"--encrypt u o 256 --", true},
    {"--encrypt u o 256 -- --linearize --object-streams=generate", true},
    {"--allow-weak-crypto --encrypt u o 128 --use-aes=y --", true},
};

TEST(EmbedIntoPdf, ByEveryWayIntoEveryBuild) {
  for (const bool hasPacket : {true, false}) {
    for (const Build& build : kBuilds) {
      for (const std::string how : {"", "--how append", "--how rewrite"}) {
        Pdf pdf = document();
        if (!hasPacket) pdf.packet = "";
        const std::string file = throughQpdf(pdf.text(), build.options);
        const Outcome outcome = embed(file, how);
        if (build.isEncrypted && how == "--how append") {
          expectRefusal(outcome, "is encrypted");
          continue;
        }
        EXPECT_EQ(outcome.code, 0) << build.options << how << outcome.err;
        EXPECT_TRUE(vxmeta::isSameButPadding(extracted(file), kNew)) << build.options << how;
        EXPECT_TRUE(isWhole(file)) << build.options << how;
      }
    }
  }
}

TEST(EmbedIntoPdf, ASpliceChangesThePacketsBytesAlone) {
  const std::string before = document().text();
  const std::string file = scratchFile("splice.pdf", before);
  const Outcome outcome = embed(file);
  EXPECT_NE(outcome.out.find("spliced"), std::string::npos) << outcome.out;
  const std::size_t at = before.find("<?xpacket");
  const std::string after = contentOf(file);
  EXPECT_EQ(after, before.substr(0, at) + extracted(file) + before.substr(at + kOld.size()));

  expectRefusal(
      embed(file, "--how splice", packetOf("<own:a>" + std::string(999, 'x') + "</own:a>")),
      "too little padding");
  EXPECT_EQ(contentOf(file), after);
}

TEST(EmbedIntoPdf, AnUpdateLeavesTheOldBytesInFront) {
  for (const std::string& before :
       {document().text(), contentOf(throughQpdf(document().text(), "--object-streams=generate")),
        "junk\n" + document().text(), contentOf(sample("BlueSquare.ai"))}) {
    const std::string file = scratchFile("append.pdf", before);
    for (int round = 0; round < 3; ++round) {
      const Outcome outcome = embed(file, "--how append");
      EXPECT_EQ(outcome.code, 0) << outcome.err;
    }
    EXPECT_EQ(contentOf(file).substr(0, before.size()), before);
    EXPECT_EQ(extracted(file), kNew);
    EXPECT_TRUE(isWhole(file));
  }
}

TEST(EmbedIntoPdf, ALargeOneTakesAnUpdateUnlessAskedOtherwise) {
  Pdf pdf = document();
  pdf.objects = {stream("", std::string(std::size_t{65} << 20, '\n'))};
  const std::string before = pdf.text();
  const std::string file = scratchFile("large.pdf", before);
  const std::string longer = packetOf("<own:a>" + std::string(999, 'x') + "</own:a>");
  const Outcome outcome = embed(file, "", longer);
  EXPECT_NE(outcome.out.find("appended an update"), std::string::npos) << outcome.err;
  EXPECT_TRUE(contentOf(file).starts_with(before));
  EXPECT_LT(fs::file_size(file), before.size() + 4000);
  EXPECT_EQ(extracted(file), longer);
  EXPECT_EQ(embed(file, "--how rewrite", kOld).code, 0);
  EXPECT_EQ(extracted(file), kOld);
  EXPECT_TRUE(isWhole(file));
  fs::remove(file);
}

TEST(EmbedIntoPdf, ARewriteDoesNotGrow) {
  const std::string file = throughQpdf(document().text(), "--object-streams=generate --linearize");
  embed(file, "--how rewrite");
  const auto once = fs::file_size(file);
  for (int round = 0; round < 3; ++round) embed(file, "--how rewrite");
  EXPECT_EQ(fs::file_size(file), once);
}

TEST(EmbedIntoPdf, ASignedOneTakesAnUpdateByForce) {
  Pdf pdf = document();
  pdf.catalogue = "/AcroForm<</Fields[6 0 R]/SigFlags 3>>";
  pdf.objects = {"<</FT/Sig/T(a)/V 7 0 R>>", "<</Type/Sig/ByteRange[0 1 2 3]/Contents<00>>>"};
  const std::string file = scratchFile("signed.pdf", pdf.text());
  expectRefusal(embed(file), "digitally signed");
  expectRefusal(embed(file, "--force --how rewrite"), "digitally signed");
  EXPECT_EQ(contentOf(file), pdf.text());
  EXPECT_EQ(embed(file, "--force").code, 0);
  EXPECT_EQ(contentOf(file).rfind(pdf.text(), 0), 0U);
  EXPECT_EQ(extracted(file), kNew);
}

TEST(EmbedIntoPdf, AProtectedOneIsWrittenByItsOwnerOrByForce) {
  const std::string file = throughQpdf(document().text(), "--encrypt u o 256 --modify=none --");
  const auto asUser = [&](const std::string& options) {
    return runTool("embed " + options + " " + file + " " + newPacket(), "", "VXMETA_PASSWORD=u");
  };
  expectRefusal(asUser(""), "protected against changes");
  EXPECT_EQ(extracted(file), kOld);
  EXPECT_EQ(asUser("--force").code, 0);
  EXPECT_EQ(extracted(file), kNew);
  EXPECT_EQ(embed(file, "", kOld).code, 0);
  EXPECT_EQ(runTool("extract " + file, "", "VXMETA_PASSWORD=u").out, kOld) << "still encrypted";
}

TEST(EmbedIntoPdf, ADamagedOneIsMendedByForce) {
  std::string damaged = document().text();
  damaged.replace(damaged.rfind("startxref\n"), 12, "startxref\n99");
  const std::string file = scratchFile("damaged.pdf", damaged);
  expectRefusal(embed(file), "damaged PDF");
  EXPECT_EQ(contentOf(file), damaged);
  EXPECT_EQ(embed(file, "--force").code, 0);
  EXPECT_EQ(extracted(file), kNew);
  EXPECT_TRUE(isWhole(file));
}

// --- Artwork ------------------------------------------------------------------------------------

TEST(EmbedIntoArtwork, EveryNodeArrives) {
  const std::string packet = contentOf(VXMETA_EXAMPLES "/folding_carton.xmp");
  const std::string own =
      "<rdf:Description rdf:about='' xmlns:own='http://example.com/own/'><own:empty/><own:list>"
      "<rdf:Bag><rdf:li/><rdf:li>b</rdf:li></rdf:Bag></own:list></rdf:Description></rdf:RDF>";
  std::string large = packet;
  large.replace(large.find("</rdf:RDF>"), 10, own);
  for (const char* kind : {"tif", "jpg", "psd", "eps", "indd", "png", "gif", "pdf", "ai"}) {
    const std::string name = std::string("BlueSquare.") + kind;
    const std::string file = scratchFile(name, contentOf(sample(name)));
    for (const std::string& text : {large, kNew}) {
      const Outcome outcome = embed(file, "", text);
      EXPECT_EQ(outcome.code, 0) << outcome.err;
      const std::string wanted = scratchFile("wanted.xmp", text);
      EXPECT_EQ(runTool("diff " + file + " " + wanted).code, 0) << kind;
      EXPECT_NE(extracted(file).find("own:empty"), std::string::npos) << kind;
    }
  }
}

TEST(EmbedIntoArtwork, WhatDoesNotFitIsRefused) {
  const std::string image = contentOf(sample("BlueSquare.jpg"));
  const std::string file = scratchFile("large.jpg", image);
  const std::string large = packetOf("<own:a>" + std::string(70000, 'x') + "</own:a>");
  expectRefusal(embed(file, "", large), "over 64 KB");
  EXPECT_EQ(contentOf(file), image);

  const std::string part = contentOf(sample("BlueSquare.tif")).substr(0, 3000);
  const std::string truncated = scratchFile("truncated.tif", part);
  EXPECT_EQ(embed(truncated).code, 2);
  EXPECT_EQ(contentOf(truncated), part);
}

// --- The file that is replaced ------------------------------------------------------------------

TEST(Embed, FollowsALinkAndKeepsThePermissions) {
  const std::string file = scratchFile("target.xmp", kOld);
  const std::string link = scratchPath("link.xmp");
  ASSERT_EQ(::symlink("target.xmp", link.c_str()), 0);
  ASSERT_EQ(::chmod(file.c_str(), 0640), 0);
  EXPECT_EQ(embed(link, "--backup").code, 0);
  EXPECT_TRUE(fs::is_symlink(link));
  EXPECT_EQ(contentOf(file), kNew);
  EXPECT_EQ(contentOf(file + "~"), kOld);
  for (const std::string& path : {file, file + "~"}) {
    EXPECT_EQ(fs::status(path).permissions(), fs::perms{0640}) << path;
  }
}

TEST(Embed, HardLinksPartByForceAloneAndThenDoNot) {
  const std::string file = scratchFile("one.xmp", kOld);
  fs::create_hard_link(file, scratchPath("two.xmp"));
  expectRefusal(embed(file), "2 hard links");
  const Outcome forced = embed(file, "--force --backup");
  EXPECT_NE(forced.err.find("overwritten in place"), std::string::npos) << forced.err;
  EXPECT_EQ(contentOf(scratchPath("two.xmp")), kNew);
  EXPECT_EQ(fs::hard_link_count(file), 2U);
  EXPECT_EQ(contentOf(file + "~"), kOld);
}

TEST(Embed, WhatMayNotBeWrittenIsLeft) {
  const std::string file = scratchFile("readonly.xmp", kOld);
  ASSERT_EQ(::chmod(file.c_str(), 0444), 0);
  expectRefusal(embed(file, "--force"), "is read-only");
  EXPECT_EQ(contentOf(file), kOld);
  expectRefusal(embed(file, "-o /dev/full"), "is a pipe or a device");
  expectRefusal(embed(file, "-o " + scratchPath("no/where.xmp")), "check its directory");
  expectRefusal(runTool("embed - " + newPacket(), document().text()), "give one with -o");
}

}  // namespace
