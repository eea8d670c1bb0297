// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <sstream>

#include "support/packets.h"

namespace {

using Refs = std::vector<XMPlExtRef>;
const std::string kPlain = ",,0,,1";
const std::string kImage = ",r,0,image,1";

std::vector<std::string> split(const std::string& text, char by) {
  std::vector<std::string> parts;
  std::istringstream stream(text + by);
  for (std::string part; std::getline(stream, part, by);) parts.push_back(part);
  return parts;
}

// A stored list in short: "name,rendition,page,type,count" of each reference. A name alone has the
// values of `rest`; a field "-" is absent.
std::string files(const std::string& schema, const std::string& text, const std::string& rest) {
  const char* const names[] = {"instanceID", "renditionClass", "pagenr", "type", "count"};
  const bool current = schema == "vxExtFL2";
  std::vector<std::string> items;
  for (const std::string& row : split(text, ' ')) {
    const auto values = split(row.find(',') == std::string::npos ? row + rest : row, ',');
    items.emplace_back();
    for (std::size_t i = 0; i < (current ? 5 : 2); ++i) {
      if (values[i] == "-") continue;
      items.back() += elements(current ? "vxExtF:" : "stRef:", names[i] + ("=" + values[i]));
    }
  }
  return list(schema + ":files", "Bag", items);
}
std::string current(const std::string& text) { return files("vxExtFL2", text, kPlain); }
std::string old(const std::string& text) { return files("vxExtFL", text, kPlain); }
std::string cad(const std::string& text) { return files("vxCadL", text, kPlain); }

Refs refs(const std::string& text, const std::string& rest = kPlain) {
  Refs all;
  EXPECT_TRUE(Loaded(files("vxExtFL2", text, rest)).GetExtRefs(all, true));
  return all;
}

std::string text(const Refs& all, const std::string& rest = kPlain) {
  std::string text;
  for (const XMPlExtRef& ref : all) {
    const std::string values = "," + ref.renditionClass + "," + std::to_string(ref.pagenr) + "," +
                               ref.type + "," + std::to_string(ref.count);
    text += (text.empty() ? "" : " ") + ref.instanceID + (values == rest ? "" : values);
  }
  return text;
}

}  // namespace

TEST(ExternalReferences, AreStoredInBothLayoutsAndCompactUnlessVerbatim) {
  XMPlib xmp;
  EXPECT_TRUE(xmp.SetExtRefs(refs("p_001.t p_002.t b,r,2,t,-1", kImage)));
  EXPECT_EQ(stored(xmp), current("b,r,2,t,-1 files:p_*.t#001-002,r,0,image,2") +
                             old("b,r files:p_*.t#001-002,r"));
  EXPECT_TRUE(xmp.SetExtRefs(refs("a_001.t a_002.t"), true));
  EXPECT_TRUE(xmp.SetOldExtRefs(refs("p_001.t p_002.t", kImage)));
  EXPECT_EQ(stored(xmp), current("a_001.t a_002.t") + old("p_001.t,r p_002.t,r"));
  EXPECT_FALSE(xmp.SetExtRefs({refs("b")[0], {"\xff", "", 0, "", 1}, refs("c")[0]}));
  EXPECT_EQ(xmp.ErrStr(), "Invalid UTF-8 sequence length");
  Refs read;
  EXPECT_TRUE(xmp.GetExtRefs(read));
  EXPECT_EQ(text(read), "b");
  EXPECT_TRUE(xmp.GetOldExtRefs(read));
  EXPECT_EQ(text(read), "p_001.t,r,-1,,-1 p_002.t,r,-1,,-1");  // not yet touched
}

TEST(ExternalReferences, AreReadFromTheOldLayoutOnlyWithoutAFirstCurrentEntry) {
  const struct {
    std::string packet;
    const char* read;
    const char* error = "";
  } rows[] = {
      {current("a,r,0,t,1 b,,-1,-,-1") + old("c"), "a,r,0,t,1 b,,-1,,-1"},
      {old("files:p*.t#1-2 a,r b,-"), "file:p1.t file:p2.t a,r,-1,,-1"},
      {"<vxExtFL2:files><rdf:Bag/></vxExtFL2:files>" + old("a,r -,r c"), "a,r,-1,,-1"},
      {current("-,r,0,t,1 a") + old("b"), "b,,-1,,-1"},
      // An incomplete item ends the list; it is no reason to read the old one.
      {current("a,r,0,t,-") + old("b"), ""},
      {current("a b,-,0,t,1 c"), "a"},
      {current("a b,r,-,t,x c"), "a"},
      // An error leaves what was read before it, as stored.
      {current("files:p*#1-2 b,r,x,t,1"), "files:p*#1-2", "Invalid integer string"},
      {"<vxExtFL2:files>x</vxExtFL2:files>" + old("b"), "", "Indexing applied to non-array"},
      {"<vxExtFL:files>x</vxExtFL:files>", "", "Indexing applied to non-array"},
  };
  for (const auto& row : rows) {
    Loaded xmp(row.packet);
    Refs read = refs("before");
    EXPECT_EQ(xmp.GetExtRefs(read), *row.read != '\0' && *row.error == '\0');
    EXPECT_EQ(text(read) + xmp.ErrStr(), std::string(row.read) + row.error);
  }
  Refs read;
  EXPECT_TRUE(Loaded(old("files:p*.t#1-2")).GetExtRefs(read, true));
  EXPECT_EQ(text(read), "files:p*.t#1-2,,-1,,-1");
}

TEST(Compaction, JoinsRunsOfNumberedImagesAndLeavesTheRest) {
  const std::string others =
      "p_01.t p_0123456789.t p_001a.t p_001 p_001.tar.gz p001.t p_001_.t p_001_a.t _ p_.t p_+01.t "
      "files:p_*.t#001-002 p_001.t,,1,image,1 p_002.t,,-1,image,1 p_003.t,,0,Image,1 p_004.t,,0,,1";
  const std::string longest = std::string(510, 'p') + "_";
  const std::string pair = "001-002,r,0,image,2";
  const std::string rows[][2] = {
      {others, others},
      {"p_007.t,s,0,image,7 x,s,0,image,7", "x,s,0,image,7 p_007.t,s,0,image,1"},
      {"file:_001. _001. file:_002. _002.", "files:_*.#" + pair + " files:_*.#" + pair},
      {"p_999999998.t p_999999999.t", "files:p_*.t#999999998-999999999,r,0,image,2"},
      {"a_1.t p_101.t p_099.t,s,0,image,1 p_100.t p_097.t",
       "a_1.t p_097.t files:p_*.t#099-101,r,0,image,3"},
      {"p_001.t p_002.t p_002.t p_001.t", "p_001.t files:p_*.t#" + pair + " p_002.t"},
      {"b_0_001.t a_1_001.t b_0_002.t", "files:b_0_*.t#" + pair + " a_1_001.t"},
      {"p_999.t p_1000.t p_998.T P_998.t", "p_999.t p_1000.t p_998.T P_998.t"},
      {longest + "001.t " + longest + "002.t", "files:" + longest + "*.t#" + pair},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(text(XMPlib().SimplifyExtRefs(refs(row[0], kImage)), kImage), row[1]);
  }
}

TEST(Expansion, MakesAReferenceOfEachFileInItsPlace) {
  const char* const rows[][2] = {
      {"a,r,1,t,5 files:_*.t#09-10,s,3,u,9 b", "a,r,1,t,5 file:_09.t,s,0,u,1 file:_10.t,s,0,u,1 b"},
      {"FILES:*#5-5 FILES:a*b#07-03 file:a*b#1-2", "file:5 file:a*b#1-2"},
      {"files:a*b*c#d-e#08-9", "file:a*b08c#d-e file:a*b09c#d-e"},
      {"files:%s%n*%d#9-0011", "file:%s%n9%d file:%s%n10%d file:%s%n11%d"},
      // Numbers are read as the C library reads them, also those that do not fit.
      {"files:a*#001x-2-9", "file:a0001 file:a0002"},
      {"files:a*#-1 files:b*#x- files:c*#0--1", "file:a0 file:a1 file:b0"},
      {"files:a*#2147483646-2147483647", "file:a2147483646 file:a2147483647"},
      {"files:a*#4294967297-4294967298", "file:a0000000001 file:a0000000002"},
      {"x files:a*#0-99999999999999999999", "x"},
  };
  for (const auto& row : rows) EXPECT_EQ(text(XMPlib().ExpandExtRefs(refs(row[0]))), row[1]);
}

TEST(Expansion, ThrowsForRunsThatCannotBeReadOrAreTooLong) {
  const auto thrown = [](const std::string& rows) -> std::string {
    Loaded xmp(current(rows));
    EXPECT_THROW(xmp.MergeExtRefs(refs("new")), std::logic_error);
    EXPECT_EQ(stored(xmp), current(rows));
    Refs read;
    try {
      xmp.GetExtRefs(read);
    } catch (const std::logic_error& error) {
      EXPECT_EQ(text(read) + xmp.ErrStr(), rows);
      return dynamic_cast<const std::length_error*>(&error) ? "too long" : error.what();
    }
    return "";
  };
  for (const char* row : {"a files:a.t#1-2", "a files:a*b", "a files:a-b*c#12", "FILES:"}) {
    EXPECT_EQ(thrown(row), "bad extref");
  }
  for (const std::string& row :
       {std::string("a files:a*#1-600000"), std::string("files:a*#2147483648-2147483647"),
        std::string("files:a*#1-300000 files:b*#1-300000"),
        "files:" + std::string(500, 'a') + "*#1-200000",
        "files:a*#1-200000," + std::string(500, 'r') + ",0,image,1"}) {
    EXPECT_EQ(thrown(row), "too long");
  }
}

// What can be expanded can be stored one by one, in both layouts, and read again.
TEST(Expansion, EndsWhereAPacketWould) {
  Refs list = refs("files:a*#1-100 b");
  list[0].renditionClass = std::string(1 << 20, 'r');
  EXPECT_EQ(XMPlib().ExpandExtRefs(list).size(), 101U);
  list[1].type = std::string(60 << 20, 't');  // 100 classes, twice each, and this
  EXPECT_THROW(XMPlib().ExpandExtRefs(list), std::length_error);
  list[0].instanceID = "files:a*#1-130";
  list[1].type.clear();
  EXPECT_THROW(XMPlib().ExpandExtRefs(list), std::length_error);
}

TEST(MergedReferences, AddUpTheCountsOfFirstMatches) {
  const char* const rows[][3] = {
      {"A,r,0,t,3", "A,s,0,u,2 B", "A,r,0,t,5 B"},
      {"A A,,0,,2", "A,,0,,5 A,,1,,1 C C,,0,,2", "A,,0,,6 A,,0,,2 A,,1,,1 C,,0,,3"},
      {"A", "A", "A"},  // counts alone are no reason to write
      {"files:p_*.t#001-003,r,0,image,3", "file:p_002.t file:p_004.t,s,0,image,1",
       "files:p_*.t#001-004,r,0,image,4"},
      {"A B,r,x,t,1", "A C", "A,,0,,2 C"},  // read up to the error
  };
  for (const auto& row : rows) {
    Loaded xmp(current(row[0]));
    Refs read;
    EXPECT_TRUE(xmp.MergeExtRefs(refs(row[1])));
    EXPECT_EQ(stored(xmp).find("<vxExtFL:") == std::string::npos, std::string(row[0]) == row[2]);
    EXPECT_TRUE(xmp.GetExtRefs(read, true));
    EXPECT_EQ(text(read), row[2]);
  }
}

TEST(CadFiles, KeepNameAndRenditionAlone) {
  XMPlib xmp;
  Refs read;
  EXPECT_TRUE(xmp.SetCadFiles(refs("b,r,3,image,4 a")));
  EXPECT_TRUE(xmp.MergeCadFiles(refs("a,s,-1,t,1 c,,-1,,1 b,s,0,,1 c,s,-1,,1")));
  EXPECT_EQ(stored(xmp), cad("b,r a c b,s"));
  EXPECT_TRUE(Loaded(cad("a,r b,- c")).GetCadFiles(read));
  EXPECT_EQ(text(read), "a,r,-1,,-1");
}
