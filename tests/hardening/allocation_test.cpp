// SPDX-License-Identifier: Apache-2.0
// Every allocation of an operation fails in turn, alone and, in growing steps, with all behind it,
// until the operation succeeds: nothing crashes, the lock is free, no slot of the registry is lost
// and the handle stays usable.
#include <gtest/gtest.h>

#include <functional>

#include "core/toolkit/client.h"
#include "support/bare_packets.h"
#include "support/failing_memory.h"
#include "support/kinds.h"
#include "support/slots.h"

// The toolkit loses a node whose parent cannot grow to hold it, and the expat parser of an adapter
// that cannot be made. None of this library's own allocations is among these.
extern "C" const char* __lsan_default_suppressions();  // NOLINT(bugprone-reserved-identifier)
extern "C" const char* __lsan_default_suppressions() {
  return "leak:FindChildNode\nleak:FindSchemaNode\nleak:FindIndexedItem\nleak:FindQualifierNode\n"
         "leak:AppendLangItem\n"
         "leak:RDF_Parser\nleak:StartElementHandler\nleak:CharacterDataHandler\n"
         "leak:ProcessingInstructionHandler\nleak:libexpat\n";
}

namespace {

using Operation = std::function<void(XMPlib&)>;

// Calls `check(passing)` for ever more memory until it answers true: it has been enough.
template <class Check>
void withEverMoreMemory(Shortage shortage, const Check& check) {
  const auto step = [&](long passed) { return shortage == Shortage::once ? 1 : 1 + passed / 50; };
  for (long passing = 0; !check(passing); passing += step(passing)) ASSERT_LT(passing, 100000);
}

void expectToSurvive(const std::string& packet, const Operation& operation) {
  for (const Shortage shortage : {Shortage::once, Shortage::forGood}) {
    withEverMoreMemory(shortage, [&](long passing) {
      const std::size_t used = slotsInUse();
      FromText xmp(packet);
      const bool completed = completes<XMP_Error>(passing, shortage, [&] { operation(xmp); });
      XMPlib probe;  // hangs if the lock is held
      EXPECT_TRUE(probe.SetNrPages(1));
      if (!xmp.SetNrPages(1)) {
        EXPECT_EQ(xmp.ErrStr(), "Illegal XAP");  // a CreateXAP that failed
        xmp.CreateXAP();
        EXPECT_TRUE(xmp.SetNrPages(1));
      }
      EXPECT_FALSE(xmp.GetXML().empty()) << passing << ": " << xmp.ErrStr();
      EXPECT_EQ(slotsInUse(), used + 2);
      return completed;
    });
  }
}

// A value whose texts need memory of their own; references are a run.
template <class Value>
Value longTexts() {
  auto value = filled<Value>("beyond a small string");
  if constexpr (std::is_same_v<Value, std::vector<XMPlExtRef>>) {
    value = {{"file:/a folder/page_000.tif", "", 0, "image", 1},
             {"file:/a folder/page_001.tif", "", 0, "image", 1}};
  }
  return value;
}

// A packet with everything in it.
std::string filledPacket() {
  XMPlib xmp;
  forEachKind([&]<class Value>(const Kind<Value>& kind) { kind.set(xmp, longTexts<Value>()); });
  return xmp.GetXMLPacket(false, 0);
}

// A packet with an ink whose coverage in percent is that text.
std::string withCoverage(const std::string& percent) {
  XMPlInk ink;
  ink.name = "Cyan";
  ink.coverageValid = true;
  XMPlib xmp;
  xmp.SetInks({ink}, true);
  std::string text = xmp.GetXML();
  const std::string tag = "<vxInkCov:pct>";
  const std::size_t begin = text.find(tag) + tag.size();
  return text.replace(begin, text.find('<', begin) - begin, percent);
}

}  // namespace

TEST(Allocation, FailsWithoutHarmInHandlesAndPackets) {
  const std::size_t before = bytesInUse();
  const std::string filled = filledPacket();
  expectToSurvive(filled, [](XMPlib& xmp) { XMPlib another, copy(xmp); });
  expectToSurvive(filled, [](XMPlib& xmp) { xmp.CloneXAP(); });
  expectToSurvive("", [&](XMPlib& xmp) { xmp.SetXML(filled); });
  expectToSurvive("", [](XMPlib& xmp) { xmp.SetXML("<a"); });
  expectToSurvive(filled, [](XMPlib& xmp) { xmp.GetXMLPacket(false, 0); });
  expectToSurvive(filled, [&](XMPlib& xmp) { xmp.MergeXML(filled, true); });
  expectToSurvive("", [&](XMPlib& xmp) { xmp.MergeXML({filled, filled}, 0, true); });
  const std::string foreign = described("<o:a xmlns:o='http://allocation.example/?a&amp;b'/>" +
                                        bagOf("<rdf:li>1</rdf:li>"));
  expectToSurvive(filled, [&](XMPlib& xmp) {
    const FromText other(foreign);
    xmp.MergeNonOrvo(&other);
  });
  // Of some 5,000 rounds, no parser and no copy is lost.
  EXPECT_LT(bytesInUse() - before, 4U << 20);
}

TEST(Allocation, FailsWithoutHarmInRecords) {
  forEachKind([]<class Value>(const Kind<Value>& kind) {
    XMPlib filled;
    EXPECT_TRUE(kind.set(filled, longTexts<Value>()));
    expectToSurvive(filled.GetXML(), [&](XMPlib& xmp) {
      Value value{};
      kind.get(xmp, value);
      kind.set(xmp, value);
    });
  });
  expectToSurvive("", [](XMPlib& xmp) { xmp.SetDocumentData({"", "now", "", "", "", ""}); });
  const std::string filled = filledPacket();
  forEachWriter([&]<class Value>(const Kind<Value>& kind) {
    expectToSurvive(filled, [&](XMPlib& xmp) {
      auto value = longTexts<Value>();
      if constexpr (requires { value.emplace_back(); }) value.emplace_back();  // new to a merge
      kind.set(xmp, value);
    });
  });
}

TEST(Allocation, LeavesNoNamespaceHalfRegistered) {
  withEverMoreMemory(Shortage::once, [](long passing) {
    const std::string prefix = "half" + std::to_string(passing);
    const std::string text =
        described("<" + prefix + ":a xmlns:" + prefix + "='http://" + prefix + ".example/'/>");
    XMPlib xmp;
    const bool completed = completes<XMP_Error>(passing, Shortage::once, [&] { xmp.SetXML(text); });
    xmp.SetXML(text);
    EXPECT_EQ(xmp.ErrStr(), "");
    EXPECT_TRUE(xmpl::Metadata::GetNamespaceURI(prefix.c_str(), nullptr)) << prefix;
    return completed;
  });
}

// What says that it has worked has the result that it has with memory.
TEST(Allocation, ShortageNeverPassesForSuccess) {
  const auto expectRight = [](const std::string& before, const std::string& right,
                              const auto& operation) {
    for (const Shortage shortage : {Shortage::once, Shortage::forGood}) {
      withEverMoreMemory(shortage, [&](long passing) {
        FromText xmp(before);
        bool isDone = false;
        const bool completed =
            completes<XMP_Error>(passing, shortage, [&] { isDone = operation(xmp); });
        EXPECT_TRUE(!isDone || xmp.GetXML() == right) << passing << xmp.GetXML();
        return completed;
      });
    }
  };
  // Read as UTF-8 it would be two letters.
  const std::string latin = "<?xml version='1.0' encoding='ISO-8859-1'?>" +
                            described("<l:a xmlns:l='http://latin.example/'>\xC3\xA9</l:a>");
  const std::string copyright =
      "<xmpDM:copyright xmlns:xmpDM='http://ns.adobe.com/xmp/1.0/DynamicMedia/'>somebody's, as it "
      "was</xmpDM:copyright>";
  const std::string moved = described(copyright), movedByToolkit = described(kNotPlain + copyright);
  for (const std::string& text : {filledPacket(), latin, moved, movedByToolkit}) {
    expectRight("", FromText(text).GetXML(), [&](XMPlib& xmp) {
      xmp.SetXML(text);
      EXPECT_EQ(xmp.ErrStr().find("invalid argument"), std::string::npos);  // no parser was made
      return xmp.ErrStr().empty();
    });
  }
  const std::string longNumber = withCoverage("0x1.4000000000000000000000p2");
  expectRight(longNumber, FromText(longNumber).GetXML(), [](XMPlib& xmp) {
    std::vector<XMPlInk> inks;
    const bool isRead = xmp.GetInks(inks);
    EXPECT_TRUE(!isRead || inks.at(0).coverageValid);
    return isRead;
  });
  forEachKind([&]<class Value>(const Kind<Value>& kind) {
    XMPlib set;
    const auto value = longTexts<Value>();
    kind.set(set, value);
    expectRight("", set.GetXML(), [&](XMPlib& xmp) { return kind.set(xmp, value); });
    expectRight(set.GetXML(), set.GetXML(), [&](XMPlib& xmp) {
      Value read{};
      return kind.get(xmp, read) && kind.set(xmp, read);
    });
  });
}
