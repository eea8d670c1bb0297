// Every operation meets a handle without metadata, properties of a wrong shape, texts that do not
// convert, and texts that XML cannot hold. Toolkit errors leave the four operations that let them
// pass, and no other.
#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>

#include "core/toolkit/client.h"
#include "support/packets.h"

namespace {

using Text = const std::string&;

// One Get and Set pair. `set` stores a record whose first text is `text`; null: there is none.
struct Operation {
  const char* name;
  std::function<bool(XMPlib&)> get;
  std::function<bool(XMPlib&, Text)> set;
  Items properties = {};   // that the Get looks at
  bool getPasses = false;  // toolkit errors pass to the caller
  bool setPasses = false;
};

template <class Value>
std::function<bool(XMPlib&)> getter(bool (XMPlib::*get)(Value&) const) {
  return [get](XMPlib& xmp) {
    Value value{};
    return (xmp.*get)(value);
  };
}

// Sets a record, or a list of one, whose field `text` is given.
template <class Value, class Base, class... Flag>
std::function<bool(XMPlib&, Text)> setter(bool (XMPlib::*set)(const Value&, Flag...),
                                          std::string Base::*text) {
  return [=](XMPlib& xmp, Text given) {
    Value value;
    if constexpr (requires { value.emplace_back(); }) {
      value.emplace_back().*text = given;
    } else {
      value.*text = given;
    }
    return (xmp.*set)(value, Flag(true)...);
  };
}

template <class Record>
using List = bool (XMPlib::*)(std::vector<Record>&) const;
using SetRefs = bool (XMPlib::*)(const std::vector<XMPlExtRef>&);

bool setScalar(XMPlib& xmp, Text text) { return xmp.SetSmartID(text); }
bool setColours(XMPlib& xmp, Text text) { return xmp.SetColorSpace({"Untagged", text, ""}); }
bool setFilms(XMPlib& xmp, Text text) {
  std::vector<XMPlMetaDataDigFilm> films(1);
  films.front().ink.name = text;
  return xmp.SetMetaDataDigFilms(films);
}
bool setContainer(XMPlib& xmp, Text text) {
  XMPlScreen screen;
  screen.gamma = text;
  return xmp.SetScreenContainer({{screen}});
}
bool setRegistration(XMPlib& xmp, Text text) {
  XMPlCadReg registration{text, "", "", 0, 0, 0};
  return xmp.SetCadReg(registration);
}

// clang-format off
const std::vector<Operation>& operations() {
  using X = XMPlib;
  static const std::vector<Operation> rows = {
      {"SmartID", getter(&X::GetSmartID), setScalar},
      {"NrPages", getter(&X::GetNrPages), nullptr, {"vxGr:nrpages"}},
      {"IsTrapped", getter(&X::GetIsTrapped), nullptr, {"vxGr:trapped"}},
      {"JobData", getter(&X::GetJobData), setter(&X::SetJobData, &XMPlJobData::name), {"xmpBJ:JobRef"}},
      {"ProdData", getter(&X::GetProdData), setter(&X::SetProdData, &XMPlProdData::id)},
      {"DocumentData", getter(&X::GetDocumentData), setter(&X::SetDocumentData, &XMPlDocData::description)},
      {"DocumentVersion", getter(&X::GetDocumentVersion), setter(&X::SetDocumentVersion, &XMPlDocVersion::modifier)},
      {"FilmVersion", getter(&X::GetDigitalFilmVersionDetailed), setter(&X::SetDigitalFilmVersionDetailed, &XMPlDigFilmVersion::type), {"vxDigFilm:version"}, true},
      {"BaseDoc", getter(&X::GetBaseDoc), setter(&X::SetBaseDoc, &XMPlExtRef::instanceID), {"vxPrF:DerivedFrom"}},
      {"DimDat", getter(&X::GetDimDat), setter(&X::SetDimDat, &XMPlDimDat::units), {"vxGr:vsize"}},
      {"FilmDimensions", getter(&X::GetDimDatDigFilm), setter(&X::SetDimDatDigFilm, &XMPlDimDatDigFilm::units), {}, true, true},
      {"ColorSpace", getter(&X::GetColorSpace), setColours},
      {"PDFData", nullptr, setter(&X::SetPDFData, &XMPlPDFData::title)},
      {"MMData", nullptr, setter(&X::SetMMData, &XMPlMMData::versionID)},
      {"Inks", getter(List<XMPlInk>(&X::GetInks)), setter(&X::SetInks, &XMPlInk::name), {"vxGr:inks"}},
      {"MergeInks", nullptr, setter(&X::MergeInks, &XMPlInk::name)},
      {"InkProperties", getter(&X::GetInkProperties), setter(&X::SetInkProperties, &XMPlInkProperty::book), {"vxGr:inkproperties"}},
      {"InksDigFilm", getter(&X::GetInksDigFilm), setter(&X::SetInksDigFilm, &XMPlInkDigFilm::inknrsoriginal), {"vxGr:inks"}, true},
      {"DigitalJobRefs", getter(&X::GetUsedDigitalJobRefs), setter(&X::SetUsedDigitalJobRefs, &XMPlUsedDigFilmRef::instanceID), {"vxDigFilmRefs:files"}},
      {"Dgcs", getter(&X::GetDgcs), setter(&X::SetDgcs, &XMPlDgcc::name), {"vxDGCL:dgcs"}},
      {"MetaDataDigFilms", nullptr, setFilms},
      {"Screens", getter(List<XMPlScreen>(&X::GetScreens)), setter(&X::SetScreens, &XMPlScreen::gamma), {"vxScreenC:screenContainer", "vxScreenL:screens"}},
      {"ScreenContainer", getter(&X::GetScreenContainer), setContainer, {"vxScreenC:screenContainer"}},
      {"UsedRefs", getter(&X::GetUsedRefs), setter(&X::SetUsedRefs, &XMPlUsedRef::instanceID), {"vxUsedFL:files"}},
      {"ExtRefs", getter(List<XMPlExtRef>(&X::GetExtRefs)), setter(SetRefs(&X::SetExtRefs), &XMPlExtRef::type), {"vxExtFL2:files", "vxExtFL:files"}},
      {"OldExtRefs", getter(&X::GetOldExtRefs), setter(&X::SetOldExtRefs, &XMPlExtRef::instanceID), {"vxExtFL:files"}},
      {"MergeExtRefs", nullptr, setter(&X::MergeExtRefs, &XMPlExtRef::instanceID)},
      {"CadFiles", getter(&X::GetCadFiles), setter(&X::SetCadFiles, &XMPlExtRef::instanceID), {"vxCadL:files"}},
      {"MergeCadFiles", nullptr, setter(&X::MergeCadFiles, &XMPlExtRef::instanceID)},
      {"Fonts", getter(List<XMPlFont>(&X::GetFonts)), setter(&X::SetFonts, &XMPlFont::fontfile), {"vxFontL:fonts"}},
      {"MergeFonts", nullptr, setter(&X::MergeFonts, &XMPlFont::name)},
      {"Barcodes", getter(&X::GetBarcodes), setter(&X::SetBarcodes, &XMPlBarcode::code), {"vxBarcL:barcodes"}},
      {"MergeBarcodes", nullptr, setter(&X::MergeBarcodes, &XMPlBarcode::type)},
      {"Layers", getter(&X::GetLayers), setter(&X::SetLayers, &XMPlLay::name), {"vxLayL:layers"}},
      {"MergeLayers", nullptr, setter(&X::MergeLayers, &XMPlLay::name)},
      {"SmartNames", getter(&X::GetSmartNames), setter(&X::SetSmartNames, &XMPlSmartName::value), {"vxSmNameL:smartnames"}},
      {"PagRanges", getter(&X::GetPagRanges), nullptr, {"vxPagL:pagelist"}},
      {"Repeats", getter(&X::GetRepeats), setter(&X::SetRepeats, &XMPlRepeat::front), {"vxSrLayout:repeats"}},
      {"CadReg", getter(&X::GetCadReg), setRegistration},
      {"IsNonPDFCompatible", &X::IsNonPDFCompatible, nullptr},
  };
  return rows;
}
// clang-format on

// What a call comes to: its result, or the toolkit error that passed.
std::string outcome(const std::function<bool()>& call) {
  try {
    return call() ? "true" : "false";
  } catch (const XMP_Error&) {
    return "passed";
  }
}

bool isMerge(const Operation& operation) {
  return std::string(operation.name).starts_with("Merge");
}

}  // namespace

TEST(Operations, WithoutMetadataAnswerFalse) {
  for (const Operation& operation : operations()) {
    SCOPED_TRACE(operation.name);
    Empty empty;
    if (operation.get) {
      EXPECT_FALSE(operation.get(empty));
      EXPECT_EQ(empty.ErrStr(), "Illegal XAP");
    }
    if (operation.set) {
      EXPECT_FALSE(operation.set(empty, "text"));
      EXPECT_EQ(empty.ErrStr(), "Illegal XAP");
    }
  }
}

TEST(Operations, TakeAWrongShapeForAnError) {
  for (const Operation& operation : operations()) {
    for (const std::string& property : operation.properties) {
      SCOPED_TRACE(operation.name);
      Loaded simple("<" + property + ">text</" + property + ">");
      EXPECT_EQ(outcome([&] { return operation.get(simple); }),
                operation.getPasses ? "passed" : "false");
      EXPECT_EQ(simple.ErrStr().empty(), operation.getPasses);
      Loaded structure("<" + property + " rdf:parseType='Resource'><dc:a/></" + property + ">");
      EXPECT_NE(outcome([&] { return operation.get(structure); }), "true");
    }
  }
}

TEST(Operations, RefuseWhatIsNoUtf8AndStoreTheRest) {
  const std::string texts[] = {"",
                               " ",
                               "a\1b",
                               std::string("a\0b", 3),
                               "<&>\"'",
                               "\xf0\x9f\x8e\xa8",
                               std::string(1 << 20, 'x')};
  for (const Operation& operation : operations()) {
    if (!operation.set) continue;
    SCOPED_TRACE(operation.name);
    for (const std::string& text : texts) {
      XMPlib xmp;
      EXPECT_TRUE(operation.set(xmp, text));
      EXPECT_EQ(xmp.ErrStr(), "");
      XMPlib again;
      again.SetXML(xmp.GetXML());
      EXPECT_EQ(again.ErrStr(), "");
      EXPECT_EQ(stored(again), stored(xmp));
    }
    XMPlib xmp;
    const char* expected = operation.setPasses ? "passed" : isMerge(operation) ? "true" : "false";
    EXPECT_EQ(outcome([&] { return operation.set(xmp, "\xc3("); }), expected);
    EXPECT_EQ(xmp.ErrStr(), operation.setPasses ? "" : "Invalid UTF-8 data byte");
    EXPECT_FALSE(xmp.GetXML().empty());  // what is there can still be serialised
  }
}
