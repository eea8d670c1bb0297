#include <gtest/gtest.h>

#include "core/toolkit.h"
#include "support/packets.h"

namespace {

std::string without(const std::vector<Field>& all, const std::string& missing) {
  std::vector<Field> some;
  for (const Field& field : all) {
    if (field.first != missing) some.push_back(field);
  }
  return fields("vxGr:", some);
}

const std::vector<Field> kPage = {{"units", "in"},         {"vsize", "1"},   {"hsize", "2"},
                                  {"margtop", "3"},        {"margbot", "4"}, {"margleft", "5"},
                                  {"margright", "6"},      {"vshrink", "7"}, {"hshrink", "8"},
                                  {"readerspread", "True"}};

const std::vector<Field> kFilm = {{"units", "in"},
                                  {"vsize", "1"},
                                  {"hsize", "2"},
                                  {"vresolution", "3"},
                                  {"hresolution", "4"},
                                  {"vdist", "5"},
                                  {"hdist", "6"},
                                  {"vscale", "7"},
                                  {"hscale", "8"},
                                  {"reverse", "True"},
                                  {"scanlinedirection", "9"},
                                  {"margtop", "10"},
                                  {"margbot", "11"},
                                  {"margleft", "12"},
                                  {"margright", "13"}};

XMPlDimDatDigFilm filmOf(const std::string& properties, bool expected) {
  Loaded xmp(properties);
  XMPlDimDatDigFilm film;
  film.margtop = film.margright = 99;
  film.hasMargins = true;
  film.basicOnly = false;
  EXPECT_EQ(xmp.GetDimDatDigFilm(film), expected);
  return film;
}

}  // namespace

TEST(PageDimensions, AreWrittenWhole) {
  XMPlib xmp;
  XMPlDimDat page;
  page.vsize = 210.5;
  EXPECT_TRUE(xmp.SetDimDat(page));
  EXPECT_EQ(stored(xmp), fields("vxGr:", {{"units", "mm"},
                                          {"vsize", "210.5"},
                                          {"hsize", "0"},
                                          {"margtop", "0"},
                                          {"margbot", "0"},
                                          {"margleft", "0"},
                                          {"margright", "0"},
                                          {"vshrink", "1"},
                                          {"hshrink", "1"},
                                          {"readerspread", "False"}}));
  Loaded other(fields("vxGr:", kPage));
  EXPECT_TRUE(other.GetDimDat(page));
  EXPECT_EQ(page.units, "in");
  const double read[] = {page.vsize,    page.hsize,     page.margtop, page.margbot,
                         page.margleft, page.margright, page.vshrink, page.hshrink};
  for (int i = 0; i < 8; ++i) EXPECT_EQ(read[i], i + 1);
  EXPECT_TRUE(page.readerspread);
}

TEST(PageDimensions, ReadingStopsAtTheFirstGap) {
  XMPlDimDat page;
  EXPECT_FALSE(Loaded(without(kPage, "margtop")).GetDimDat(page));
  EXPECT_EQ(page.margbot, 4);  // read before margtop
  EXPECT_EQ(page.margleft, 0);
  EXPECT_EQ(page.units, "mm");
  EXPECT_FALSE(Loaded(without(kPage, "readerspread")).GetDimDat(page));
  EXPECT_EQ(page.hshrink, 8);
  EXPECT_EQ(page.units, "in");
  Loaded wrong("<vxGr:vsize>wide</vxGr:vsize>");
  EXPECT_FALSE(wrong.GetDimDat(page));
  EXPECT_EQ(wrong.ErrStr(), "Invalid float string");
}

TEST(PageDimensions, WrittenBeforeAToolkitErrorStay) {
  Loaded xmp("<vxGr:hsize><rdf:Bag/></vxGr:hsize>");
  EXPECT_FALSE(xmp.SetDimDat(XMPlDimDat()));
  EXPECT_EQ(xmp.ErrStr(), "Composite nodes can't have values");
  EXPECT_EQ(stored(xmp),
            "<vxGr:hsize><rdf:Bag/></vxGr:hsize><vxGr:units>mm</vxGr:units>"
            "<vxGr:vsize>0</vxGr:vsize>");
}

TEST(FilmDimensions, AreWrittenInGroups) {
  XMPlib xmp;
  XMPlDimDatDigFilm film;
  film.hasMargins = true;  // without the scan group, no margins
  EXPECT_TRUE(xmp.SetDimDatDigFilm(film));
  const std::vector<Field> basic = {
      {"units", "mm"}, {"vsize", "0"}, {"hsize", "0"}, {"vresolution", "0"}, {"hresolution", "0"}};
  EXPECT_EQ(stored(xmp), fields("vxGr:", basic));

  film.basicOnly = false;
  film.margright = 2.5;
  EXPECT_TRUE(xmp.SetDimDatDigFilm(film));
  const std::string all = fields("vxGr:", basic) + fields("vxGr:", {{"vdist", "1"},
                                                                    {"hdist", "1"},
                                                                    {"vscale", "1"},
                                                                    {"hscale", "1"},
                                                                    {"reverse", "False"},
                                                                    {"scanlinedirection", "0"},
                                                                    {"margtop", "0"},
                                                                    {"margbot", "0"},
                                                                    {"margleft", "0"},
                                                                    {"margright", "2.5"}});
  EXPECT_EQ(stored(xmp), all);

  film.basicOnly = true;
  EXPECT_TRUE(xmp.SetDimDatDigFilm(film));
  EXPECT_EQ(stored(xmp), all);  // a later group stays
}

TEST(FilmDimensions, FlagsTellWhichGroupsWereFound) {
  XMPlDimDatDigFilm film = filmOf(fields("vxGr:", kFilm), true);
  EXPECT_TRUE(!film.basicOnly && film.hasMargins && film.reverse);
  const double read[] = {film.vsize,       film.hsize,   film.vresolution,
                         film.hresolution, film.vdist,   film.hdist,
                         film.vscale,      film.hscale,  double(film.scanlinedirection),
                         film.margtop,     film.margbot, film.margleft,
                         film.margright};
  for (int i = 0; i < 13; ++i) EXPECT_EQ(read[i], i + 1);

  film = filmOf(without(kFilm, "margleft"), true);
  EXPECT_TRUE(!film.basicOnly && !film.hasMargins);
  EXPECT_EQ(film.margtop, 0);
  EXPECT_EQ(film.margright, 0);

  film = filmOf(without(kFilm, "scanlinedirection"), true);
  EXPECT_TRUE(film.basicOnly && !film.hasMargins && film.reverse);
  EXPECT_EQ(film.margtop, 0);

  film = filmOf(without(kFilm, "hdist"), true);
  EXPECT_TRUE(film.basicOnly && film.reverse);
  EXPECT_EQ(film.vdist, 5);
  EXPECT_EQ(film.vscale, 1);
  EXPECT_EQ(film.scanlinedirection, 9);

  film = filmOf(without(kFilm, "hsize"), false);
  EXPECT_TRUE(film.basicOnly && !film.hasMargins && !film.reverse);
  EXPECT_EQ(film.vsize, 1);
  EXPECT_EQ(film.margtop, 0);
}

TEST(FilmDimensions, LetToolkitErrorsPass) {
  Loaded xmp(fields("vxGr:", {{"units", "mm"}, {"vsize", "wide"}}));
  XMPlDimDatDigFilm film;
  EXPECT_THROW(xmp.GetDimDatDigFilm(film), XMP_Error);
  EXPECT_EQ(xmp.ErrStr(), "");
  film.units = "\xff";
  EXPECT_THROW(xmp.SetDimDatDigFilm(film), XMP_Error);
  EXPECT_FALSE(Empty().SetDimDatDigFilm(film));
}
