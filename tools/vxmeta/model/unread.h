// SPDX-License-Identifier: Apache-2.0
// What is stored in properties of the schema and stands in no section of the document.
#pragma once

#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "model/document.h"
#include "model/stored.h"

namespace vxmeta {

// What the Gets of sections have ended with, by the section's path.
using ReadErrors = std::map<std::string, std::string, std::less<>>;

// The nodes that a reading of the stored form has put into a record.
using ReadNodes = std::set<const StoredNode*>;

// Whether a property is another schema's: it has no section, and is not for the library to read.
bool isForeign(const StoredProperties& stored, std::string_view property);

// Of all properties but lists: what the document's sections do not account for.
std::vector<UnreadPart> unreadValues(const StoredProperties& stored, const Document& document,
                                     const ReadErrors& errors);

// Of the separations of a film, which no Get reads.
std::vector<UnreadPart> unreadSeparations(const StoredProperties& stored, const ReadNodes& read);

// Of a list that is not read because of what is stored beside it: nothing where it is empty, or an
// older layout that says the same as the current one.
std::optional<UnreadPart> unreadBeside(const StoredProperties& stored, const StoredNode& list);

// What the library tells of lists, by the paths of a document.
std::vector<UnreadPart> unreadInLists(const XMPlib& xmp, bool asFilmInks,
                                      const StoredProperties& stored);

// Whether it is a part of a list: not of a single value, or of a record of such.
bool isOfList(const UnreadPart& part);

// Whether the reason for an unread part is a required field that is missing, which it then names;
// any other is a sentence.
bool namesField(std::string_view reason);

// Of a part of no list: where it is stored, "vxPrF:DerivedFrom/stRef:instanceID".
std::string storedPath(const UnreadPart& part);

// Whether it says when or which, not what.
bool isDateOrId(const UnreadPart& part);

}  // namespace vxmeta
