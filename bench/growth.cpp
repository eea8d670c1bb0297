// Work that must grow in step with the records.
#include <memory>

#include "cases.h"
#include "records.h"

namespace bench {
namespace {

constexpr std::size_t kSizes[] = {1000, 10000};

void addGrowing(std::vector<Case>& cases, const char* group, Work (*prepare)(std::size_t size)) {
  for (const std::size_t size : kSizes) {
    cases.push_back({group, "ours", size, [=] { return prepare(size); }});
  }
}

// As many new records as there are stored ones.
template <class Records>
Work merging(std::size_t size, Records (*make)(std::size_t count, std::size_t first),
             void (*set)(XMPlib& xmp, const Records& records),
             void (*merge)(XMPlib& xmp, const Records& records)) {
  const auto xmp = std::make_shared<XMPlib>();
  return {[=, stored = make(size, 0)] {
            xmp->CreateXAP();
            set(*xmp, stored);
          },
          [=, added = make(size, size)] { merge(*xmp, added); },
          [=] { return digest(xmp->GetXML()); }};
}

void addMerges(std::vector<Case>& cases) {
  addGrowing(cases, "MergeFonts", [](std::size_t size) {
    return merging<Fonts>(
        size, fonts, [](XMPlib& xmp, const Fonts& list) { xmp.SetFonts(list); },
        [](XMPlib& xmp, const Fonts& list) { xmp.MergeFonts(list); });
  });
  addGrowing(cases, "MergeInks", [](std::size_t size) {
    return merging<Inks>(
        size, inks, [](XMPlib& xmp, const Inks& list) { xmp.SetInks(list, true); },
        [](XMPlib& xmp, const Inks& list) { xmp.MergeInks(list, true); });
  });
  addGrowing(cases, "MergeBarcodes", [](std::size_t size) {
    return merging<Barcodes>(
        size, barcodes, [](XMPlib& xmp, const Barcodes& list) { xmp.SetBarcodes(list); },
        [](XMPlib& xmp, const Barcodes& list) { xmp.MergeBarcodes(list); });
  });
  addGrowing(cases, "MergeExtRefs", [](std::size_t size) {
    return merging<Refs>(
        size, refs, [](XMPlib& xmp, const Refs& list) { xmp.SetExtRefs(list); },
        [](XMPlib& xmp, const Refs& list) { xmp.MergeExtRefs(list); });
  });
  addGrowing(cases, "MergeCadFiles", [](std::size_t size) {
    return merging<Refs>(
        size, cadFiles, [](XMPlib& xmp, const Refs& list) { xmp.SetCadFiles(list); },
        [](XMPlib& xmp, const Refs& list) { xmp.MergeCadFiles(list); });
  });
  addGrowing(cases, "MergeLayers", [](std::size_t size) {
    return merging<Layers>(
        size, layers, [](XMPlib& xmp, const Layers& list) { xmp.SetLayers(list); },
        [](XMPlib& xmp, const Layers& list) { xmp.MergeLayers(list); });
  });
}

Work converting(Refs refs, Refs (*convert)(const XMPlib& xmp, const Refs& refs)) {
  const auto xmp = std::make_shared<XMPlib>();
  const auto result = std::make_shared<Refs>();
  return {[=] { *result = {}; }, [=, refs = std::move(refs)] { *result = convert(*xmp, refs); },
          [=] { return digest(*result); }};
}

Refs compacted(const XMPlib& xmp, const Refs& refs) { return xmp.SimplifyExtRefs(refs); }
Refs expanded(const XMPlib& xmp, const Refs& refs) { return xmp.ExpandExtRefs(refs); }

Work readingWithoutDuplicates(std::size_t size) {
  const auto xmp = std::make_shared<XMPlib>();
  const auto list = std::make_shared<Fonts>();
  xmp->SetFonts(halfEmbeddedFonts(size));
  return {[=] { *list = {}; }, [=] { xmp->GetFonts(*list, false); }, [=] { return digest(*list); }};
}

Work readingCurve(std::size_t size) {
  const auto xmp = std::make_shared<XMPlib>();
  const auto curves = std::make_shared<std::vector<XMPlDgcc>>();
  xmp->SetDgcs({curve(size)});
  return {[=] { *curves = {}; }, [=] { xmp->GetDgcs(*curves); }};
}

Work mergingFilms(std::size_t size) {
  const auto xmp = std::make_shared<XMPlib>();
  return {[=] { xmp->CreateXAP(); },
          [=, packets = std::vector<std::string>{filmPacket(size, 0), filmPacket(size, size)}] {
            xmp->MergeXML(packets, 0, true);
          },
          [=] { return digest(xmp->GetXML()); }};
}

}  // namespace

void addGrowth(std::vector<Case>& cases) {
  addMerges(cases);
  addGrowing(cases, "SimplifyExtRefs",
             [](std::size_t size) { return converting(numberedImages(size), compacted); });
  addGrowing(cases, "ExpandExtRefs", [](std::size_t size) {
    return converting(XMPlib().SimplifyExtRefs(numberedImages(size)), expanded);
  });
  addGrowing(cases, "GetFonts_without_duplicates", readingWithoutDuplicates);
  addGrowing(cases, "GetDgcs", readingCurve);
  addGrowing(cases, "MergeXML_films", mergingFilms);
}

}  // namespace bench
