// SPDX-License-Identifier: Apache-2.0
// Which known path a misspelt one may mean.
#include <algorithm>
#include <numeric>
#include <utility>

#include "model/known_paths.h"
#include "model/place.h"

namespace vxmeta {
namespace {

// How many characters to insert, delete or replace.
std::size_t editDistance(std::string_view a, std::string_view b) {
  std::vector<std::size_t> row(b.size() + 1);
  std::iota(row.begin(), row.end(), std::size_t{0});
  for (std::size_t i = 1; i <= a.size(); ++i) {
    std::size_t diagonal = std::exchange(row[0], i);
    for (std::size_t j = 1; j <= b.size(); ++j) {
      const std::size_t replaced = diagonal + (a[i - 1] == b[j - 1] ? 0 : 1);
      diagonal = row[j];
      row[j] = std::min({replaced, row[j] + 1, row[j - 1] + 1});
    }
  }
  return row.back();
}

// "inks[name=a.b].angle" is "inks.angle"; in small letters.
std::string withoutItems(std::string_view path) {
  std::string text;
  bool isInside = false;
  for (const char c : path) {
    isInside = isInside ? c != ']' : c == '[';
    if (!isInside && c != ']') text += c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
  }
  return text;
}

std::string_view lastStep(std::string_view path) { return path.substr(path.rfind('.') + 1); }

// Of a name alone, in whichever record it stands; of a path as a whole.
std::size_t distance(std::string_view wanted, std::string_view known) {
  const std::size_t whole = editDistance(wanted, known);
  if (lastStep(wanted) == lastStep(known)) return std::min<std::size_t>(whole, 2);
  const bool isName = wanted.find('.') == std::string_view::npos;
  return isName ? std::min(whole, 1 + editDistance(wanted, lastStep(known))) : whole;
}

// How far a path may be: less than the name is long, or any name would be near to a short one. A
// name that stands in another record is one in any case.
std::size_t farthest(std::string_view wanted, std::string_view known) {
  const std::size_t length = lastStep(wanted).size();
  if (length == 0) return 0;
  if (lastStep(wanted) == lastStep(known)) return 2;
  return std::min(std::max<std::size_t>(2, 1 + length / 4), length - 1);
}

}  // namespace

std::vector<std::string> nearestPaths(std::string_view text, const Type& root) {
  constexpr std::size_t kLongest = 80;
  constexpr std::size_t kMost = 3;
  const std::string wanted = withoutItems(text.substr(0, kLongest));
  std::vector<std::pair<std::size_t, std::string>> ranked;
  for (const KnownPath& known : knownPaths(root)) {
    const std::string plain = withoutItems(known.path);
    const std::size_t far = distance(wanted, plain);
    if (far <= farthest(wanted, plain)) ranked.emplace_back(far, known.path);
  }
  const auto isNearer = [](const auto& a, const auto& b) { return a.first < b.first; };
  std::stable_sort(ranked.begin(), ranked.end(), isNearer);
  std::vector<std::string> paths;
  for (std::size_t i = 0; i < std::min(kMost, ranked.size()); ++i) {
    if (ranked[i].first <= ranked[0].first + 1) paths.push_back(ranked[i].second);
  }
  return paths;
}

}  // namespace vxmeta
