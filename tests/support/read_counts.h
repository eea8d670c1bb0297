// SPDX-License-Identifier: Apache-2.0
// How many items each list's Get reads, by the list's path.
#pragma once

#include <map>
#include <stdexcept>
#include <string>
#include <vector>

#include "XMPlib.h"
#include "core/toolkit/client.h"

class ReadCounts {
 public:
  ReadCounts(const XMPlib& xmp, bool filmInks) : xmp_(xmp), filmInks_(filmInks) {
    if (filmInks) {
      count<XMPlInkDigFilm>("vxGr:inks", &XMPlib::GetInksDigFilm);
    } else {
      count<XMPlInk>("vxGr:inks", &XMPlib::GetInks);
    }
    count<XMPlInkProperty>("vxGr:inkproperties", &XMPlib::GetInkProperties);
    count<XMPlUsedDigFilmRef>("vxDigFilmRefs:files", &XMPlib::GetUsedDigitalJobRefs);
    count<XMPlDgcc>("vxDGCL:dgcs", &XMPlib::GetDgcs);
    count<XMPlUsedRef>("vxUsedFL:files", &XMPlib::GetUsedRefs);
    count<XMPlExtRef>("vxExtFL:files", &XMPlib::GetOldExtRefs);
    count<XMPlExtRef>("vxCadL:files", &XMPlib::GetCadFiles);
    count<XMPlFont>("vxFontL:fonts", &XMPlib::GetFonts);
    count<XMPlBarcode>("vxBarcL:barcodes", &XMPlib::GetBarcodes);
    count<XMPlLay>("vxLayL:layers", &XMPlib::GetLayers);
    count<XMPlPagRange>("vxPagL:pagelist", &XMPlib::GetPagRanges);
    count<XMPlSmartName>("vxSmNameL:smartnames", &XMPlib::GetSmartNames);
    count<XMPlRepeat>("vxSrLayout:repeats", &XMPlib::GetRepeats);
    count<std::vector<XMPlScreen>>("vxScreenC:screenContainer", &XMPlib::GetScreenContainer);
    countGroups();
  }

  const std::map<std::string, std::size_t>& all() const { return counts_; }

  // What cannot be: a list of which a Get reads another number than is told, or without a reason.
  std::string disagreement() const {
    std::vector<XMPlUnreadItems> lists;
    const bool found = xmp_.GetUnreadItems(lists, filmInks_);
    if (found == lists.empty()) return "what is found is not told";
    for (const XMPlUnreadItems& list : lists) {
      const auto read = counts_.find(list.list);
      const bool isRead = read == counts_.end() || read->second == std::size_t(list.read);
      if (!isRead || list.reason.empty()) return list.list + ": " + list.reason;
    }
    return "";
  }

 private:
  template <class Record>
  void count(const char* list, bool (XMPlib::*get)(std::vector<Record>&) const) {
    std::vector<Record> records;
    try {
      (xmp_.*get)(records);
    } catch (const XMP_Error&) {
    } catch (const std::length_error&) {
    }
    counts_[list] = records.size();
  }

  void countGroups() {
    const std::string container = "vxScreenC:screenContainer";
    for (std::size_t group = 1; group <= counts_[container] + 1; ++group) {
      std::vector<XMPlScreen> screens;
      xmp_.GetScreens(screens, static_cast<int>(group));
      counts_[container + "[" + std::to_string(group) + "]/vxScreenL:screens"] = screens.size();
    }
  }

  const XMPlib& xmp_;
  const bool filmInks_;
  std::map<std::string, std::size_t> counts_;
};
