// SPDX-License-Identifier: Apache-2.0
#include "records.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <functional>
#include <sstream>
#include <stdexcept>

namespace bench {
namespace {

// `make(number)` for each number from `first` on.
template <class Make>
auto numbered(std::size_t count, std::size_t first, const Make& make) {
  std::vector<decltype(make(first))> records;
  records.reserve(count);
  for (std::size_t i = first; i < first + count; ++i) records.push_back(make(i));
  return records;
}

std::string text(const char* name, std::size_t number) { return name + std::to_string(number); }

template <std::size_t Size>
std::string oneOf(const std::array<const char*, Size>& texts, std::size_t number) {
  return texts[number % Size];
}

double hundredths(std::size_t number) { return static_cast<double>(number) / 100; }

XMPlInk ink(std::size_t number) {
  constexpr std::array kTypes{"process", "spot"};
  constexpr std::array kDots{"Round", "Ellipse", "Square"};
  constexpr std::array kAngles{15.0, 75.0, 0.0, 45.0};
  XMPlInk ink;
  ink.name = text("Ink ", number);
  ink.type = oneOf(kTypes, number);
  ink.book = "House colours";
  ink.vxname = text("House colours ", number);
  ink.frequency = number % 3 == 0 ? 175 : 133.5;
  ink.angle = kAngles[number % kAngles.size()];
  ink.dotshape = oneOf(kDots, number);
  ink.r = hundredths(number % 101);
  ink.g = hundredths(number * 7 % 101);
  ink.b = hundredths(number * 13 % 101);
  ink.attribute = "normal";
  ink.printingmethod = "offset";
  ink.coverageValid = true;
  ink.pct = hundredths(number * 31 % 10000);
  ink.mm2 = hundredths(number * 1117 % 10000000);
  return ink;
}

XMPlFont font(std::size_t number) {
  constexpr std::array kTypes{"OpenType", "TrueType", "Type 1"};
  XMPlFont font;
  font.name = text("Font ", number);
  font.type = oneOf(kTypes, number);
  font.protection = number % 5 == 0;
  font.location = number % 2 == 0 ? "embedded" : "system";
  font.fontfile = text("/fonts;Font", number) + ".otf";
  return font;
}

XMPlExtRef ref(std::size_t number) {
  XMPlExtRef ref;
  ref.instanceID = text("file:/artwork/Carton ", number) + ".pdf";
  ref.renditionClass = "default";
  ref.pagenr = static_cast<std::int32_t>(number % 8 + 1);
  ref.type = "pdf";
  ref.count = 1;
  return ref;
}

XMPlBarcode barcode(std::size_t number) {
  XMPlBarcode barcode;
  barcode.type = "EAN13";
  barcode.code = std::to_string(4006381000000 + number);
  barcode.resolution = 2540;
  barcode.hasBarWidthReduction = true;
  barcode.barWidthReduction = 0.05;
  return barcode;
}

XMPlLay layer(std::size_t number) {
  XMPlLay layer;
  layer.name = text("Layer ", number);
  layer.printable = number % 4 != 0;
  return layer;
}

XMPlExtRef cadFile(std::size_t number) {
  XMPlExtRef file;
  file.instanceID = text("file:/designs/Carton ", number) + ".cf2";
  file.renditionClass = "default";
  return file;
}

XMPlInkDigFilm filmInk(std::size_t number) {
  XMPlInkDigFilm film;
  static_cast<XMPlInkBasic&>(film) = ink(number);
  film.opacity = 1;
  film.inknrsoriginal = std::to_string(number);
  return film;
}

std::vector<XMPlScreen> screenGroup(std::size_t number) {
  XMPlScreen screen;
  screen.singlepressDGC = text("Press ", number % 10);
  screen.gamma = "none";
  screen.usedrefs = std::to_string(number);
  return {screen};
}

Fonts inStoredOrder(Fonts fonts) {
  std::sort(fonts.begin(), fonts.end(),
            [](const XMPlFont& a, const XMPlFont& b) { return a.name < b.name; });
  return fonts;
}

template <class... Values>
void mix(std::size_t& sum, const Values&... values) {
  ((sum = sum * 1099511628211U + std::hash<Values>{}(values)), ...);
}

void mix(std::size_t& sum, const XMPlInk& ink) {
  mix(sum, ink.name, ink.type, ink.book, ink.vxname, ink.r, ink.g, ink.b, ink.attribute,
      ink.printingmethod, ink.frequency, ink.angle, ink.dotshape, ink.coverageValid, ink.pct,
      ink.mm2);
}

void mix(std::size_t& sum, const XMPlFont& font) {
  mix(sum, font.name, font.type, font.protection, font.location, font.fontfile);
}

void mix(std::size_t& sum, const XMPlExtRef& ref) {
  mix(sum, ref.instanceID, ref.renditionClass, ref.pagenr, ref.type, ref.count);
}

template <class Record>
std::size_t digestOf(const std::vector<Record>& records) {
  std::size_t sum = records.size();
  for (const Record& record : records) mix(sum, record);
  return sum;
}

}  // namespace

Inks inks(std::size_t count, std::size_t first) { return numbered(count, first, ink); }

Fonts fonts(std::size_t count, std::size_t first) {
  return inStoredOrder(numbered(count, first, font));
}

Refs refs(std::size_t count, std::size_t first) { return numbered(count, first, ref); }

Barcodes barcodes(std::size_t count, std::size_t first) { return numbered(count, first, barcode); }

Layers layers(std::size_t count, std::size_t first) { return numbered(count, first, layer); }

Inks alikeInks(std::size_t count) {
  return numbered(count, 0, [like = ink(0)](std::size_t number) {
    XMPlInk ink = like;
    ink.name = text("Ink ", number);
    return ink;
  });
}

Fonts alikeFonts(std::size_t count) {
  return inStoredOrder(numbered(count, 0, [like = font(0)](std::size_t number) {
    XMPlFont font = like;
    font.name = text("Font ", number);
    return font;
  }));
}

Inks distinctInks(std::size_t count) {
  return numbered(count, 0, [](std::size_t number) {
    XMPlInk ink = bench::ink(number);
    ink.type = text("type ", number);
    ink.book = text("House colours ", number);
    ink.dotshape = text("Dot ", number);
    ink.attribute = text("attribute ", number);
    ink.printingmethod = text("offset ", number);
    ink.frequency = 100 + hundredths(number);
    ink.angle = 200000 + hundredths(number);
    ink.r = 300000 + hundredths(number);
    ink.g = 400000 + hundredths(number);
    ink.b = 500000 + hundredths(number);
    ink.pct = 600000 + hundredths(number);
    ink.mm2 = 700000 + hundredths(number);
    return ink;
  });
}

Fonts distinctFonts(std::size_t count) {
  return inStoredOrder(numbered(count, 0, [](std::size_t number) {
    XMPlFont font = bench::font(number);
    font.type = text("OpenType ", number);
    font.location = text("server ", number);
    return font;
  }));
}

Refs cadFiles(std::size_t count, std::size_t first) { return numbered(count, first, cadFile); }

Refs numberedImages(std::size_t count) {
  return numbered(count, 0, [](std::size_t number) {
    const std::string digits = std::to_string(1000000 + number + number / 9);
    XMPlExtRef image;
    image.instanceID = "file:/images/page_" + digits + ".tif";
    image.renditionClass = "default";
    image.pagenr = 0;
    image.type = "image";
    image.count = 1;
    return image;
  });
}

Fonts halfEmbeddedFonts(std::size_t count) {
  return inStoredOrder(numbered(count, 0, [](std::size_t number) {
    XMPlFont font = bench::font(number);
    font.fontfile = text("/fonts;Font", number / 2) + ".otf";
    return font;
  }));
}

XMPlDgcc curve(std::size_t values) {
  return {"Press 1", numbered(values, 0, [](std::size_t i) { return hundredths(i % 101); })};
}

std::string packetOf(const Inks& inks) {
  XMPlib xmp;
  xmp.SetInks(inks, true);
  return xmp.GetXMLPacket(false, 0);
}

std::string packetOf(const Fonts& fonts) {
  XMPlib xmp;
  xmp.SetFonts(fonts);
  return xmp.GetXMLPacket(false, 0);
}

std::string packetOf(const Refs& refs) {
  XMPlib xmp;
  xmp.SetExtRefs(refs, true);
  return xmp.GetXMLPacket(false, 0);
}

std::string filmPacket(std::size_t inks, std::size_t first) {
  XMPlib xmp;
  xmp.SetDigitalFilmVersionDetailed({});
  xmp.SetDimDatDigFilm({});
  xmp.SetInksDigFilm(numbered(inks, first, filmInk), true);
  xmp.SetColorSpace({});
  xmp.SetScreenContainer(numbered(inks, first, screenGroup));
  xmp.SetDgcs({curve(100)});
  xmp.SetUsedRefs({{"file:/films/Carton.len", "default", 1}});
  xmp.SetPagRanges({{1, 1, {0}}});
  return xmp.GetXMLPacket(false, 0);
}

std::string packetIn(const std::string& path) {
  constexpr std::string_view kTrailer = "<?xpacket end=\"w\"?>";
  std::ifstream file(path, std::ios::binary);
  std::ostringstream bytes;
  bytes << file.rdbuf();
  const std::string all = bytes.str();
  const std::size_t begin = all.find("<?xpacket begin=");
  const std::size_t end = all.find(kTrailer, begin);
  if (end == std::string::npos) throw std::runtime_error("no packet in " + path);
  return all.substr(begin, end + kTrailer.size() - begin);
}

std::size_t digest(const std::string& text) { return std::hash<std::string>{}(text); }
std::size_t digest(const Inks& inks) { return digestOf(inks); }
std::size_t digest(const Fonts& fonts) { return digestOf(fonts); }
std::size_t digest(const Refs& refs) { return digestOf(refs); }

}  // namespace bench
