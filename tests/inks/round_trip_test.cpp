#include <gtest/gtest.h>

#include "support/random_records.h"

namespace {

template <class Record>
using Get = bool (XMPlib::*)(std::vector<Record>&) const;

// What one handle wrote, another reads from the packet text, and writes the same.
template <class Record, class Set>
void expectSurvives(const Set& set, Get<Record> get) {
  for (unsigned seed = 0; seed < 200; ++seed) {
    std::vector<Record> written = randomRecords<Record>(seed), read;
    XMPlib writer, reader, rewriter;
    ASSERT_TRUE(set(writer, written)) << writer.ErrStr();
    reader.SetXML(writer.GetXML());
    ASSERT_TRUE((reader.*get)(read)) << reader.ErrStr();
    ASSERT_EQ(read.size(), written.size()) << writer.GetXML();
    for (std::size_t i = 0; i < read.size(); ++i) {
      ASSERT_EQ(std::get<0>(fieldsOf(read[i])), std::get<0>(fieldsOf(written[i])));
    }
    ASSERT_TRUE(set(rewriter, read));
    ASSERT_EQ(stored(rewriter), stored(writer));
  }
}

}  // namespace

TEST(RoundTrip, KeepsWhatIsStored) {
  expectSurvives<XMPlInk>([](auto& xmp, auto& all) { return xmp.SetInks(all, true); },
                          &XMPlib::GetInks);
  expectSurvives<XMPlInkDigFilm>([](auto& xmp, auto& all) { return xmp.SetInksDigFilm(all, true); },
                                 &XMPlib::GetInksDigFilm);
  expectSurvives<XMPlInkProperty>(std::mem_fn(&XMPlib::SetInkProperties),
                                  &XMPlib::GetInkProperties);
  expectSurvives<XMPlDgcc>(std::mem_fn(&XMPlib::SetDgcs), &XMPlib::GetDgcs);
  expectSurvives<XMPlUsedRef>(std::mem_fn(&XMPlib::SetUsedRefs), &XMPlib::GetUsedRefs);
  expectSurvives<XMPlScreen>(
      [](auto& xmp, auto& all) {
        std::vector<std::vector<XMPlScreen>> groups = {{all[0]}};
        if (all.size() > 1) groups.emplace_back(all.begin() + 1, all.end());
        XMPlib reader;
        reader.SetXML(xmp.SetScreenContainer(groups) ? xmp.GetXML() : "");
        const std::size_t count = groups.size();
        return reader.GetScreenContainer(groups) && groups.size() == count &&
               xmp.SetScreenContainer(groups);
      },
      &XMPlib::GetScreens);
}
