// SPDX-License-Identifier: Apache-2.0
// One reading of a handle: what several sections need is found once, when it is first asked for.
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "model/document.h"
#include "model/read_document.h"
#include "model/stored.h"
#include "model/unread.h"

namespace vxmeta {

// The list of inks, which holds those of a document or those of a film.
struct InkList {
  std::optional<std::vector<XMPlInk>> document;
  std::optional<std::vector<XMPlInkDigFilm>> film;
};

class Reading {
 public:
  Reading(const XMPlib& xmp, const Wanted& wanted) : xmp_(xmp), wanted_(wanted) {}

  const Wanted& wanted() const { return wanted_; }

  // Calls a Get. An error of its value is noted under the path.
  template <class Get, class Value>
  bool call(const std::string& path, const Get& get, Value& value) {
    bool isFound = false;
    std::string error = errorOf([&] { isFound = std::invoke(get, xmp_, value); });
    if (!error.empty()) errors_.emplace(path, std::move(error));
    return isFound;
  }

  // A single value, which is there when its Get says so.
  template <class Get, class Value>
  void scalar(const std::string& path, const Get& get, std::optional<Value>& into) {
    Value value;
    if (call(path, get, value)) into = std::move(value);
  }

  // A list, which is there when it is stored, also when its Get reads nothing of it. Why it ends
  // where it does, GetUnreadItems tells.
  template <class Get, class List>
  void list(std::string_view property, const Get& get, std::optional<List>& into) {
    List items;
    bool isFound = false;
    (void)errorOf([&] { isFound = std::invoke(get, xmp_, items); });
    if (isFound || !items.empty() || holds(property)) {
      into = std::move(items);
    }
  }

  // Whether the property is stored.
  bool holds(std::string_view property) { return stored().property(property) != nullptr; }

  // Notes a list that is not read because of what is stored beside it.
  void passOver(std::string_view property) { passedOver_.emplace(property); }
  // Whether the first external reference of the current layout is there: then all are read from it.
  bool hasCurrentRefs() {
    return nodeAt(stored(), "vxExtFL2:files[1]/vxExtF:instanceID") != nullptr;
  }

  // Throws FileError where a run cannot be expanded.
  void expand(std::vector<XMPlExtRef>& refs) const;

  const InkList& inks();
  std::optional<XMPlPDFData> pdfData();
  std::optional<XMPlMMData> mmData();
  std::optional<std::vector<XMPlMetaDataDigFilm>> filmMetadata();
  std::vector<ForeignSchema> foreign();
  // Of a document whose sections have all been read.
  std::vector<UnreadPart> unread(const Document& document);

 private:
  // The error that the call ends with, or leaves in the handle; empty when there is none.
  std::string errorOf(const std::function<void()>& call) const;
  bool isLossless(bool asFilmInks) const;
  bool areFilmInks(const std::vector<XMPlInk>& asDocument,
                   const std::vector<XMPlInkDigFilm>& asFilm) const;
  const StoredProperties& stored();

  const XMPlib& xmp_;
  Wanted wanted_;
  std::optional<StoredProperties> stored_;
  std::optional<InkList> inks_;
  ReadErrors errors_;
  ReadNodes separations_;
  std::set<std::string, std::less<>> passedOver_;
};

// Keeps a group of optional values that has any.
template <class Group>
void setUnlessBare(std::optional<Group>& into, Group group) {
  const View view = viewOf(group);
  for (const Field& field : view.type->fields) {
    if (view.field(field).size() == 0) continue;
    into = std::move(group);
    return;
  }
}

}  // namespace vxmeta
