// Every allocation of an operation fails in turn, until the operation succeeds: nothing crashes,
// the lock is free, no slot of the registry is lost and the handle stays usable.
#include <gtest/gtest.h>

#include <cstdlib>
#include <functional>
#include <new>
#include <optional>

#include "core/registry.h"
#include "core/toolkit.h"
#include "support/packets.h"

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

// The toolkit loses a node whose parent cannot grow to hold it. None of this library's own
// allocations is among these.
extern "C" const char* __lsan_default_suppressions();  // NOLINT(bugprone-reserved-identifier)
extern "C" const char* __lsan_default_suppressions() {
  return "leak:FindChildNode\nleak:FindSchemaNode\nleak:FindIndexedItem\nleak:FindQualifierNode\n"
         "leak:RDF_Parser\nleak:StartElementHandler\nleak:CharacterDataHandler\n"
         "leak:ProcessingInstructionHandler\nleak:XMP_NewExpatAdapter\n";
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

// Whether the operation came to its end, with the allocation number `failing` failing on the way.
bool succeeds(long failing, const std::function<void(XMPlib&)>& operation, XMPlib& xmp) {
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

std::vector<XMPlExtRef> references() {
  std::vector<XMPlExtRef> refs(3);
  for (std::size_t i = 0; i < refs.size(); ++i) {
    refs[i].instanceID = "file:/a long enough name/page_00" + std::to_string(i) + ".tif";
    refs[i].type = "image";
    refs[i].pagenr = 0;
  }
  return refs;
}

std::string filledPacket() {
  XMPlib xmp;
  XMPlInk ink;
  ink.name = "an ink with a name beyond a small string";
  ink.coverageValid = true;
  xmp.SetInks({ink, ink}, true);
  xmp.SetExtRefs(references());
  XMPlFont font;
  font.fontfile = "somewhere;a font with a name beyond a small string";
  xmp.SetFonts({font});
  XMPlScreen screen;
  screen.hasScreening = true;
  xmp.SetScreenContainer({{screen}, {screen}});
  XMPlDgcc curve;
  curve.name = "a curve with a name beyond a small string";
  curve.values = {1, 2, 3};
  xmp.SetDgcs({curve});
  xmp.SetPagRanges({{1, 2, {1, 2, 3}}});
  xmp.SetUsedRefs({{"a used file with a name beyond a small string", "", 1}});
  xmp.SetDimDatDigFilm(XMPlDimDatDigFilm());
  xmp.SetColorSpace(XMPlColorSpace());
  XMPlInkDigFilm filmInk;
  xmp.SetInksDigFilm({filmInk}, true);
  return xmp.GetXMLPacket(false, 0);
}

void expectToSurvive(const std::function<void(XMPlib&)>& operation) {
  static const std::string filled = filledPacket();
  for (long failing = 0;; ++failing) {
    ASSERT_LT(failing, 100000);
    const std::size_t used = slotsInUse();
    XMPlib xmp;
    xmp.SetXML(filled);
    const bool succeeded = succeeds(failing, operation, xmp);
    XMPlib probe;  // hangs if the lock is held
    EXPECT_TRUE(probe.SetNrPages(1));
    if (!xmp.SetNrPages(1)) {
      EXPECT_EQ(xmp.ErrStr(), "Illegal XAP");  // a CreateXAP that failed
      xmp.CreateXAP();
      EXPECT_TRUE(xmp.SetNrPages(1));
    }
    EXPECT_EQ(slotsInUse(), used + 2);
    if (succeeded) return;
  }
}

}  // namespace

TEST(Allocation, FailsWithoutHarmInHandlesAndPackets) {
  const std::string filled = filledPacket();
  expectToSurvive([](XMPlib& xmp) { XMPlib another, copy(xmp); });
  expectToSurvive([&](XMPlib& xmp) { xmp.SetXML(filled); });
  expectToSurvive([](XMPlib& xmp) { xmp.SetXML("<a"); });
  expectToSurvive([](XMPlib& xmp) { xmp.GetXMLPacket(false, 0); });
  expectToSurvive([&](XMPlib& xmp) { xmp.MergeXML(filled, true); });
  expectToSurvive([&](XMPlib& xmp) { xmp.MergeXML({filled, filled}, 0, true); });
  expectToSurvive([&](XMPlib& xmp) {
    XMPlib other;
    other.SetXML(
        "<rdf:RDF xmlns:rdf='http://www.w3.org/1999/02/22-rdf-syntax-ns#'>"
        "<rdf:Description rdf:about='' xmlns:o='http://allocation.example/'>"
        "<o:a><rdf:Bag><rdf:li>1</rdf:li></rdf:Bag></o:a></rdf:Description></rdf:RDF>");
    xmp.MergeNonOrvo(&other);
  });
}

TEST(Allocation, FailsWithoutHarmInRecords) {
  expectToSurvive([](XMPlib& xmp) {
    XMPlJobData job;
    job.name = job.description = "a text beyond a small string, really";
    xmp.SetJobData(job);
    xmp.GetJobData(job);
  });
  expectToSurvive([](XMPlib& xmp) {
    XMPlDocData data;
    data.createDate = "now";
    data.description = "a text beyond a small string, really";
    xmp.SetDocumentData(data);
    xmp.GetDocumentData(data);
  });
  expectToSurvive([](XMPlib& xmp) {
    std::vector<XMPlInk> inks;
    xmp.GetInks(inks);
    xmp.SetInks(inks, true);
    inks.emplace_back().angle = 7;
    xmp.MergeInks(inks, true);
  });
  expectToSurvive([](XMPlib& xmp) {
    std::vector<XMPlExtRef> refs;
    xmp.GetExtRefs(refs);
    xmp.SetExtRefs(refs);
    xmp.MergeExtRefs(references());
  });
  expectToSurvive([](XMPlib& xmp) {
    std::vector<XMPlFont> fonts;
    xmp.GetFonts(fonts, false);
    xmp.SetFonts(fonts);
    fonts.emplace_back();
    xmp.MergeFonts(fonts);
  });
  expectToSurvive([](XMPlib& xmp) {
    std::vector<std::vector<XMPlScreen>> groups;
    xmp.GetScreenContainer(groups);
    xmp.SetScreenContainer(groups);
    std::vector<XMPlDgcc> curves;
    xmp.GetDgcs(curves);
    xmp.SetDgcs(curves);
    std::vector<XMPlPagRange> ranges;
    xmp.GetPagRanges(ranges);
    xmp.SetPagRanges(ranges);
    xmp.SetMetaDataDigFilms(std::vector<XMPlMetaDataDigFilm>(1));
  });
}
