// SPDX-License-Identifier: Apache-2.0
// merge [PACKET-FILE...]
//
// Gathers the resources of placed documents into one job, then merges four separations into a
// composite film. Packets named on the command line are placed as well.
#include <XMPlib.h>

#include <fstream>
#include <iostream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

void require(bool done, const XMPlib& xmp) {
  if (!done) throw std::runtime_error(xmp.ErrStr());
}

std::string readFile(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) throw std::runtime_error("cannot read " + path);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

// --- Placed documents ---------------------------------------------------------------------------

XMPlInk spotInk(const std::string& name) {
  XMPlInk ink;
  ink.name = name;
  ink.type = "spot";
  ink.frequency = 150;
  ink.attribute = "normal";
  return ink;
}

XMPlFont systemFont(const std::string& name) {
  XMPlFont font;
  font.name = name;
  font.type = "OpenType";
  font.location = "system";
  font.fontfile = "/fonts;" + name + ".otf";
  return font;
}

std::string placedDocument(const std::string& ink, const std::string& font) {
  XMPlib xmp;
  require(xmp.SetInks({spotInk(ink), spotInk("Gold")}, true), xmp);
  require(xmp.SetFonts({systemFont(font), systemFont("Sans")}), xmp);
  return xmp.GetXMLPacket(false, 0);
}

void gather(XMPlib& job, const std::vector<std::string>& placed) {
  for (const std::string& packet : placed) job.MergeXML(packet, true);
  std::vector<XMPlInk> inks;
  job.GetInks(inks);
  std::cout << "Gathered from " << placed.size() << " documents\n  inks:";
  for (const XMPlInk& ink : inks) std::cout << ' ' << ink.name << ';';
  std::vector<XMPlFont> fonts;
  job.GetFonts(fonts);
  std::cout << "\n  fonts:";
  for (const XMPlFont& font : fonts) std::cout << ' ' << font.name << ';';
  std::cout << '\n';
}

// --- Separations --------------------------------------------------------------------------------

XMPlScreen screenAt(double angle, const std::string& curve) {
  XMPlScreen screen;
  screen.autoplateDGCreq = screen.autoplateDGCLW = screen.autoplateDGCCT = curve;
  screen.hasScreening = true;
  screen.frequencyreq = screen.frequency = 175;
  screen.anglereq = screen.angle = angle;
  screen.dotshapereq = screen.dotshape = "Ellipse";
  return screen;
}

// A film of one ink: all that a packet needs to take part in a merge.
std::string separation(const std::string& name, double angle) {
  XMPlib film;
  XMPlDigFilmVersion version;
  version.structure = "Separated";
  require(film.SetDigitalFilmVersionDetailed(version), film);
  XMPlDocData document;
  document.creatorTool = "Film maker";
  require(film.SetDocumentData(document), film);

  XMPlDimDatDigFilm dimensions;
  dimensions.vsize = 182.5;
  dimensions.hsize = 246;
  dimensions.vresolution = dimensions.hresolution = 2400;
  require(film.SetDimDatDigFilm(dimensions), film);

  XMPlInkDigFilm ink;
  ink.name = name;
  ink.type = "process";
  ink.attribute = "normal";
  ink.opacity = 1;
  require(film.SetInksDigFilm({ink}, true), film);
  XMPlColorSpace colours;
  colours.colorprofdesc = "Offset on coated board";
  require(film.SetColorSpace(colours), film);
  require(film.SetScreenContainer({{screenAt(angle, "Plate")}}), film);

  XMPlDgcc curve;
  curve.name = "Plate";
  curve.values = {0, 9.4, 47.25, 100};
  require(film.SetDgcs({curve}), film);
  XMPlUsedRef used;
  used.instanceID = "carton.pdf";
  used.renditionClass = "default";
  require(film.SetUsedRefs({used}), film);
  XMPlPagRange page;
  page.start = page.end = 1;
  page.inks = {1};
  require(film.SetPagRanges({page}), film);
  return film.GetXMLPacket(false, 0);
}

void mergeSeparations() {
  constexpr int kSeparationsOfTheSamePages = 0;
  const std::vector<std::string> films = {separation("Cyan", 15), separation("Magenta", 75),
                                          separation("Yellow", 0), separation("Black", 45)};
  XMPlib composite;
  composite.MergeXML(films, kSeparationsOfTheSamePages, true);
  require(composite.ErrStr().empty(), composite);

  XMPlDigFilmVersion version;
  composite.GetDigitalFilmVersionDetailed(version);
  std::cout << version.structure << " film\n";
  std::vector<XMPlInkDigFilm> inks;
  composite.GetInksDigFilm(inks);
  std::vector<std::vector<XMPlScreen>> screens;
  composite.GetScreenContainer(screens);
  for (std::size_t i = 0; i < inks.size(); ++i) {
    std::cout << "  " << inks[i].name << " at " << screens[i].front().angle << " degrees\n";
  }
  std::vector<XMPlPagRange> pages;
  composite.GetPagRanges(pages);
  std::cout << "  page " << pages.front().start << " has inks";
  for (const std::int32_t ink : pages.front().inks) std::cout << ' ' << ink;
  std::cout << '\n';
}

}  // namespace

int main(int argc, char** argv) {
  try {
    std::vector<std::string> placed = {placedDocument("Leaf green", "Tea Script"),
                                       placedDocument("Warm red", "Sans Bold")};
    for (int i = 1; i < argc; ++i) placed.push_back(readFile(argv[i]));
    XMPlib job;
    gather(job, placed);
    mergeSeparations();
  } catch (const std::exception& error) {
    std::cerr << "merge: " << error.what() << '\n';
    return 1;
  }
  return 0;
}
