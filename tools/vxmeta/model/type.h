// SPDX-License-Identifier: Apache-2.0
// Values described at run time: what kind they are, which fields they have, how to reach their
// parts. Everything that is done to all records alike works on a View and knows no record.
#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

namespace vxmeta {

enum class Kind { text, integer, longInteger, real, truth, record, list, optional };

struct Type;

// One field of a record. The name is that of the C++ member.
struct Field {
  std::string_view name;
  std::string_view help;  // what it says, in a few words
  const Type* type = nullptr;
  const void* (*get)(const void* record) = nullptr;
  void* (*slot)(void* record) = nullptr;

  std::string_view unit;                // of the value, where the format has one
  std::string_view unitField;           // the field of the same record that names the unit
  std::vector<std::string_view> words;  // the only values that can be written; empty: any
  std::string_view validWith;           // the flag that makes the value valid
  std::string_view validWithout;        // the flag that makes it invalid
  std::optional<double> unknown;        // the number that stands for no value
  bool isStored = true;                 // false: no operation of the library reads or writes it
  bool isOrdered = true;                // of a list: the order of the items means something
  bool isDateOrId = false;              // says when or which, not what
  bool isDetail = false;                // of an item of a list: not for a summary

  Field in(std::string_view word) && { return unit = word, *this; }
  Field inUnitsOf(std::string_view field) && { return unitField = field, *this; }
  Field oneOf(std::initializer_list<std::string_view> all) && { return words = all, *this; }
  Field with(std::string_view flag) && { return validWith = flag, *this; }
  Field without(std::string_view flag) && { return validWithout = flag, *this; }
  Field unknownAs(double number) && { return unknown = number, *this; }
  Field unstored() && { return isStored = false, *this; }
  Field unordered() && { return isOrdered = false, *this; }
  Field dateOrId() && { return isDateOrId = true, *this; }
  Field detail() && { return isDetail = true, *this; }
};

// A type is made once and lives as long as the process: compare by address.
struct Type {
  Kind kind = Kind::text;

  // Of a record.
  std::string_view name;
  std::vector<Field> fields;
  const void* defaults = nullptr;                    // a record as it is made
  bool (*same)(const void*, const void*) = nullptr;  // the library's equality, where it has one

  // Of a list, and of an optional value, which is a list of one or none.
  const Type* item = nullptr;
  std::size_t (*size)(const void* list) = nullptr;
  const void* (*at)(const void* list, std::size_t index) = nullptr;
  void* (*slot)(void* list, std::size_t index) = nullptr;
  void* (*append)(void* list) = nullptr;
  void (*clear)(void* list) = nullptr;

  const Field* field(std::string_view fieldName) const;
  // The field that names a record of a list: its name, its file, its code, its
  // property. Null: it has none.
  const Field* key() const;
};

template <class Value>
const Type& typeOf();

// A value to look at, which is the caller's.
struct View {
  const Type* type = nullptr;
  const void* value = nullptr;

  bool is(Kind kind) const { return type->kind == kind; }
  bool isContainer() const { return is(Kind::list) || is(Kind::optional); }
  bool isNumber() const { return is(Kind::integer) || is(Kind::longInteger) || is(Kind::real); }

  const std::string& text() const { return *static_cast<const std::string*>(value); }
  bool truth() const { return *static_cast<const bool*>(value); }
  double real() const { return *static_cast<const double*>(value); }
  std::int64_t integer() const;  // of either size
  double number() const { return is(Kind::real) ? real() : static_cast<double>(integer()); }

  std::size_t size() const { return type->size(value); }
  View item(std::size_t index) const { return {type->item, type->at(value, index)}; }
  View field(const Field& field) const { return {field.type, field.get(value)}; }
  View field(std::string_view name) const { return field(*type->field(name)); }

  // As a new record of the type `record` has it in the field.
  static View defaultOf(const Type& record, const Field& field) {
    return {field.type, field.get(record.defaults)};
  }

  // What an optional value holds; the value itself when it is none. Null type: nothing.
  View present() const;
};

// Whether the flags of the record say that the field is valid.
bool isValid(const View& record, const Field& field);

// Whether the field only says whether others are valid.
bool isFlag(const Type& record, const Field& field);

// Whether the values, of one type, are the same in every part; a NaN is the same as any other.
bool isSame(const View& a, const View& b);

template <class Value>
View viewOf(const Value& value) {
  return {&typeOf<Value>(), &value};
}

// --- How a type is made -------------------------------------------------------------------------

// The fields of a record: one specialisation for each, under records/.
template <class Record>
Type describe();

template <class Record, auto kMember>
Field field(std::string_view name, std::string_view help) {
  using Value = std::remove_cvref_t<decltype(std::declval<Record>().*kMember)>;
  Field field;
  field.name = name;
  field.help = help;
  field.type = &typeOf<Value>();
  field.get = [](const void* record) -> const void* {
    return &(static_cast<const Record*>(record)->*kMember);
  };
  field.slot = [](void* record) -> void* { return &(static_cast<Record*>(record)->*kMember); };
  return field;
}

template <class Record>
Type recordType(std::string_view name, std::vector<Field> fields) {
  static const Record defaults;
  Type type;
  type.kind = Kind::record;
  type.name = name;
  type.fields = std::move(fields);
  type.defaults = &defaults;
  if constexpr (requires(const Record& a, const Record& b) { a == b; }) {
    type.same = [](const void* a, const void* b) {
      return *static_cast<const Record*>(a) == *static_cast<const Record*>(b);
    };
  }
  return type;
}

template <class Item>
Type makeType(const std::vector<Item>*) {
  using List = std::vector<Item>;
  Type type;
  type.kind = Kind::list;
  type.item = &typeOf<Item>();
  type.size = [](const void* list) { return static_cast<const List*>(list)->size(); };
  type.at = [](const void* list, std::size_t i) -> const void* {
    return &(*static_cast<const List*>(list))[i];
  };
  type.slot = [](void* list, std::size_t i) -> void* { return &(*static_cast<List*>(list))[i]; };
  type.append = [](void* list) -> void* { return &static_cast<List*>(list)->emplace_back(); };
  type.clear = [](void* list) { static_cast<List*>(list)->clear(); };
  return type;
}

template <class Item>
Type makeType(const std::optional<Item>*) {
  using Optional = std::optional<Item>;
  Type type;
  type.kind = Kind::optional;
  type.item = &typeOf<Item>();
  type.size = [](const void* value) -> std::size_t {
    return static_cast<const Optional*>(value)->has_value() ? 1 : 0;
  };
  type.at = [](const void* value, std::size_t) -> const void* {
    return &**static_cast<const Optional*>(value);
  };
  type.slot = [](void* value, std::size_t) -> void* { return &**static_cast<Optional*>(value); };
  type.append = [](void* value) -> void* { return &static_cast<Optional*>(value)->emplace(); };
  type.clear = [](void* value) { static_cast<Optional*>(value)->reset(); };
  return type;
}

inline Type simpleType(Kind kind) {
  Type type;
  type.kind = kind;
  return type;
}
inline Type makeType(const std::string*) { return simpleType(Kind::text); }
inline Type makeType(const std::int32_t*) { return simpleType(Kind::integer); }
inline Type makeType(const std::int64_t*) { return simpleType(Kind::longInteger); }
inline Type makeType(const double*) { return simpleType(Kind::real); }
inline Type makeType(const bool*) { return simpleType(Kind::truth); }
template <class Record>
Type makeType(const Record*) {
  return describe<Record>();
}

template <class Value>
const Type& typeOf() {
  static const Type type = makeType(static_cast<const Value*>(nullptr));
  return type;
}

}  // namespace vxmeta
