// SPDX-License-Identifier: Apache-2.0
// The built program, as it is used.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <sstream>

#include "support/program.h"

namespace {

const std::string kCarton = VXMETA_EXAMPLES "/folding_carton.xmp";

std::string replaced(std::string text, const std::string& what, const std::string& with) {
  const std::size_t at = text.find(what);
  return at == std::string::npos ? text : text.replace(at, what.size(), with);
}

TEST(Get, AnswersPaths) {
  struct Case {
    const char* path;
    const char* answer;
    int exitCode;
  };
  const Case cases[] = {
      {"job.orderid", "2026-1121\n", 0},
      {"inks[2].name", "Yellow\n", 0},
      {"inks[-1].attribute", "omask\n", 0},
      {"'inks[name=Leaf green].pct'", "34.0\n", 0},
      {"'inks[angle=45.0].name'", "Black\n", 0},
      {"'inks[angle=45].name'", "Black\n", 0},
      {"'inks[angle=4.5e1].name'", "Black\n", 0},
      {"'layers[locked=false].name'", "Artwork\n", 0},
      {"'fonts[name=\"Tea Script\"].protection'", "true\n", 0},
      {"screens[0][1].dotshape", "Round\n", 0},
      {"pageRanges[0].inks[-1]", "7\n", 0},
      {"scalars.nrPages", "1\n", 0},
      {"job.url", "\n", 0},
      {"vxmeta", "1\n", 0},
      {"packet.writable", "true\n", 0},
      {"layers[0]", "{\n  \"name\": \"Artwork\",\n  \"printable\": true,\n  \"locked\": false\n}\n",
       0},
      {"unread", "[]\n", 0},
      {"inks[8]", "", 1},
      {"inks[-9].name", "", 1},
      {"'inks[name=Silver].angle'", "", 1},
      {"film.version.type", "", 1},
      {"scalars.vdpVersion", "", 1},
      {"inks.name", "", 2},
      {"'inks[angle=steep].name'", "", 2},
      {"'inks[angle=].name'", "", 2},
      {"'layers[locked=no].name'", "", 2},
  };
  for (const Case& one : cases) {
    const Outcome end = runTool("get '" + kCarton + "' " + one.path);
    EXPECT_EQ(end.out, one.answer) << one.path;
    EXPECT_EQ(end.code, one.exitCode) << one.path;
    EXPECT_EQ(end.err.empty(), one.exitCode == 0) << one.path;
  }
}

TEST(Usage, IsRefusedInWords) {
  const std::pair<const char*, const char*> cases[] = {
      {"", "A subcommand is required"},
      {"frobnicate", "no command or option 'frobnicate'"},
      {"json", "FILE is required"},
      {"json --lime -", "--lime"},
      {"json -j 0 -", "-j"},
      {"show --color sometimes -", "'sometimes' is none of always, auto, never"},
      {"show --color 1 -", "'1' is none of always, auto, never"},
      {"set --how foo - a=b", "'foo' is none of append, rewrite, splice"},
      {"merge --films foo a b", "'foo' is none of pages, separations"},
      {"json --object 0 -", "Value 0 not in range 1 to 2147483647"},
      {"show -s paint -", "show: 'paint': no field 'paint'"},
      {"get -dash.xmp x", "no option '-dash.xmp'"},
      {"get - x", "get: 'x': no field 'x'; there are: "},
      {"get - ''", "get: '': no field ''; there are: "},
      {"get - orderd", "did you mean job.orderid"},
      {"diff - -", "cannot be both"},
      {"get -", "PATH is required"},
  };
  for (const auto& [arguments, message] : cases) {
    const Outcome end = runTool(arguments, "<rdf:RDF/>");
    EXPECT_EQ(end.code, 2) << arguments;
    EXPECT_EQ(end.out, "") << arguments;
    EXPECT_TRUE(end.err.starts_with("vxmeta: ")) << end.err;
    EXPECT_NE(end.err.find(message), std::string::npos) << end.err;
  }
}

TEST(Usage, HelpHasAnExampleOfEveryCommand) {
  for (const char* command : {"", "show", "json", "get", "diff", "schema"}) {
    const Outcome end = runTool(std::string(command) + " --help");
    EXPECT_EQ(end.code, 0) << command;
    EXPECT_NE(end.out.find("Example: vxmeta " + std::string(command)), std::string::npos);
  }
  EXPECT_EQ(runTool("--version").out.substr(0, 7), "vxmeta ");
}

// The exit code, the file of each line and whether it has an error.
std::string linesOf(const std::string& arguments) {
  const Outcome end = runTool(arguments);
  std::string text = std::to_string(end.code);
  std::istringstream lines(end.out);
  for (std::string line; std::getline(lines, line);) {
    const nlohmann::json json = nlohmann::json::parse(line);
    const std::string file = json.at("file");
    text += " " + file.substr(file.rfind('/') + 1) + (json.contains("error") ? "!" : "");
  }
  return text;
}

TEST(Files, ComeInTheirOrderWhateverFails) {
  const std::string packet = contentOf(kCarton);
  scratchFile("a", packet);
  scratchFile("cut", packet.substr(0, packet.size() / 2));
  scratchFile("b \"\\", packet);
  std::string files;
  std::string expected;
  for (int i = 0; i < 20; ++i) {
    for (const char* name : {"a", "cut", "none", "b \"\\"}) {
      files += " '" + scratchPath(name) + "'";
      expected += std::string(" ") + name + (*name == 'c' || *name == 'n' ? "!" : "");
    }
  }
  EXPECT_EQ(linesOf("json" + files), "2" + expected);
  EXPECT_EQ(linesOf("json -j 3" + files), "2" + expected);
  EXPECT_EQ(linesOf("json --lines '" + kCarton + "'"), "0 folding_carton.xmp");
}

TEST(Files, AreNamedInMessagesWithoutSteeringTheTerminal) {
  const Outcome end = runTool("show \"$(printf 'no\\033[31m\\nfile\\377')\"");
  EXPECT_EQ(end.code, 2);
  EXPECT_TRUE(end.err.starts_with(R"(vxmeta: no\x1b[31m\nfile\xff: )")) << end.err;
}

TEST(Files, MayHaveNamesThatAreNotUtf8) {
  scratchFile("caf\xE9", contentOf(kCarton));
  const Outcome end = runTool("json '" + scratchPath("caf\xE9") + "'");
  EXPECT_EQ(end.code, 0);
  EXPECT_NE(end.out.find("caf\xEF\xBF\xBD\""), std::string::npos);
}

TEST(Json, ExpandsRunsOfFiles) {
  const auto countOf = [](const Outcome& end) {
    return nlohmann::json::parse(end.out).at("extRefs").size();
  };
  EXPECT_EQ(countOf(runTool("json '" + kCarton + "'")), 2U);
  EXPECT_EQ(countOf(runTool("json --expand '" + kCarton + "'")), 5U);
  const std::string packet = replaced(contentOf(kCarton), "leaf_*.tif#001-004", "leaf");
  const Outcome end = runTool("json --expand -", packet);
  EXPECT_EQ(end.code, 2);
  EXPECT_NE(end.err.find("without --expand"), std::string::npos) << end.err;
  EXPECT_EQ(countOf(runTool("json -", packet)), 2U);
}

TEST(Show, PutsHostileTextsOutOfAction) {
  const std::string packet =
      replaced(contentOf(kCarton), "Leaf green", "&#x9B;31m\xE2\x80\xAEgreen&#127;&#10;");
  for (const char* arguments : {"show -", "show -s all -", "show --color always -s inks -"}) {
    const Outcome end = runTool(arguments, packet);
    EXPECT_EQ(end.code, 0);
    EXPECT_NE(end.out.find("\\u202egreen\\x7f\\n"), std::string::npos) << end.out;
    EXPECT_EQ(end.out.find("\xC2\x9B"), std::string::npos);
  }
}

TEST(Show, IsPlainWhereItIsPiped) {
  const Outcome plain = runTool("show '" + kCarton + "'");
  const Outcome coloured = runTool("show --color always '" + kCarton + "'");
  EXPECT_EQ(plain.out.find('\x1b'), std::string::npos);
  EXPECT_NE(coloured.out.find("\x1b[48;2;0;158;224m"), std::string::npos);
  for (const char* text : {"Tea cartons, spring", "#009ee0", "182.5 mm", "Sans Regular ×2"}) {
    EXPECT_NE(plain.out.find(text), std::string::npos) << text;
  }
}

TEST(Diff, AnswersByItsExitCode) {
  const std::string packet = contentOf(kCarton);
  const std::string order = scratchFile("order", replaced(packet, ">2026-1121<", ">2026-7<"));
  const std::string date = scratchFile("date", replaced(packet, "2026-11-20T", "2026-11-21T"));
  const auto diff = [](const std::string& a, const std::string& b, const std::string& options) {
    return runTool("diff " + options + " '" + a + "' '" + b + "'");
  };
  EXPECT_EQ(diff(kCarton, kCarton, "").code, 0);
  EXPECT_EQ(diff(kCarton, kCarton, "").out, "");
  EXPECT_EQ(diff(kCarton, order, "").out, "~  job.orderid  2026-1121 → 2026-7\n");
  EXPECT_EQ(diff(kCarton, order, "").code, 1);
  EXPECT_EQ(diff(kCarton, date, "").code, 1);
  EXPECT_EQ(diff(kCarton, date, "--semantic").code, 0);
  EXPECT_EQ(diff(kCarton, scratchPath("none"), "").code, 2);
  const auto json = nlohmann::json::parse(diff(kCarton, order, "--json").out);
  EXPECT_EQ(json.at("changes").dump(),
            R"([{"after":"2026-7","before":"2026-1121","change":"changed","path":"job.orderid"}])");
}

TEST(Output, ThatCannotBeWrittenIsTrouble) {
  const Outcome end = runTool("json '" + kCarton + "' >/dev/full");
  EXPECT_EQ(end.code, 2);
  EXPECT_NE(end.err.find("standard output"), std::string::npos);
}

}  // namespace
