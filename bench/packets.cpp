// SPDX-License-Identifier: Apache-2.0
// Whole packets: loaded, saved, and all that lies between.
#include <thread>

#include "document.h"
#include "peers.h"
#include "sides.h"
#include "support/costly_packets.h"

namespace bench {
namespace {

using Packet = std::function<std::string()>;

std::string artwork() { return packetIn(XMP_TOOLKIT_SAMPLES "/BlueSquare.ai"); }
std::string carton() { return packetIn(XMPLIB_EXAMPLES "/folding_carton.xmp"); }

void addParsingOf(std::vector<Case>& cases, const std::string& what, std::size_t size,
                  const Packet& packet) {
  const std::string group = "parse_" + what;
  cases.push_back({group, "ours", size, [=]() -> Work {
                     const auto xmp = std::make_shared<XMPlib>();
                     return {[=] { xmp->CreateXAP(); }, [=, text = packet()] { xmp->SetXML(text); },
                             [=] { return digest(xmp->GetXML()); }};
                   }});
  cases.push_back({group, "by_hand", size, [=]() -> Work {
                     const auto meta = std::make_shared<Meta>();
                     return {[=] { meta->Erase(); },
                             [=, text = packet()] { by_hand::parse(*meta, text); },
                             [=] { return digestOf(*meta); }};
                   }});
  if (size > kLargestForPeers) return;
  cases.push_back({group, "expat", size, [=]() -> Work {
                     return {[] {}, [text = packet()] { parseByExpat(text); }, nullptr};
                   }});
}

void addSerialisingOf(std::vector<Case>& cases, const std::string& what, std::size_t size,
                      const Packet& packet) {
  const std::string group = "serialise_" + what;
  cases.push_back({group, "ours", size, [=]() -> Work {
                     const auto xmp = loaded(packet());
                     return {[] {}, [=] { xmp->GetXML(); }, [=] { return digest(xmp->GetXML()); }};
                   }});
  cases.push_back(
      {group, "by_hand", size, [=]() -> Work {
         const auto meta = parsed(packet());
         const auto text = std::make_shared<std::string>();
         return {[] {}, [=] { by_hand::serialise(*meta, *text); }, [=] { return digest(*text); }};
       }});
}

void addPacket(std::vector<Case>& cases, const std::string& what, std::size_t size,
               const Packet& packet) {
  addParsingOf(cases, what, size, packet);
  addSerialisingOf(cases, what, size, packet);
}

Work loading(const std::string& packet) {
  const auto xmp = std::make_shared<XMPlib>();
  return {[=] { xmp->CreateXAP(); }, [=] { xmp->SetXML(packet); }, nullptr};
}

// Over a plain list of as many bytes.
void addCostly(std::vector<Case>& cases) {
  constexpr std::size_t kBytes = 300'000;
  for (const CostlyPacket& packet : costlyPackets(kBytes)) {
    const std::string group = "costly_" + packet.name;
    cases.push_back({group, "ours", 1, [=] { return loading(packet.text); }});
    cases.push_back({group, "plain_list", 1, [=] { return loading(plainList(kBytes)); }});
  }
}

// What a cycle makes: the packet that it saves, and how much it has read.
struct Cycle {
  std::string text;
  std::size_t records = 0;
};

Cycle cycleOurs(const std::string& packet) {
  XMPlib xmp;
  xmp.SetXML(packet);
  readDocument(xmp);
  const std::size_t records = readLists(xmp);
  xmp.SetSmartID("carton-1122");
  return {xmp.GetXMLPacket(false, 0), records};
}

Cycle cycleByHand(const std::string& packet) {
  Meta meta;
  by_hand::parse(meta, packet);
  by_hand::readDocument(meta);
  Cycle cycle{{}, by_hand::readLists(meta)};
  meta.SetProperty("http://ns.orvo.example/xmp/smartid/1.0/", "vxSmartID:id", "carton-1122");
  meta.SerializeToBuffer(&cycle.text);
  return cycle;
}

void addCycle(std::vector<Case>& cases, const char* group, const Packet& packet) {
  const auto add = [&](const char* side, Cycle (*run)(const std::string&)) {
    cases.push_back({group, side, 1, [=]() -> Work {
                       const auto made = std::make_shared<Cycle>();
                       return {[=] { *made = {}; }, [=, text = packet()] { *made = run(text); },
                               [=] { return digest(made->text) + made->records; }};
                     }});
  };
  add("ours", cycleOurs);
  add("by_hand", cycleByHand);
}

void loadSome(const std::string& packet) {
  constexpr int kLoads = 16;
  XMPlib xmp;
  for (int i = 0; i < kLoads; ++i) xmp.SetXML(packet);
}

void loadOnTwoThreads(const std::string& packet) {
  std::thread other(loadSome, std::cref(packet));
  loadSome(packet);
  other.join();
}

}  // namespace

void addPackets(std::vector<Case>& cases) {
  for (const std::size_t size : kSizes) {
    addPacket(cases, "inks", size, [=] { return packetOf(inks(size)); });
    addPacket(cases, "fonts", size, [=] { return packetOf(fonts(size)); });
  }
  addPacket(cases, "artwork", 1, artwork);
  addPacket(cases, "carton", 1, carton);
  addCostly(cases);
}

void addDocuments(std::vector<Case>& cases) {
  const auto add = [&](const char* side, auto read) {
    cases.push_back({"read_document", side, 1, [=]() -> Work {
                       const auto document = std::make_shared<Document>();
                       const std::function<Document()> run = read();
                       return {[=] { *document = {}; }, [=] { *document = run(); },
                               [=] { return digest(*document); }};
                     }});
  };
  add("ours", [] { return [xmp = loaded(documentPacket())] { return readDocument(*xmp); }; });
  add("by_hand",
      [] { return [meta = parsed(documentPacket())] { return by_hand::readDocument(*meta); }; });
  addCycle(cases, "cycle_artwork", artwork);
  addCycle(cases, "cycle_carton", carton);
}

// Instructions say nothing here.
void addThreads(std::vector<Case>& cases) {
  constexpr std::size_t kSize = 1000;
  const auto add = [&](const char* side, void (*run)(const std::string&)) {
    cases.push_back({"load_on_threads", side, kSize,
                     [=]() -> Work {
                       return {[] {}, [=, text = packetOf(inks(kSize))] { run(text); }, nullptr};
                     },
                     false});
  };
  add("one", loadSome);
  add("two", loadOnTwoThreads);
}

}  // namespace bench
