// SPDX-License-Identifier: Apache-2.0
// Merging the packets of several digital films into one job.
#include <set>

#include "XMPlib.h"
#include "core/ascii.h"

namespace {

enum Mode : int { kSeparations = 0, kFurtherPages = 1 };

constexpr const char* kComposite = "Composite";
constexpr const char* kSeparated = "Separated";

// What the job is made of. All of it comes from the base packet; later ones add to the inks,
// screens, curves and ranges, and change the version's structure.
struct FilmJob {
  XMPlDigFilmVersion version;
  XMPlDocData document;
  XMPlJobData job;
  XMPlDimDatDigFilm dimensions;
  std::vector<XMPlInkDigFilm> inks;
  XMPlColorSpace colours;
  std::vector<std::vector<XMPlScreen>> screens;
  std::vector<XMPlDgcc> curves;
  std::vector<XMPlUsedRef> usedRefs;
  std::vector<XMPlPagRange> ranges;
};

// Whether the packet is complete. Deliberate: what an incomplete one has yielded stays in `job`,
// until a later packet yields the same.
bool readBase(const XMPlib& film, FilmJob& job) {
  if (film.GetDigitalFilmVersionDetailed(job.version) && film.GetDocumentData(job.document)) {
    film.GetJobData(job.job);
  }
  if (!film.GetDimDatDigFilm(job.dimensions) || !film.GetInksDigFilm(job.inks) ||
      !film.GetColorSpace(job.colours) || !film.GetScreenContainer(job.screens)) {
    return false;
  }
  film.GetDgcs(job.curves);
  return film.GetUsedRefs(job.usedRefs) && film.GetPagRanges(job.ranges);
}

// The position of the first complete packet, which is in `job` then, or that behind the last.
std::size_t findBase(const std::vector<std::string>& packets, XMPlib& film, FilmJob& job) {
  for (std::size_t i = 0; i < packets.size(); ++i) {
    film.SetXML(packets[i]);
    if (readBase(film, job)) return i;
  }
  return packets.size();
}

// What a number, counted from 0, becomes behind the last one. Both come from packets: what passes
// the largest starts again from the smallest.
std::int32_t behind(std::int32_t last, std::int32_t number) {
  return static_cast<std::int32_t>(std::int64_t{last} + 1 + number);
}

std::int32_t lastInk(const XMPlPagRange& range) {
  return range.inks.empty() ? 0 : range.inks.back();
}

// The inks of the packet, each with the screen group at its position.
void addInks(const std::vector<XMPlInkDigFilm>& inks,
             const std::vector<std::vector<XMPlScreen>>& screens, int mode, FilmJob& job) {
  for (std::size_t k = 0; k < inks.size(); ++k) {
    job.inks.push_back(inks[k]);
    job.screens.push_back(k < screens.size() ? screens[k] : std::vector<XMPlScreen>());
    if (mode != kSeparations) continue;
    XMPlPagRange& pages = job.ranges.front();
    pages.inks.push_back(behind(lastInk(pages), 0));
    job.version.structure = kComposite;
  }
}

// The packet's pages, numbered to follow the last range.
void addPages(XMPlPagRange pages, FilmJob& job) {
  const XMPlPagRange& last = job.ranges.back();
  const std::int32_t lastOfInks = lastInk(last);
  pages.start = behind(last.end, pages.start);
  pages.end = behind(last.end, pages.end);
  for (std::int32_t& ink : pages.inks) ink = behind(lastOfInks, ink);
  job.ranges.push_back(std::move(pages));
  if (!xmpl::equalsAnyCase(job.version.structure, kComposite)) job.version.structure = kSeparated;
}

// Deliberate: a name counts once within a packet, and again in every packet.
void addCurves(const XMPlib& film, FilmJob& job) {
  std::vector<XMPlDgcc> curves;
  film.GetDgcs(curves);
  std::set<std::string> names;
  for (XMPlDgcc& curve : curves) {
    if (names.insert(curve.name).second) job.curves.push_back(std::move(curve));
  }
}

// Adds the packet in `film`, or nothing when it is incomplete.
void addFilm(const XMPlib& film, int mode, FilmJob& job) {
  std::vector<XMPlInkDigFilm> inks;
  std::vector<std::vector<XMPlScreen>> screens;
  std::vector<XMPlPagRange> ranges;
  const bool hasInks = film.GetInksDigFilm(inks);
  const bool hasScreens = film.GetScreenContainer(screens);
  const bool hasRanges = film.GetPagRanges(ranges);
  if (!hasInks || !hasScreens || !hasRanges) return;
  addInks(inks, screens, mode, job);
  if (mode == kFurtherPages) addPages(ranges.front(), job);
  addCurves(film, job);
}

void writeJob(const FilmJob& job, bool writeBookAndName, XMPlib& xmp) {
  xmp.SetDigitalFilmVersionDetailed(job.version);
  xmp.SetDocumentData(job.document);
  xmp.SetJobData(job.job);
  xmp.SetDimDatDigFilm(job.dimensions);
  xmp.SetInksDigFilm(job.inks, writeBookAndName);
  xmp.SetColorSpace(job.colours);
  xmp.SetScreenContainer(job.screens);
  xmp.SetDgcs(job.curves);
  xmp.SetUsedRefs(job.usedRefs);
  xmp.SetPagRanges(job.ranges);
}

}  // namespace

bool XMPlib::MergeXML(const std::vector<std::string>& packets, int mode, bool writeBookAndName) {
  if (packets.empty()) return true;
  if (packets.size() == 1) {
    SetXML(packets.front());
    return true;
  }
  errStr.clear();
  XMPlib film;
  FilmJob job;
  const std::size_t base = findBase(packets, film, job);
  if (base == packets.size()) {
    SetXML(packets.front());
    return true;
  }
  for (std::size_t j = base + 1; j < packets.size(); ++j) {
    film.SetXML(packets[j]);
    addFilm(film, mode, job);
  }
  writeJob(job, writeBookAndName, *this);
  return true;
}
