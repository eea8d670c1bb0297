// SPDX-License-Identifier: Apache-2.0
// Document scalars: single values, each one simple property.
#include "core/call_guard.h"
#include "core/properties.h"

using xmpl::Metadata;
using xmpl::PropertyName;
using xmpl::PropertyReader;
using xmpl::PropertyWriter;

namespace {

bool read(const Metadata& metadata, PropertyName name, int& value) {
  return PropertyReader(metadata).integer(name, value);
}
bool read(const Metadata& metadata, PropertyName name, bool& value) {
  return PropertyReader(metadata).boolean(name, value);
}
bool read(const Metadata& metadata, PropertyName name, std::string& value) {
  return PropertyReader(metadata).text(name, value);
}

void write(Metadata& metadata, PropertyName name, int value) {
  PropertyWriter(metadata).integer(name, value);
}
void write(Metadata& metadata, PropertyName name, bool value) {
  PropertyWriter(metadata).boolean(name, value);
}
void write(Metadata& metadata, PropertyName name, const std::string& value) {
  PropertyWriter(metadata).text(name, value);
}

// The bodies of the operations below. The default is set at once, before the handle is looked at.
template <class Value>
auto reading(PropertyName name, Value& value) {
  return [name, &value](const Metadata& metadata) { return read(metadata, name, value); };
}
template <class Value, class Default>
auto reading(PropertyName name, Value& value, const Default& absent) {
  value = absent;
  return reading(name, value);
}

template <class Value>
auto writing(PropertyName name, const Value& value) {
  return [name, &value](Metadata& metadata) {
    write(metadata, name, value);
    return true;
  };
}
auto writingUnlessZero(PropertyName name, const int& value) {
  return [name, &value](Metadata& metadata) {
    if (value == 0) {
      PropertyWriter(metadata).remove(name);
    } else {
      write(metadata, name, value);
    }
    return true;
  };
}

}  // namespace

bool XMPlib::GetNrPages(int& pages) const { return guarded(reading("vxGr:nrpages", pages, 0)); }
bool XMPlib::SetNrPages(int pages) { return guarded(writing("vxGr:nrpages", pages)); }

bool XMPlib::GetScreenReg(bool& registration) const {
  return guarded(reading("vxGr:screenreg", registration, false));
}
bool XMPlib::SetScreenReg(bool registration) {
  return guarded(writing("vxGr:screenreg", registration));
}

bool XMPlib::GetIsTrapped(bool& trapped) const {
  return guarded(reading("vxGr:trapped", trapped, false));
}
bool XMPlib::SetIsTrapped(bool trapped) { return guarded(writing("vxGr:trapped", trapped)); }

bool XMPlib::GetStartLogPage(int& page) const {
  return guarded(reading("vxGr:startlogpage", page, 0));
}
bool XMPlib::SetStartLogPage(int page) { return guarded(writing("vxGr:startlogpage", page)); }

bool XMPlib::GetSmartID(std::string& id) const { return guarded(reading("vxSmartID:id", id)); }
bool XMPlib::SetSmartID(const std::string& id) { return guarded(writing("vxSmartID:id", id)); }

bool XMPlib::GetRectoVerso(std::string& sides) const {
  return guarded(reading("vxGr:sides", sides));
}
bool XMPlib::SetRectoVerso(const std::string& sides) {
  return guarded(writing("vxGr:sides", sides));
}

bool XMPlib::GetPDFNativeVersion(int& version) const {
  return guarded(reading("vxPDFNat:version", version, 0));
}
bool XMPlib::SetPDFNativeVersion(int version) {
  return guarded(writingUnlessZero("vxPDFNat:version", version));
}

bool XMPlib::GetPDFNativeType(std::string& type) const {
  return guarded(reading("vxPDFNat:type", type, ""));
}
bool XMPlib::SetPDFNativeType(const std::string& type) {
  return guarded(writing("vxPDFNat:type", type));
}

bool XMPlib::GetPDFNativeVindrelVersion(std::string& version) const {
  return guarded(reading("vxPDFNat:vindrelversion", version, "undetermined"));
}
bool XMPlib::SetPDFNativeVindrelVersion(const std::string& version) {
  return guarded(writing("vxPDFNat:vindrelversion", version));
}

bool XMPlib::GetDigitalFilmVersion(int& version) const {
  return guarded(reading("vxDigFilm:version", version, 0));
}
bool XMPlib::SetDigitalFilmVersion(int version) {
  return guarded(writing("vxDigFilm:version", version));
}

bool XMPlib::GetNrInksOriginalDocument(int& inks) const {
  return guarded(reading("vxGr:nrinksoriginal", inks, 0));
}
bool XMPlib::SetNrInksOriginalDocument(int inks) {
  return guarded(writing("vxGr:nrinksoriginal", inks));
}

bool XMPlib::GetDigitalJobVersion(int& version) const {
  return guarded(reading("vxDigJob:version", version, 0));
}
bool XMPlib::SetDigitalJobVersion(int version) {
  return guarded(writing("vxDigJob:version", version));
}

bool XMPlib::GetVDPVersion(int& version) const {
  return guarded(reading("orvoVDP:version", version, 0));
}
bool XMPlib::SetVDPVersion(int version) {
  return guarded(writingUnlessZero("orvoVDP:version", version));
}
