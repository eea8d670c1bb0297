// SPDX-License-Identifier: Apache-2.0
// Inks and their coverage.
#include <fmt/format.h>
#include <limits>
#include <tuple>

#include "checks/folded_name.h"
#include "checks/packet_checks.h"
#include "checks/packet_reading.h"

namespace vxmeta {
namespace {

std::vector<XMPlInk> documentInks(const XMPlib& packet) {
  std::vector<XMPlInk> inks;
  if (!holdsFilmInks(packet)) packet.GetInks(inks);
  return inks;
}

std::vector<XMPlInkDigFilm> filmInks(const XMPlib& packet) {
  std::vector<XMPlInkDigFilm> inks;
  if (holdsFilmInks(packet)) isRead([&] { return packet.GetInksDigFilm(inks); });
  return inks;
}

// --- Coverage -----------------------------------------------------------------------------------

void checkCoverageCount(const Subject& subject, Findings& found) {
  const auto& inks = itemsOf(subject.stored().property("vxGr:inks"));
  const auto& coverage = itemsOf(subject.stored().property("vxInkCovL:coverage"));
  if (coverage.empty() || coverage.size() == inks.size()) return;
  found.add(inksPath(subject.packet),
            fmt::format("there is coverage for {} of {}: it was measured for another set, and the "
                        "ink it stands at may be the wrong one",
                        coverage.size(), counted(inks.size(), "ink")),
            "measure the coverage anew");
}

void tellCoverage(const std::string& path, double value, Findings& found) {
  found.add(path,
            fmt::format("{} is a coverage of {}, which cannot be: what is reckoned from it, as "
                        "the need of ink, is wrong",
                        path, value),
            "measure the coverage anew");
}

void checkCoverageRange(const Subject& subject, Findings& found) {
  constexpr double kAll = 100;  // percent
  constexpr double kNoLimit = std::numeric_limits<double>::infinity();
  const std::vector<XMPlInk> inks = documentInks(subject.packet);
  for (std::size_t i = 0; i < inks.size(); ++i) {
    const XMPlInk& ink = inks[i];
    if (!ink.coverageValid) continue;
    const std::string path = indexed("inks", i);
    if (!isWithin(ink.pct, 0, kAll)) tellCoverage(path + ".pct", ink.pct, found);
    if (!isWithin(ink.mm2, 0, kNoLimit)) tellCoverage(path + ".mm2", ink.mm2, found);
  }
}

// --- Inks that are one --------------------------------------------------------------------------

auto foldedIdentity(const XMPlInkBasic& ink) {
  return std::make_tuple(folded(ink.name), folded(ink.type), folded(ink.book), folded(ink.vxname),
                         folded(ink.attribute), folded(ink.printingmethod));
}

// The ruling as text: a NaN has no order.
auto identityButAngle(const XMPlInk& ink) {
  return std::make_tuple(foldedIdentity(ink), fmt::to_string(ink.frequency), folded(ink.dotshape));
}

void tellAlike(const char* list, std::size_t first, std::size_t index, const std::string& name,
               Findings& found) {
  found.add(indexed(list, index),
            fmt::format("{}, {}, is {} but for case, blanks or angle: one ink gets two plates",
                        indexed(list, index), quoted(name), indexed(list, first)),
            "give both one spelling and angle, and take one of them out");
}

void checkAlike(const Subject& subject, Findings& found) {
  const std::vector<XMPlInk> inks = documentInks(subject.packet);
  forEachRepeated(inks, identityButAngle, [&](std::size_t first, std::size_t index) {
    tellAlike("inks", first, index, inks[index].name, found);
  });
  // A film of several pages has the same ink once for each.
  const std::vector<XMPlInkDigFilm> films = filmInks(subject.packet);
  forEachRepeated(films, foldedIdentity, [&](std::size_t first, std::size_t index) {
    if (films[first] != films[index]) {
      tellAlike("film.inks", first, index, films[index].name, found);
    }
  });
}

}  // namespace

std::vector<Check> packetInkChecks() {
  return {
      {"coverage-count", Severity::warning, "coverage is stored for another number of inks",
       checkCoverageCount},
      {"coverage-range", Severity::warning, "an ink's coverage is below 0 or over 100 percent",
       checkCoverageRange},
      {"ink-alike", Severity::warning, "two inks differ in nothing but case, blanks or angle",
       checkAlike},
  };
}

}  // namespace vxmeta
