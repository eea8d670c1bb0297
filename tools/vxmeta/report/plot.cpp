// SPDX-License-Identifier: Apache-2.0
#include "report/plot.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <limits>

#include "report/svg.h"

namespace vxmeta {
namespace {

constexpr double kLeft = 52;
constexpr double kTop = 12;
constexpr double kWidth = 400;
constexpr double kHeight = 260;
constexpr std::size_t kColours = 6;
constexpr std::size_t kMostPoints = 256;

// Wide enough for the distance of any two doubles.
using Wide = long double;

struct Range {
  Wide least = std::numeric_limits<Wide>::infinity();
  Wide most = -std::numeric_limits<Wide>::infinity();

  void add(double number) {
    if (!std::isfinite(number)) return;
    least = std::min<Wide>(least, number);
    most = std::max<Wide>(most, number);
  }
  bool isEmpty() const { return least > most; }
  double share(double number) const {
    return static_cast<double>((static_cast<Wide>(number) - least) / (most - least));
  }
};

// The values' range, opened to 0 to 1 or 0 to 100 where they are shares or percent.
Range rangeOf(const std::vector<XMPlDgcc>& curves, std::size_t count) {
  Range range;
  for (std::size_t i = 0; i < count; ++i) {
    for (const double number : curves[i].values) range.add(number);
  }
  if (range.isEmpty()) return range;
  const double end = range.most <= 1 ? 1 : 100;
  if (range.least >= 0 && range.most <= end) return {0, end};
  if (range.least == range.most) range.most += std::max<Wide>(1, std::abs(range.most));
  return range;
}

std::string classOf(std::size_t curve) {
  return fmt::format("curve k{}{}", curve % kColours, curve < kColours ? "" : " dashed");
}

Point pointOf(const std::vector<double>& values, std::size_t index, const Range& range) {
  const double along = static_cast<double>(index) / static_cast<double>(values.size() - 1);
  return {kLeft + along * kWidth, kTop + (1 - range.share(values[index])) * kHeight};
}

// What is no number leaves a gap.
std::string pathOf(const std::vector<double>& values, const Range& range) {
  std::string path;
  char command = 'M';
  const std::size_t last = values.size() - 1;
  const std::size_t points = std::min(values.size(), kMostPoints);
  for (std::size_t i = 0; i < points; ++i) {
    const std::size_t index = i * last / (points - 1);
    if (!std::isfinite(values[index])) {
      command = 'M';
      continue;
    }
    const Point point = pointOf(values, index, range);
    path += fmt::format("{}{} {}", command, number(point.x), number(point.y));
    command = 'L';
  }
  return path;
}

Markup dotsOf(const XMPlDgcc& curve, const Range& range) {
  constexpr std::size_t kMostDots = 24;
  Markup dots;
  if (curve.values.size() > kMostDots) return dots;
  for (std::size_t i = 0; i < curve.values.size(); ++i) {
    if (!std::isfinite(curve.values[i])) continue;
    const Point point = pointOf(curve.values, i, range);
    const std::string title = fmt::format("{}, value {} of {}: {}", isolated(curve.name), i + 1,
                                          curve.values.size(), curve.values[i]);
    dots += element("circle", {{"cx", number(point.x)}, {"cy", number(point.y)}, {"r", "3.5"}},
                    titleOf(title));
  }
  return dots;
}

Markup curveMarkup(const XMPlDgcc& curve, std::size_t index, const Range& range) {
  if (curve.values.size() < 2) return {};
  const std::string path = pathOf(curve.values, range);
  if (path.empty()) return {};
  const std::string title = fmt::format("{}: {} values", isolated(curve.name), curve.values.size());
  return element("g", {{"class", classOf(index)}},
                 titleOf(title) + single("path", {{"d", path}}) + dotsOf(curve, range));
}

Markup valueAxis(const Range& range) {
  constexpr int kSteps = 4;
  Markup axis;
  for (int i = 0; i <= kSteps; ++i) {
    const double y = kTop + kHeight - kHeight * i / kSteps;
    const Wide at = range.least + (range.most - range.least) * i / kSteps;
    axis += line({kLeft, y}, {kLeft + kWidth, y}, "grid");
    axis += label({kLeft - 8, y + 4}, "end", fmt::format("{:.4g}", static_cast<double>(at)));
  }
  return axis + turnedLabel({14, kTop + kHeight / 2}, "middle", "value, as stored");
}

Markup placeAxis() {
  constexpr int kSteps = 4;
  Markup axis;
  for (int i = 0; i <= kSteps; ++i) {
    const double x = kLeft + kWidth * i / kSteps;
    axis += line({x, kTop}, {x, kTop + kHeight}, "grid");
    const char* style = i == 0 ? "" : i == kSteps ? "end" : "middle";
    const std::string text = i == 0        ? "first value"
                             : i == kSteps ? "last value"
                                           : fmt::format("{} %", 100 * i / kSteps);
    axis += label({x, kTop + kHeight + 18}, style, text);
  }
  return axis + label({kLeft + kWidth / 2, kTop + kHeight + 38}, "middle",
                      "place along the curve, values evenly spaced");
}

// The straight line from the first corner to the last: no gain.
Markup diagonal() { return line({kLeft, kTop + kHeight}, {kLeft + kWidth, kTop}, "across"); }

}  // namespace

Markup plotOf(const std::vector<XMPlDgcc>& curves) {
  const std::size_t count = std::min(curves.size(), kMostDrawnCurves);
  const Range range = rangeOf(curves, count);
  if (range.isEmpty()) return {};
  Markup lines;
  for (std::size_t i = 0; i < count; ++i) lines += curveMarkup(curves[i], i, range);
  if (lines.empty()) return {};
  const std::string title =
      fmt::format("DGC curves, values from {:.6g} to {:.6g}", static_cast<double>(range.least),
                  static_cast<double>(range.most));
  return drawing(kLeft + kWidth + 16, kTop + kHeight + 48, title,
                 valueAxis(range) + placeAxis() + diagonal() + lines);
}

Markup sampleOf(std::size_t curve) {
  if (curve >= kMostDrawnCurves) return {};
  const Markup sample = line({1, 6}, {31, 6}, "");
  return element("svg",
                 {{"xmlns", "http://www.w3.org/2000/svg"},
                  {"aria-hidden", "true"},
                  {"class", "sample"},
                  {"width", "32"},
                  {"height", "12"}},
                 element("g", {{"class", classOf(curve)}}, sample));
}

}  // namespace vxmeta
