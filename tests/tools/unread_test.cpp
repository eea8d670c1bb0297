// SPDX-License-Identifier: Apache-2.0
// What is stored in properties of the schema is read, or said to be unread: nothing is invisible.
#include <XMP_Const.h>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <random>
#include <regex>

#include "model/compare.h"
#include "model/json.h"
#include "model/read_document.h"
#include "support/kinds.h"
#include "support/packets.h"
#include "support/program.h"
#include "text/pages.h"

namespace vxmeta {
namespace {

std::string structure(const std::string& name, const std::string& fields) {
  return "<" + name + " rdf:parseType='Resource'>" + fields + "</" + name + ">";
}

std::string listOf(const std::string& name, const std::vector<std::string>& items) {
  std::string text = "<" + name + "><rdf:Seq>";
  for (const std::string& item : items) text += structure("rdf:li", item);
  return text + "</rdf:Seq></" + name + ">";
}

Document readOf(const std::string& text) {
  XMPlib xmp;
  loadPacket(text, xmp);
  return readDocument(xmp, {});
}

// "page vxGr:vsize (vxGr:units)", a line each.
std::string shortOf(const std::vector<UnreadPart>& parts) {
  std::string text;
  for (const UnreadPart& part : parts) {
    text += part.list + (part.item ? "[" + std::to_string(*part.item) + "]" : "") + " " +
            part.property + (part.field ? " " + *part.field : "") + " (" +
            part.reason.value_or("") + ")\n";
  }
  return text;
}

struct Case {
  std::string properties;
  const char* unread;
};

const std::string kBasic =
    "<vxGr:units>mm</vxGr:units><vxGr:vsize>1</vxGr:vsize><vxGr:hsize>2</vxGr:hsize>"
    "<vxGr:vresolution>3</vxGr:vresolution>";
const std::string kJob = "<stLoc:name>A</stLoc:name>";
const std::string kRef =
    "<stRef:instanceID>u</stRef:instanceID><stRef:renditionClass>r</stRef:renditionClass>";

TEST(Unread, NamesWhatIsStoredInPart) {
  const Case cases[] = {
      {structure("vxPrF:DerivedFrom", "<stRef:instanceID>u</stRef:instanceID>"),
       "baseDocument vxPrF:DerivedFrom stRef:instanceID (stRef:renditionClass)\n"},
      {structure("vxPrF:DerivedFrom", kRef + "<stRef:documentID>d</stRef:documentID>"),
       "baseDocument vxPrF:DerivedFrom stRef:documentID (no record has it)\n"},
      {"<vxDigFilm:structure>s</vxDigFilm:structure><vxDigFilm:type>t</vxDigFilm:type>",
       "film.version vxDigFilm:structure (vxDigFilm:version)\n"
       "film.version vxDigFilm:type (vxDigFilm:version)\n"},
      {"<vxGr:vresolution>3</vxGr:vresolution>", "film.dimensions vxGr:vresolution (vxGr:units)\n"},
      {kBasic,
       "film.dimensions vxGr:units (vxGr:hresolution)\n"
       "film.dimensions vxGr:vsize (vxGr:hresolution)\n"
       "film.dimensions vxGr:hsize (vxGr:hresolution)\n"
       "film.dimensions vxGr:vresolution (vxGr:hresolution)\n"},
      {kBasic + "<vxGr:hresolution>4</vxGr:hresolution><vxGr:margtop>5</vxGr:margtop>",
       "film.dimensions vxGr:margtop (vxGr:vdist)\n"},
      {"<vxGr:vsize>1</vxGr:vsize><vxGr:hshrink>1</vxGr:hshrink>",
       "page vxGr:vsize (vxGr:units)\npage vxGr:hshrink (vxGr:units)\n"},
      {"<vxCadReg:orgX>1</vxCadReg:orgX>", "cadRegistration vxCadReg:orgX (vxCadReg:instanceID)\n"},
      {listOf("xmpBJ:JobRef", {kJob, kJob}),
       "job xmpBJ:JobRef [1] (of job references, only the last is read)\n"},
      {listOf("xmpBJ:JobRef", {kJob, ""}),
       "job xmpBJ:JobRef [1] (of job references, only the last is read)\n"},
      {"<xmpBJ:JobRef>text</xmpBJ:JobRef><vxJob:orderid>7</vxJob:orderid>",
       "job xmpBJ:JobRef (Indexing applied to non-array)\n"
       "job vxJob:orderid (Indexing applied to non-array)\n"},
      {structure("xmpMM:DerivedFrom", kRef),
       "mmData xmpMM:DerivedFrom (is stored as a structure)\n"},
      {"<pdf:Trapped>Unknown</pdf:Trapped>", "pdfData pdf:Trapped (is no value that is read)\n"},
      {"<dc:title><rdf:Alt><rdf:li xml:lang='x-default'>t</rdf:li><rdf:li xml:lang='de'>u</rdf:li>"
       "</rdf:Alt></dc:title>",
       "pdfData dc:title [?xml:lang=\"de\"] (only the default language is read)\n"},
      {"<dc:title><rdf:Alt><rdf:li xml:lang='de'>t</rdf:li><rdf:li xml:lang='fr'>u</rdf:li>"
       "</rdf:Alt></dc:title>",
       "pdfData dc:title (has no text in the default language)\n"},
      {"<vxSmartID:id xml:lang='de'>i</vxSmartID:id>",
       "scalars.smartID vxSmartID:id ?xml:lang (no record has it)\n"},
      {structure("vxJob:orderid", "<rdf:value>7</rdf:value><vxJob:q>hidden</vxJob:q>"),
       "job vxJob:orderid ?vxJob:q (no record has it)\n"},
      {"<vxGr:nrPages>7</vxGr:nrPages>", "vxGr:nrPages vxGr:nrPages (no record has it)\n"},
      {"<stVer:comments>c</stVer:comments>",
       "version stVer:comments (is written, and never read)\n"},
      {"<vxSmartID:id><rdf:Bag><rdf:li>a</rdf:li></rdf:Bag></vxSmartID:id>",
       "scalars.smartID vxSmartID:id (is stored as a list)\n"},
      {"<vxGr:nrpages>many</vxGr:nrpages>",
       "scalars.nrPages vxGr:nrpages (Invalid integer string)\n"},
      {listOf("vxInkCovL:coverage", {"<vxInkCov:pct>1</vxInkCov:pct>"}),
       "inks vxInkCovL:coverage (no such ink)\n"},
      {listOf(
           "vxDigFilmMetaDataList:metadataList",
           {structure("vxDigFilmMetaData:ink",
                      "<vxInk:book>b</vxInk:book><vxInk:r>red</vxInk:r><vxInk:g>1</vxInk:g>") +
            structure("vxDigFilmMetaData:dimdata",
                      "<vxGr:margbot>3</vxGr:margbot><vxGr:units xml:lang='de'>mm</vxGr:units>")}),
       "film.metadata[0] vxDigFilmMetaDataList:metadataList vxDigFilmMetaData:ink/vxInk:book ()\n"
       "film.metadata[0] vxDigFilmMetaDataList:metadataList vxDigFilmMetaData:ink/vxInk:r ()\n"
       "film.metadata[0] vxDigFilmMetaDataList:metadataList "
       "vxDigFilmMetaData:dimdata/vxGr:margbot ()\n"
       "film.metadata[0] vxDigFilmMetaDataList:metadataList "
       "vxDigFilmMetaData:dimdata/vxGr:units/?xml:lang ()\n"},
  };
  for (const Case& one : cases) {
    const Document document = readOf(packet(one.properties));
    EXPECT_EQ(shortOf(document.unread), one.unread) << one.properties;
    const std::string page = summaryOf(document, {});
    EXPECT_NE(page.find("unread"), std::string::npos) << page;
  }
}

// A film's dimensions that explain all of the page's, a second layout that says the same, empty
// containers: nothing is hidden in them.
TEST(Unread, IsSilentWhereAllIsRead) {
  XMPlib xmp;
  XMPlDimDatDigFilm film;
  film.basicOnly = false;
  film.hasMargins = true;
  xmp.SetDimDatDigFilm(film);
  xmp.SetExtRefs({{"file:/b", "default"}, {"file:/a", "default"}}, true);
  xmp.SetInks({{}, {}}, true);
  xmp.SetJobData({"", "", "", "", "7", ""});
  xmp.SetBaseDoc({"u", "r"});
  xmp.SetColorSpace({"Untagged", "", ""});
  xmp.SetMetaDataDigFilms({{}, {}});
  Loaded films(
      list("vxDigFilmRefs:files", "Seq", {elements("vxUsedF:", "instanceID renditionClass")}));
  EXPECT_EQ(shortOf(readDocument(films, {}).unread), "");
  EXPECT_EQ(shortOf(readDocument(xmp, {}).unread), "");
  EXPECT_TRUE(readOf(packet("<vxGr:colorprofloc>Untagged</vxGr:colorprofloc>")).colorSpace);
}

TEST(Unread, HasListsThatAreNotReadBesideOthers) {
  XMPlib refs;
  refs.SetExtRefs({{"file:/a", "default"}}, true);
  refs.SetOldExtRefs({{"file:/b", "default"}});
  XMPlib inks;
  inks.SetInks({{}}, true);
  inks.SetInksDigFilm({{}}, true);
  EXPECT_EQ(shortOf(readDocument(inks, {}).unread), "");  // of no ink
  XMPlInk measured;
  measured.coverageValid = true;
  inks.SetInks({measured}, true);
  inks.SetInksDigFilm({{}}, true);
  EXPECT_EQ(shortOf(readDocument(refs, {}).unread),
            "extRefs vxExtFL:files (the older layout is not read beside the current one)\n");
  EXPECT_EQ(shortOf(readDocument(inks, {}).unread),
            "inks vxInkCovL:coverage (coverage is not read beside the inks of a film)\n");
}

// --- By chance ----------------------------------------------------------------------------------

class Damager {
 public:
  explicit Damager(unsigned seed) : random_(seed) {}

  std::size_t below(std::size_t limit) { return random_() % limit; }

  // A packet with most that the library writes.
  std::string whole() {
    XMPlib xmp;
    const auto set = [&]<class Value>(const ::Kind<Value>& kind) {
      if (below(5) > 0) kind.set(xmp, made<Value>());
    };
    forEachKind(set);
    forEachWriter(set);
    return xmp.GetXML();
  }

  // Without some of its values; some others are lists.
  void damage(std::string& packet) {
    for (std::size_t i = below(12); i > 0; --i) {
      const Span leaf = anyLeaf(packet);
      const std::string text = packet.substr(leaf.text, leaf.length);
      // In an alternative, an array is dropped as it is loaded.
      const bool isList = below(4) == 0 && !leaf.isAlternative;
      if (isList)
        packet.replace(leaf.text, leaf.length, "<rdf:Bag><rdf:li>" + text + "</rdf:li></rdf:Bag>");
      if (!isList) packet.erase(leaf.begin, leaf.end - leaf.begin);
    }
  }

  // With another value in one place; answers its name.
  std::string change(std::string& packet) {
    const Span leaf = anyLeaf(packet);
    const std::string text = packet.substr(leaf.text, leaf.length);
    const bool isNumber = text.find_first_not_of("-.0123456789") == std::string::npos;
    const std::string other = text == "True"    ? "False"
                              : text == "False" ? "True"
                              : !isNumber       ? text + "x"
                              : text == "1"     ? "2"
                                                : "1";
    std::string name = packet.substr(leaf.begin, leaf.end - leaf.begin);
    packet.replace(leaf.text, leaf.length, other);
    return name;
  }

 private:
  struct Span {
    std::size_t begin, end, text, length;
    bool isAlternative;
  };

  template <class Value>
  Value made() {
    Value value{};
    visitFields(
        value, [&](auto& items) { items.resize(below(3)); },
        [&]<class Field>(Field& field) {
          constexpr const char* kTexts[] = {"a", "b", "grid", "die", "Untagged", "12", "file:/c"};
          if constexpr (std::is_same_v<Field, std::string>) field = kTexts[below(7)];
          if constexpr (std::is_same_v<Field, bool>) field = below(2) == 0;
          if constexpr (std::is_arithmetic_v<Field> && !std::is_same_v<Field, bool>) {
            field = static_cast<Field>(below(4));
          }
        });
    return value;
  }

  Span anyLeaf(const std::string& packet) {
    static const std::regex kLeaf(
        "<(?!rdf:Bag)([A-Za-z0-9]+:[A-Za-z0-9]+)( xml:lang=\"[^\"]*\")?>([^<\n]*)</\\1>");
    std::vector<Span> leaves;
    for (std::sregex_iterator it(packet.begin(), packet.end(), kLeaf), end; it != end; ++it) {
      const auto at = [&](std::size_t group) {
        return static_cast<std::size_t>(it->position(group));
      };
      leaves.push_back({at(0), at(0) + static_cast<std::size_t>(it->length()), at(3),
                        static_cast<std::size_t>(it->length(3)), it->length(2) > 0});
    }
    return leaves[below(leaves.size())];
  }

  std::minstd_rand random_;
};

TEST(Unread, ShowsEveryStoredValueOfADamagedPacket) {
  std::size_t compared = 0;
  for (unsigned seed = 1; seed <= 60; ++seed) {
    Damager damager(seed);
    std::string packet = damager.whole();
    damager.damage(packet);
    const Document before = readOf(packet);
    for (int i = 0; i < 12; ++i) {
      std::string other = packet;
      const std::string name = damager.change(other);
      const Document after = readOf(other);
      EXPECT_FALSE(compareAll(before, after, false).empty()) << seed << ": " << name;
      ++compared;
    }
  }
  EXPECT_EQ(compared, 720U);
}

// --- diff ---------------------------------------------------------------------------------------

TEST(Diff, SeesWhatIsNotRead) {
  const auto file = [](const char* name, const std::string& properties) {
    return scratchFile(name, packet(properties));
  };
  const std::string bare = file("bare.xmp", "");
  const std::string one =
      file("one.xmp", structure("xmpMM:DerivedFrom", "<stRef:instanceID>u</stRef:instanceID>"));
  const std::string other =
      file("other.xmp", structure("xmpMM:DerivedFrom", "<stRef:instanceID>v</stRef:instanceID>"));
  const std::string film = file("film.xmp", "<vxDigFilm:type>t</vxDigFilm:type>");
  // The order of a structure's fields means nothing.
  const auto partly = [&](const std::string& names) {
    return file(("partly-" + names.substr(0, 4)).c_str(),
                list("vxLayL:layers", "Seq", {elements("vxLay:", names)}));
  };
  const auto marked = [&](const std::string& language) {
    return file(("marked" + language).c_str(),
                list("vxLayL:layers", "Seq",
                     {"<vxLay:name xml:lang='" + language + "'>n</vxLay:name>" +
                      elements("vxLay:", "printable=True locked=False")}));
  };
  struct Run {
    std::string arguments;
    int code;
    const char* out;
  };
  const Run runs[] = {
      {bare + " " + film, 1, "unread[property=vxDigFilm:type]"},
      {one + " " + other, 1, "unread[property=xmpMM:DerivedFrom].value"},
      {one + " " + one, 0, ""},
      {"--semantic " + one + " " + other, 0, ""},
      {"--semantic " + bare + " " + film, 1, "vxDigFilm:type"},
      {partly("name=n locked=True") + " " + partly("locked=True name=n"), 0, ""},
      {marked("a") + " " + marked("b"), 1, "unread[property=vxLayL:layers].value"},
  };
  for (const Run& run : runs) {
    const ::Outcome outcome = runTool("diff " + run.arguments);
    EXPECT_EQ(outcome.code, run.code) << run.arguments << outcome.out;
    EXPECT_NE(outcome.out.find(run.out), std::string::npos) << outcome.out;
  }
}

}  // namespace
}  // namespace vxmeta
