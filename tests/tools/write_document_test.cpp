// SPDX-License-Identifier: Apache-2.0
// A document's JSON put into documents, and what is written then.
#include "model/write_document.h"

#include <XMP_Const.h>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <random>

#include "model/json_text.h"
#include "model/read_document.h"
#include "support/kinds.h"

namespace vxmeta {
namespace {

std::string jsonOf(const Document& document, bool isPretty) {
  return jsonText(toJson(viewOf(document)), isPretty);
}

Writing applied(const std::string& json, XMPlib& xmp, bool force = false) {
  Edit edit(readDocument(xmp, {}));
  putJson(edit, json);
  settleSharedProperties(edit);
  return writeDocument(edit, force, xmp);
}

// Values by chance: the usual ones, and those that storing alters.
class Chance {
 public:
  explicit Chance(unsigned seed) : random_(seed) {}

  std::size_t below(std::size_t limit) { return random_() % limit; }

  template <class Value>
  void fill(Value& value) {
    const auto resize = [&](auto& list) { list.resize(below(4)); };
    visitFields(value, resize, [&]<class Field>(Field& field) { set(field); });
  }

 private:
  void set(std::string& text) {
    constexpr const char* kTexts[] = {"",      "a",        "b",   " ",         "now",
                                      "grid",  "die",      "x;y", "\xC3\xA9",  "a\001b",
                                      "<&>\"", "Untagged", "10%", "2026-11-22"};
    text = kTexts[below(std::size(kTexts))];
  }
  void set(bool& truth) { truth = below(2) == 0; }
  void set(double& real) {
    constexpr double kReals[] = {0, 1, -1.5, 22.5, 0.1, 1.0 / 3, 123456.789, 1e12, NAN, INFINITY};
    real = kReals[below(std::size(kReals))];
  }
  template <class Integer>
  void set(Integer& number) {
    constexpr std::int32_t kNumbers[] = {0, 1, -1, 7, 2147483647, -2147483647 - 1};
    number = kNumbers[below(std::size(kNumbers))];
  }

  std::mt19937 random_;
};

// A packet with records of some kinds.
XMPlib randomPacket(Chance& chance) {
  XMPlib xmp;
  forEachKind([&]<class Value>(const ::Kind<Value>& kind) {
    if (chance.below(3) > 0) return;
    Value value{};
    chance.fill(value);
    kind.set(xmp, value);
  });
  XMPlPDFData pdf;
  XMPlMMData media;
  std::vector<XMPlMetaDataDigFilm> films;
  chance.fill(pdf);
  chance.fill(media);
  chance.fill(films);
  if (chance.below(3) == 0) xmp.SetPDFData(pdf);
  if (chance.below(3) == 0) xmp.SetMMData(media);
  if (chance.below(3) == 0) xmp.SetMetaDataDigFilms(films);
  XMPlib loaded;
  loaded.SetXML(xmp.GetXML());
  EXPECT_EQ(loaded.ErrStr(), "");
  return loaded;
}

TEST(Apply, OfItsOwnJsonChangesNothing) {
  for (unsigned seed = 0; seed < 300; ++seed) {
    Chance chance(seed);
    XMPlib xmp = randomPacket(chance);
    const std::string before = xmp.GetXML();
    for (const bool isPretty : {false, true}) {
      const Writing writing = applied(jsonOf(readDocument(xmp, {}), isPretty), xmp);
      EXPECT_TRUE(writing.written.empty()) << seed << ": " << writing.written.front();
      EXPECT_TRUE(writing.notes.empty()) << seed;
    }
    EXPECT_EQ(xmp.GetXML(), before) << seed;
  }
}

// What was written without a note reads back: the same JSON has nothing more to change.
TEST(Apply, OfAnotherDocumentsJsonIsDoneAtOnce) {
  int applications = 0;
  for (unsigned seed = 0; seed < 300; ++seed) {
    Chance chance(seed);
    const std::string json = jsonOf(readDocument(randomPacket(chance), {}), false);
    XMPlib xmp = randomPacket(chance);
    try {
      const Writing first = applied(json, xmp, true);
      if (!first.notes.empty()) continue;
      ++applications;
      const Writing second = applied(json, xmp, true);
      EXPECT_TRUE(second.written.empty()) << seed << ": " << second.written.front();
    } catch (const EditError& error) {
      EXPECT_NE(error.path, "") << error.what();
    } catch (const JsonTextError& error) {
      ADD_FAILURE() << error.what();
    }
  }
  EXPECT_GT(applications, 20);
}

TEST(Apply, WritesTheSectionsThatDiffer) {
  XMPlib xmp;
  xmp.SetLayers({{"a", true, false}, {"b", true, false}});
  xmp.SetNrPages(3);
  const std::string json = R"({"scalars": {"nrPages": 4}, "layers": [{"name": "a",
      "printable": true}, {"name": "b", "printable": true}], "fonts": []})";
  const std::vector<std::string> expected = {"scalars.nrPages", "fonts"};
  const Writing writing = applied(json, xmp);
  EXPECT_EQ(writing.written, expected);
  EXPECT_EQ(writing.result.scalars->nrPages, 4);
  EXPECT_EQ(writing.result.fonts->size(), 0U);
}

struct Deletion {
  const char* json;
  const char* left;  // of the packet's sections, as JSON
};

TEST(Apply, NullDeletesWhatCanBeDeleted) {
  const Deletion cases[] = {
      {R"({"job": {"orderid": null}})", R"({"name":"n","id":"","url":"","description":"",)"
                                        R"("orderid":"","suborderid":""})"},
      {R"({"job": {"orderid": ""}})", R"({"name":"n","id":"","url":"","description":"",)"
                                      R"("orderid":"","suborderid":""})"},
      {R"({"job": null})", "null"},
  };
  for (const Deletion& one : cases) {
    XMPlib xmp;
    XMPlJobData job;
    job.name = "n";
    job.orderid = "o";
    xmp.SetJobData(job);
    const Document result = applied(one.json, xmp).result;
    EXPECT_EQ(jsonText(toJson(viewOf(result.job)), false), one.left) << one.json;
  }
  XMPlib xmp;
  xmp.SetVDPVersion(3);
  xmp.SetMMData({"d", "v", "", ""});
  const Document result =
      applied(R"({"scalars": {"vdpVersion": null}, "mmData": null})", xmp).result;
  EXPECT_FALSE(result.scalars);
  EXPECT_FALSE(result.mmData);
}

// What the library writes and does not read comes with a note.
TEST(Apply, SaysWhatDoesNotReadBack) {
  const char* const cases[] = {
      R"({"version": {"version": "2", "comments": "first"}})",
      R"({"film": {"jobReferences": [{"instanceID": "uuid:1", "renditionClass": "default"}]}})",
      R"({"inks": [{"name": "a", "angle": 22.123456789012}]})",
      R"({"layers": [{"name": "a\u0001"}]})",
      R"({"inks": [{"name": "a", "pct": 50}]})",
      R"({"inks": [{"name": "a", "angle": "nan"}]})",
  };
  for (const char* json : cases) {
    XMPlib xmp;
    EXPECT_FALSE(applied(json, xmp).notes.empty()) << json;
  }
}

std::string refusal(const std::string& json, XMPlib& xmp) {
  try {
    applied(json, xmp);
  } catch (const std::exception& error) {
    return error.what();
  }
  return "";
}

TEST(Apply, RefusesWhatCannotBeStored) {
  XMPlib xmp;
  XMPlDigFilmVersion version;
  version.version = 100;
  xmp.SetDigitalFilmVersionDetailed(version);
  xmp.SetDimDat({});
  xmp.SetInks({{}}, true);
  const std::pair<const char*, const char*> cases[] = {
      {R"({"page": null})", "page: cannot be deleted, only be changed"},
      {R"({"inks": null})", "inks: cannot be deleted, only be changed"},
      {R"({"colorSpace": {"colorprofloc": "here"}})",
       "colorSpace.colorprofloc: 'here' is none of Untagged, PDFOutputIntent, VXEmbedded, "
       "VXDatabase"},
      {R"({"usedRefs": [{"pagenr": 2147483648}]})",
       "usedRefs[0].pagenr: 2147483648 is out of range"},
      {R"({"film": {"inks": [{"name": "a"}]}})", "film.inks: is the same property as inks"},
      {R"({"scalars": {"digitalFilmVersion": 1}, "film": {"version": {"version": 2}}})",
       "scalars.digitalFilmVersion: is the same property as film.version.version, and has another "
       "value"},
      {R"({"page": {"vsize": 1}, "film": {"dimensions": {"vsize": 2}}})",
       "page.vsize: is the same property as film.dimensions.vsize"},
      {R"({"screens": [[], [{}]]})", "screens: would read back with 0 items instead of 2"},
  };
  for (const auto& [json, why] : cases) {
    EXPECT_EQ(refusal(json, xmp).substr(0, std::strlen(why)), why) << json;
  }
}

TEST(Apply, OneOfASharedPropertyCountsForBoth) {
  XMPlib xmp;
  XMPlDigFilmVersion version;
  version.version = 100;
  xmp.SetDigitalFilmVersionDetailed(version);
  EXPECT_EQ(
      applied(R"({"film": {"version": {"version": 7}}})", xmp).result.scalars->digitalFilmVersion,
      7);
  EXPECT_EQ(applied(R"({"scalars": {"digitalFilmVersion": 8}})", xmp).result.film->version->version,
            8);
}

TEST(Apply, ReplacesInksByThoseOfAFilm) {
  XMPlib xmp;
  xmp.SetInks({{}}, true);
  const Document result =
      applied(R"({"inks": null, "film": {"inks": [{"name": "a"}]}})", xmp).result;
  EXPECT_FALSE(result.inks);
  EXPECT_EQ(result.film->inks->size(), 1U);
}

TEST(ApplyJson, IsRefusedByLineAndPointer) {
  const std::pair<const char*, const char*> cases[] = {
      {"", "line 1, column 1: "},
      {"{\n\n]", "line 3, column 1: "},
      {"[]", "line 1: the whole: expected an object"},
      {"{\"job\": {}} {}", "line 1, column 13: "},
      {"{\"vxmeta\":\n2}", "line 2: /vxmeta: is another version than 1"},
      {"{\n\"colours\":\n []}", "line 3: /colours: there is no such field"},
      {"{\"scalars\": {\"nrPages\": 1\n,\n\"startLogPage\": \"1\"\n}}",
       "line 3: /scalars/startLogPage: expected an integer"},
      {"{\"dgcs\": [{\"values\": [1,\n2,\n3\n,\ntrue]}]}", "line 5: /dgcs/0/values/3: "},
      {"{\"dgcs\": [{\"values\": [1,\n2\n,\"3\"]}]}", "line 3: /dgcs/0/values/2: "},
      {"{\"job\": {\"id\": \"1\",\n\"id\": \"1\"}}", "line 2: /job/id: stands there twice"},
      {R"({"foreign": [{"a": 1, "a": 1}]})", "line 1: /foreign/0/a: stands there twice"},
      {R"({"scalars": {"nrPages": 1e999}})", "line 1: number overflow"},
      {R"({"page": {"units": null}})", "line 1: /page/units: expected a text, found null"},
  };
  for (const auto& [json, why] : cases) {
    XMPlib xmp;
    const std::string message = refusal(json, xmp);
    EXPECT_EQ(message.substr(0, std::strlen(why)), why) << json;
  }
}

TEST(ApplyJson, IsBounded) {
  XMPlib xmp;
  EXPECT_NE(refusal(std::string(1000000, '['), xmp).find("too deep"), std::string::npos);
  std::string fields = "{";
  for (int i = 0; i < 100000; ++i) fields += "\"" + std::to_string(i) + "\": 1,";
  EXPECT_NE(refusal(fields, xmp).find("too many fields"), std::string::npos);
}

}  // namespace
}  // namespace vxmeta
