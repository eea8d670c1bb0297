// SPDX-License-Identifier: Apache-2.0
#include "model/merge.h"

#include <XMP_Const.h>
#include <fmt/format.h>

#include <algorithm>
#include <array>

#include "files/packet_file.h"
#include "model/losses.h"
#include "model/read_document.h"
#include "model/sections.h"
#include "model/stored.h"
#include "model/units.h"

namespace vxmeta {
namespace {

using Names = std::vector<std::string>;

constexpr std::array<std::string_view, 6> kResources = {"inks",     "extRefs",  "fonts",
                                                        "cadFiles", "barcodes", "layers"};

// What a merge rewrites in another form without losing any of it, or deliberately drops.
const std::vector<std::string_view> kRewritten = {"vxExtFL:files", "vxExtFL2:files",
                                                  "vxInkCovL:coverage"};

std::string messageOf(const XMP_Error& error) {
  return error.GetErrMsg() == nullptr ? "XMP error" : error.GetErrMsg();
}

struct Loaded {
  const MergeSource* source = nullptr;
  XMPlib xmp;
  Document document;
};

void load(const MergeSource& source, Loaded& loaded) {
  try {
    loaded.source = &source;
    loadPacket(source.packet, loaded.xmp);
    loaded.document = readDocument(loaded.xmp, {});
  } catch (const std::exception& error) {
    throw MergeError(source.name, error.what());
  }
}

std::vector<Loaded> loadAll(const std::vector<MergeSource>& sources) {
  std::vector<Loaded> all(sources.size());
  for (std::size_t i = 0; i < sources.size(); ++i) load(sources[i], all[i]);
  return all;
}

// --- Resources -----------------------------------------------------------------------------------

// Of a source: what its lists hold and no Get reads is not merged.
void noteUnread(const Loaded& loaded, Merging& merging) {
  const std::string& name = loaded.source->name;
  for (const UnreadPart& part : loaded.document.unread) {
    const bool isMerged =
        std::find(kResources.begin(), kResources.end(), part.list) != kResources.end();
    if (!isMerged || !part.stored || isBeside(part.property)) continue;
    merging.notes.push_back(
        fmt::format("{}: {} of {} items of {} cannot be read, and are not merged", name,
                    *part.stored - part.read.value_or(0), *part.stored, part.list));
  }
  if (loaded.document.film && loaded.document.film->inks) {
    merging.notes.push_back(
        name + ": its inks are those of a digital film, and are merged by --films alone");
  }
}

void mergeResourcesOf(const MergeSource& source, XMPlib& xmp) {
  try {
    xmp.MergeXML(source.packet, true);
  } catch (const std::logic_error& error) {
    throw MergeError(source.name,
                     fmt::format("a run of numbered files cannot be expanded: {}", error.what()));
  }
  if (!xmp.ErrStr().empty()) throw MergeError(source.name, xmp.ErrStr());
}

void mergeResources(const std::vector<Loaded>& all, Merging& merging, XMPlib& xmp) {
  for (const Loaded& loaded : all) {
    noteUnread(loaded, merging);
    mergeResourcesOf(*loaded.source, xmp);
  }
}

// --- Films ---------------------------------------------------------------------------------------

template <auto kGet, class Value>
bool has(const XMPlib& xmp) {
  Value value{};
  try {
    return (xmp.*kGet)(value) && xmp.ErrStr().empty();
  } catch (const std::exception&) {
    return false;
  } catch (const XMP_Error&) {
    return false;
  }
}

struct Part {
  const char* section;
  bool (*isThere)(const XMPlib& xmp);
  bool isFirstsAlone;  // only the first film has to have it
};

using X = XMPlib;

constexpr Part kParts[] = {
    {"film.dimensions", has<&X::GetDimDatDigFilm, XMPlDimDatDigFilm>, true},
    {"film.inks", has<&X::GetInksDigFilm, std::vector<XMPlInkDigFilm>>, false},
    {"colorSpace", has<&X::GetColorSpace, XMPlColorSpace>, true},
    {"screens", has<&X::GetScreenContainer, std::vector<std::vector<XMPlScreen>>>, false},
    {"usedRefs", has<&X::GetUsedRefs, std::vector<XMPlUsedRef>>, true},
    {"pageRanges", has<&X::GetPagRanges, std::vector<XMPlPagRange>>, false},
};

// The library passes over incomplete films; nobody would know.
void requireFilm(const MergeSource& source, const XMPlib& xmp, bool isFirst) {
  Names missing;
  for (const Part& part : kParts) {
    if ((isFirst || !part.isFirstsAlone) && !part.isThere(xmp)) missing.emplace_back(part.section);
  }
  if (missing.empty()) return;
  throw MergeError(source.name, fmt::format("is no complete digital film: it lacks {}",
                                            fmt::join(missing, ", ")));
}

std::size_t inksIn(const Document& document) {
  return document.film && document.film->inks ? document.film->inks->size() : 0;
}

void mergePackets(const MergeSource& target, const Names& packets, FilmMerge how, XMPlib& xmp) {
  try {
    xmp.MergeXML(packets, how == FilmMerge::separations ? 0 : 1, true);
  } catch (const XMP_Error& error) {
    throw MergeError(target.name, messageOf(error));
  } catch (const std::length_error& error) {
    throw MergeError(target.name, error.what());
  }
  if (!xmp.ErrStr().empty()) throw MergeError(target.name, xmp.ErrStr());
}

void mergeFilms(const MergeSource& target, const std::vector<Loaded>& all, FilmMerge how,
                XMPlib& xmp) {
  requireFilm(target, xmp, true);
  Names packets = {target.packet};
  std::size_t inks = inksIn(readDocument(xmp, {}));
  for (const Loaded& loaded : all) {
    requireFilm(*loaded.source, loaded.xmp, false);
    packets.push_back(loaded.source->packet);
    inks += inksIn(loaded.document);
  }
  mergePackets(target, packets, how, xmp);
  if (inksIn(readDocument(xmp, {})) == inks) return;
  throw MergeError(target.name, "the films cannot be merged: their inks cannot be written");
}

// --- All -----------------------------------------------------------------------------------------

void mergeForeign(const std::vector<Loaded>& all, XMPlib& xmp) {
  for (const Loaded& loaded : all) {
    try {
      xmp.MergeNonOrvo(&loaded.xmp);
    } catch (const XMP_Error& error) {
      throw MergeError(loaded.source->name, messageOf(error));
    }
  }
}

// What the target's lists hold and no Get reads goes where a merge writes them.
std::vector<Loss> lossesOf(const Document& before, const Document& after, bool areAllWritten) {
  Edit edit(before);
  edit.after = after;
  std::vector<Loss> losses;
  for (const Unit& unit : units()) {
    const auto old = valueOf(before, unit);
    const auto now = valueOf(after, unit);
    if (!old && !now) continue;
    const bool isSameValue = old && now && isSame(*old, *now);
    if (typeOf(unit).kind != Kind::list || unit.path == "film.metadata") continue;
    if (isSameValue && !areAllWritten) continue;
    const std::vector<Loss> its = lossesOf(unit, edit);
    losses.insert(losses.end(), its.begin(), its.end());
  }
  return losses;
}

// What is gone from the stored properties beside the losses that are known.
void addLostNodes(const std::string& before, const XMPlib& xmp, std::vector<Loss>& losses) {
  std::vector<std::string_view> known = kRewritten;
  for (const Loss& loss : losses) known.push_back(loss.property);
  const std::vector<Loss> gone = lostNodes(readStored(before), readStored(xmp.GetXML()), known);
  losses.insert(losses.end(), gone.begin(), gone.end());
}

bool hasCoverage(const Document& document) {
  return document.inks && std::any_of(document.inks->begin(), document.inks->end(),
                                      [](const XMPlInk& ink) { return ink.coverageValid; });
}

void noteCoverage(const Document& before, Merging& merging) {
  if (!hasCoverage(before) || hasCoverage(merging.result)) return;
  merging.notes.emplace_back("coverage of all inks dropped: it was measured for another set");
}

std::int32_t foreignIn(const Document& document) {
  std::int32_t count = 0;
  for (const ForeignSchema& schema : document.foreign) count += schema.properties;
  return count;
}

void noteForeign(const Document& before, Merging& merging) {
  const std::int32_t added = foreignIn(merging.result) - foreignIn(before);
  if (added <= 0) return;
  merging.notes.push_back(fmt::format("{} properties of other schemas added", added));
}

}  // namespace

Merging merge(const MergeSource& target, const std::vector<MergeSource>& sources,
              const MergeWishes& wishes, XMPlib& xmp) {
  const Document before = readDocument(xmp, {});
  const std::string xml = xmp.GetXML();
  const std::vector<Loaded> all = loadAll(sources);
  Merging merging;
  if (wishes.films) {
    mergeFilms(target, all, *wishes.films, xmp);
  } else {
    mergeResources(all, merging, xmp);
  }
  if (wishes.isForeign) mergeForeign(all, xmp);
  merging.result = readDocument(xmp, {});
  merging.isChanged = xmp.GetXML() != xml;
  merging.losses = lossesOf(before, merging.result, wishes.films.has_value());
  addLostNodes(xml, xmp, merging.losses);
  noteCoverage(before, merging);
  noteForeign(before, merging);
  return merging;
}

}  // namespace vxmeta
