// SPDX-License-Identifier: Apache-2.0
// Documents as they are read.
#include <gtest/gtest.h>

#include <cmath>
#include <nlohmann/json.hpp>

#include "model/compare.h"
#include "model/from_json.h"
#include "model/json.h"
#include "model/read_document.h"
#include "support/packets.h"

namespace vxmeta {
namespace {

using PlainJson = nlohmann::json;

Document read(const XMPlib& xmp) { return readDocument(xmp, {}); }

Document readOf(const std::string& properties) {
  XMPlib xmp;
  loadPacket(packet(properties), xmp);
  return read(xmp);
}

PlainJson jsonOf(const Document& document) {
  return PlainJson::parse(jsonText(toJson(viewOf(document)), false));
}

// The sections that are there, beside those that always are.
std::string sectionsOf(const Document& document) {
  std::string names;
  for (const Field& field : typeOf<Document>().fields) {
    const bool isThere = viewOf(document).field(field).present().type != nullptr;
    if (isThere && !isAboutTheFile(field)) names += std::string(field.name) + " ";
  }
  return names;
}

TEST(Document, KeepsAbsentAndEmptyApart) {
  EXPECT_EQ(sectionsOf(readOf("")), "");
  EXPECT_EQ(sectionsOf(readOf("<vxFontL:fonts><rdf:Bag/></vxFontL:fonts><vxSmartID:id/>")),
            "scalars fonts ");
  EXPECT_EQ(sectionsOf(readOf("<vxLayL:layers><rdf:Seq><rdf:li/></rdf:Seq></vxLayL:layers>")),
            "layers ");
}

constexpr const char* kInk =
    " vxInk:name='a' vxInk:type='' vxInk:r='0' vxInk:g='0' vxInk:b='0' vxInk:attribute='' ";
constexpr const char* kDocument = " vxInk:frequency='1' vxInk:angle='2' ";
constexpr const char* kFilm = " vxInk:opacity='1' ";

std::string inks(const std::vector<std::string>& items) {
  std::string text = "<vxGr:inks><rdf:Seq>";
  for (const std::string& item : items) text += "<rdf:li " + std::string(kInk) + item + "/>";
  return text + "</rdf:Seq></vxGr:inks>";
}

TEST(Document, ShowsTheListOfInksAsWhatLosesNothing) {
  const std::string d = kDocument;
  const std::string f = kFilm;
  struct Case {
    std::vector<std::string> items;
    const char* section;
    std::size_t count;
    std::size_t unread;
  };
  const Case cases[] = {
      {{}, "inks ", 0, 0},         {{d, d}, "inks ", 2, 0},     {{f, f}, "film ", 2, 0},
      {{d + f}, "inks ", 1, 1},    {{d, d, f}, "inks ", 2, 1},  {{f, f, d}, "film ", 2, 1},
      {{d + f, f}, "film ", 2, 2}, {{d + f, d}, "inks ", 2, 1}, {{"", d}, "inks ", 0, 1},
  };
  for (const Case& one : cases) {
    const Document document = readOf(inks(one.items));
    EXPECT_EQ(sectionsOf(document), one.section) << one.items.size();
    const std::size_t count = document.inks ? document.inks->size() : document.film->inks->size();
    EXPECT_EQ(count, one.count) << one.section;
    EXPECT_EQ(document.unread.size(), one.unread) << one.section << one.count;
  }
}

TEST(Document, NamesUnreadPartsByTheirPaths) {
  const Document document = readOf(
      "<vxFontL:fonts><rdf:Bag><rdf:li vxFont:name='a' xmlns:o='o:' o:x='y' vxFont:type='' "
      "vxFont:location='' "
      "vxFont:fontfile='' vxFont:protection='False'/><rdf:li "
      "rdf:parseType='Resource'/></rdf:Bag></vxFontL:fonts>"
      "<vxScreenC:screenContainer><rdf:Seq><rdf:li rdf:parseType='Resource'><vxScreenL:screens>"
      "<rdf:Bag><rdf:li rdf:parseType='Resource'/></rdf:Bag></vxScreenL:screens></rdf:li></rdf:Seq>"
      "</vxScreenC:screenContainer><vxGr:nrpages>many</vxGr:nrpages><vxGr:vsize>1</vxGr:vsize>");
  const PlainJson expected = PlainJson::parse(R"([
    {"list": "screens", "property": "vxScreenC:screenContainer", "stored": 1, "read": 0,
     "reason": "vxScreen:singlepressDGC", "value": "[{\"vxScreenL:screens\":[{}]}]"},
    {"list": "screens[0]", "property": "vxScreenC:screenContainer", "stored": 1, "read": 0,
     "reason": "vxScreen:singlepressDGC", "value": "[{}]"},
    {"list": "fonts", "property": "vxFontL:fonts", "stored": 2, "read": 1, "reason": "vxFont:name",
     "value": "[{}]"},
    {"list": "fonts", "property": "vxFontL:fonts", "item": 0, "field": "o:x", "value": "y"},
    {"list": "scalars.nrPages", "property": "vxGr:nrpages", "stored": 1, "read": 0,
     "reason": "Invalid integer string", "value": "many"},
    {"list": "page", "property": "vxGr:vsize", "stored": 1, "read": 0, "reason": "vxGr:units",
     "value": "1"}])");
  EXPECT_EQ(jsonOf(document)["unread"], expected);
}

TEST(Document, CountsWhatNoRecordCovers) {
  const PlainJson expected = PlainJson::parse(R"([
    {"schema": "http://purl.org/dc/elements/1.1/", "prefix": "dc", "properties": 1},
    {"schema": "o:", "prefix": "o", "properties": 2}])");
  const Document document = readOf(
      "<dc:format>application/pdf</dc:format><dc:title>t</dc:title><o:a "
      "xmlns:o='o:'>1</o:a><vxSmartID:id>"
      "x</vxSmartID:id><o:b xmlns:o='o:' rdf:parseType='Resource'><o:c/></o:b>");
  EXPECT_EQ(jsonOf(document)["foreign"], expected);
}

TEST(Document, ReadsWhatTheLibraryOnlyWrites) {
  XMPlPDFData pdf;
  pdf.producer = "P <&>";
  pdf.title = "T";
  pdf.trappedValid = pdf.trapped = true;
  XMPlMMData media;
  media.derivedFrom = "uuid:1";
  XMPlMetaDataDigFilm separation;
  separation.dimdata.basicOnly = false;
  separation.dimdata.vscale = 2.5;
  separation.dimdata.scanlinedirection = -3;
  separation.ink.name = " Gold ";
  separation.ink.opacity = 0.25;
  separation.ink.inknrsoriginal = "4";
  separation.screens.resize(2);
  separation.screens[1].hasScreening = true;
  separation.screens[1].angle = -1e-3;
  separation.uRefs = {{"file:/a", "default", -7}};
  XMPlib xmp;
  xmp.SetPDFData(pdf);
  xmp.SetMMData(media);
  xmp.SetMetaDataDigFilms({separation, {}});

  const Document document = read(xmp);
  separation.screens[0].hasScreening = true;  // stored in any case
  EXPECT_TRUE(isSame(viewOf(*document.pdfData), viewOf(pdf)));
  EXPECT_TRUE(isSame(viewOf(*document.mmData), viewOf(media)));
  ASSERT_EQ(document.film->metadata->size(), 2U);
  EXPECT_TRUE(isSame(viewOf(document.film->metadata->front()), viewOf(separation)));
}

TEST(Document, ComesBackFromItsJson) {
  Document document =
      readOf(inks({kDocument}) + "<vxSmartID:id>s</vxSmartID:id><o:a xmlns:o='o:'>1</o:a>");
  document.film = Film{};
  document.film->metadata.emplace(1).front().uRefs = {{"a", "b", -(1LL << 40)}};
  document.dgcs = {{"c", {0.1, std::nan(""), -HUGE_VAL}}};
  Document copy;
  fromJson(toJson(viewOf(document)), typeOf<Document>(), &copy);
  EXPECT_TRUE(isSame(viewOf(copy), viewOf(document)));
  fromJson(Json::parse(R"({"job": null, "inks": [], "scalars": {"nrPages": 3}})"),
           typeOf<Document>(), &copy);
  EXPECT_EQ(copy.inks->size(), 0U);
  EXPECT_EQ(*copy.scalars->smartID, "s");
}

TEST(Json, ThatIsNoDocumentIsRefusedByItsPlace) {
  const std::pair<const char*, const char*> cases[] = {
      {"[]", "the whole: expected an object, found array"},
      {R"({"colours": []})", "/colours: there is no such field"},
      {R"({"inks": [{}, {"a/b~": 1}]})", "/inks/1/a~1b~0: there is no such field"},
      {R"({"inks": [{"angle": "15"}]})", "/inks/0/angle: expected a number, found string"},
      {R"({"inks": {}})", "/inks: expected a list, found object"},
      {R"({"inks": [null]})", "/inks/0: expected an object, found null"},
      {R"({"film": {"dimensions": {"spare": 1}}})",
       "/film/dimensions/spare: there is no such field"},
      {R"({"scalars": {"nrPages": 2147483648}})", "/scalars/nrPages: 2147483648 is out of range"},
      {R"({"scalars": {"nrPages": 1.0}})", "/scalars/nrPages: expected an integer, found number"},
      {R"({"usedRefs": [{"pagenr": 18446744073709551615}]})",
       "/usedRefs/0/pagenr: 18446744073709551615 is out of range"},
      {R"({"layers": [{"locked": 0}]})", "/layers/0/locked: expected true or false, found number"},
  };
  for (const auto& [text, message] : cases) {
    Document document;
    try {
      fromJson(Json::parse(text), typeOf<Document>(), &document);
      ADD_FAILURE() << text;
    } catch (const JsonError& error) {
      EXPECT_STREQ(error.what(), message);
    }
  }
}

TEST(Packet, IsMeasuredAsItLies) {
  const std::string begin = "<?xpacket begin='' id='W5M0'?>";
  const std::string body = "<rdf:RDF/>";
  const auto wide = [](const std::string& text) {
    std::string bytes;
    for (const char c : text) (bytes += '\0') += c;
    return bytes;
  };
  struct Case {
    std::string text;
    std::int64_t bytes;
    std::int64_t padding;
    bool isWritable;
    const char* encoding;
  };
  const Case cases[] = {
      {body, 10, 0, true, "UTF-8"},
      {begin + body + " \r\n\t<?xpacket end='w'?>", 63, 4, true, "UTF-8"},
      {"junk" + begin + body + "<?xpacket end='r'?>\n\n", 59, 0, false, "UTF-8"},
      {wide(begin + body + "  <?xpacket end='r'?>"), 122, 2, false, "UTF-16BE"},
      {"<?xml version='1.0' encoding=\"iso-8859-1\"?>" + body, 53, 0, true, "ISO-8859-1"},
      {"<?xml version='1.0'?><a encoding='x'/>", 38, 0, true, "UTF-8"},
      {"", 0, 0, true, "UTF-8"},
      {begin + "<?xpacket end=", 44, 0, true, "UTF-8"},
  };
  for (const Case& one : cases) {
    const PacketInfo info = packetInfo({one.text, "packet", {}});
    EXPECT_EQ(info.bytes, one.bytes) << one.text;
    EXPECT_EQ(info.padding, one.padding) << one.text;
    EXPECT_EQ(info.writable, one.isWritable) << one.text;
    EXPECT_EQ(info.encoding, one.encoding) << one.text;
  }
}

// The changes in short: "+fonts[1] ~inks[name=a].angle".
std::string changes(const Document& before, const Document& after, bool isSemantic = false) {
  std::string text;
  for (const Change& change : compare(before, after, isSemantic)) {
    text += (text.empty() ? "" : " ");
    text += "+-~^"[static_cast<std::size_t>(change.way)] + change.path;
  }
  return text;
}

XMPlInk ink(const std::string& name, double angle) {
  XMPlInk made;
  made.name = name;
  made.angle = angle;
  return made;
}

TEST(Compare, FindsInksAgain) {
  const auto with = [](std::vector<XMPlInk> inks) {
    Document document;
    document.inks = std::move(inks);
    return document;
  };
  const Document two = with({ink("a", 1), ink("b", 2)});
  EXPECT_EQ(changes(two, two), "");
  EXPECT_EQ(changes(two, with({ink("a", 1), ink("b", NAN)})), "~inks[name=b].angle");
  EXPECT_EQ(changes(two, with({ink("b", 2), ink("a", 1)})), "^inks");
  EXPECT_EQ(changes(two, with({ink("c", 0), ink("a", 1), ink("b", 3)})),
            "~inks[name=b].angle +inks[name=c]");
  EXPECT_EQ(changes(two, with({})), "-inks[name=a] -inks[name=b]");
  EXPECT_EQ(changes(two, {}), "-inks");
  const Document same = with({ink("a", NAN), ink("a", 1), ink("a]", 1)});
  EXPECT_EQ(changes(same, same), "");
  EXPECT_EQ(changes(same, with({ink("a", 1), ink("a", 2), ink("a]", 3)})),
            "~inks[0].angle ~inks[2].angle ^inks");
}

TEST(Compare, PrefersWhatTheLibraryCallsEqual) {
  Document before;
  Document after;
  XMPlInk measured = ink("a", 1);
  measured.pct = 5;
  before.inks = {ink("a", 2), ink("a", 1)};
  after.inks = {measured, ink("a", 3)};
  EXPECT_EQ(changes(before, after), "~inks[0].angle ~inks[1].pct ^inks");
}

TEST(Compare, GoesByPlaceWhereItemsHaveNoName) {
  Document before;
  Document after;
  before.pageRanges = {{1, 2, {1}}, {3, 4, {}}};
  after.pageRanges = {{1, 2, {1, 2}}, {3, 4, {}}, {5, 5, {}}};
  before.screens.emplace(2).front().resize(2);
  before.screens->back().resize(1);
  after.screens.emplace(1).front().resize(1);
  EXPECT_EQ(changes(before, after),
            "-screens[0][1] -screens[1] ~pageRanges[0].inks +pageRanges[2]");
}

TEST(Compare, LeavesOrderOfUnorderedListsAlone) {
  Document before;
  Document after;
  before.fonts = {{"a"}, {"b"}};
  after.fonts = {{"b"}, {"a"}};
  before.layers = {{"a"}, {"b"}};
  after.layers = {{"b"}, {"a"}};
  EXPECT_EQ(changes(before, after), "^layers");
}

TEST(Compare, LeavesDatesAndIdentifiersOut) {
  Document before;
  Document after;
  before.file = "a";
  after.file = "b";
  before.document = XMPlDocData{"", "2026-01-01"};
  after.document = XMPlDocData{"", "2026-01-02"};
  after.mmData = XMPlMMData{"uuid:1"};
  EXPECT_EQ(changes(before, after), "~document.createDate +mmData");
  before.mmData = XMPlMMData{"uuid:2"};
  EXPECT_EQ(changes(before, after, true), "");
}

}  // namespace
}  // namespace vxmeta
