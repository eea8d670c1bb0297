// SPDX-License-Identifier: Apache-2.0
// set, apply and merge, by the built program.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "support/pdf.h"
#include "support/program.h"

namespace {

const std::string kCarton = VXMETA_EXAMPLES "/folding_carton.xmp";

std::string copyOf(const std::string& file, const std::string& name) {
  return scratchFile(name, contentOf(file));
}

std::string packetOf(const std::string& properties) {
  const std::string orvo = "http://ns.orvo.example/xmp/";
  return "<?xpacket begin='' id='W5M0'?><x:xmpmeta xmlns:x='adobe:ns:meta/'><rdf:RDF "
         "xmlns:rdf='http://www.w3.org/1999/02/22-rdf-syntax-ns#'><rdf:Description rdf:about='' "
         "xmlns:o='http://other.example/' xmlns:dc='http://purl.org/dc/elements/1.1/' "
         "xmlns:xmpMM='http://ns.adobe.com/xap/1.0/mm/' "
         "xmlns:stRef='http://ns.adobe.com/xap/1.0/sType/ResourceRef#' xmlns:vxLayL='" +
         orvo + "laylist/1.0/' xmlns:vxLay='" + orvo + "layer/1.0/'>" + properties +
         "</rdf:Description></rdf:RDF></x:xmpmeta><?xpacket end='w'?>";
}

// What `get` prints of the file.
std::string got(const std::string& file, const std::string& path) {
  return runTool("get " + file + " '" + path + "'").out;
}

struct Setting {
  const char* assignment;
  const char* path;
  const char* value;
};

TEST(Set, ChangesOneValue) {
  const Setting cases[] = {
      {"job.orderid=2026=1121", "job.orderid", "2026=1121\n"},
      {"inks[0].angle=22.5", "inks[0].angle", "22.5\n"},
      {"inks[-1].name=a]b", "inks[-1].name", "a]b\n"},
      {"scalars.nrPages=12", "scalars.nrPages", "12\n"},
      {"scalars.isTrapped=true", "scalars.isTrapped", "true\n"},
      {"scalars.vdpVersion=3", "scalars.vdpVersion", "3\n"},
      {"fonts=", "fonts", "[]\n"},
      {"job.orderid=", "job.orderid", "\n"},
      {R"(layers=[{"name": "x"}])", "layers[0].name", "x\n"},
      {R"(layers+={"name": "y"})", "layers[-1].name", "y\n"},
      {R"(pageRanges+={"start": 9, "end": 9, "inks": [4]})", "pageRanges[-1].inks[0]", "4\n"},
      {"colorSpace.colorprofloc=Untagged", "colorSpace.colorprofloc", "Untagged\n"},
      {"mmData.documentID=uuid:1", "mmData.documentID", "uuid:1\n"},
  };
  for (const Setting& one : cases) {
    const std::string file = copyOf(kCarton, "set.xmp");
    const Outcome outcome = runTool("set " + file + " '" + one.assignment + "'");
    EXPECT_EQ(outcome.code, 0) << one.assignment;
    EXPECT_EQ(outcome.err, "") << one.assignment;
    EXPECT_EQ(got(file, one.path), one.value) << one.assignment;
  }
}

TEST(Set, RefusesAndWritesNothing) {
  const std::pair<const char*, const char*> cases[] = {
      {"job.ordrid=1", "no field 'ordrid'; did you mean job.orderid? there are: "},
      {"orderid=1", "did you mean job.orderid?"},
      {"ink[0].angle=1", "did you mean inks[].angle"},
      {"job.orderid", "expected PATH=VALUE"},
      {"inks[99].angle=1", "inks[99].angle: there is no item [99]"},
      {"inks[name=none].angle=1", "there is no item [name=none]"},
      {"inks[0].angle=steep", "inks[0].angle: 'steep' is no number"},
      {"inks[0].angle=", "inks[0].angle: cannot be empty"},
      {"inks[0].angle=true", "inks[0].angle: expected a number, found boolean"},
      {"scalars.nrPages=3000000000", "scalars.nrPages: 3000000000 is out of range"},
      {"scalars.nrPages=", "scalars.nrPages: cannot be deleted"},
      {"page=", "page: cannot be deleted"},
      {"packet.padding=1", "packet.padding: is about the file"},
      {"job.name+=1", "job.name: += is for lists"},
      {R"(layers+={"nam": "x"})", "layers: /nam: there is no such field"},
      {"layers+={", "layers: is no JSON"},
      {"colorSpace.colorprofloc=here", "'here' is none of Untagged"},
  };
  const std::string file = copyOf(kCarton, "refused.xmp");
  for (const auto& [assignment, why] : cases) {
    const Outcome outcome =
        runTool("set " + file + " job.name=changed '" + std::string(assignment) + "'");
    EXPECT_EQ(outcome.code, 2) << assignment;
    EXPECT_EQ(outcome.out, "") << assignment;
    EXPECT_NE(outcome.err.find(why), std::string::npos) << assignment << ": " << outcome.err;
    EXPECT_EQ(contentOf(file), contentOf(kCarton)) << assignment;
  }
}

TEST(Set, ChoosesNoItemByChance) {
  const std::string file = copyOf(kCarton, "twice.xmp");
  ASSERT_EQ(runTool("set " + file + " 'layers=[{\"name\": \"a\"}, {\"name\": \"a\"}]'").code, 0);
  const Outcome outcome = runTool("set " + file + " 'layers[name=a].locked=true'");
  EXPECT_EQ(outcome.code, 2);
  EXPECT_NE(outcome.err.find("2 items are [name=a]: choose by index, [0]"), std::string::npos);
}

// --- Where it goes -------------------------------------------------------------------------------

TEST(Outputs, DryRunPrintsTheDifferenceAndWritesNothing) {
  const std::string file = copyOf(kCarton, "dry.xmp");
  const std::string changed = scratchPath("changed.xmp");
  const std::string assignments = " job.orderid=new 'fonts=' ";
  ASSERT_EQ(runTool("set " + file + assignments + "-o " + changed).code, 0);
  EXPECT_EQ(contentOf(file), contentOf(kCarton));
  const Outcome dry = runTool("set --dry-run " + file + assignments);
  EXPECT_EQ(dry.code, 0);
  EXPECT_EQ(dry.out, runTool("diff " + file + " " + changed).out);
  EXPECT_NE(dry.out, "");
  EXPECT_EQ(contentOf(file), contentOf(kCarton));
}

TEST(Outputs, TakeAPipe) {
  const Outcome outcome = runTool("set - job.orderid=piped", contentOf(kCarton));
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(runTool("get - job.orderid", outcome.out).out, "piped\n");
  const Outcome same = runTool("apply - " + scratchFile("empty.json", "{}"), contentOf(kCarton));
  EXPECT_EQ(same.out, contentOf(kCarton));
  EXPECT_EQ(runTool("apply - -").code, 2);
}

TEST(Outputs, AFirstPacketIsStartedOnDemandAlone) {
  const std::string gif("GIF89a\1\0\1\0\0\0\0,\0\0\0\0\1\0\1\0\0\2\2D\1\0;", 29);
  const std::string eps =
      "%!PS-Adobe-3.0 EPSF-3.0\n%%BoundingBox: 0 0 9 9\n%%Creator: somebody\n%%EndComments\n"
      "0 0 9 9 rectfill\n%%EOF\n";
  for (const std::string& bare : {Pdf().text(), gif, eps}) {
    const std::string file = scratchFile("bare", bare);
    const Outcome refused = runTool("set " + file + " job.orderid=1");
    EXPECT_EQ(refused.code, 2);
    EXPECT_NE(refused.err.find("--new starts one"), std::string::npos) << refused.err;
    EXPECT_EQ(contentOf(file), bare);
    const Outcome outcome = runTool("set --new " + file + " job.orderid=1");
    EXPECT_EQ(outcome.code, 0) << outcome.err;
    EXPECT_EQ(got(file, "job.orderid"), "1\n");
    EXPECT_EQ(runTool("merge --new --dry-run " + scratchFile("bare", bare) + " " + kCarton).code,
              0);
    EXPECT_EQ(contentOf(file), bare);
    EXPECT_EQ(runTool("apply --new " + file + " -", "{}").code, 0);
    EXPECT_NE(runTool("extract " + file).out.find("<rdf:RDF"), std::string::npos);
  }
}

TEST(Outputs, StampWhatIsChanged) {
  const std::string file = copyOf(kCarton, "stamp.xmp");
  const std::string date = got(file, "document.metadataDate");
  const std::string order = "job.orderid=" + got(file, "job.orderid");
  ASSERT_EQ(runTool("set --stamp " + file + " " + order).code, 0);
  EXPECT_EQ(got(file, "document.metadataDate"), date);
  ASSERT_EQ(runTool("set --stamp " + file + " job.orderid=x").code, 0);
  EXPECT_NE(got(file, "document.metadataDate"), date);
}

// --- Nothing is lost unawares --------------------------------------------------------------------

const char* const kLayers =
    "<vxLayL:layers><rdf:Seq><rdf:li vxLay:name='a' vxLay:printable='True' vxLay:locked='True' "
    "o:note='n'/><rdf:li vxLay:name='b'/><rdf:li vxLay:name='c' vxLay:printable='True' "
    "vxLay:locked='True'/></rdf:Seq></vxLayL:layers>";

struct Lossy {
  std::string properties;
  const char* assignment;
  std::vector<std::string> losses;
};

TEST(Losses, StopAWrite) {
  const Lossy cases[] = {
      {kLayers, "layers[0].name=d", {"2 of 3 items of layers, from [1] on", "o:note in layers[0]"}},
      {"<xmpMM:DerivedFrom rdf:parseType='Resource'><stRef:instanceID>u</stRef:instanceID>"
       "</xmpMM:DerivedFrom>",
       "mmData.versionID=2",
       {"xmpMM:DerivedFrom of mmData (is stored as a structure)"}},
      {"<dc:title><rdf:Alt><rdf:li xml:lang='x-default'>t</rdf:li><rdf:li xml:lang='de'>u</rdf:li>"
       "</rdf:Alt></dc:title>",
       "pdfData.producer=p",
       {"dc:title[?xml:lang=\"de\"] of pdfData"}},
      {"<dc:description><rdf:Alt><rdf:li xml:lang='x-default'>t</rdf:li><rdf:li xml:lang='de'>u"
       "</rdf:li></rdf:Alt></dc:description>",
       "document.description=d",
       {"dc:description[?xml:lang=\"de\"] of document"}},
  };
  for (const Lossy& one : cases) {
    const std::string packet = packetOf(one.properties);
    const std::string file = scratchFile("lossy.xmp", packet);
    const std::string set = "set " + file + " '" + one.assignment + "'";
    const Outcome stopped = runTool(set);
    EXPECT_EQ(stopped.code, 2) << one.assignment;
    EXPECT_EQ(contentOf(file), packet) << one.assignment;
    const Outcome forced = runTool(set + " --force");
    EXPECT_EQ(forced.code, 0) << forced.err;
    EXPECT_NE(contentOf(file), packet) << one.assignment;
    for (const std::string& loss : one.losses) {
      EXPECT_NE(stopped.err.find(loss), std::string::npos) << stopped.err;
      EXPECT_NE(forced.err.find(loss), std::string::npos) << forced.err;
    }
  }
}

TEST(Losses, AreNoneWhereOthersAreWritten) {
  const std::string file = scratchFile("others.xmp", packetOf(kLayers));
  EXPECT_EQ(runTool("set " + file + " job.orderid=1 document.creatorTool=x").code, 0);
  const std::string after = contentOf(file);
  EXPECT_NE(after.find("<o:note>n</o:note>"), std::string::npos);
  EXPECT_NE(after.find("<vxLay:name>c</vxLay:name>"), std::string::npos);
}

// --- apply ---------------------------------------------------------------------------------------

TEST(Apply, OfItsOwnJsonChangesNoByteOfAnyFile) {
  int files = 0;
  for (const auto& entry : std::filesystem::directory_iterator(VXMETA_SAMPLES)) {
    const std::string file = copyOf(entry.path(), entry.path().filename());
    const Outcome json = runTool("json " + file);
    if (json.code != 0) continue;
    ++files;
    const Outcome outcome = runTool("apply " + file + " -", json.out);
    EXPECT_EQ(outcome.code, 0) << outcome.err;
    EXPECT_EQ(outcome.err, "");
    EXPECT_EQ(contentOf(file), contentOf(entry.path())) << file;
  }
  EXPECT_GE(files, 9);
}

TEST(Apply, OfTheJsonOfAnotherFileMakesThemTheSame) {
  const std::string file = scratchFile("bare.xmp", packetOf(""));
  const Outcome outcome = runTool("apply " + file + " -", runTool("json " + kCarton).out);
  EXPECT_EQ(outcome.code, 0) << outcome.err;
  EXPECT_EQ(runTool("diff " + file + " " + kCarton).out, "");
}

TEST(Apply, NamesTheLineOfWhatItRefuses) {
  const std::string file = copyOf(kCarton, "strict.xmp");
  const std::string json =
      scratchFile("strict.json", "{\"job\": {\"orderid\": \"1\"},\n\"page\": null}");
  const Outcome outcome = runTool("apply " + file + " " + json);
  EXPECT_EQ(outcome.code, 2);
  EXPECT_EQ(outcome.err,
            "vxmeta: " + json + ": line 2: /page: cannot be deleted, only be changed\n");
  EXPECT_EQ(contentOf(file), contentOf(kCarton));
}

// --- merge ---------------------------------------------------------------------------------------

std::string layer(const std::string& name) {
  return "<vxLayL:layers><rdf:Seq><rdf:li vxLay:name='" + name +
         "' vxLay:printable='True' vxLay:locked='True'/></rdf:Seq></vxLayL:layers><o:p" + name +
         ">1</o:p" + name + ">";
}

TEST(Merge, GathersResources) {
  const std::string a = scratchFile("a.xmp", packetOf(layer("a")));
  const std::string b = scratchFile("b.xmp", packetOf(layer("b")));
  const std::string target = scratchFile("target.xmp", packetOf(layer("a")));
  const Outcome outcome = runTool("merge " + target + " " + a + " " + b);
  EXPECT_EQ(outcome.code, 0) << outcome.err;
  EXPECT_NE(outcome.out.find("layers[name=b]"), std::string::npos) << outcome.out;
  EXPECT_EQ(contentOf(target).find("o:pb"), std::string::npos);
  EXPECT_EQ(runTool("merge --foreign " + target + " " + b).code, 0);
  EXPECT_NE(contentOf(target).find("<o:pb>1</o:pb>"), std::string::npos);
  const std::string merged = contentOf(target);
  EXPECT_EQ(runTool("merge " + target + " " + a + " " + b).code, 0);
  EXPECT_EQ(contentOf(target), merged);
}

TEST(Merge, StopsAtWhatItCannotRead) {
  const std::string packet = packetOf(layer("a"));
  const std::string target = scratchFile("target.xmp", packet);
  const std::string good = scratchFile("b.xmp", packetOf(layer("b")));
  const std::string bad = scratchFile("bad.xmp", "<x:xmpmeta xmlns:x='adobe:ns:meta/'><");
  const std::pair<std::string, std::string> cases[] = {
      {good + " " + bad, bad + ": the packet cannot be read"},
      {good + " " + scratchPath("none"), "no such file"},
      {good + " --films pages", "is no complete digital film: it lacks film.dimensions, film.inks"},
  };
  for (const auto& [arguments, why] : cases) {
    const Outcome outcome = runTool("merge " + target + " " + arguments);
    EXPECT_EQ(outcome.code, 2) << arguments;
    EXPECT_NE(outcome.err.find(why), std::string::npos) << outcome.err;
    EXPECT_EQ(contentOf(target), packet);
  }
}

TEST(Merge, DropsNothingUnawares) {
  const std::string packet = packetOf(kLayers);
  const std::string target = scratchFile("target.xmp", packet);
  const std::string source = scratchFile("b.xmp", packetOf(layer("b")));
  EXPECT_EQ(runTool("merge " + target + " " + source).code, 2);
  EXPECT_EQ(contentOf(target), packet);
  const Outcome forced = runTool("merge --force " + target + " " + source);
  EXPECT_EQ(forced.code, 0);
  EXPECT_NE(forced.err.find("lost: 2 of 3 items of layers"), std::string::npos) << forced.err;
  const Outcome unread =
      runTool("merge --dry-run " + source + " " + scratchFile("lossy.xmp", packet));
  EXPECT_NE(unread.err.find("2 of 3 items of layers cannot be read"), std::string::npos);
}

std::string film(const std::string& ink) {
  return R"({"film": {"version": {"version": 100}, "dimensions": {"units": "mm"}, "inks":)"
         R"([{"name": ")" +
         ink +
         R"("}]}, "colorSpace": {"colorprofdesc": "d"}, "screens": [[{}]],)"
         R"("usedRefs": [{"instanceID": "u", "renditionClass": "r"}],)"
         R"("pageRanges": [{"start": 0, "end": 1, "inks": [0]}]})";
}

TEST(Merge, JoinsFilms) {
  const auto made = [](const std::string& ink) {
    std::string file = scratchFile(ink + ".xmp", packetOf(""));
    const Outcome outcome = runTool("apply " + file + " -", film(ink));
    EXPECT_EQ(outcome.code, 0) << outcome.err;
    return file;
  };
  const std::string films = made("cyan") + " " + made("gold") + " " + made("black");
  const std::string job = scratchPath("job.xmp");
  EXPECT_EQ(runTool("merge --films separations " + films + " -o " + job).code, 0);
  EXPECT_EQ(got(job, "film.inks[2].name"), "black\n");
  EXPECT_EQ(got(job, "film.version.structure"), "Composite\n");
  EXPECT_EQ(runTool("merge --films pages " + films + " -o " + job).code, 0);
  EXPECT_EQ(got(job, "pageRanges[2].start"), "4\n");
}

}  // namespace
