// Every allocation of an operation fails in turn, until the operation succeeds: nothing crashes,
// the lock is free, no slot of the registry is lost and the handle stays usable.
#include <gtest/gtest.h>
#include <malloc.h>

#include <cstdlib>
#include <functional>
#include <new>
#include <optional>

#include "core/registry.h"
#include "core/toolkit/client.h"
#include "kinds.h"

namespace {

constexpr long kNever = -1;
thread_local long allocationsToFailure = kNever;

void* allocate(std::size_t size) {
  if (allocationsToFailure == 0) {
    allocationsToFailure = kNever;
    throw std::bad_alloc();
  }
  if (allocationsToFailure > 0) --allocationsToFailure;
  void* memory = std::malloc(size == 0 ? 1 : size);
  if (memory == nullptr) throw std::bad_alloc();
  return memory;
}

}  // namespace

void* operator new(std::size_t size) { return allocate(size); }
void* operator new[](std::size_t size) { return allocate(size); }
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
  try {
    return allocate(size);
  } catch (const std::bad_alloc&) {
    return nullptr;
  }
}
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete[](void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
void operator delete[](void* memory, std::size_t) noexcept { std::free(memory); }

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

// Whether the operation came to its end, with the allocation number `failing` failing on the way.
bool completes(long failing, const Operation& operation, XMPlib& xmp) {
  bool thrown = false;
  allocationsToFailure = failing;
  try {
    operation(xmp);
  } catch (const std::bad_alloc&) {
    thrown = true;
  } catch (const XMP_Error&) {
    thrown = true;
  }
  const bool allPassed = allocationsToFailure > 0;
  allocationsToFailure = kNever;
  return allPassed && !thrown;
}

void expectToSurvive(const std::string& packet, const Operation& operation) {
  for (long failing = 0;; ++failing) {
    ASSERT_LT(failing, 100000);
    const std::size_t used = slotsInUse();
    XMPlib xmp;
    xmp.SetXML(packet);
    const bool completed = completes(failing, operation, xmp);
    XMPlib probe;  // hangs if the lock is held
    EXPECT_TRUE(probe.SetNrPages(1));
    if (!xmp.SetNrPages(1)) {
      EXPECT_EQ(xmp.ErrStr(), "Illegal XAP");  // a CreateXAP that failed
      xmp.CreateXAP();
      EXPECT_TRUE(xmp.SetNrPages(1));
    }
    EXPECT_FALSE(xmp.GetXML().empty());
    EXPECT_EQ(slotsInUse(), used + 2);
    if (completed) return;
  }
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
  const std::size_t before = mallinfo2().uordblks;  // 0 under sanitizers
  const std::string filled = filledPacket();
  expectToSurvive(filled, [](XMPlib& xmp) { XMPlib another, copy(xmp); });
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
  EXPECT_LT(mallinfo2().uordblks - before, 4U << 20);  // of some 5,000 parses, no parser is lost
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
