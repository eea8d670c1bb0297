// SPDX-License-Identifier: Apache-2.0
#include "report/rose.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <numbers>

#include "report/svg.h"
#include "report/tables.h"

namespace vxmeta {
namespace {

constexpr double kRadius = 110;
constexpr Point kCentre = {260, 140};
constexpr std::size_t kMostDrawn = 24;

// The names at one angle of a turn of 90 degrees, in hundredths.
struct Direction {
  double angle = 0;
  std::vector<const Spoke*> spokes;
};

double modulo(double angle, double turn) {
  const double rest = std::fmod(angle, turn);
  return rest < 0 ? rest + turn : rest;
}

std::vector<Direction> directionsOf(const std::vector<Spoke>& spokes) {
  std::map<long, Direction> directions;
  for (const Spoke& spoke : spokes) {
    if (!std::isfinite(spoke.angle)) continue;
    const long hundredths = std::lround(modulo(spoke.angle, 90) * 100) % 9000;
    Direction& direction = directions[hundredths];
    direction.angle = static_cast<double>(hundredths) / 100;
    direction.spokes.push_back(&spoke);
  }
  std::vector<Direction> all;
  all.reserve(directions.size());
  for (auto& [key, direction] : directions) all.push_back(std::move(direction));
  return all;
}

Point at(double angle, double radius) {
  const double turn = angle * std::numbers::pi / 180;
  return {kCentre.x + radius * std::cos(turn), kCentre.y - radius * std::sin(turn)};
}

Markup scaleOf() {
  const Point left = at(180, kRadius);
  const Point right = at(0, kRadius);
  Markup scale =
      single("path", {{"class", "rim"},
                      {"d", fmt::format("M{} {}A{} {} 0 0 1 {} {}Z", number(left.x), number(left.y),
                                        kRadius, kRadius, number(right.x), number(right.y))}});
  for (int angle = 0; angle <= 180; angle += 15) {
    scale += line(at(angle, kRadius - 5), at(angle, kRadius), "tick");
  }
  return scale;
}

// The angle between two directions that lie too close.
Markup wedge(double from, double to) {
  const Point a = at(from, kRadius);
  const Point b = at(to, kRadius);
  return single("path", {{"class", "close"},
                         {"d", fmt::format("M{} {}L{} {}A{} {} 0 0 0 {} {}Z", number(kCentre.x),
                                           number(kCentre.y), number(a.x), number(a.y), kRadius,
                                           kRadius, number(b.x), number(b.y))}});
}

const char* anchorAt(double angle) {
  if (angle > 100) return "end";
  return angle < 80 ? "" : "middle";
}

// A screen's own direction is drawn whole, the one across it dashed.
Markup spokeMarkup(const Spoke& spoke) {
  const double angle = modulo(spoke.angle, 180);
  const Point end = at(angle, kRadius);
  const std::string title = fmt::format("{}: {}°", isolated(spoke.name), spoke.angle);
  return element("g", titleOf(title) +
                          line(kCentre, at(modulo(angle + 90, 180), kRadius), "across") +
                          line(kCentre, end, "under") + line(kCentre, end, "spoke", spoke.colour));
}

std::string namesOf(const Direction& direction, std::size_t most) {
  std::string names;
  for (std::size_t i = 0; i < direction.spokes.size() && i < most; ++i) {
    names += (i == 0 ? "" : ", ") + isolated(direction.spokes[i]->name);
  }
  const std::size_t rest = direction.spokes.size() - std::min(direction.spokes.size(), most);
  return rest == 0 ? names : names + fmt::format(" and {} more", rest);
}

// A text beside the rim.
struct Label {
  std::string text;
  const char* anchor = "";
  Point place;
  double left = 0;  // as far as its width can be guessed
  double right = 0;
};

Label labelOf(const Direction& direction) {
  constexpr double kCharacter = 7.5;
  const Spoke& spoke = *direction.spokes[0];
  const double angle = modulo(spoke.angle, 180);
  const std::size_t others = direction.spokes.size() - 1;
  const std::string more = others == 0 ? "" : fmt::format(" +{}", others);
  const std::string name = shortened(spoke.name, others == 0 ? 10 : 7);
  Label label{fmt::format("{:.4g}° {}{}", spoke.angle, isolated(name), more), anchorAt(angle),
              at(angle, kRadius + 10)};
  if (angle < 10 || angle > 170) label.place.y -= 6;
  const double width = kCharacter * static_cast<double>(name.size() + more.size() + 6);
  label.left = label.place.x - (angle > 100 ? width : angle < 80 ? 0 : width / 2);
  label.right = label.left + width;
  return label;
}

bool areOnOneAnother(const Label& a, const Label& b) {
  return std::abs(a.place.y - b.place.y) < 14 && a.left < b.right && b.left < a.right;
}

Markup labelMarkup(const Label& label, bool isShared) {
  return element("text",
                 {{"class", isShared ? "shared" : ""},
                  {"text-anchor", label.anchor},
                  {"x", number(label.place.x)},
                  {"y", number(label.place.y + 4)}},
                 plain(label.text));
}

// Those that have room; the pointer shows the others' names.
Markup labelsOf(const std::vector<Direction>& directions) {
  std::vector<Label> placed;
  Markup labels;
  for (const Direction& direction : directions) {
    const Label label = labelOf(direction);
    const bool hasRoom = std::none_of(placed.begin(), placed.end(), [&](const Label& other) {
      return areOnOneAnother(label, other);
    });
    if (!hasRoom || placed.size() == kMostDrawn) continue;
    labels += labelMarkup(label, direction.spokes.size() > 1);
    placed.push_back(label);
  }
  return labels;
}

bool areClose(const Direction& a, const Direction& b) {
  return apart(a.angle, b.angle) < kLeastApart - 0.05;
}

// Directions follow one another, and the first the last.
template <class Visit>
void forEachClosePair(const std::vector<Direction>& directions, Visit&& visit) {
  const std::size_t count = directions.size();
  const std::size_t pairs = count > 2 ? count : count - 1;
  for (std::size_t i = 0; count > 1 && i < pairs; ++i) {
    const Direction& next = directions[(i + 1) % count];
    if (areClose(directions[i], next)) visit(directions[i], next);
  }
}

Markup wedgesOf(const std::vector<Direction>& directions) {
  Markup wedges;
  forEachClosePair(directions, [&](const Direction& a, const Direction& b) {
    const bool isInOrder = modulo(b.angle - a.angle, 90) < 45;
    const double from = isInOrder ? a.angle : b.angle;
    const double to = from + apart(a.angle, b.angle);
    wedges += wedge(from, to);
    if (to + 90 <= 180) wedges += wedge(from + 90, to + 90);
  });
  return wedges;
}

Markup warningsOf(const std::vector<Direction>& directions) {
  std::vector<std::string> warnings;
  for (const Direction& direction : directions) {
    if (direction.spokes.size() < 2) continue;
    warnings.push_back(fmt::format("{} share one angle", namesOf(direction, 8)));
  }
  forEachClosePair(directions, [&](const Direction& a, const Direction& b) {
    warnings.push_back(fmt::format("{} and {} are {:.4g}° apart", namesOf(a, 4), namesOf(b, 4),
                                   apart(a.angle, b.angle)));
  });
  Markup items;
  for (const std::string& warning : warnings) {
    items += element("li", element("strong", {{"class", "severity warning"}}, plain("close")) +
                               plain(" " + warning));
  }
  return items.empty() ? items : element("ul", {{"class", "signs"}}, items);
}

Markup spokesOf(const std::vector<Direction>& directions) {
  Markup spokes;
  std::size_t drawn = 0;
  for (const Direction& direction : directions) {
    if (drawn++ == kMostDrawn) break;
    for (std::size_t i = 0; i < direction.spokes.size() && i < 4; ++i) {
      spokes += spokeMarkup(*direction.spokes[i]);
    }
  }
  return spokes + labelsOf(directions);
}

}  // namespace

double apart(double a, double b) {
  const double between = modulo(a - b, 90);
  return std::min(between, 90 - between);
}

Markup roseOf(const std::string& title, const std::vector<Spoke>& spokes) {
  const std::vector<Direction> directions = directionsOf(spokes);
  if (directions.empty()) return {};
  const Markup rose =
      drawing(520, 156, title, scaleOf() + wedgesOf(directions) + spokesOf(directions));
  const Markup caption = element(
      "figcaption",
      element("strong", plain(title)) +
          plain(fmt::format(" of {}, taken as degrees; dashed: across. Screens closer than {}° "
                            "(modulo 90°) may show moiré on one another.",
                            counted(spokes.size(), "screen"), kLeastApart)) +
          warningsOf(directions));
  return element("figure", {{"class", "rose"}}, rose + caption);
}

}  // namespace vxmeta
