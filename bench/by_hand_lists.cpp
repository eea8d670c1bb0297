// SPDX-License-Identifier: Apache-2.0
// All lists that a document may have, with plain calls of the toolkit.
#include "by_hand_read.h"
#include "paths.h"

namespace bench::by_hand {
namespace {

// A list by its fields, read into whatever an application keeps them in.
struct ListFields {
  const char* schema;
  const char* array;
  std::vector<const char*> texts;
  std::vector<const char*> reals;
  std::vector<const char*> integers;
  std::vector<const char*> booleans;
};

template <class Value>
void readFields(const Meta& meta, const char* schema, const std::vector<const char*>& fields,
                FieldPath& path, std::vector<Value>& values) {
  for (const char* field : fields) {
    Value value{};
    read(meta, schema, path.field(field), value);
    values.push_back(std::move(value));
  }
}

std::size_t readItems(const Meta& meta, const ListFields& list, const char* array) {
  const XMP_Index count = meta.CountArrayItems(list.schema, array);
  std::vector<std::string> texts;
  std::vector<double> reals;
  std::vector<XMP_Int32> integers;
  FieldPath path(array);
  for (XMP_Index i = 1; i <= count; ++i) {
    path.toItem(i);
    readFields(meta, list.schema, list.texts, path, texts);
    readFields(meta, list.schema, list.reals, path, reals);
    readFields(meta, list.schema, list.integers, path, integers);
    for (const char* field : list.booleans) {
      bool value = false;
      read(meta, list.schema, path.field(field), value);
      integers.push_back(value);
    }
  }
  return static_cast<std::size_t>(count);
}

const std::vector<ListFields>& otherLists() {
  static const std::vector<ListFields> lists = {
      {kDocument,
       "vxGr:inkproperties",
       {"vxInk:name", "vxInk:book", "vxInk:type", "vxInk:printingmethod"},
       {},
       {},
       {}},
      {XMPLIB_BENCH_PRIVATE("dgclist/1.0/"),
       "vxDGCL:dgcs",
       {"vxDGC:name", "vxDGC:values"},
       {},
       {},
       {}},
      {XMPLIB_BENCH_PRIVATE("usedfileslist/1.0/"),
       "vxUsedFL:files",
       {"vxUsedF:instanceID", "vxUsedF:renditionClass"},
       {},
       {"vxUsedF:pagenr"},
       {}},
      {XMPLIB_BENCH_PRIVATE("cadlist/1.0/"),
       "vxCadL:files",
       {"stRef:instanceID", "stRef:renditionClass"},
       {},
       {},
       {}},
      {XMPLIB_BENCH_PRIVATE("barcodelist/1.0/"),
       "vxBarcL:barcodes",
       {"vxBarc:Type", "vxBarc:SymbolType", "vxBarc:Code", "vxBarc:Code2"},
       {"vxBarc:Resolution", "vxBarc:BarWidthReduction", "vxBarc:DeviceCompensation",
        "vxBarc:Magnification"},
       {},
       {}},
      {XMPLIB_BENCH_PRIVATE("laylist/1.0/"),
       "vxLayL:layers",
       {"vxLay:name"},
       {},
       {},
       {"vxLay:printable", "vxLay:locked"}},
      {XMPLIB_BENCH_PRIVATE("smnamelist/1.0/"),
       "vxSmNameL:smartnames",
       {"vxSmName:name", "vxSmName:value"},
       {},
       {},
       {}},
      {XMPLIB_BENCH_PRIVATE("srlayout/1.0/"),
       "vxSrLayout:repeats",
       {"vxSRRep:type", "vxSRRep:name", "vxSRRep:stationname", "vxSRRep:front", "vxSRRep:back"},
       {},
       {"vxSRRep:vnr", "vxSRRep:hnr", "vxSRRep:frontpage", "vxSRRep:backpage", "vxSRRep:count"},
       {}},
  };
  return lists;
}

std::size_t readScreens(const Meta& meta) {
  static const ListFields kScreens{
      XMPLIB_BENCH_PRIVATE("screencontainer/1.0/"),
      "vxScreenC:screenContainer",
      {"vxScreen:singlepressDGC", "vxScreen:autoplateDGCreq", "vxScreen:autoplateDGCLW",
       "vxScreen:autoplateDGCCT", "vxScreen:autopressDGCreq", "vxScreen:autopressDGCLW",
       "vxScreen:autopressDGCCT", "vxScreen:totalDGCLW", "vxScreen:totalDGCCT", "vxScreen:gamma",
       "vxScreen:usedrefs", "vxScreen:dotshapereq", "vxScreen:dotshape", "vxScreen:dotname"},
      {"vxScreen:frequencyreq", "vxScreen:frequency", "vxScreen:anglereq", "vxScreen:angle"},
      {},
      {}};
  std::size_t total = 0;
  FieldPath groups(kScreens.array);
  const XMP_Index count = meta.CountArrayItems(kScreens.schema, kScreens.array);
  for (XMP_Index i = 1; i <= count; ++i) {
    groups.toItem(i);
    total += readItems(meta, kScreens, groups.field("vxScreenL:screens"));
  }
  return total;
}

std::size_t readPages(const Meta& meta) {
  static const ListFields kPages{XMPLIB_BENCH_PRIVATE("pagerangelist/1.0/"),
                                 "vxPagL:pagelist",
                                 {},
                                 {},
                                 {"vxPag:start", "vxPag:end"},
                                 {}};
  const std::size_t total = readItems(meta, kPages, kPages.array);
  std::vector<XMP_Int32> inks;
  FieldPath pages(kPages.array);
  for (std::size_t i = 1; i <= total; ++i) {
    pages.toItem(static_cast<XMP_Index>(i));
    const std::string array = pages.field("vxPag:inks");
    const XMP_Index count = meta.CountArrayItems(kPages.schema, array.c_str());
    for (XMP_Index ink = 1; ink <= count; ++ink) {
      read(meta, kPages.schema, (array + '[' + std::to_string(ink) + ']').c_str(),
           inks.emplace_back());
    }
  }
  return total;
}

}  // namespace

std::size_t readLists(const Meta& meta) {
  std::size_t total = readInks(meta).size() + readFonts(meta).size() + readRefs(meta).size();
  for (const ListFields& list : otherLists()) total += readItems(meta, list, list.array);
  return total + readScreens(meta) + readPages(meta);
}

}  // namespace bench::by_hand
