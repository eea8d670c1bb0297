// SPDX-License-Identifier: Apache-2.0
/// @defgroup unread What a Get leaves out
/// What reading a list leaves out, and what writing it again would therefore drop.
/// @{
#ifndef XMPL_UNREAD_H
#define XMPL_UNREAD_H

#include <cstdint>
#include <string>

/// A stored list that its Get does not read to the end.
struct XMPlUnreadItems {
  /// The list's path: "vxFontL:fonts"; of a group's screens
  /// "vxScreenC:screenContainer[2]/vxScreenL:screens".
  std::string list;
  std::int32_t stored = 0;  ///< number of stored items; 0 also for what is no array
  std::int32_t read = 0;    ///< number of items that the Get reads
  /// What stopped it: the required field that item `read` + 1 lacks ("vxFont:type"; of a group of
  /// screens one that its first screen lacks or, where it has none, would need); the error; or, of
  /// coverage behind the last ink, "no such ink".
  std::string reason;
};

/// Something inside an item that is read, but not a part of any record.
struct XMPlUnreadField {
  std::string list;       ///< as in XMPlUnreadItems
  std::int32_t item = 0;  ///< its number, from 1; 0: the list itself
  /// Its path below the item: "x:note", "vxFont:name/?xml:lang"; empty: the item as a whole, which
  /// has another form.
  std::string field;
};

/// @}

#endif
