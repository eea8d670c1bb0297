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
  explicit ReadCounts(const XMPlib& xmp, bool filmInks) : xmp_(xmp) {
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
    const std::size_t looked = counts_["vxScreenC:screenContainer"] + 1;
    for (std::size_t group = 1; group <= looked; ++group) {
      std::vector<XMPlScreen> screens;
      xmp_.GetScreens(screens, static_cast<int>(group));
      counts_["vxScreenC:screenContainer[" + std::to_string(group) + "]/vxScreenL:screens"] =
          screens.size();
    }
  }

  const XMPlib& xmp_;
  std::map<std::string, std::size_t> counts_;
};
