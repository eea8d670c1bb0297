// SPDX-License-Identifier: Apache-2.0
// Findings on packets with known faults.
#include <gtest/gtest.h>

#include <XMPlib.h>

#include <algorithm>
#include <set>

#include "checks/barcode_digits.h"
#include "checks/finding.h"
#include "checks/folded_name.h"
#include "checks/packet_numbers.h"
#include "support/program.h"

namespace {

using vxmeta::Finding;
using Names = std::multiset<std::string>;

// --- Documents ----------------------------------------------------------------------------------

const char* const kBegin =
    "<?xpacket begin=\"\" id=\"W5M0MpCehiHzreSzNTczkc9d\"?><x:xmpmeta xmlns:x=\"adobe:ns:meta/\">"
    "<rdf:RDF xmlns:rdf=\"http://www.w3.org/1999/02/22-rdf-syntax-ns#\"><rdf:Description"
    " rdf:about=\"\" xmlns:x-a=\"x:a\" xmlns:dc=\"http://purl.org/dc/elements/1.1/\""
    " xmlns:xmp=\"http://ns.adobe.com/xap/1.0/\""
    " xmlns:stRef=\"http://ns.adobe.com/xap/1.0/sType/ResourceRef#\"";

struct Namespace {
  const char *prefix, *path;
};

constexpr Namespace kNamespaces[] = {
    {"vxGr", "grinfo/1.0/"},
    {"vxInk", "inkinfo/1.0/"},
    {"vxInkCovL", "inkcovlist/1.0/"},
    {"vxInkCov", "inkcov/1.0/"},
    {"vxFontL", "fontlist/1.0/"},
    {"vxFont", "fontinfo/1.0/"},
    {"vxExtFL", "extfileslist/1.0/"},
    {"vxExtFL2", "extfileslist/2.0/"},
    {"vxExtF", "extfile/1.0/"},
    {"vxCadL", "cadlist/1.0/"},
    {"vxUsedFL", "usedfileslist/1.0/"},
    {"vxUsedF", "usedfile/1.0/"},
    {"vxBarcL", "barcodelist/1.0/"},
    {"vxBarc", "barcode/1.0/"},
    {"vxPagL", "pagerangelist/1.0/"},
    {"vxPag", "pagerange/1.1/"},
    {"vxScreenC", "screencontainer/1.0/"},
    {"vxScreenL", "screenlist/1.0/"},
    {"vxScreen", "screeninfo/1.0/"},
    {"vxLayL", "laylist/1.0/"},
    {"vxDGCL", "dgclist/1.0/"},
    {"vxDGC", "dgc/1.0/"},
    {"vxSrLayout", "srlayout/1.0/"},
    {"vxSRRep", "vxRepeat/1.0/"},
    {"vxDigFilmRefs", "digfilmreflist/1.0/"},
    {"vxDigFilmRef", "digfilmref/1.0/"},
};

std::string packet(const std::string& properties, std::size_t padding = 1024,
                   const std::string& end = "w") {
  std::string text = kBegin;
  for (const auto& [prefix, path] : kNamespaces) {
    text += std::string(" xmlns:") + prefix + "=\"http://ns.orvo.example/xmp/" + path + '"';
  }
  return text + '>' + properties + "</rdf:Description></rdf:RDF></x:xmpmeta>" +
         std::string(padding, ' ') + "<?xpacket end=\"" + end + "\"?>";
}

const char* const kStructure = " rdf:parseType=\"Resource\"";

std::string element(const std::string& name, const std::string& content,
                    const std::string& attributes = "") {
  return '<' + name + attributes + '>' + content + "</" + name + '>';
}

// An array of items that are written as attributes, or, where they begin with "<", as elements.
std::string list(const std::string& name, const std::vector<std::string>& items) {
  std::string all;
  for (const std::string& item : items) {
    const bool isElements = !item.empty() && item[0] == '<';
    all += isElements ? "<rdf:li rdf:parseType=\"Resource\">" + item + "</rdf:li>"
                      : "<rdf:li " + item + "/>";
  }
  return element(name, element("rdf:Seq", all));
}

// vxInk:name="Cyan" for ("vxInk", {{"name", "Cyan"}}).
using Fields = std::vector<std::pair<std::string, std::string>>;

std::string fields(const std::string& prefix, const Fields& all) {
  std::string text;
  for (const auto& [name, value] : all) text += prefix + ':' + name + "=\"" + value + "\" ";
  return text;
}

std::string anyInk(const std::string& name, const Fields& more) {
  return fields("vxInk", {{"name", name},
                          {"type", "spot"},
                          {"r", "0"},
                          {"g", "0"},
                          {"b", "0"},
                          {"attribute", "normal"}}) +
         fields("vxInk", more);
}
std::string ink(const std::string& name, const std::string& angle = "45") {
  return anyInk(name, {{"frequency", "150"}, {"angle", angle}});
}
std::string filmInk(const std::string& name) { return anyInk(name, {{"opacity", "1"}}); }

std::string coverage(const std::string& pct) {
  return fields("vxInkCov", {{"pct", pct}, {"mm2", "20"}});
}

std::string covered(const std::vector<std::string>& percents) {
  std::vector<std::string> items(percents.size());
  std::transform(percents.begin(), percents.end(), items.begin(), coverage);
  return list("vxGr:inks", {ink("A"), ink("B")}) + list("vxInkCovL:coverage", items);
}

std::string font(const std::string& name, const std::string& location = "embedded") {
  return fields("vxFont", {{"name", name},
                           {"type", "OpenType"},
                           {"location", location},
                           {"fontfile", name},
                           {"protection", "False"}});
}

std::string ref(const std::string& file, const std::string& page = "0") {
  return fields("vxExtF",
                {{"instanceID", file}, {"renditionClass", "r"}, {"pagenr", page}, {"count", "1"}});
}
std::string oldRef(const std::string& file) {
  return fields("stRef", {{"instanceID", file}, {"renditionClass", "r"}});
}
std::string usedRef(const std::string& page) {
  return fields("vxUsedF", {{"instanceID", "a"}, {"renditionClass", "r"}, {"pagenr", page}});
}

std::string barcode(const std::string& symbology, const std::string& code) {
  return list("vxBarcL:barcodes",
              {fields("vxBarc", {{"Type", "x"}, {"SymbolType", symbology}, {"Code", code}})});
}

std::string grid(const std::string& rows, const std::string& type = "grid") {
  return list("vxSrLayout:repeats", {fields("vxSRRep", {{"type", type},
                                                        {"name", "n"},
                                                        {"stationname", "s"},
                                                        {"vnr", rows},
                                                        {"hnr", "2"},
                                                        {"front", "f"},
                                                        {"frontpage", "1"},
                                                        {"back", ""},
                                                        {"backpage", "0"},
                                                        {"count", "1"}})});
}

std::string range(const std::string& start, const std::string& end,
                  const std::vector<std::string>& inks = {}) {
  std::string numbers;
  for (const std::string& number : inks) numbers += element("rdf:li", number);
  return element("vxPag:start", start) + element("vxPag:end", end) +
         element("vxPag:inks", element("rdf:Seq", numbers));
}
std::string ranges(const std::vector<std::string>& all) { return list("vxPagL:pagelist", all); }
std::string pages(const std::string& count) { return element("vxGr:nrpages", count); }
std::string twoInks() { return list("vxGr:inks", {ink("A"), ink("B")}); }

std::string screen(const std::string& curve) {
  return fields("vxScreen", {{"singlepressDGC", ""},
                             {"autoplateDGCreq", curve},
                             {"autoplateDGCLW", curve},
                             {"autoplateDGCCT", ""},
                             {"autopressDGCreq", ""},
                             {"autopressDGCLW", ""},
                             {"autopressDGCCT", ""},
                             {"gamma", ""},
                             {"usedrefs", ""}});
}
std::string group(const std::vector<std::string>& screens) {
  return list("vxScreenL:screens", screens);
}
std::string groups(const std::vector<std::string>& all) {
  return list("vxScreenC:screenContainer", all);
}
std::string curve(const std::string& values) {
  return list("vxDGCL:dgcs", {fields("vxDGC", {{"name", "Plate"}, {"values", values}})});
}

std::string described(const std::string& language) {
  return element("dc:description",
                 "<rdf:Alt><rdf:li xml:lang=\"" + language + "\">a</rdf:li></rdf:Alt>");
}

std::string nested(int levels) {
  std::string text;
  for (int i = 0; i < levels; ++i) {
    text = "<x-a:a rdf:parseType=\"Resource\">" + text + "</x-a:a>";
  }
  return text;
}

// --- Findings -----------------------------------------------------------------------------------

std::vector<Finding> findingsIn(const std::string& text) {
  XMPlib xmp;
  xmp.SetXML(text);
  EXPECT_EQ(xmp.ErrStr(), "") << text;
  const vxmeta::Subject subject = {xmp, vxmeta::packetFacts(text), {}};
  std::vector<Finding> all;
  for (const vxmeta::Check& check : vxmeta::allChecks()) {
    for (Finding& finding : run(check, subject)) all.push_back(std::move(finding));
  }
  return all;
}

// "id path" of every finding.
Names found(const std::string& text) {
  Names names;
  for (const Finding& finding : findingsIn(text)) names.insert(finding.id + ' ' + finding.path);
  return names;
}

struct Fault {
  Names names;
  std::string wrong;
  std::string right;  // nearly the same, and raises nothing
};

const std::vector<Fault>& faults() {
  static const std::vector<Fault> kFaults = {
      {{"items-hidden fonts"},
       packet(list("vxFontL:fonts", {font("A"), "vxFont:name=\"B\"", font("C")})),
       packet(list("vxFontL:fonts", {font("A"), font("B"), font("C")}))},
      {{"items-hidden dgcs"}, packet(curve("0 50 100")), packet(curve("0 50 100 "))},
      {{"items-hidden screens", "items-hidden screens[1]"},
       packet(groups({group({screen("")}), group({"vxScreen:gamma=\"\""})})),
       packet(groups({group({screen("")}), group({})}))},
      {{"items-hidden film.jobReferences"},
       packet(list("vxDigFilmRefs:files", {"vxUsedF:instanceID=\"a\""})),
       packet(list("vxDigFilmRefs:files",
                   {fields("vxDigFilmRef", {{"instanceID", "a"}, {"renditionClass", "r"}})}))},
      {{"items-hidden extRefs"},
       packet(list("vxExtFL:files", {"stRef:instanceID=\"a\""})),
       packet(list("vxExtFL:files", {oldRef("a")}))},
      {{"items-hidden layers"},
       packet(element("vxLayL:layers", "Artwork")),
       packet(element("vxLayL:layers", ""))},
      {{"items-hidden screens", "items-hidden film.jobReferences"},
       packet(element("vxScreenC:screenContainer", "a") + element("vxDigFilmRefs:files", "b")),
       packet(groups({group({screen("")})}) + element("vxScreenL:screens", "a") +
              list("vxDigFilmRefs:files", {}))},
      {{"items-hidden extRefs"},
       packet(element("vxExtFL2:files", "<vxExtF:a>b</vxExtF:a>", kStructure)),
       packet(list("vxExtFL2:files", {ref("a")}))},
      {{"ref-unexpandable extRefs[1].instanceID"},
       packet(list("vxExtFL2:files", {ref("a"), ref("Files:a_*.tif#001")})),
       packet(list("vxExtFL2:files", {ref("a"), ref("Files:a_*.tif#001-004")}))},
      {{"ref-unexpandable extRefs[0].instanceID"},
       packet(list("vxExtFL2:files", {ref("files:a_*.tif#009-004")})),
       packet(list("vxExtFL2:files", {ref("file:a_*.tif#009-004")}))},
      {{"ref-unexpandable extRefs"},
       packet(list("vxExtFL2:files", {ref("files:a_*.tif#0-999999999")})),
       packet(list("vxExtFL2:files", {ref("files:a_*.tif#0-999")}))},
      {{"ref-unexpandable extRefs[0].instanceID", "ref-unexpandable extRefs[1].instanceID",
        "ref-unexpandable extRefs[2].instanceID", "ref-unexpandable extRefs[3].instanceID",
        "ref-unexpandable extRefs[4].instanceID", "ref-unexpandable extRefs[5].instanceID"},
       packet(list("vxExtFL2:files", {ref("files:a_*.tif#x-y"), ref("files:a_*.tif#001-4x"),
                                      ref("files:a_*.tif#-004"), ref("files:a_*.tif#1-"),
                                      ref("files:a#1-2*"), ref("files:a_*#1-4294967300")})),
       packet(list("vxExtFL2:files", {ref("files:a_*.tif#0-0"), ref("files:a#_*-b#c.tif#8-11"),
                                      ref("files:*#01-02")}))},

      {{"value-invalid scalars.nrPages"}, packet(pages("two")), packet(pages(" 0x2 "))},
      {{"value-invalid scalars.isTrapped"},
       packet(element("vxGr:trapped", "yes")),
       packet(element("vxGr:trapped", "TRUE"))},
      {{"value-invalid inks[1].pct"},
       packet(covered({"1", "12,5"})),
       packet(covered({"1", "1e1"}))},
      {{"value-invalid dgcs[0].values"}, packet(curve("0 12x 50 ")), packet(curve("0  12 50 "))},
      {{"value-invalid repeats[0].vnr", "items-hidden repeats"},
       packet(grid("")),
       packet(grid("", "die"))},
      {{"value-invalid pageRanges[0].inks[1]", "items-hidden pageRanges"},
       packet(ranges({range("1", "2", {"1", "x"})})),
       packet(ranges({range("1", "2", {"1", "2"})}))},
      {{"value-invalid screens[0][0].angle", "items-hidden screens", "items-hidden screens[0]"},
       packet(groups({group({screen("") + fields("vxScreen", {{"frequencyreq", "1"},
                                                              {"frequency", "1"},
                                                              {"anglereq", "1"},
                                                              {"angle", "x"},
                                                              {"dotshapereq", ""},
                                                              {"dotshape", ""}})})})),
       packet(groups({group({screen("")})}))},
      {{"date-invalid document.modifyDate"},
       packet(element("xmp:ModifyDate", "2026-02-29")),
       packet(element("xmp:ModifyDate", "2024-02-29"))},
      {{"language-default document.description"},
       packet(described("en-GB")),
       packet(described("x-default"))},
      {{"unit-unknown film.dimensions.units"},
       packet(element("vxGr:units", "MM") + element("vxGr:vresolution", "100")),
       packet(element("vxGr:units", "mm") + element("vxGr:vresolution", "100"))},
      {{"unit-unknown page.units"},
       packet(element("vxGr:units", "furlong")),
       packet(element("vxGr:units", "inch"))},

      {{"barcode-digits barcodes[0].code"},
       packet(barcode("EAN-13", "400638133393")),
       packet(barcode("EAN", "400638133393"))},
      {{"barcode-check-digit barcodes[0].code"},
       packet(barcode("ean 13", "4006381333932")),
       packet(barcode("ean 13", "4 006381-333931 "))},
      {{"barcode-digits barcodes[0].code"},
       packet(barcode("EAN-13", "4006381333931 123")),
       packet(barcode("EAN-13", "4006381333931 12"))},
      {{"barcode-digits barcodes[0].code"},
       packet(barcode("EAN-13", "40063813339 3")),
       packet(barcode("EAN-13", "40063813339 31"))},
      {{"barcode-digits barcodes[0].code"},
       packet(barcode("ITF-14", "15400141288763 12")),
       packet(barcode("UPC-A", "0 36000 29145 2 51995"))},

      {{"coverage-count inks"}, packet(covered({"1"})), packet(covered({}))},
      {{"coverage-count inks"}, packet(covered({"1", "2", "3"})), packet(covered({"1", "2"}))},
      {{"coverage-range inks[0].pct", "coverage-range inks[1].pct"},
       packet(covered({"-1", "100.00001"})),
       packet(covered({"-0.000000001", "100.000000001"}))},
      {{"ink-alike inks[1]"},
       packet(list("vxGr:inks", {ink("Spot 485"), ink("SPOT485", "75")})),
       packet(list("vxGr:inks", {ink("Spot 485"), ink("Spot 486")}))},
      {{"ink-alike inks[1]"},
       packet(list("vxGr:inks", {ink("GRÜN 3"), ink("grün\u00A03")})),
       packet(list("vxGr:inks", {ink("GRÜN 3"), ink("GRÚN 3")}))},
      {{"ink-alike film.inks[2]"},
       packet(list("vxGr:inks", {filmInk("A"), filmInk("A"), filmInk("a")})),
       packet(list("vxGr:inks", {filmInk("A"), filmInk("A")}))},

      {{"screen-curve screens[0][1].autoplateDGCreq"},
       packet(curve("0 1 ") + groups({group({screen("Plate"), screen("Press")})})),
       packet(groups({group({screen("Plate"), screen("Press")})}))},
      {{"screen-curve screens[0][0].autoplateDGCreq"},
       packet(curve("0 1 ") + group({screen("Press")})),
       packet(curve("0 1 ") + group({screen("Plate")}))},
      {{"screen-groups screens"},
       packet(list("vxGr:inks", {filmInk("A"), filmInk("B")}) + groups({group({screen("")})})),
       packet(twoInks() + groups({group({screen("")})}))},
      {{"curve-range dgcs[0].values"}, packet(curve("0 50 100.5 ")), packet(curve("0 50 100 "))},
      {{"curve-range dgcs[0].values"}, packet(curve("0 0.5 1.1 ")), packet(curve("0 0.5 1 "))},
      {{"curve-range dgcs[0].values"}, packet(curve("0 nan 1 ")), packet(curve("0 0 1 "))},
      {{"curve-fall dgcs[0].values"}, packet(curve("0 60 50 100 ")), packet(curve("0 50 50 100 "))},
      {{"curve-fall dgcs[0].values", "curve-range dgcs[0].values"},
       packet(curve("0 50.00001 50 100.00001 ")),
       packet(curve("0 50.0000001 50 100.0000001 "))},

      {{"page-range-backward pageRanges[0]"},
       packet(ranges({range("2", "1")})),
       packet(ranges({range("-1", "-1")}))},
      {{"page-range-overlap pageRanges[0]", "page-range-overlap pageRanges[2]"},
       packet(ranges({range("3", "4"), range("1", "6"), range("5", "5")})),
       packet(ranges({range("3", "4"), range("1", "2"), range("5", "5")}))},
      {{"page-range-gap pageRanges"},
       packet(pages("4") + ranges({range("1", "1"), range("3", "4")})),
       packet(pages("4") + ranges({range("0", "0"), range("1", "3")}))},
      {{"page-range-beyond pageRanges[0]"},
       packet(pages("4") + ranges({range("1", "5")})),
       packet(pages("4") + element("vxGr:startlogpage", "11") + ranges({range("11", "14")}))},
      {{"page-range-ink pageRanges[0].inks[1]"},
       packet(twoInks() + ranges({range("1", "1", {"0", "2"})})),
       packet(twoInks() + ranges({range("1", "1", {"1", "2"})}))},
      {{"page-range-ink pageRanges[0].inks[0]", "page-range-ink pageRanges[0].inks[1]"},
       packet(twoInks() + ranges({range("1", "1", {"3", "-1"})})),
       packet(twoInks() + ranges({range("1", "1", {"0", "1"})}))},

      {{"ref-layouts extRefs"},
       packet(list("vxExtFL2:files", {ref("a"), ref("b")}) + list("vxExtFL:files", {oldRef("a")})),
       packet(list("vxExtFL2:files", {ref("a"), ref("b")}) +
              list("vxExtFL:files", {oldRef("b"), oldRef("a")}))},
      {{"font-repeated fonts[1]"},
       packet(list("vxFontL:fonts", {font("A"), font("A")})),
       packet(list("vxFontL:fonts", {font("A"), font("A", "system")}))},
      {{"file-repeated extRefs[1]"},
       packet(list("vxExtFL2:files", {ref("a"), ref("a")})),
       packet(list("vxExtFL2:files", {ref("a", "1"), ref("a", "2")}))},
      {{"file-repeated cadFiles[1]", "file-repeated usedRefs[1]"},
       packet(list("vxCadL:files", {oldRef("a"), oldRef("a")}) +
              list("vxUsedFL:files", {usedRef("1"), usedRef("1")})),
       packet(list("vxCadL:files", {oldRef("a"), oldRef("b")}) +
              list("vxUsedFL:files", {usedRef("1"), usedRef("2")}))},
      {{"repeat-grid repeats[0].vnr"}, packet(grid("0")), packet(grid("1"))},

      {{"packet-readonly packet.writable"}, packet("", 0, "r"), packet("", 1024, "w")},
      {{"packet-padding packet.padding"}, packet("", 1023), packet("", 1024)},
      {{"limit-near packet"}, packet(nested(62)), packet(nested(61))},
      {{"limit-near packet"},
       packet(element("x-a:" + std::string(129, 'n'), "")),
       packet(element("x-a:" + std::string(128, 'n'), ""))},
  };
  return kFaults;
}

TEST(PacketChecks, EachIsRaisedByItsFaultAlone) {
  for (const Fault& fault : faults()) {
    EXPECT_EQ(found(fault.wrong), fault.names) << fault.wrong;
    EXPECT_EQ(found(fault.right), Names()) << *fault.names.begin() << '\n' << fault.right;
  }
}

TEST(PacketChecks, EachHasItsFault) {
  std::set<std::string> raised;
  for (const Fault& fault : faults()) {
    for (const std::string& name : fault.names) raised.insert(name.substr(0, name.find(' ')));
  }
  for (const vxmeta::Check& check : vxmeta::allChecks()) {
    const std::string id = check.id;
    EXPECT_TRUE(id.starts_with("pdf-") || raised.count(id) == 1) << id;
  }
}

// What the first finding says.
std::string toldOf(const std::string& properties) {
  const std::vector<Finding> findings = findingsIn(packet(properties));
  return findings.empty() ? "" : findings[0].message;
}

TEST(PacketChecks, SayWhatIsLost) {
  EXPECT_EQ(toldOf(list("vxFontL:fonts", {font("A"), "vxFont:name=\"B\"", font("C")})),
            "fonts[1] has no vxFont:type: reading ends there, and the next program that writes the "
            "list deletes 2 stored items");
  EXPECT_EQ(toldOf(element("vxLayL:layers", "Artwork")),
            "layers is stored as a text, not as a list: nothing of it is read, and the next "
            "program that writes the list deletes it");
}

TEST(PacketChecks, SayValuesAsTheyAreStored) {
  EXPECT_EQ(
      toldOf(barcode("EAN-13", "4006381-333932 12")),
      "the check digit of EAN-13 \"4006381-333932 12\" is 1, not 2: scanners refuse the code");
  EXPECT_EQ(toldOf(barcode("EAN-8", "9638 507")),
            "barcodes[0] has the code \"9638 507\", which is no EAN-8 of 8 digits: no barcode can "
            "be made of it");
  EXPECT_EQ(toldOf(covered({"1", "100.00001"})),
            "inks[1].pct is a coverage of 100.00001, which cannot be: what is reckoned from it, as "
            "the need of ink, is wrong");
}

TEST(PacketChecks, AFaultThatComesOftenIsCounted) {
  const std::vector<std::string> inks(1000, ink("A"));
  const std::vector<Finding> findings = findingsIn(packet(list("vxGr:inks", inks)));
  ASSERT_EQ(findings.size(), 21U);
  EXPECT_EQ(findings[19].path, "inks[20]");
  EXPECT_EQ(findings[20].path, "inks[21]");
  EXPECT_EQ(findings[20].message, "and 979 more of these");
}

TEST(PacketChecks, SamplesHaveNoErrors) {
  EXPECT_EQ(found(contentOf(VXMETA_EXAMPLES "/folding_carton.xmp")),
            Names({"packet-padding packet.padding", "screen-curve screens[0][1].autoplateDGCreq"}));
  for (const char* name :
       {"BlueSquare.jpg", "BlueSquare.pdf", "BlueSquare.psd", "BlueSquare.tif", "BlueSquare.eps",
        "BlueSquare.ai", "BlueSquare.indd", "BlueSquare.png"}) {
    const Outcome outcome = runTool("check --strict --ignore pdf-producer " + sample(name));
    EXPECT_EQ(outcome.code, 0) << outcome.out << outcome.err;
  }
}

// --- What is a name, a number, a date, a barcode ------------------------------------------------

TEST(PacketChecks, NamesAreOneButForCaseAndBlanks) {
  struct Pair {
    const char *capital, *small;
  };
  for (const Pair& pair : {Pair{"PANTONE 485", "Pantone\t485"}, Pair{"ÀÖØÞ", "àöøþ"},
                           Pair{"ĀĮĲĶĹŇŊŶŸŹŽ", "āįĳķĺňŋŷÿźž"}, Pair{"ΆΈΊΌΎΏΑΡΣΫ", "άέίόύώαρςϋ"},
                           Pair{"ЀЏАЯҐҾӐ", "ѐџаяґҿӑ"}, Pair{"ẠỹỸ", "ạỹỹ"},
                           Pair{" a\u00A0b\u2009c\u3000", "ab\u202Fc"}}) {
    EXPECT_EQ(vxmeta::folded(pair.capital), vxmeta::folded(pair.small)) << pair.capital;
  }
  for (const Pair& pair : {Pair{"×", "÷"}, Pair{"ß", "ÿ"}, Pair{"a-b", "ab"}, Pair{"ŉ", "Ŋ"},
                           Pair{"Ä", "A"}, Pair{"@", "`"}, Pair{"Б", "В"}}) {
    EXPECT_NE(vxmeta::folded(pair.capital), vxmeta::folded(pair.small)) << pair.capital;
  }
}

TEST(PacketChecks, Dates) {
  for (const char* date : {"2026", "2026-11", "2026-11-02", "2026-11-02T09:30", "2026-11-02T09:30Z",
                           "2026-11-02T09:30:15.25+01:00", "2016-12-31T23:59:60Z"}) {
    EXPECT_TRUE(vxmeta::isDate(date)) << date;
  }
  for (const char* text : {"", "26", "2026-1-2", "2026-13", "2026-11-31", "2026-11-02T",
                           "2026T09:30", "2026-11-02T24:00", "2026-11-02T09:30:15.",
                           "2026-11-02T09:30+1", "2026-11-02 09:30", "D:20261102", "2 Nov 2026"}) {
    EXPECT_FALSE(vxmeta::isDate(text)) << text;
  }
}

// They are what the library reads.
TEST(PacketChecks, NumbersAreThoseThatAreRead) {
  for (const char* text : {"1", " -1\n", "+7", "0x1F", "0X1F", "0xFFFFFFFF", "2147483648", "", " ",
                           "1.5", "1e3", "12,5", "1e999", "nan", "inf", "0x", "1 2", "--1"}) {
    XMPlib xmp;
    xmp.SetXML(packet(element("vxGr:nrpages", text) + element("vxGr:vsize", text)));
    int number = 0;
    EXPECT_EQ(isValue(vxmeta::ValueKind::integer, text), xmp.GetNrPages(number)) << text;
    XMPlDimDat page;
    page.vsize = 0;
    xmp.GetDimDat(page);
    EXPECT_EQ(isValue(vxmeta::ValueKind::real, text), xmp.ErrStr().empty()) << text;
  }
}

TEST(PacketChecks, CheckDigits) {
  struct Code {
    const char *name, *text;
  };
  for (const Code& code : {Code{"EAN-13", "9780306406157"}, Code{"Ean 8", "9638-5074"},
                           Code{"upca", "0 36000 29145 2"}, Code{"ITF14", "15400141288763"},
                           Code{"EAN-13", "9780306406157+51995"}}) {
    const vxmeta::DigitCode* known = vxmeta::digitCodeNamed(code.name);
    ASSERT_NE(known, nullptr) << code.name;
    const std::string digits = mainDigits(*known, code.text);
    ASSERT_EQ(digits.size(), known->digits);
    EXPECT_EQ(vxmeta::checkDigit(digits.substr(0, digits.size() - 1)), digits.back()) << code.text;
  }
  EXPECT_EQ(vxmeta::digitCodeNamed("EAN-128"), nullptr);
}

}  // namespace
