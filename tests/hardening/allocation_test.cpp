// Every allocation of an operation fails in turn, alone and, in growing steps, with all behind it,
// until the operation succeeds: nothing crashes, the lock is free, no slot of the registry is lost
// and the handle stays usable.
#include <gtest/gtest.h>

#include <functional>
#include <new>

#include "core/registry.h"
#include "core/toolkit/client.h"
#include "support/failing_memory.h"
#include "support/kinds.h"

// The toolkit loses a node whose parent cannot grow to hold it, and the expat parser of an adapter
// that cannot be made. None of this library's own allocations is among these.
extern "C" const char* __lsan_default_suppressions();  // NOLINT(bugprone-reserved-identifier)
extern "C" const char* __lsan_default_suppressions() {
  return "leak:FindChildNode\nleak:FindSchemaNode\nleak:FindIndexedItem\nleak:FindQualifierNode\n"
         "leak:RDF_Parser\nleak:StartElementHandler\nleak:CharacterDataHandler\n"
         "leak:ProcessingInstructionHandler\nleak:libexpat\n";
}

namespace {

std::size_t slotsInUse() {
  const xmpl::MetaRegistry& registry = xmpl::MetaRegistry::instance();
  std::size_t used = 0;
  for (std::size_t slot = 0; slot < registry.size(); ++slot) {
    if (registry.holders(static_cast<std::int32_t>(slot)) > 0) ++used;
  }
  return used;
}

using Operation = std::function<void(XMPlib&)>;

// Whether the operation came to its end, with memory for `passing` allocations.
bool completes(long passing, Shortage shortage, const Operation& operation, XMPlib& xmp) {
  bool thrown = false;
  runOutAfter(passing, shortage);
  try {
    operation(xmp);
  } catch (const std::bad_alloc&) {
    thrown = true;
  } catch (const XMP_Error&) {
    thrown = true;
  }
  return !endShortage() && !thrown;
}

// Calls `check(passing)` for ever more memory until it answers true: it has been enough.
template <class Check>
void withEverMoreMemory(Shortage shortage, const Check& check) {
  const auto step = [&](long passed) { return shortage == Shortage::once ? 1 : 1 + passed / 50; };
  for (long passing = 0; !check(passing); passing += step(passing)) ASSERT_LT(passing, 100000);
}

void expectToSurvive(Shortage shortage, const std::string& packet, const Operation& operation) {
  withEverMoreMemory(shortage, [&](long passing) {
    const std::size_t used = slotsInUse();
    XMPlib xmp;
    xmp.SetXML(packet);
    const bool completed = completes(passing, shortage, operation, xmp);
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

void expectToSurvive(const std::string& packet, const Operation& operation) {
  expectToSurvive(Shortage::once, packet, operation);
  expectToSurvive(Shortage::forGood, packet, operation);
}

// A value whose texts need memory of their own; references are a run.
template <class Value>
Value longTexts() {
  Value value{};
  visitFields(
      value, [](auto& items) { items.resize(1); },
      []<class Field>(Field& field) {
        if constexpr (std::is_same_v<Field, bool>) field = true;
        if constexpr (std::is_same_v<Field, std::string>) field = "beyond a small string";
      });
  if constexpr (std::is_same_v<Value, XMPlColorSpace>) value.colorprofloc = "PDFOutputIntent";
  if constexpr (std::is_same_v<Value, std::vector<XMPlExtRef>>) {
    value.resize(2);
    for (std::size_t i = 0; i < value.size(); ++i) {
      value[i] = {"file:/a folder/page_00" + std::to_string(i) + ".tif", "", 0, "image", 1};
    }
  }
  return value;
}

// A packet with everything in it.
std::string filledPacket() {
  XMPlib xmp;
  forEachKind([&]<class Value>(const Kind<Value>& kind) { kind.set(xmp, longTexts<Value>()); });
  return xmp.GetXMLPacket(false, 0);
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
  const std::string foreign =
      "<rdf:RDF xmlns:rdf='http://www.w3.org/1999/02/22-rdf-syntax-ns#'>"
      "<rdf:Description rdf:about='' xmlns:o='http://allocation.example/?a&amp;b'>"
      "<o:a><rdf:Bag><rdf:li>1</rdf:li></rdf:Bag></o:a></rdf:Description></rdf:RDF>";
  expectToSurvive(filled, [&](XMPlib& xmp) {
    XMPlib other;
    other.SetXML(foreign);
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
  expectToSurvive("", [](XMPlib& xmp) { xmp.SetPDFData(longTexts<XMPlPDFData>()); });
  expectToSurvive("", [](XMPlib& xmp) { xmp.SetMMData(longTexts<XMPlMMData>()); });
  expectToSurvive("", [](XMPlib& xmp) {
    std::vector<XMPlMetaDataDigFilm> films(1);
    films[0].screens.resize(2);
    films[0].uRefs.resize(2);
    xmp.SetMetaDataDigFilms(films);
  });
}

TEST(Allocation, FailsWithoutHarmInMerges) {
  const std::string filled = filledPacket();
  const auto merging = [&]<class List, class... Flag>(bool (XMPlib::*merge)(const List&, Flag...)) {
    expectToSurvive(filled, [merge](XMPlib& xmp) {
      List records = longTexts<List>();
      records.emplace_back();  // a new one
      (xmp.*merge)(records, Flag(true)...);
    });
  };
  merging(&XMPlib::MergeInks);
  merging(&XMPlib::MergeExtRefs);
  merging(&XMPlib::MergeCadFiles);
  merging(&XMPlib::MergeFonts);
  merging(&XMPlib::MergeBarcodes);
  merging(&XMPlib::MergeLayers);
}

TEST(Allocation, LeavesNoNamespaceHalfRegistered) {
  withEverMoreMemory(Shortage::once, [](long passing) {
    const std::string prefix = "half" + std::to_string(passing);
    const std::string packet =
        "<rdf:RDF xmlns:rdf='http://www.w3.org/1999/02/22-rdf-syntax-ns#'>"
        "<rdf:Description rdf:about='' xmlns:" +
        prefix + "='http://" + prefix + ".example/' " + prefix + ":a='1'/></rdf:RDF>";
    XMPlib xmp;
    const bool completed = completes(
        passing, Shortage::once, [&](XMPlib& handle) { handle.SetXML(packet); }, xmp);
    xmp.SetXML(packet);
    EXPECT_EQ(xmp.ErrStr(), "");
    EXPECT_TRUE(xmpl::Metadata::GetNamespaceURI(prefix.c_str(), nullptr)) << prefix;
    return completed;
  });
}

// What says that it has worked has the result that it has with memory.
TEST(Allocation, ShortageNeverPassesForSuccess) {
  const std::string filled = filledPacket();
  const auto expectRight = [&](const std::string& before, const std::string& right,
                               auto operation) {
    for (const Shortage shortage : {Shortage::once, Shortage::forGood}) {
      withEverMoreMemory(shortage, [&](long passing) {
        XMPlib xmp;
        xmp.SetXML(before);
        std::string result;
        const auto attempt = [&](XMPlib& handle) { result = operation(handle) ? "done" : ""; };
        const bool completed = completes(passing, shortage, attempt, xmp);
        EXPECT_TRUE(result.empty() || xmp.GetXML() == right) << passing << xmp.GetXML();
        return completed;
      });
    }
  };
  XMPlib loaded;
  loaded.SetXML(filled);
  expectRight("", loaded.GetXML(), [&](XMPlib& xmp) {
    xmp.SetXML(filled);
    EXPECT_EQ(xmp.ErrStr().find("invalid argument"), std::string::npos);  // no parser was made
    return xmp.ErrStr().empty();
  });
  // Read as UTF-8 it would be two letters.
  const std::string latin =
      "<?xml version='1.0' encoding='ISO-8859-1'?>"
      "<rdf:RDF xmlns:rdf='http://www.w3.org/1999/02/22-rdf-syntax-ns#'>"
      "<rdf:Description rdf:about='' xmlns:latin='http://latin.example/' latin:a='\xC3\xA9'/>"
      "</rdf:RDF>";
  loaded.SetXML(latin);
  expectRight("", loaded.GetXML(), [&](XMPlib& xmp) {
    xmp.SetXML(latin);
    return xmp.ErrStr().empty();
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
