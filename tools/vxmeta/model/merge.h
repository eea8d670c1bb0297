// SPDX-License-Identifier: Apache-2.0
// Merges the records of other packets into a handle, and looks what that has cost.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "model/document.h"
#include "model/write_document.h"

namespace vxmeta {

// How digital films come together: as separations of the same pages, or as further pages.
enum class FilmMerge { separations, pages };

struct MergeSource {
  std::string name;
  std::string packet;
};

struct MergeWishes {
  std::optional<FilmMerge> films;  // none: resources
  bool isForeign = false;          // what the library does not manage, too
};

// A source that cannot be merged, and why.
class MergeError : public std::runtime_error {
 public:
  MergeError(std::string source, const std::string& why)
      : std::runtime_error(why), name(std::move(source)) {}

  std::string name;
};

struct Merging {
  Document result;
  std::vector<std::string> notes;
  std::vector<Loss> losses;
  bool isChanged = false;
};

// `target` stands for the metadata that `xmp` holds. Throws MergeError; the handle may then be
// merged in part.
Merging merge(const MergeSource& target, const std::vector<MergeSource>& sources,
              const MergeWishes& wishes, XMPlib& xmp);

}  // namespace vxmeta
