// The built program, as it is used.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <sstream>

#include "tools/run_tool.h"

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
  };
  for (const Case& one : cases) {
    const Ending end = runTool("get '" + kCarton + "' " + one.path);
    EXPECT_EQ(end.out, one.answer) << one.path;
    EXPECT_EQ(end.exitCode, one.exitCode) << one.path;
    EXPECT_EQ(end.messages.empty(), one.exitCode == 0) << one.path;
  }
}

TEST(Usage, IsRefusedInWords) {
  const std::pair<const char*, const char*> cases[] = {
      {"", "A subcommand is required"},
      {"frobnicate", "no command or option 'frobnicate'"},
      {"json", "FILE is required"},
      {"json --lime -", "--lime"},
      {"json -j 0 -", "-j"},
      {"show --color sometimes -", "sometimes"},
      {"show -s paint -", "no field 'paint'"},
      {"diff - -", "cannot be both"},
      {"get -", "PATH is required"},
  };
  for (const auto& [arguments, message] : cases) {
    const Ending end = runTool(arguments, "<rdf:RDF/>");
    EXPECT_EQ(end.exitCode, 2) << arguments;
    EXPECT_EQ(end.out, "") << arguments;
    EXPECT_TRUE(end.messages.starts_with("vxmeta: ")) << end.messages;
    EXPECT_NE(end.messages.find(message), std::string::npos) << end.messages;
  }
}

TEST(Usage, HelpHasAnExampleOfEveryCommand) {
  for (const char* command : {"", "show", "json", "get", "diff", "schema"}) {
    const Ending end = runTool(std::string(command) + " --help");
    EXPECT_EQ(end.exitCode, 0) << command;
    EXPECT_NE(end.out.find("Example: vxmeta " + std::string(command)), std::string::npos);
  }
  EXPECT_EQ(runTool("--version").out.substr(0, 7), "vxmeta ");
}

// The exit code, the file of each line and whether it has an error.
std::string linesOf(const std::string& arguments) {
  const Ending end = runTool(arguments);
  std::string text = std::to_string(end.exitCode);
  std::istringstream lines(end.out);
  for (std::string line; std::getline(lines, line);) {
    const nlohmann::json json = nlohmann::json::parse(line);
    const std::string file = json.at("file");
    text += " " + file.substr(file.rfind('/') + 1) + (json.contains("error") ? "!" : "");
  }
  return text;
}

TEST(Files, ComeInTheirOrderWhateverFails) {
  const Folder folder;
  const std::string packet = contentOf(kCarton);
  folder.write("a", packet);
  folder.write("cut", packet.substr(0, packet.size() / 2));
  folder.write("b \"\\", packet);
  std::string files;
  std::string expected;
  for (int i = 0; i < 20; ++i) {
    for (const char* name : {"a", "cut", "none", "b \"\\"}) {
      files += " '" + folder.file(name) + "'";
      expected += std::string(" ") + name + (*name == 'c' || *name == 'n' ? "!" : "");
    }
  }
  EXPECT_EQ(linesOf("json" + files), "2" + expected);
  EXPECT_EQ(linesOf("json -j 3" + files), "2" + expected);
  EXPECT_EQ(linesOf("json --lines '" + kCarton + "'"), "0 folding_carton.xmp");
}

TEST(Files, AreNamedInMessagesWithoutSteeringTheTerminal) {
  const Ending end = runTool("show \"$(printf 'no\\033[31m\\nfile\\377')\"");
  EXPECT_EQ(end.exitCode, 2);
  EXPECT_TRUE(end.messages.starts_with(R"(vxmeta: no\x1b[31m\nfile\xff: )")) << end.messages;
}

TEST(Files, MayHaveNamesThatAreNotUtf8) {
  const Folder folder;
  folder.write("caf\xE9", contentOf(kCarton));
  const Ending end = runTool("json '" + folder.file("caf\xE9") + "'");
  EXPECT_EQ(end.exitCode, 0);
  EXPECT_NE(end.out.find("caf\xEF\xBF\xBD\""), std::string::npos);
}

TEST(Json, ExpandsRunsOfFiles) {
  const auto countOf = [](const Ending& end) {
    return nlohmann::json::parse(end.out).at("extRefs").size();
  };
  EXPECT_EQ(countOf(runTool("json '" + kCarton + "'")), 2U);
  EXPECT_EQ(countOf(runTool("json --expand '" + kCarton + "'")), 5U);
  const std::string packet = replaced(contentOf(kCarton), "leaf_*.tif#001-004", "leaf");
  const Ending end = runTool("json --expand -", packet);
  EXPECT_EQ(end.exitCode, 2);
  EXPECT_NE(end.messages.find("without --expand"), std::string::npos) << end.messages;
  EXPECT_EQ(countOf(runTool("json -", packet)), 2U);
}

TEST(Show, PutsHostileTextsOutOfAction) {
  const std::string packet =
      replaced(contentOf(kCarton), "Leaf green", "&#x9B;31m\xE2\x80\xAEgreen&#127;&#10;");
  for (const char* arguments : {"show -", "show -s all -", "show --color always -s inks -"}) {
    const Ending end = runTool(arguments, packet);
    EXPECT_EQ(end.exitCode, 0);
    EXPECT_NE(end.out.find("\\u202egreen\\x7f\\n"), std::string::npos) << end.out;
    EXPECT_EQ(end.out.find("\xC2\x9B"), std::string::npos);
  }
}

TEST(Show, IsPlainWhereItIsPiped) {
  const Ending plain = runTool("show '" + kCarton + "'");
  const Ending coloured = runTool("show --color always '" + kCarton + "'");
  EXPECT_EQ(plain.out.find('\x1b'), std::string::npos);
  EXPECT_NE(coloured.out.find("\x1b[48;2;0;158;224m"), std::string::npos);
  for (const char* text : {"Tea cartons, spring", "#009ee0", "182.5 mm", "Sans Regular ×2"}) {
    EXPECT_NE(plain.out.find(text), std::string::npos) << text;
  }
}

TEST(Diff, AnswersByItsExitCode) {
  const Folder folder;
  const std::string packet = contentOf(kCarton);
  const std::string order = folder.write("order", replaced(packet, ">2026-1121<", ">2026-7<"));
  const std::string date = folder.write("date", replaced(packet, "2026-11-20T", "2026-11-21T"));
  const auto diff = [](const std::string& a, const std::string& b, const std::string& options) {
    return runTool("diff " + options + " '" + a + "' '" + b + "'");
  };
  EXPECT_EQ(diff(kCarton, kCarton, "").exitCode, 0);
  EXPECT_EQ(diff(kCarton, kCarton, "").out, "");
  EXPECT_EQ(diff(kCarton, order, "").out, "~  job.orderid  2026-1121 → 2026-7\n");
  EXPECT_EQ(diff(kCarton, order, "").exitCode, 1);
  EXPECT_EQ(diff(kCarton, date, "").exitCode, 1);
  EXPECT_EQ(diff(kCarton, date, "--semantic").exitCode, 0);
  EXPECT_EQ(diff(kCarton, folder.file("none"), "").exitCode, 2);
  const auto json = nlohmann::json::parse(diff(kCarton, order, "--json").out);
  EXPECT_EQ(json.at("changes").dump(),
            R"([{"after":"2026-7","before":"2026-1121","change":"changed","path":"job.orderid"}])");
}

TEST(Output, ThatCannotBeWrittenIsTrouble) {
  const Ending end = runTool("json '" + kCarton + "' >/dev/full");
  EXPECT_EQ(end.exitCode, 2);
  EXPECT_NE(end.messages.find("standard output"), std::string::npos);
}

}  // namespace
