// SPDX-License-Identifier: Apache-2.0
// Work that must grow in step with the records.
#include <memory>

#include "cases.h"
#include "records.h"

namespace bench {
namespace {

constexpr std::size_t kSizes[] = {1000, 10000};

template <class Prepare>
void addGrowing(std::vector<Case>& cases, const char* group, const Prepare& prepare) {
  for (const std::size_t size : kSizes) {
    cases.push_back({group, "ours", size, [=] { return prepare(size); }});
  }
}

// As many new records as there are stored ones; flags are set.
template <class Record, class... Flag>
void addMerging(std::vector<Case>& cases, const char* group,
                std::vector<Record> (*make)(std::size_t count, std::size_t first),
                bool (XMPlib::*set)(const std::vector<Record>&, Flag...),
                bool (XMPlib::*merge)(const std::vector<Record>&, Flag...)) {
  addGrowing(cases, group, [=](std::size_t size) -> Work {
    const auto xmp = std::make_shared<XMPlib>();
    return {[=, stored = make(size, 0)] {
              xmp->CreateXAP();
              ((*xmp).*set)(stored, Flag(true)...);
            },
            [=, added = make(size, size)] { ((*xmp).*merge)(added, Flag(true)...); },
            [=] { return digest(xmp->GetXML()); }};
  });
}

void addMerges(std::vector<Case>& cases) {
  using X = XMPlib;
  addMerging<XMPlFont>(cases, "MergeFonts", fonts, &X::SetFonts, &X::MergeFonts);
  addMerging<XMPlInk, bool>(cases, "MergeInks", inks, &X::SetInks, &X::MergeInks);
  addMerging<XMPlBarcode>(cases, "MergeBarcodes", barcodes, &X::SetBarcodes, &X::MergeBarcodes);
  addMerging<XMPlExtRef>(cases, "MergeExtRefs", refs, &X::SetExtRefs, &X::MergeExtRefs);
  addMerging<XMPlExtRef>(cases, "MergeCadFiles", cadFiles, &X::SetCadFiles, &X::MergeCadFiles);
  addMerging<XMPlLay>(cases, "MergeLayers", layers, &X::SetLayers, &X::MergeLayers);
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
