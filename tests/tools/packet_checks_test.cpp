// SPDX-License-Identifier: Apache-2.0
// Findings on packets with known faults.
#include <gtest/gtest.h>

#include <XMPlib.h>

#include <set>

#include "checks/finding.h"
#include "support/packet_parts.h"
#include "support/program.h"

using namespace parts;

namespace {

using vxmeta::Finding;
using Names = std::multiset<std::string>;

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
       wrapped(list("vxFontL:fonts", {font("A"), "vxFont:name=\"B\"", font("C")})),
       wrapped(list("vxFontL:fonts", {font("A"), font("B"), font("C")}))},
      {{"items-hidden dgcs"}, wrapped(curve("0 50 100")), wrapped(curve("0 50 100 "))},
      {{"items-hidden screens", "items-hidden screens[1]"},
       wrapped(groups({group({screen("")}), group({"vxScreen:gamma=\"\""})})),
       wrapped(groups({group({screen("")}), group({})}))},
      {{"items-hidden film.jobReferences"},
       wrapped(list("vxDigFilmRefs:files", {"vxUsedF:instanceID=\"a\""})),
       wrapped(list("vxDigFilmRefs:files",
                    {fields("vxDigFilmRef", {{"instanceID", "a"}, {"renditionClass", "r"}})}))},
      {{"items-hidden extRefs"},
       wrapped(list("vxExtFL:files", {"stRef:instanceID=\"a\""})),
       wrapped(list("vxExtFL:files", {oldRef("a")}))},
      {{"items-hidden layers"},
       wrapped(element("vxLayL:layers", "Artwork")),
       wrapped(element("vxLayL:layers", ""))},
      {{"items-hidden screens", "items-hidden film.jobReferences"},
       wrapped(element("vxScreenC:screenContainer", "a") + element("vxDigFilmRefs:files", "b")),
       wrapped(groups({group({screen("")})}) + element("vxScreenL:screens", "a") +
               list("vxDigFilmRefs:files", {}))},
      {{"items-hidden extRefs"},
       wrapped(element("vxExtFL2:files", "<vxExtF:a>b</vxExtF:a>", kStructure)),
       wrapped(list("vxExtFL2:files", {ref("a")}))},
      {{"ref-unexpandable extRefs[1].instanceID"},
       wrapped(list("vxExtFL2:files", {ref("a"), ref("Files:a_*.tif#001")})),
       wrapped(list("vxExtFL2:files", {ref("a"), ref("Files:a_*.tif#001-004")}))},
      {{"ref-unexpandable extRefs[0].instanceID"},
       wrapped(list("vxExtFL2:files", {ref("files:a_*.tif#009-004")})),
       wrapped(list("vxExtFL2:files", {ref("file:a_*.tif#009-004")}))},
      {{"ref-unexpandable extRefs"},
       wrapped(list("vxExtFL2:files", {ref("files:a_*.tif#0-999999999")})),
       wrapped(list("vxExtFL2:files", {ref("files:a_*.tif#0-999")}))},
      {{"ref-unexpandable extRefs[0].instanceID", "ref-unexpandable extRefs[1].instanceID",
        "ref-unexpandable extRefs[2].instanceID", "ref-unexpandable extRefs[3].instanceID",
        "ref-unexpandable extRefs[4].instanceID", "ref-unexpandable extRefs[5].instanceID"},
       wrapped(list("vxExtFL2:files", {ref("files:a_*.tif#x-y"), ref("files:a_*.tif#001-4x"),
                                       ref("files:a_*.tif#-004"), ref("files:a_*.tif#1-"),
                                       ref("files:a#1-2*"), ref("files:a_*#1-4294967300")})),
       wrapped(list("vxExtFL2:files", {ref("files:a_*.tif#0-0"), ref("files:a#_*-b#c.tif#8-11"),
                                       ref("files:*#01-02")}))},

      {{"value-invalid scalars.nrPages"}, wrapped(pages("two")), wrapped(pages(" 0x2 "))},
      {{"value-invalid scalars.isTrapped"},
       wrapped(element("vxGr:trapped", "yes")),
       wrapped(element("vxGr:trapped", "TRUE"))},
      {{"value-invalid scalars.screenReg"},
       wrapped(element("vxGr:screenreg", "<rdf:Bag><rdf:li>True</rdf:li></rdf:Bag>")),
       wrapped(element("vxGr:screenreg", "True"))},
      {{"value-invalid inks[1].pct"},
       wrapped(covered({"1", "12,5"})),
       wrapped(covered({"1", "1e1"}))},
      {{"value-invalid dgcs[0].values"}, wrapped(curve("0 12x 50 ")), wrapped(curve("0  12 50 "))},
      {{"value-invalid repeats[0].vnr", "items-hidden repeats"},
       wrapped(grid("")),
       wrapped(grid("", "die"))},
      {{"value-invalid pageRanges[0].inks[1]", "items-hidden pageRanges"},
       wrapped(ranges({range("1", "2", {"1", "x"})})),
       wrapped(ranges({range("1", "2", {"1", "2"})}))},
      {{"value-invalid screens[0][0].angle", "items-hidden screens", "items-hidden screens[0]"},
       wrapped(groups({group({screen("") + fields("vxScreen", {{"frequencyreq", "1"},
                                                               {"frequency", "1"},
                                                               {"anglereq", "1"},
                                                               {"angle", "x"},
                                                               {"dotshapereq", ""},
                                                               {"dotshape", ""}})})})),
       wrapped(groups({group({screen("")})}))},
      {{"date-invalid document.modifyDate"},
       wrapped(element("xmp:ModifyDate", "2026-02-29")),
       wrapped(element("xmp:ModifyDate", "2024-02-29"))},
      {{"language-default document.description"},
       wrapped(described("en-GB")),
       wrapped(described("x-default"))},
      {{"unit-unknown film.dimensions.units"}, wrapped(filmSize("MM")), wrapped(filmSize("mm"))},
      {{"unit-unknown page.units"}, wrapped(pageSize("furlong")), wrapped(pageSize("inch"))},
      {{"record-incomplete page"},
       wrapped(element("vxGr:vsize", "1") + element("vxGr:hsize", "1")),
       wrapped(pageSize("mm"))},
      {{"record-incomplete baseDocument"},
       wrapped(element("vxPrF:DerivedFrom", "<stRef:instanceID>a</stRef:instanceID>", kStructure)),
       wrapped(element("vxPrF:DerivedFrom",
                       "<stRef:instanceID>a</stRef:instanceID>"
                       "<stRef:renditionClass>b</stRef:renditionClass>",
                       kStructure))},

      {{"barcode-digits barcodes[0].code"},
       wrapped(barcode("EAN-13", "400638133393")),
       wrapped(barcode("EAN", "400638133393"))},
      {{"barcode-check-digit barcodes[0].code"},
       wrapped(barcode("ean 13", "4006381333932")),
       wrapped(barcode("ean 13", "4 006381-333931 "))},
      {{"barcode-digits barcodes[0].code"},
       wrapped(barcode("EAN-13", "4006381333931 123")),
       wrapped(barcode("EAN-13", "4006381333931 12"))},
      {{"barcode-digits barcodes[0].code"},
       wrapped(barcode("EAN-13", "40063813339 3")),
       wrapped(barcode("EAN-13", "40063813339 31"))},
      {{"barcode-digits barcodes[0].code"},
       wrapped(barcode("ITF-14", "15400141288763 12")),
       wrapped(barcode("UPC-A", "0 36000 29145 2 51995"))},

      {{"coverage-count inks"}, wrapped(covered({"1"})), wrapped(covered({}))},
      {{"coverage-count inks"}, wrapped(covered({"1", "2", "3"})), wrapped(covered({"1", "2"}))},
      {{"coverage-range inks[0].pct", "coverage-range inks[1].pct"},
       wrapped(covered({"-1", "100.00001"})),
       wrapped(covered({"-0.000000001", "100.000000001"}))},
      {{"ink-alike inks[1]"},
       wrapped(list("vxGr:inks", {ink("Spot 485"), ink("SPOT485", "75")})),
       wrapped(list("vxGr:inks", {ink("Spot 485"), ink("Spot 486")}))},
      {{"ink-alike inks[1]"},
       wrapped(list("vxGr:inks", {ink("GRÜN 3"), ink("grün\u00A03")})),
       wrapped(list("vxGr:inks", {ink("GRÜN 3"), ink("GRÚN 3")}))},
      {{"ink-alike film.inks[2]"},
       wrapped(list("vxGr:inks", {filmInk("A"), filmInk("A"), filmInk("a")})),
       wrapped(list("vxGr:inks", {filmInk("A"), filmInk("A")}))},

      {{"screen-curve screens[0][1].autoplateDGCreq"},
       wrapped(curve("0 1 ") + groups({group({screen("Plate"), screen("Press")})})),
       wrapped(groups({group({screen("Plate"), screen("Press")})}))},
      {{"screen-curve screens[0][0].autoplateDGCreq"},
       wrapped(curve("0 1 ") + group({screen("Press")})),
       wrapped(curve("0 1 ") + group({screen("Plate")}))},
      {{"screen-groups screens"},
       wrapped(list("vxGr:inks", {filmInk("A"), filmInk("B")}) + groups({group({screen("")})})),
       wrapped(twoInks() + groups({group({screen("")})}))},
      {{"curve-range dgcs[0].values"}, wrapped(curve("0 50 100.5 ")), wrapped(curve("0 50 100 "))},
      {{"curve-range dgcs[0].values"}, wrapped(curve("0 0.5 1.1 ")), wrapped(curve("0 0.5 1 "))},
      {{"curve-range dgcs[0].values"}, wrapped(curve("0 nan 1 ")), wrapped(curve("0 0 1 "))},
      {{"curve-fall dgcs[0].values"},
       wrapped(curve("0 60 50 100 ")),
       wrapped(curve("0 50 50 100 "))},
      {{"curve-fall dgcs[0].values", "curve-range dgcs[0].values"},
       wrapped(curve("0 50.00001 50 100.00001 ")),
       wrapped(curve("0 50.0000001 50 100.0000001 "))},

      {{"page-range-backward pageRanges[0]"},
       wrapped(ranges({range("2", "1")})),
       wrapped(ranges({range("-1", "-1")}))},
      {{"page-range-overlap pageRanges[0]", "page-range-overlap pageRanges[2]"},
       wrapped(ranges({range("3", "4"), range("1", "6"), range("5", "5")})),
       wrapped(ranges({range("3", "4"), range("1", "2"), range("5", "5")}))},
      {{"page-range-gap pageRanges"},
       wrapped(pages("4") + ranges({range("1", "1"), range("3", "4")})),
       wrapped(pages("4") + ranges({range("0", "0"), range("1", "3")}))},
      {{"page-range-beyond pageRanges[0]"},
       wrapped(pages("4") + ranges({range("1", "5")})),
       wrapped(pages("4") + element("vxGr:startlogpage", "11") + ranges({range("11", "14")}))},
      {{"page-range-ink pageRanges[0].inks[1]"},
       wrapped(twoInks() + ranges({range("1", "1", {"0", "2"})})),
       wrapped(twoInks() + ranges({range("1", "1", {"1", "2"})}))},
      {{"page-range-ink pageRanges[0].inks[0]", "page-range-ink pageRanges[0].inks[1]"},
       wrapped(twoInks() + ranges({range("1", "1", {"3", "-1"})})),
       wrapped(twoInks() + ranges({range("1", "1", {"0", "1"})}))},

      {{"ref-layouts extRefs"},
       wrapped(list("vxExtFL2:files", {ref("a"), ref("b")}) + list("vxExtFL:files", {oldRef("a")})),
       wrapped(list("vxExtFL2:files", {ref("a"), ref("b")}) +
               list("vxExtFL:files", {oldRef("b"), oldRef("a")}))},
      {{"font-repeated fonts[1]"},
       wrapped(list("vxFontL:fonts", {font("A"), font("A")})),
       wrapped(list("vxFontL:fonts", {font("A"), font("A", "system")}))},
      {{"file-repeated extRefs[1]"},
       wrapped(list("vxExtFL2:files", {ref("a"), ref("a")})),
       wrapped(list("vxExtFL2:files", {ref("a", "1"), ref("a", "2")}))},
      {{"file-repeated cadFiles[1]", "file-repeated usedRefs[1]"},
       wrapped(list("vxCadL:files", {oldRef("a"), oldRef("a")}) +
               list("vxUsedFL:files", {usedRef("1"), usedRef("1")})),
       wrapped(list("vxCadL:files", {oldRef("a"), oldRef("b")}) +
               list("vxUsedFL:files", {usedRef("1"), usedRef("2")}))},
      {{"repeat-grid repeats[0].vnr"}, wrapped(grid("0")), wrapped(grid("1"))},

      {{"packet-readonly packet.writable"}, wrapped("", 0, "r"), wrapped("", 1024, "w")},
      {{"packet-padding packet.padding"}, wrapped("", 1023), wrapped("", 1024)},
      {{"limit-near packet"}, wrapped(nested(62)), wrapped(nested(61))},
      {{"limit-near packet"},
       wrapped(element("x-a:" + std::string(129, 'n'), "", " xmlns:x-a=\"x:a\"")),
       wrapped(element("x-a:" + std::string(128, 'n'), "", " xmlns:x-a=\"x:a\""))},
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
  const std::vector<Finding> findings = findingsIn(wrapped(properties));
  return findings.empty() ? "" : findings[0].message;
}

TEST(PacketChecks, SayWhatIsLost) {
  EXPECT_EQ(toldOf(list("vxFontL:fonts", {font("A"), "vxFont:name=\"B\"", font("C")})),
            "fonts[1] has no vxFont:type: reading ends there, and the next program that writes the "
            "list deletes 2 stored items");
  EXPECT_EQ(toldOf(element("vxLayL:layers", "Artwork")),
            "layers is stored as a text, not as a list: nothing of it is read, and the next "
            "program that writes the list deletes it");
  EXPECT_EQ(toldOf(twoInks() + element("vxInkCovL:coverage", "12.5")),
            "coverage of inks is stored as a text, not as a list: nothing of it is read, and the "
            "next program that writes the list deletes it");
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
  const std::vector<Finding> findings = findingsIn(wrapped(list("vxGr:inks", inks)));
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

}  // namespace
