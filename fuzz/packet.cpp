// SPDX-License-Identifier: Apache-2.0
// Packet text, loaded, read, rewritten and saved.
#include "packets.h"
#include "support/read_counts.h"

namespace {

std::string rewritten(const std::string& text) {
  Reloaded xmp(text);
  rewrite(xmp);
  return saved(xmp);
}

void checkUnread(const XMPlib& xmp, bool filmInks) {
  const std::string disagreement = ReadCounts(xmp, filmInks).disagreement();
  expect(disagreement.empty(), "a Get reads what is told that it reads", disagreement);
  std::vector<XMPlUnreadField> fields;
  xmp.GetUnreadFields(fields, filmInks);
  expect(xmp.ErrStr().empty(), "what is unread can be told");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  XMPlib xmp;
  expect(xmp.SetXML(packetOf(textOf(data, size))), "SetXML answers true");
  std::vector<XMPlInk> inks;
  xmp.GetInks(inks, true);
  std::vector<XMPlScreen> screens;
  xmp.GetScreens(screens, 1);
  std::vector<XMPlFont> fonts;
  xmp.GetFonts(fonts, false);
  std::vector<XMPlUsedDigFilmRef> jobs;
  xmp.GetUsedDigitalJobRefs(jobs);
  xmp.IsNonPDFCompatible();
  attempt<XMP_Error>([&] { return xmp.DumpXAP(), true; });
  checkUnread(xmp, false);
  checkUnread(xmp, true);
  rewrite(xmp);
  // The first rewriting moves records of older layouts, the second reals that were cut.
  const std::string settled = rewritten(saved(xmp));
  expect(rewritten(settled) == settled, "rewriting settles");
  return 0;
}
