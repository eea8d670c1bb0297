// SPDX-License-Identifier: Apache-2.0
#include "support/packet_parts.h"

#include <algorithm>

#include "support/packets.h"

namespace parts {

std::string wrapped(const std::string& properties, std::size_t padding, const std::string& end) {
  return R"(<?xpacket begin="" id="W5M0MpCehiHzreSzNTczkc9d"?>)" + packet(properties) +
         std::string(padding, ' ') + "<?xpacket end=\"" + end + "\"?>";
}

std::string element(const std::string& name, const std::string& content,
                    const std::string& attributes) {
  return '<' + name + attributes + '>' + content + "</" + name + '>';
}

std::string list(const std::string& name, const std::vector<std::string>& items) {
  std::string all;
  for (const std::string& item : items) {
    const bool isElements = !item.empty() && item[0] == '<';
    all += isElements ? "<rdf:li rdf:parseType=\"Resource\">" + item + "</rdf:li>"
                      : "<rdf:li " + item + "/>";
  }
  return element(name, element("rdf:Seq", all));
}

std::string fields(const std::string& prefix, const Fields& all) {
  std::string text;
  for (const auto& [name, value] : all) text += prefix + ':' + name + "=\"" + value + "\" ";
  return text;
}

std::string anyInk(const std::string& name, const Fields& more) {
  return fields("vxInk", {{"name", name},
                          {"type", "spot"},
                          {"r", "0"},
                          {"g", "0"},
                          {"b", "0"},
                          {"attribute", "normal"}}) +
         fields("vxInk", more);
}
std::string ink(const std::string& name, const std::string& angle) {
  return anyInk(name, {{"frequency", "150"}, {"angle", angle}});
}
std::string filmInk(const std::string& name) { return anyInk(name, {{"opacity", "1"}}); }

std::string coverage(const std::string& pct) {
  return fields("vxInkCov", {{"pct", pct}, {"mm2", "20"}});
}

std::string covered(const std::vector<std::string>& percents) {
  std::vector<std::string> items(percents.size());
  std::transform(percents.begin(), percents.end(), items.begin(), coverage);
  return list("vxGr:inks", {ink("A"), ink("B")}) + list("vxInkCovL:coverage", items);
}

std::string font(const std::string& name, const std::string& location) {
  return fields("vxFont", {{"name", name},
                           {"type", "OpenType"},
                           {"location", location},
                           {"fontfile", name},
                           {"protection", "False"}});
}

std::string ref(const std::string& file, const std::string& page) {
  return fields("vxExtF",
                {{"instanceID", file}, {"renditionClass", "r"}, {"pagenr", page}, {"count", "1"}});
}
std::string oldRef(const std::string& file) {
  return fields("stRef", {{"instanceID", file}, {"renditionClass", "r"}});
}
std::string usedRef(const std::string& page) {
  return fields("vxUsedF", {{"instanceID", "a"}, {"renditionClass", "r"}, {"pagenr", page}});
}

std::string barcode(const std::string& symbology, const std::string& code) {
  return list("vxBarcL:barcodes",
              {fields("vxBarc", {{"Type", "x"}, {"SymbolType", symbology}, {"Code", code}})});
}

std::string grid(const std::string& rows, const std::string& type) {
  return list("vxSrLayout:repeats", {fields("vxSRRep", {{"type", type},
                                                        {"name", "n"},
                                                        {"stationname", "s"},
                                                        {"vnr", rows},
                                                        {"hnr", "2"},
                                                        {"front", "f"},
                                                        {"frontpage", "1"},
                                                        {"back", ""},
                                                        {"backpage", "0"},
                                                        {"count", "1"}})});
}

std::string range(const std::string& start, const std::string& end,
                  const std::vector<std::string>& inks) {
  std::string numbers;
  for (const std::string& number : inks) numbers += element("rdf:li", number);
  return element("vxPag:start", start) + element("vxPag:end", end) +
         element("vxPag:inks", element("rdf:Seq", numbers));
}
std::string ranges(const std::vector<std::string>& all) { return list("vxPagL:pagelist", all); }
std::string pages(const std::string& count) { return element("vxGr:nrpages", count); }
std::string pageSize(const std::string& units) {
  std::string text = element("vxGr:units", units) + element("vxGr:readerspread", "False");
  for (const char* name :
       {"vsize", "hsize", "vshrink", "hshrink", "margtop", "margbot", "margleft", "margright"}) {
    text += element(std::string("vxGr:") + name, "1");
  }
  return text;
}
std::string filmSize(const std::string& units) {
  std::string text = element("vxGr:units", units);
  for (const char* name : {"vsize", "hsize", "vresolution", "hresolution"}) {
    text += element(std::string("vxGr:") + name, "1");
  }
  return text;
}
std::string twoInks() { return list("vxGr:inks", {ink("A"), ink("B")}); }

std::string screen(const std::string& curve) {
  return fields("vxScreen", {{"singlepressDGC", ""},
                             {"autoplateDGCreq", curve},
                             {"autoplateDGCLW", curve},
                             {"autoplateDGCCT", ""},
                             {"autopressDGCreq", ""},
                             {"autopressDGCLW", ""},
                             {"autopressDGCCT", ""},
                             {"gamma", ""},
                             {"usedrefs", ""}});
}
std::string group(const std::vector<std::string>& screens) {
  return list("vxScreenL:screens", screens);
}
std::string groups(const std::vector<std::string>& all) {
  return list("vxScreenC:screenContainer", all);
}
std::string curve(const std::string& values) {
  return list("vxDGCL:dgcs", {fields("vxDGC", {{"name", "Plate"}, {"values", values}})});
}

std::string described(const std::string& language) {
  return element("dc:description",
                 "<rdf:Alt><rdf:li xml:lang=\"" + language + "\">a</rdf:li></rdf:Alt>");
}

std::string nested(int levels) {
  std::string text;
  for (int i = 0; i < levels; ++i) {
    text = R"(<x-a:a xmlns:x-a="x:a" rdf:parseType="Resource">)" + text + "</x-a:a>";
  }
  return text;
}

}  // namespace parts
