// SPDX-License-Identifier: Apache-2.0
// The descriptions of the records.
#include <XMP_Const.h>
#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <nlohmann/json.hpp>
#include <random>

#include "core/own_properties.h"
#include "model/document.h"
#include "model/json.h"
#include "model/sections.h"
#include "support/kinds.h"

namespace vxmeta {
namespace {

struct Anything {
  template <class Value>
  operator Value() const {
    std::abort();  // asked for, never called
  }
};

template <class Record, class... Members>
constexpr bool kTakes = requires {
  Record{Members{}...};
};

// The members that a record's braces take; a base class is one of them.
template <class Record, class... Members>
constexpr std::size_t membersOf() {
  if constexpr (kTakes<Record, Members..., Anything>) {
    return membersOf<Record, Members..., Anything>();
  }
  return sizeof...(Members);
}

template <class Record>
std::string undescribed(std::size_t membersOfBase = 0) {
  const std::size_t isDerived = membersOfBase > 0 ? 1 : 0;
  const std::size_t members = membersOf<Record>() - isDerived + membersOfBase;
  const Type& type = typeOf<Record>();
  const std::string counts =
      std::to_string(members) + " members, " + std::to_string(type.fields.size()) + " described; ";
  return members == type.fields.size() ? "" : std::string(type.name) + ": " + counts;
}

template <class... Records>
std::string undescribedOf() {
  return (undescribed<Records>() + ...);
}

TEST(Descriptions, HaveEveryMemberOfEveryRecord) {
  const std::string all =
      undescribedOf<XMPlJobData, XMPlProdData, XMPlDocData, XMPlDocVersion, XMPlDigFilmVersion,
                    XMPlDimDatBasic, XMPlDimDat, XMPlDimDatDigFilm, XMPlColorSpace, XMPlPDFData,
                    XMPlMMData, XMPlInkBasic, XMPlInkProperty, XMPlUsedDigFilmRef, XMPlDgcc,
                    XMPlMetaDataDigFilm, XMPlScreen, XMPlUsedRef, XMPlExtRef, XMPlFont, XMPlBarcode,
                    XMPlLay, XMPlPagRange, XMPlSmartName, XMPlRepeat, XMPlCadReg, Scalars, Film,
                    Document, PacketInfo, ForeignSchema, UnreadPart>();
  const std::size_t ofBase = membersOf<XMPlInkBasic>();
  EXPECT_EQ(all + undescribed<XMPlInk>(ofBase) + undescribed<XMPlInkDigFilm>(ofBase), "");
}

TEST(Descriptions, NameFlagsAndUnitsThatAreThere) {
  for (const Type* type : {&typeOf<XMPlInk>(), &typeOf<XMPlScreen>(), &typeOf<XMPlBarcode>(),
                           &typeOf<XMPlDimDat>(), &typeOf<XMPlDimDatDigFilm>()}) {
    for (const Field& field : type->fields) {
      for (const std::string_view other : {field.validWith, field.validWithout, field.unitField}) {
        EXPECT_TRUE(other.empty() || type->field(other) != nullptr) << field.name << ' ' << other;
      }
    }
  }
}

TEST(Sections, CoverAllThatTheLibraryWrites) {
  std::string uncovered;
  for (const std::string_view name : xmpl::kOwnProperties) {
    const bool isField = name.starts_with("stLoc:") || name.starts_with("stRef:");
    if (!isField && sectionOf(name).empty()) uncovered += std::string(name) + " ";
  }
  // Read by no record; an alias; the document's identity.
  EXPECT_EQ(uncovered, "dc:format xmp:Description xmpMM:InstanceID ");
}

// Values of every sort, the odd ones among them.
class Chance {
 public:
  explicit Chance(unsigned seed) : random_(seed) {}

  std::size_t below(std::size_t limit) { return random_() % limit; }

  template <class Value>
  Value make() {
    Value value{};
    visitFields(
        value, [&](auto& items) { items.resize(below(4)); },
        [&]<class Field>(Field& field) { field = single<Field>(); });
    return value;
  }

 private:
  template <class Field>
  Field single() {
    if constexpr (std::is_same_v<Field, std::string>) {
      constexpr const char* kTexts[] = {"", "a", "Leaf green", "1", "\"]\\\n\t", "é 墨 🎨", "<&>"};
      return kTexts[below(std::size(kTexts))];
    } else if constexpr (std::is_same_v<Field, double>) {
      constexpr double kReals[] = {0, -0.0, 1, 0.1, -22.5, 1e9, 123456.789, 1e300};
      return kReals[below(std::size(kReals))];
    } else if constexpr (std::is_same_v<Field, bool>) {
      return below(2) == 1;
    } else {
      return static_cast<Field>(random_()) * (below(2) == 1 ? 1 : -1);
    }
  }

  std::minstd_rand random_;
};

using PlainJson = nlohmann::json;  // without an order of keys

// JSON made from the fields as the tests know them.
template <class Value>
PlainJson expectedJson(Value& value) {
  if constexpr (requires { fieldsOf(value); }) {
    PlainJson json = PlainJson::object();
    std::istringstream names(std::regex_replace(fieldNamesOf(value), std::regex("\\br\\.|,"), ""));
    const auto add = [&](auto& field) {
      std::string name;
      names >> name;
      json[name] = expectedJson(field);
    };
    std::apply([&](auto&... field) { (add(field), ...); }, fieldsOf(value));
    return json;
  } else if constexpr (requires {
                         value.emplace_back();
                         value.resize(1);
                       } &&
                       !std::is_same_v<Value, std::string>) {
    PlainJson json = PlainJson::array();
    for (auto& item : value) json.push_back(expectedJson(item));
    return json;
  } else {
    return value;
  }
}

template <class Value>
PlainJson printedJson(const Value& value) {
  return PlainJson::parse(jsonText(toJson(viewOf(value)), false));
}

TEST(Json, SaysWhatTheLibraryReadsOfRandomRecords) {
  for (unsigned seed = 0; seed < 40; ++seed) {
    Chance chance(seed);
    forEachKind([&]<class Value>(const ::Kind<Value>& kind) {
      XMPlib xmp;
      const auto made = chance.make<Value>();
      Value read{};
      kind.set(xmp, made);
      kind.get(xmp, read);
      EXPECT_EQ(printedJson(read), expectedJson(read)) << "seed " << seed;
    });
  }
}

TEST(Json, HasTextsForRealsThatAreNoNumbers) {
  XMPlDgcc curve;
  curve.values = {std::nan(""), HUGE_VAL, -HUGE_VAL, 0.1};
  EXPECT_EQ(jsonText(toJson(viewOf(curve)), false),
            R"({"name":"","values":["nan","inf","-inf",0.1]})");
}

}  // namespace
}  // namespace vxmeta
