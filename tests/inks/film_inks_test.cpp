// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include "core/toolkit/client.h"
#include "support/records.h"

namespace {

const char* const kFields =
    "name type book vxname r g b attribute printingmethod opacity inknrsoriginal";

const std::string kCurves =
    "singlepressDGC autoplateDGCreq autoplateDGCLW autoplateDGCCT autopressDGCreq autopressDGCLW "
    "autopressDGCCT totalDGCLW totalDGCCT gamma usedrefs ";

std::string inks(const Items& items) { return list("vxGr:inks", "Seq", items); }

std::vector<XMPlInkDigFilm> readFrom(const XMPlib& xmp) {
  std::vector<XMPlInkDigFilm> inks(9);
  EXPECT_TRUE(xmp.GetInksDigFilm(inks));
  return inks;
}

std::string part(const std::string& name, const std::string& content) {
  const std::string element = "vxDigFilmMetaData:" + name;
  return "<" + element + " rdf:parseType=\"Resource\">" + content + "</" + element + ">";
}
std::string parts(const std::string& name, const std::string& kind, const Items& items) {
  return list("vxDigFilmMetaData:" + name, kind, items);
}

}  // namespace

TEST(FilmInks, AreStoredInTheDocumentsArray) {
  const std::string ink = elements("vxInk:", kFields);
  Loaded xmp(inks({ink}));
  std::vector<XMPlInkDigFilm> read = readFrom(xmp);
  ASSERT_EQ(read.size(), 1U);
  EXPECT_EQ(fieldsOf(read[0]), std::tuple("1", "2", "3", "4", 5, 6, 7, "8", "9", 10, "11"));
  EXPECT_TRUE(xmp.SetInksDigFilm({read[0], read[0]}, true));
  EXPECT_EQ(stored(xmp), inks({ink, ink}));
  read[0].inknrsoriginal = read[0].printingmethod = "";
  EXPECT_TRUE(xmp.SetInksDigFilm(read, false));
  EXPECT_EQ(
      stored(xmp),
      inks({elements("vxInk:", "name type r=5 g=6 b=7 attribute=8 printingmethod= opacity=10")}));
}

TEST(FilmInks, EndBeforeTheFirstThatIsNotComplete) {
  EXPECT_EQ(optionalFields("vxInk:", kFields, inks, readFrom),
            "book vxname printingmethod inknrsoriginal");
}

TEST(FilmInks, LetToolkitErrorsOfReadingPass) {
  Loaded xmp(inks({elements("vxInk:", kFields), elements("vxInk:", "name type r=x")}));
  std::vector<XMPlInkDigFilm> read;
  EXPECT_THROW(xmp.GetInksDigFilm(read), XMP_Error);
  EXPECT_EQ(read.size(), 1U);
}

TEST(DigitalJobRefs, AreReadFromAnotherNamespaceThanWritten) {
  const char* const names = "instanceID renditionClass";
  const auto refs = [](const Items& items) { return list("vxDigFilmRefs:files", "Seq", items); };
  std::vector<XMPlUsedDigFilmRef> read(9);
  const auto readRefs = [&](const XMPlib& xmp) {
    EXPECT_TRUE(xmp.GetUsedDigitalJobRefs(read));
    EXPECT_EQ(read.at(0).instanceID + read[0].renditionClass, "12");
    return read;
  };
  XMPlib xmp;
  EXPECT_TRUE(xmp.SetUsedDigitalJobRefs({{"1", "2"}, {"3", ""}}));
  EXPECT_EQ(stored(xmp), refs({elements("vxDigFilmRef:", names),
                               elements("vxDigFilmRef:", "instanceID=3 renditionClass=")}));
  EXPECT_FALSE(xmp.GetUsedDigitalJobRefs(read) || !read.empty());
  EXPECT_EQ(optionalFields("vxUsedF:", names, refs, readRefs), "");
}

TEST(FilmMetadata, IsAStructureForEachSeparation) {
  const std::string basic = elements("vxGr:", "units vsize hsize vresolution hresolution");
  const std::string scan = elements("vxGr:",
                                    "vdist hdist vscale hscale reverse=True scanlinedirection "
                                    "margtop margbot margleft margright");
  const std::string ink = elements("vxInk:", "name type attribute r g b opacity");
  const std::string screening =
      "dotshapereq dotshape dotname frequencyreq frequency anglereq angle";
  const std::string screen = elements("vxScreen:", kCurves + screening);
  const std::string unnamed =
      elements("vxScreen:", kCurves + swapped(screening, "dotname", "dotname=13"));
  const std::string ref = elements("vxUsedF:", "renditionClass instanceID pagenr");
  Loaded source(basic + scan + inks({ink + elements("vxInk:", "book vxname inknrsoriginal=8")}) +
                list("vxScreenL:screens", "Bag", {screen, screen}) +
                list("vxUsedFL:files", "Seq", {ref, ref}));
  XMPlMetaDataDigFilm film, least;
  EXPECT_TRUE(source.GetDimDatDigFilm(film.dimdata) && source.GetScreens(film.screens) &&
              source.GetUsedRefs(film.uRefs));
  least.ink = film.ink = readFrom(source).at(0);
  least.ink.inknrsoriginal = "";
  least.dimdata = film.dimdata;
  least.dimdata.basicOnly = true;
  film.screens.at(1).hasScreening = false;  // makes no difference
  film.screens[1].dotname = "";             // stands for the dot shape
  XMPlib xmp;
  EXPECT_TRUE(xmp.SetMetaDataDigFilms({film, least}));
  const std::string whole =
      part("dimdata", basic + scan) + part("ink", ink + elements("vxInk:", "nrinksoriginal=8")) +
      parts("screens", "Seq", {part("screen", screen), part("screen", unnamed)}) +
      parts("uRefs", "Bag", {part("uRef", ref), part("uRef", ref)});
  const std::string bare = part("dimdata", basic) + part("ink", ink) + parts("screens", "Seq", {}) +
                           parts("uRefs", "Bag", {});
  EXPECT_EQ(stored(xmp),
            stored(Loaded(list("vxDigFilmMetaDataList:metadataList", "Seq", {whole, bare}))));
}
