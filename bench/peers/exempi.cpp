// SPDX-License-Identifier: Apache-2.0
#include <exempi/xmp.h>

#include <stdexcept>

#include "paths.h"
#include "peers.h"

namespace bench {
namespace {

// The fields of one item after the other, through one string of the library.
class Items {
 public:
  Items(void* xmp, const char* schema, const char* array)
      : xmp_(static_cast<XmpPtr>(xmp)),
        schema_(schema),
        path_(array),
        text_(xmp_string_new(), xmp_string_free) {}

  void toItem(std::size_t index) { path_.toItem(static_cast<std::int32_t>(index)); }

  bool text(const char* field, std::string& value) {
    if (!xmp_get_property(xmp_, schema_, path_.field(field), text_.get(), nullptr)) return false;
    value = xmp_string_cstr(text_.get());
    return true;
  }
  bool real(const char* field, double& value) {
    return xmp_get_property_float(xmp_, schema_, path_.field(field), &value, nullptr);
  }
  bool boolean(const char* field, bool& value) {
    return xmp_get_property_bool(xmp_, schema_, path_.field(field), &value, nullptr);
  }
  bool integer(const char* field, std::int32_t& value) {
    return xmp_get_property_int32(xmp_, schema_, path_.field(field), &value, nullptr);
  }

 private:
  XmpPtr xmp_;
  const char* schema_;
  FieldPath path_;
  std::unique_ptr<_XmpString, void (*)(XmpStringPtr)> text_;
};

bool readInk(Items& items, XMPlInk& ink) {
  if (!items.text("vxInk:name", ink.name) || !items.text("vxInk:type", ink.type)) return false;
  items.text("vxInk:book", ink.book);
  items.text("vxInk:vxname", ink.vxname);
  if (!items.real("vxInk:frequency", ink.frequency) || !items.real("vxInk:angle", ink.angle)) {
    return false;
  }
  items.text("vxInk:dotshape", ink.dotshape);
  if (!items.real("vxInk:r", ink.r) || !items.real("vxInk:g", ink.g) ||
      !items.real("vxInk:b", ink.b) || !items.text("vxInk:attribute", ink.attribute)) {
    return false;
  }
  items.text("vxInk:printingmethod", ink.printingmethod);
  bool omask = false;
  items.boolean("vxInk:omask", omask);
  if (omask) ink.attribute = "omask";
  return true;
}

bool readFont(Items& items, XMPlFont& font) {
  return items.text("vxFont:name", font.name) && items.text("vxFont:type", font.type) &&
         items.text("vxFont:location", font.location) &&
         items.text("vxFont:fontfile", font.fontfile) &&
         items.boolean("vxFont:protection", font.protection);
}

bool readRef(Items& items, XMPlExtRef& ref) {
  if (!items.text("vxExtF:instanceID", ref.instanceID) ||
      !items.text("vxExtF:renditionClass", ref.renditionClass) ||
      !items.integer("vxExtF:pagenr", ref.pagenr)) {
    return false;
  }
  items.text("vxExtF:type", ref.type);
  return items.integer("vxExtF:count", ref.count);
}

template <class Record>
std::vector<Record> readList(Items items, bool (*readItem)(Items&, Record&)) {
  std::vector<Record> records;
  for (std::size_t i = 1;; ++i) {
    Record record;
    items.toItem(i);
    if (!readItem(items, record)) return records;
    records.push_back(std::move(record));
  }
}

}  // namespace

ExempiPacket::ExempiPacket(const std::string& packet) {
  static const bool started = xmp_init();
  if (!started) throw std::runtime_error("exempi did not start");
  xmp_.reset(xmp_new(packet.data(), packet.size()),
             [](void* xmp) { xmp_free(static_cast<XmpPtr>(xmp)); });
}

Inks ExempiPacket::readInks() const {
  Inks inks = readList({xmp_.get(), kDocument, "vxGr:inks"}, readInk);
  Items coverage(xmp_.get(), kCoverageList, "vxInkCovL:coverage");
  for (std::size_t i = 0; i < inks.size(); ++i) {
    coverage.toItem(i + 1);
    inks[i].coverageValid =
        coverage.real("vxInkCov:pct", inks[i].pct) && coverage.real("vxInkCov:mm2", inks[i].mm2);
  }
  return inks;
}

Fonts ExempiPacket::readFonts() const {
  return readList({xmp_.get(), kFontList, "vxFontL:fonts"}, readFont);
}

Refs ExempiPacket::readRefs() const {
  return readList({xmp_.get(), kFileList, "vxExtFL2:files"}, readRef);
}

}  // namespace bench
