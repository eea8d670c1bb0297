// SPDX-License-Identifier: Apache-2.0
#include "by_hand.h"

#include <array>
#include <charconv>

#include "paths.h"

namespace bench::by_hand {
namespace {

// Ten significant digits, not printed in the process locale as the toolkit's own would be.
std::string realText(double value) {
  std::array<char, 32> text{};
  const auto end =
      std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::general, 10);
  return {text.data(), end.ptr};
}

bool readInk(const Meta& meta, FieldPath& path, XMPlInk& ink) {
  if (!meta.GetProperty(kDocument, path.field("vxInk:name"), &ink.name, nullptr) ||
      !meta.GetProperty(kDocument, path.field("vxInk:type"), &ink.type, nullptr)) {
    return false;
  }
  meta.GetProperty(kDocument, path.field("vxInk:book"), &ink.book, nullptr);
  meta.GetProperty(kDocument, path.field("vxInk:vxname"), &ink.vxname, nullptr);
  if (!meta.GetProperty_Float(kDocument, path.field("vxInk:frequency"), &ink.frequency, nullptr) ||
      !meta.GetProperty_Float(kDocument, path.field("vxInk:angle"), &ink.angle, nullptr)) {
    return false;
  }
  meta.GetProperty(kDocument, path.field("vxInk:dotshape"), &ink.dotshape, nullptr);
  if (!meta.GetProperty_Float(kDocument, path.field("vxInk:r"), &ink.r, nullptr) ||
      !meta.GetProperty_Float(kDocument, path.field("vxInk:g"), &ink.g, nullptr) ||
      !meta.GetProperty_Float(kDocument, path.field("vxInk:b"), &ink.b, nullptr) ||
      !meta.GetProperty(kDocument, path.field("vxInk:attribute"), &ink.attribute, nullptr)) {
    return false;
  }
  meta.GetProperty(kDocument, path.field("vxInk:printingmethod"), &ink.printingmethod, nullptr);
  bool omask = false;
  meta.GetProperty_Bool(kDocument, path.field("vxInk:omask"), &omask, nullptr);
  if (omask) ink.attribute = "omask";
  return true;
}

void readCoverage(const Meta& meta, FieldPath& path, XMPlInk& ink) {
  ink.coverageValid =
      meta.GetProperty_Float(kCoverageList, path.field("vxInkCov:pct"), &ink.pct, nullptr) &&
      meta.GetProperty_Float(kCoverageList, path.field("vxInkCov:mm2"), &ink.mm2, nullptr);
}

bool readFont(const Meta& meta, FieldPath& path, XMPlFont& font) {
  return meta.GetProperty(kFontList, path.field("vxFont:name"), &font.name, nullptr) &&
         meta.GetProperty(kFontList, path.field("vxFont:type"), &font.type, nullptr) &&
         meta.GetProperty(kFontList, path.field("vxFont:location"), &font.location, nullptr) &&
         meta.GetProperty(kFontList, path.field("vxFont:fontfile"), &font.fontfile, nullptr) &&
         meta.GetProperty_Bool(kFontList, path.field("vxFont:protection"), &font.protection,
                               nullptr);
}

bool readRef(const Meta& meta, FieldPath& path, XMPlExtRef& ref) {
  if (!meta.GetProperty(kFileList, path.field("vxExtF:instanceID"), &ref.instanceID, nullptr) ||
      !meta.GetProperty(kFileList, path.field("vxExtF:renditionClass"), &ref.renditionClass,
                        nullptr) ||
      !meta.GetProperty_Int(kFileList, path.field("vxExtF:pagenr"), &ref.pagenr, nullptr)) {
    return false;
  }
  meta.GetProperty(kFileList, path.field("vxExtF:type"), &ref.type, nullptr);
  return meta.GetProperty_Int(kFileList, path.field("vxExtF:count"), &ref.count, nullptr);
}

template <class Record>
using ReadItem = bool (*)(const Meta&, FieldPath&, Record&);

template <class Record>
std::vector<Record> readList(const Meta& meta, const char* schema, const char* array,
                             ReadItem<Record> readItem) {
  std::vector<Record> records;
  FieldPath path(array);
  const XMP_Index count = meta.CountArrayItems(schema, array);
  for (XMP_Index i = 1; i <= count; ++i) {
    Record record;
    path.toItem(i);
    if (!readItem(meta, path, record)) break;
    records.push_back(std::move(record));
  }
  return records;
}

void recreateArray(Meta& meta, const char* schema, const char* array, XMP_OptionBits form) {
  meta.DeleteProperty(schema, array);
  meta.SetProperty(schema, array, nullptr, form);
}

void writeAttribute(Meta& meta, FieldPath& path, const std::string& attribute) {
  if (attribute == "omask") {
    meta.SetProperty(kDocument, path.field("vxInk:attribute"), "normal");
    meta.SetProperty_Bool(kDocument, path.field("vxInk:omask"), true);
  } else {
    meta.SetProperty(kDocument, path.field("vxInk:attribute"), attribute);
  }
}

void writeInk(Meta& meta, FieldPath& path, const XMPlInk& ink) {
  meta.SetProperty(kDocument, path.field("vxInk:name"), ink.name);
  meta.SetProperty(kDocument, path.field("vxInk:type"), ink.type);
  meta.SetProperty(kDocument, path.field("vxInk:book"), ink.book);
  meta.SetProperty(kDocument, path.field("vxInk:vxname"), ink.vxname);
  meta.SetProperty(kDocument, path.field("vxInk:frequency"), realText(ink.frequency));
  meta.SetProperty(kDocument, path.field("vxInk:angle"), realText(ink.angle));
  meta.SetProperty(kDocument, path.field("vxInk:dotshape"), ink.dotshape);
  meta.SetProperty(kDocument, path.field("vxInk:r"), realText(ink.r));
  meta.SetProperty(kDocument, path.field("vxInk:g"), realText(ink.g));
  meta.SetProperty(kDocument, path.field("vxInk:b"), realText(ink.b));
  writeAttribute(meta, path, ink.attribute);
  meta.SetProperty(kDocument, path.field("vxInk:printingmethod"), ink.printingmethod);
}

void writeCoverage(Meta& meta, FieldPath& path, const XMPlInk& ink) {
  if (!ink.coverageValid) {
    meta.AppendArrayItem(kCoverageList, "vxInkCovL:coverage", 0, nullptr, kXMP_PropValueIsStruct);
    return;
  }
  meta.SetProperty(kCoverageList, path.field("vxInkCov:pct"), realText(ink.pct));
  meta.SetProperty(kCoverageList, path.field("vxInkCov:mm2"), realText(ink.mm2));
}

void writeFont(Meta& meta, FieldPath& path, const XMPlFont& font) {
  meta.SetProperty(kFontList, path.field("vxFont:name"), font.name);
  meta.SetProperty(kFontList, path.field("vxFont:type"), font.type);
  meta.SetProperty(kFontList, path.field("vxFont:location"), font.location);
  meta.SetProperty(kFontList, path.field("vxFont:fontfile"), font.fontfile);
  meta.SetProperty_Bool(kFontList, path.field("vxFont:protection"), font.protection);
}

void writeRef(Meta& meta, FieldPath& path, const XMPlExtRef& ref) {
  meta.SetProperty(kFileList, path.field("vxExtF:instanceID"), ref.instanceID);
  meta.SetProperty(kFileList, path.field("vxExtF:renditionClass"), ref.renditionClass);
  meta.SetProperty_Int(kFileList, path.field("vxExtF:pagenr"), ref.pagenr);
  meta.SetProperty(kFileList, path.field("vxExtF:type"), ref.type);
  meta.SetProperty_Int(kFileList, path.field("vxExtF:count"), ref.count);
}

void writeOldRef(Meta& meta, FieldPath& path, const XMPlExtRef& ref) {
  meta.SetProperty(kOldFileList, path.field("stRef:instanceID"), ref.instanceID);
  meta.SetProperty(kOldFileList, path.field("stRef:renditionClass"), ref.renditionClass);
}

}  // namespace

void parse(Meta& meta, const std::string& packet) {
  meta.ParseFromBuffer(packet.data(), static_cast<XMP_StringLen>(packet.size()));
}

void serialise(const Meta& meta, std::string& text) {
  meta.SerializeToBuffer(&text, kXMP_OmitPacketWrapper);
}

Inks readInks(const Meta& meta) {
  Inks inks = readList(meta, kDocument, "vxGr:inks", readInk);
  FieldPath path("vxInkCovL:coverage");
  for (std::size_t i = 0; i < inks.size(); ++i) {
    path.toItem(static_cast<XMP_Index>(i + 1));
    readCoverage(meta, path, inks[i]);
  }
  return inks;
}

Fonts readFonts(const Meta& meta) { return readList(meta, kFontList, "vxFontL:fonts", readFont); }

Refs readRefs(const Meta& meta) { return readList(meta, kFileList, "vxExtFL2:files", readRef); }

void writeInks(Meta& meta, const Inks& inks) {
  recreateArray(meta, kDocument, "vxGr:inks", kXMP_PropArrayIsOrdered);
  recreateArray(meta, kCoverageList, "vxInkCovL:coverage", kXMP_PropArrayIsOrdered);
  FieldPath path("vxGr:inks");
  FieldPath coveragePath("vxInkCovL:coverage");
  XMP_Index index = 0;
  for (const XMPlInk& ink : inks) {
    ++index;
    path.toItem(index);
    writeInk(meta, path, ink);
    coveragePath.toItem(index);
    writeCoverage(meta, coveragePath, ink);
  }
}

void writeFonts(Meta& meta, const Fonts& fonts) {
  recreateArray(meta, kFontList, "vxFontL:fonts", kXMP_PropValueIsArray);
  FieldPath path("vxFontL:fonts");
  XMP_Index index = 0;
  for (const XMPlFont& font : fonts) {
    path.toItem(++index);
    writeFont(meta, path, font);
  }
}

void writeRefs(Meta& meta, const Refs& refs) {
  recreateArray(meta, kFileList, "vxExtFL2:files", kXMP_PropValueIsArray);
  recreateArray(meta, kOldFileList, "vxExtFL:files", kXMP_PropValueIsArray);
  FieldPath path("vxExtFL2:files");
  FieldPath oldPath("vxExtFL:files");
  XMP_Index index = 0;
  for (const XMPlExtRef& ref : refs) {
    ++index;
    path.toItem(index);
    writeRef(meta, path, ref);
    oldPath.toItem(index);
    writeOldRef(meta, oldPath, ref);
  }
}

}  // namespace bench::by_hand
