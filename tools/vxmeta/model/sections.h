// SPDX-License-Identifier: Apache-2.0
// Which stored property belongs to which section of a document.
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace vxmeta {

// Where a value is stored, and where it stands in a document.
struct StoredPlace {
  enum class Role {
    own,
    required,  // without it, the record, or the group of its fields, is not read
    beside,    // a list beside the one that its section is named for
  };

  std::string_view path;        // "vxFontL:fonts", "vxPrF:DerivedFrom/stRef:instanceID"
  std::string_view section;     // "fonts", "scalars.nrPages", "film.version"
  std::string_view field = {};  // of the section's record; empty: the section itself
  Role role = Role::own;

  std::string documentPath() const;  // "fonts", "film.version.type"
};

// All places, sorted by path. Film and page share dimensions: such a path has two.
std::span<const StoredPlace> storedPlaces();
std::span<const StoredPlace> placesAt(std::string_view path);

// Whether there are places in the structure or list at the path.
bool hasPlacesBelow(std::string_view path);

// The name that a path begins with: that of a property at the top level.
std::string_view propertyOf(std::string_view path);

// The section's path ("fonts", "scalars.nrPages") for a property at the top level
// ("vxFontL:fonts"); empty for one that no record covers.
std::string_view sectionOf(std::string_view storedProperty);

// The prefix of a stored name: "vxFontL".
std::string_view prefixOf(std::string_view storedName);

// Whether a schema is the library's own: what it holds is for the library to read.
bool isOwnSchema(std::string_view uri);

// Whether the property is a list beside the one that its section is named for.
bool isBeside(std::string_view storedProperty);

// The path of a list as the library names it ("vxScreenC:screenContainer[2]/vxScreenL:screens"),
// as paths of a document go ("screens[1]"); itself where it is in no section.
std::string pathOfList(const std::string& storedList);

// What sentences call it: its path, but for coverage, which shares that of the inks.
std::string wordsForList(std::string_view storedList, std::string_view path);

}  // namespace vxmeta
