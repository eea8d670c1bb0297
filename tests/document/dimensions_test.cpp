// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include "core/toolkit/client.h"
#include "support/records.h"

namespace {

const char* const kPage =
    "units=in vsize hsize margtop margbot margleft margright vshrink hshrink readerspread=True";
const char* const kFilm =
    "units=in vsize=2 hsize=3 vresolution=4 hresolution=5 vdist=6 hdist=7 vscale=8 hscale=9 "
    "reverse=True scanlinedirection=10 margtop=11 margbot=12 margleft=13 margright=14";

Loaded with(const std::string& names) { return Loaded(elements("vxGr:", names)); }

}  // namespace

TEST(PageDimensions, AreWrittenWhole) {
  XMPlib xmp;
  XMPlDimDat page;
  page.vsize = 210.5;
  EXPECT_TRUE(xmp.SetDimDat(page));
  EXPECT_EQ(stored(xmp), elements("vxGr:",
                                  "units=mm vsize=210.5 hsize=0 margtop=0 margbot=0 margleft=0 "
                                  "margright=0 vshrink=1 hshrink=1 readerspread=False"));
  EXPECT_TRUE(with(kPage).GetDimDat(page));
  EXPECT_EQ(fieldsOf(page), std::tuple("in", 2, 3, 4, 5, 6, 7, 8, 9, true));
  Loaded odd("<vxGr:hsize><rdf:Bag/></vxGr:hsize>");
  EXPECT_FALSE(odd.SetDimDat(page));
  EXPECT_EQ(odd.ErrStr(), "Composite nodes can't have values");
  EXPECT_EQ(stored(odd),
            "<vxGr:hsize><rdf:Bag/></vxGr:hsize>" + elements("vxGr:", "units=in vsize"));
}

TEST(PageDimensions, ReadingStopsAtTheFirstGap) {
  const char* const inReadingOrder =
      "vsize=2 hsize margbot margtop margleft margright vshrink hshrink units=in readerspread=True";
  EXPECT_EQ(notFilledUpToAGap("vxGr:", inReadingOrder, &XMPlib::GetDimDat), "");
}

TEST(FilmDimensions, AreWrittenInGroups) {
  XMPlib xmp;
  XMPlDimDatDigFilm film;
  film.hasMargins = true;  // without the scan group, no margins
  EXPECT_TRUE(xmp.SetDimDatDigFilm(film));
  const std::string basic =
      elements("vxGr:", "units=mm vsize=0 hsize=0 vresolution=0 hresolution=0");
  EXPECT_EQ(stored(xmp), basic);

  film.basicOnly = false;
  film.margright = 2.5;
  EXPECT_TRUE(xmp.SetDimDatDigFilm(film));
  const std::string all =
      basic + elements("vxGr:",
                       "vdist=1 hdist=1 vscale=1 hscale=1 reverse=False scanlinedirection=0 "
                       "margtop=0 margbot=0 margleft=0 margright=2.5");
  EXPECT_EQ(stored(xmp), all);

  film.basicOnly = true;
  EXPECT_TRUE(xmp.SetDimDatDigFilm(film));
  EXPECT_EQ(stored(xmp), all);  // a later group stays
}

TEST(FilmDimensions, FlagsTellWhichGroupsWereFound) {
  const std::pair<const char*, const char*> rows[] = {
      {"",
       "units vsize hsize vresolution hresolution basicOnly vdist hdist vscale hscale reverse "
       "scanlinedirection hasMargins margtop margbot margleft margright"},
      {"margleft=13",
       "units vsize hsize vresolution hresolution basicOnly vdist hdist vscale hscale reverse "
       "scanlinedirection"},
      {"scanlinedirection=10",
       "units vsize hsize vresolution hresolution vdist hdist vscale hscale reverse"},
      {"hdist=7", "units vsize hsize vresolution hresolution vdist reverse scanlinedirection"},
      {"hsize=3", "units vsize"},
  };
  for (const auto& [missing, filled] : rows) {
    XMPlDimDatDigFilm film;
    film.margtop = film.margright = 99;
    film.hasMargins = true;
    film.basicOnly = false;
    const bool isBasicThere = missing != std::string("hsize=3");
    EXPECT_EQ(with(*missing == '\0' ? kFilm : swapped(kFilm, missing)).GetDimDatDigFilm(film),
              isBasicThere);
    EXPECT_EQ(changedFields(film), filled) << missing;
  }
  XMPlDimDatDigFilm film;
  EXPECT_TRUE(with(kFilm).GetDimDatDigFilm(film));
  EXPECT_EQ(fieldsOf(film),
            std::tuple("in", 2, 3, 4, 5, false, 6, 7, 8, 9, true, 10, true, 11, 12, 13, 14));
}

TEST(FilmDimensions, LetToolkitErrorsPass) {
  Loaded xmp = with("units=mm vsize=wide");
  XMPlDimDatDigFilm film;
  EXPECT_THROW(xmp.GetDimDatDigFilm(film), XMP_Error);
  film.units = "\xff";
  EXPECT_THROW(xmp.SetDimDatDigFilm(film), XMP_Error);
}
