// SPDX-License-Identifier: Apache-2.0
// Screens and the DGC curves that they name.
#include <fmt/format.h>
#include <algorithm>
#include <optional>
#include <set>
#include <stdexcept>

#include "checks/packet_checks.h"
#include "checks/packet_reading.h"

namespace vxmeta {
namespace {

// --- Curves that are named ----------------------------------------------------------------------

struct CurveField {
  const char* name;
  std::string XMPlScreen::*text;
};

constexpr CurveField kCurveFields[] = {
    {"singlepressDGC", &XMPlScreen::singlepressDGC},
    {"autoplateDGCreq", &XMPlScreen::autoplateDGCreq},
    {"autoplateDGCLW", &XMPlScreen::autoplateDGCLW},
    {"autoplateDGCCT", &XMPlScreen::autoplateDGCCT},
    {"autopressDGCreq", &XMPlScreen::autopressDGCreq},
    {"autopressDGCLW", &XMPlScreen::autopressDGCLW},
    {"autopressDGCCT", &XMPlScreen::autopressDGCCT},
    {"totalDGCCT", &XMPlScreen::totalDGCCT},
    {"totalDGCLW", &XMPlScreen::totalDGCLW},
};

// The groups, or the older layout as one.
std::vector<std::vector<XMPlScreen>> screensOf(const XMPlib& packet) {
  std::vector<std::vector<XMPlScreen>> groups;
  packet.GetScreenContainer(groups);
  std::vector<XMPlScreen> older;
  if (groups.empty() && packet.GetScreens(older)) groups.push_back(std::move(older));
  return groups;
}

std::set<std::string> storedCurves(const StoredProperties& stored) {
  std::set<std::string> names;
  for (const StoredNode& curve : itemsOf(stored.property("vxDGCL:dgcs"))) {
    const StoredNode* name = curve.field("vxDGC:name");
    if (name != nullptr) names.insert(name->text);
  }
  return names;
}

// Adds what the screen names to `known`, so that each missing curve is told once.
void checkCurvesOf(const XMPlScreen& screen, const std::string& path, std::set<std::string>& known,
                   Findings& found) {
  for (const CurveField& field : kCurveFields) {
    const std::string& name = screen.*field.text;
    if (name.empty() || !known.insert(name).second) continue;
    found.add(path + '.' + field.name,
              fmt::format("{} names the curve {}, which is not stored, though others are: it is "
                          "made without it, or with another of that name",
                          path, quoted(name)),
              "store the curve, or correct its name");
  }
}

void checkCurveNames(const Subject& subject, Findings& found) {
  std::set<std::string> known = storedCurves(subject.stored());
  if (known.empty()) return;
  const std::vector<std::vector<XMPlScreen>> groups = screensOf(subject.packet);
  for (std::size_t i = 0; i < groups.size(); ++i) {
    const std::string group = indexed("screens", i);
    for (std::size_t j = 0; j < groups[i].size(); ++j) {
      checkCurvesOf(groups[i][j], indexed(group.c_str(), j), known, found);
    }
  }
}

void checkGroups(const Subject& subject, Findings& found) {
  const std::size_t groups = itemsOf(subject.stored().property("vxScreenC:screenContainer")).size();
  if (groups == 0 || !holdsFilmInks(subject.packet)) return;
  const std::size_t inks = itemsOf(subject.stored().property("vxGr:inks")).size();
  if (groups >= inks) return;
  found.add("screens",
            fmt::format("there are {} for {}: the last inks have no screens, or those of others",
                        counted(groups, "group") + " of screens", counted(inks, "film ink")),
            "write a group of screens for every ink, in the order of the inks");
}

// --- Values of curves ---------------------------------------------------------------------------

std::vector<XMPlDgcc> curvesOf(const XMPlib& packet) {
  std::vector<XMPlDgcc> curves;
  try {
    packet.GetDgcs(curves);
  } catch (const std::length_error&) {  // the curves before the one that breaks off are read
  }
  return curves;
}

// Curves are in percent or in fractions of 1. None ends as low as this in percent.
constexpr double kLowestPercent = 2;

double highestOf(const std::vector<double>& values) {
  const bool isFraction = std::none_of(values.begin(), values.end(),
                                       [](double value) { return value > kLowestPercent; });
  return isFraction ? 1 : 100;
}

void checkCurveRange(const Subject& subject, Findings& found) {
  const std::vector<XMPlDgcc> curves = curvesOf(subject.packet);
  for (std::size_t i = 0; i < curves.size(); ++i) {
    const std::vector<double>& values = curves[i].values;
    const double highest = highestOf(values);
    const auto isOutside = [&](double value) { return !isWithin(value, 0, highest); };
    const auto wrong = std::find_if(values.begin(), values.end(), isOutside);
    if (wrong == values.end()) continue;
    found.add(indexed("dgcs", i) + ".values",
              fmt::format("the curve {} has the value {}, outside 0 to {}: tones are lost "
                          "there, or the plate is refused",
                          quoted(curves[i].name), *wrong, highest),
              "correct the curve");
  }
}

void checkCurveFall(const Subject& subject, Findings& found) {
  const auto falls = [](double value, double next) { return value > next + kRounding; };
  const std::vector<XMPlDgcc> curves = curvesOf(subject.packet);
  for (std::size_t i = 0; i < curves.size(); ++i) {
    const std::vector<double>& values = curves[i].values;
    const auto fall = std::adjacent_find(values.begin(), values.end(), falls);
    if (fall == values.end()) continue;
    found.add(indexed("dgcs", i) + ".values",
              fmt::format("the curve {} falls from {} to {}: a darker tone prints lighter",
                          quoted(curves[i].name), *fall, *(fall + 1)),
              "correct the curve");
  }
}

}  // namespace

std::vector<Check> packetScreenChecks() {
  return {
      {"screen-curve", Severity::warning,
       "a screen names a DGC curve that is not stored, though others are", checkCurveNames},
      {"screen-groups", Severity::warning, "there are fewer groups of screens than film inks",
       checkGroups},
      {"curve-range", Severity::warning, "a DGC curve leaves 0 to 100 percent, or 0 to 1",
       checkCurveRange},
      {"curve-fall", Severity::warning, "a DGC curve falls", checkCurveFall},
  };
}

}  // namespace vxmeta
