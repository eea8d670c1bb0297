// SPDX-License-Identifier: Apache-2.0
// Screen angles as a rose, with signs where they lie too close together.
#pragma once

#include <string>
#include <vector>

#include "report/html.h"

namespace vxmeta {

struct Spoke {
  std::string name;
  double angle = 0;    // degrees
  std::string colour;  // "#rrggbb"; "": none
};

// Screens print on one another without moiré when they are this far apart, in degrees.
constexpr double kLeastApart = 15;

// How far apart two screens are, in degrees: their dots repeat every 90.
double apart(double a, double b);

// A figure under its title (isolated texts in it): the rose, and what lies too close in words.
Markup roseOf(const std::string& title, const std::vector<Spoke>& spokes);

}  // namespace vxmeta
