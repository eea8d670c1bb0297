// SPDX-License-Identifier: Apache-2.0
// Lists of references, fonts and repeats.
#include <fmt/format.h>
#include <algorithm>
#include <tuple>

#include "checks/packet_checks.h"
#include "checks/packet_reading.h"

namespace vxmeta {
namespace {

// --- Both layouts of references -----------------------------------------------------------------

using FileNames = std::vector<std::pair<std::string, std::string>>;

std::string textOf(const StoredNode& item, const std::string& field) {
  const StoredNode* node = item.field(field);
  return node == nullptr ? "" : node->text;
}

// Names and rendition classes, sorted: the lists have no order.
FileNames filesIn(const StoredNode& list, const std::string& prefix) {
  FileNames files;
  for (const StoredNode& item : itemsOf(&list)) {
    files.emplace_back(textOf(item, prefix + ":instanceID"),
                       textOf(item, prefix + ":renditionClass"));
  }
  std::sort(files.begin(), files.end());
  return files;
}

void checkLayouts(const Subject& subject, Findings& found) {
  const StoredNode* current = subject.stored().property("vxExtFL2:files");
  const StoredNode* old = subject.stored().property("vxExtFL:files");
  if (current == nullptr || old == nullptr) return;
  const FileNames currents = filesIn(*current, "vxExtF");
  const FileNames olds = filesIn(*old, "stRef");
  if (currents == olds) return;
  found.add("extRefs",
            fmt::format("{} in the current layout and {} in the old one are not the same: older "
                        "programs look for other files",
                        counted(currents.size(), "reference"), olds.size()),
            "write the references anew: that writes both");
}

// --- What is listed twice -----------------------------------------------------------------------

template <class Record, class Key>
void checkRepeated(const char* list, const std::vector<Record>& records, const Key& key,
                   const char* meaning, Findings& found) {
  forEachRepeated(records, key, [&](std::size_t first, std::size_t index) {
    found.add(
        indexed(list, index),
        fmt::format("{} is {} again: {}", indexed(list, index), indexed(list, first), meaning),
        "take one of them out");
  });
}

void checkFonts(const Subject& subject, Findings& found) {
  std::vector<XMPlFont> fonts;
  subject.packet.GetFonts(fonts);
  const auto key = [](const XMPlFont& font) {
    return std::tie(font.name, font.type, font.protection, font.location, font.fontfile);
  };
  checkRepeated("fonts", fonts, key, "the font is collected twice", found);
}

void checkFiles(const Subject& subject, Findings& found) {
  constexpr const char* kMeaning = "the file is collected twice";
  const auto key = [](const auto& file) {
    return std::tie(file.instanceID, file.renditionClass, file.pagenr);
  };
  std::vector<XMPlExtRef> files;
  subject.packet.GetExtRefs(files, true);
  checkRepeated("extRefs", files, key, kMeaning, found);
  subject.packet.GetCadFiles(files);
  checkRepeated("cadFiles", files, key, kMeaning, found);
  std::vector<XMPlUsedRef> used;
  subject.packet.GetUsedRefs(used);
  checkRepeated("usedRefs", used, key, kMeaning, found);
}

// --- Step and repeat ----------------------------------------------------------------------------

void checkGrids(const Subject& subject, Findings& found) {
  std::vector<XMPlRepeat> repeats;
  subject.packet.GetRepeats(repeats);
  for (std::size_t i = 0; i < repeats.size(); ++i) {
    const XMPlRepeat& grid = repeats[i];
    if (grid.type != "grid" || (grid.vnr >= 1 && grid.hnr >= 1)) continue;
    found.add(indexed("repeats", i) + (grid.vnr < 1 ? ".vnr" : ".hnr"),
              fmt::format("the grid {} has {} by {} places: nothing is repeated", quoted(grid.name),
                          grid.vnr, grid.hnr),
              "write how often it is repeated, at least once in each direction");
  }
}

}  // namespace

std::vector<Check> packetListChecks() {
  return {
      {"ref-layouts", Severity::warning, "the current and the old layout list different references",
       checkLayouts},
      {"font-repeated", Severity::warning, "a font is listed twice", checkFonts},
      {"file-repeated", Severity::warning, "a file is listed twice", checkFiles},
      {"repeat-grid", Severity::warning, "a grid has fewer than one row or column", checkGrids},
  };
}

}  // namespace vxmeta
