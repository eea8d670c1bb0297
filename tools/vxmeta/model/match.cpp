// SPDX-License-Identifier: Apache-2.0
#include "model/match.h"

#include <functional>
#include <map>
#include <nlohmann/json.hpp>
#include <string>

#include "model/json.h"

namespace vxmeta {
namespace {

using Indices = std::vector<std::size_t>;

class Matcher {
 public:
  Matcher(const View& before, const View& after)
      : before_(before), after_(after), partners_(before.size()), isTaken_(after.size()) {}

  Matching match() {
    pairInPlace();
    pairBy([](const View& item) { return jsonText(toJson(item), false); }, nullptr);
    const Field* key = before_.type->item->key();
    const auto nameOf = [&](const View& item) {
      return key == nullptr ? std::string() : jsonText(toJson(item.field(*key)), false);
    };
    if (key != nullptr) pairBy(nameOf, before_.type->item->same);
    pairBy(nameOf, nullptr);
    return {std::move(partners_), untaken()};
  }

 private:
  using Same = bool (*)(const void*, const void*);

  void pair(std::size_t i, std::size_t j) {
    partners_[i] = j;
    isTaken_[j] = true;
  }

  // Most items of most lists have not changed.
  void pairInPlace() {
    for (std::size_t i = 0; i < before_.size() && i < after_.size(); ++i) {
      if (isSame(before_.item(i), after_.item(i))) pair(i, i);
    }
  }

  Indices untaken() const {
    Indices indices;
    for (std::size_t j = 0; j < isTaken_.size(); ++j) {
      if (!isTaken_[j]) indices.push_back(j);
    }
    return indices;
  }

  // Pairs what has the same text, in order; with `same`, only what is equal by that too.
  template <class TextOf>
  void pairBy(const TextOf& textOf, Same same) {
    std::map<std::string, Indices, std::less<>> candidates;
    for (const std::size_t j : untaken()) candidates[textOf(after_.item(j))].push_back(j);
    if (candidates.empty()) return;
    for (auto& [text, indices] : candidates) std::reverse(indices.begin(), indices.end());
    for (std::size_t i = 0; i < partners_.size(); ++i) {
      if (partners_[i]) continue;
      const auto found = candidates.find(textOf(before_.item(i)));
      if (found != candidates.end()) pairFirst(i, found->second, same);
    }
  }

  // The candidates stand last first. Of very many with one name, only some are looked at.
  void pairFirst(std::size_t i, Indices& candidates, Same same) {
    constexpr std::size_t kMost = 256;
    const View item = before_.item(i);
    const std::size_t first = candidates.size() > kMost ? candidates.size() - kMost : 0;
    for (std::size_t c = candidates.size(); c > first; --c) {
      const std::size_t j = candidates[c - 1];
      if (same != nullptr && !same(item.value, after_.item(j).value)) continue;
      pair(i, j);
      candidates.erase(candidates.begin() + static_cast<std::ptrdiff_t>(c - 1));
      return;
    }
  }

  View before_;
  View after_;
  std::vector<std::optional<std::size_t>> partners_;
  std::vector<bool> isTaken_;
};

}  // namespace

Matching match(const View& before, const View& after) { return Matcher(before, after).match(); }

}  // namespace vxmeta
