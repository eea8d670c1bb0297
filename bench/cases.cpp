// SPDX-License-Identifier: Apache-2.0
#include "cases.h"

#include <clocale>
#include <cstdlib>

#include "peers.h"
#include "sides.h"

namespace bench {
namespace {

using by_hand::Meta;

// --- Lists --------------------------------------------------------------------------------------

template <class Read>
Work reading(Read read) {
  const auto records = std::make_shared<decltype(read())>();
  return {[=] { *records = {}; }, [=] { *records = read(); }, [=] { return digest(*records); }};
}

// Out of a packet that is parsed already.
template <class Records>
struct ListReaders {
  std::string group;
  Records (*make)(std::size_t count, std::size_t first);
  Records (*ours)(const XMPlib& xmp);
  Records (*byHand)(const Meta& meta);
  Records (ExempiPacket::*byExempi)() const;
};

template <class Records>
void addReadingOf(std::vector<Case>& cases, const ListReaders<Records>& list) {
  for (const std::size_t size : kSizes) {
    const auto packet = [=] { return packetOf(list.make(size, 0)); };
    cases.push_back({list.group, "ours", size, [=] {
                       return reading([=, xmp = loaded(packet())] { return list.ours(*xmp); });
                     }});
    cases.push_back({list.group, "by_hand", size, [=] {
                       return reading([=, meta = parsed(packet())] { return list.byHand(*meta); });
                     }});
    if (size > kLargestForPeers) continue;
    cases.push_back({list.group, "exempi", size, [=] {
                       return reading(
                           [=, peer = ExempiPacket(packet())] { return (peer.*list.byExempi)(); });
                     }});
  }
}

Inks ourInks(const XMPlib& xmp) {
  Inks inks;
  xmp.GetInks(inks);
  return inks;
}

Fonts ourFonts(const XMPlib& xmp) {
  Fonts fonts;
  xmp.GetFonts(fonts);
  return fonts;
}

Refs ourRefs(const XMPlib& xmp) {
  Refs refs;
  xmp.GetExtRefs(refs, true);
  return refs;
}

// Out of packet text.
template <class Records>
struct PacketReader {
  const char* side;
  Records (*read)(const std::string& packet);
};

template <class Records>
void addLoadingOf(std::vector<Case>& cases, const std::string& group,
                  Records (*make)(std::size_t count, std::size_t first),
                  const std::vector<PacketReader<Records>>& readers) {
  for (const std::size_t size : kSizes) {
    if (size > kLargestForPeers) continue;
    for (const PacketReader<Records>& reader : readers) {
      cases.push_back({group, reader.side, size, [=] {
                         return reading(
                             [=, packet = packetOf(make(size, 0))] { return reader.read(packet); });
                       }});
    }
  }
}

template <class Records>
struct ListWriters {
  std::string group;
  Records (*make)(std::size_t count);
  void (*ours)(XMPlib& xmp, const Records& records);
  void (*byHand)(Meta& meta, const Records& records);
};

template <class Records>
void addWritingOf(std::vector<Case>& cases, const ListWriters<Records>& list) {
  for (const std::size_t size : kSizes) {
    cases.push_back({list.group, "ours", size, [=]() -> Work {
                       const auto xmp = std::make_shared<XMPlib>();
                       return {[=] { xmp->CreateXAP(); },
                               [=, records = list.make(size)] { list.ours(*xmp, records); },
                               [=] { return digest(xmp->GetXML()); }};
                     }});
    cases.push_back({list.group, "by_hand", size, [=]() -> Work {
                       const auto meta = std::make_shared<Meta>();
                       return {[=] { meta->Erase(); },
                               [=, records = list.make(size)] { list.byHand(*meta, records); },
                               [=] { return digestOf(*meta); }};
                     }});
  }
}

void setInks(XMPlib& xmp, const Inks& inks) { xmp.SetInks(inks, true); }
void setFonts(XMPlib& xmp, const Fonts& fonts) { xmp.SetFonts(fonts); }
void setRefs(XMPlib& xmp, const Refs& refs) { xmp.SetExtRefs(refs); }
Refs someRefs(std::size_t count) { return refs(count); }

// --- Locales ------------------------------------------------------------------------------------

constexpr const char* kCommaLocale = "de_DE.UTF-8";

// The process locale as long as the object lives; then C again.
class ProcessLocale {
 public:
  explicit ProcessLocale(const char* name) : set_(std::setlocale(LC_ALL, name) != nullptr) {}
  ~ProcessLocale() { std::setlocale(LC_ALL, "C"); }
  ProcessLocale(const ProcessLocale&) = delete;
  ProcessLocale& operator=(const ProcessLocale&) = delete;

  bool isSet() const { return set_; }

 private:
  bool set_;
};

void addReadingInLocale(std::vector<Case>& cases, const char* side, const char* locale) {
  constexpr std::size_t kSize = 1000;
  cases.push_back({"read_inks_in_locale", side, kSize, [=] {
                     const auto setting = std::make_shared<ProcessLocale>(locale);
                     return reading([=, xmp = loaded(packetOf(inks(kSize)))] {
                       static_cast<void>(setting);
                       return ourInks(*xmp);
                     });
                   }});
}

}  // namespace

void addReading(std::vector<Case>& cases) {
  addReadingOf<Inks>(cases,
                     {"read_inks", inks, ourInks, by_hand::readInks, &ExempiPacket::readInks});
  addReadingOf<Fonts>(
      cases, {"read_fonts", fonts, ourFonts, by_hand::readFonts, &ExempiPacket::readFonts});
  addReadingOf<Refs>(cases,
                     {"read_refs", refs, ourRefs, by_hand::readRefs, &ExempiPacket::readRefs});
  setenv("LOCPATH", XMPLIB_BENCH_LOCALES, 1);
  if (ProcessLocale(kCommaLocale).isSet()) {
    addReadingInLocale(cases, "ours", kCommaLocale);
    addReadingInLocale(cases, "c_locale", "C");
  }
  addLoadingOf<Inks>(
      cases, "load_inks", inks,
      {{"ours", [](const std::string& packet) { return ourInks(*loaded(packet)); }},
       {"by_hand", [](const std::string& packet) { return by_hand::readInks(*parsed(packet)); }},
       {"exempi", [](const std::string& packet) { return ExempiPacket(packet).readInks(); }},
       {"exiv2", inksByExiv2},
       {"pugixml", inksByPugixml}});
  addLoadingOf<Fonts>(
      cases, "load_fonts", fonts,
      {{"ours", [](const std::string& packet) { return ourFonts(*loaded(packet)); }},
       {"by_hand", [](const std::string& packet) { return by_hand::readFonts(*parsed(packet)); }},
       {"exempi", [](const std::string& packet) { return ExempiPacket(packet).readFonts(); }},
       {"exiv2", fontsByExiv2},
       {"pugixml", fontsByPugixml}});
}

void addWriting(std::vector<Case>& cases) {
  addWritingOf<Inks>(cases, {"write_alike_inks", alikeInks, setInks, by_hand::writeInks});
  addWritingOf<Fonts>(cases, {"write_alike_fonts", alikeFonts, setFonts, by_hand::writeFonts});
  addWritingOf<Inks>(cases, {"write_distinct_inks", distinctInks, setInks, by_hand::writeInks});
  addWritingOf<Fonts>(cases,
                      {"write_distinct_fonts", distinctFonts, setFonts, by_hand::writeFonts});
  addWritingOf<Refs>(cases, {"write_refs", someRefs, setRefs, by_hand::writeRefs});
}

std::vector<Case> allCases() {
  const XMPlib starter;  // starts the toolkit and registers the namespaces, for all sides
  std::vector<Case> cases;
  addReading(cases);
  addWriting(cases);
  addPackets(cases);
  addDocuments(cases);
  addThreads(cases);
  addGrowth(cases);
  return cases;
}

}  // namespace bench
