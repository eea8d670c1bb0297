// vxmeta diff
#include <fmt/format.h>

#include <nlohmann/json.hpp>

#include "commands/inputs.h"
#include "commands/screen_option.h"
#include "model/compare.h"
#include "model/json.h"
#include "text/cells.h"

namespace vxmeta {
namespace {

struct Options {
  std::string before;
  std::string after;
  Inputs inputs;
  ColourChoice colours = ColourChoice::automatic;
  bool isJson = false;
  bool isSemantic = false;
  bool expandRefs = false;
};

struct WayWords {
  const char* sign;
  const char* word;
  Style style;
};

const WayWords& wordsOf(Change::Way way) {
  static constexpr WayWords kWords[] = {
      {"+", "added", Style::added},
      {"-", "removed", Style::removed},
      {"~", "changed", Style::warning},
      {"^", "moved", Style::warning},
  };
  return kWords[static_cast<std::size_t>(way)];
}

std::string orderOf(const View& list) {
  const Field* key = list.type->item->key();
  std::string names;
  for (std::size_t i = 0; i < list.size(); ++i) {
    const std::string name = key != nullptr ? shownField(list.item(i), *key) : "?";
    names += (i == 0 ? "" : ", ") + name;
  }
  return names;
}

std::string sentenceOf(const Change& change) {
  if (change.way == Change::Way::added) return shortOf(change.after);
  if (change.way == Change::Way::removed) return shortOf(change.before);
  if (change.way == Change::Way::changed) {
    return shortOf(change.before) + " → " + shortOf(change.after);
  }
  const bool hasNames = change.before.type->item->key() != nullptr;
  return hasNames ? orderOf(change.before) + " → " + orderOf(change.after)
                  : "the same items in another order";
}

std::string textOf(const std::vector<Change>& changes, const Screen& screen) {
  Table table{{{"", false}, {"", false}, {"", false}}, {}};
  for (const Change& change : changes) {
    const WayWords& words = wordsOf(change.way);
    table.rows.push_back({{words.sign, {}, words.style},
                          {visible(change.path), {}, words.style},
                          {sentenceOf(change), {}, Style::plain}});
  }
  return formatTable(table, screen, 0);
}

Json jsonOf(const Change& change) {
  Json json = {{"path", change.path}, {"change", wordsOf(change.way).word}};
  if (change.before.type != nullptr) json["before"] = toJson(change.before);
  if (change.after.type != nullptr) json["after"] = toJson(change.after);
  return json;
}

std::string jsonOf(const std::vector<Change>& changes, const Options& options) {
  Json list = Json::array();
  for (const Change& change : changes) list.push_back(jsonOf(change));
  const Json all = {{"vxmeta", 1},
                    {"before", options.before},
                    {"after", options.after},
                    {"same", changes.empty()},
                    {"changes", list}};
  return jsonText(all, true) + '\n';
}

// Both files are read even when the first cannot be: two messages are better than one at a time.
std::optional<Document> read(const std::string& file, const Options& options, Outcome& outcome) {
  try {
    return loadDocument(file, options.inputs, {{}, options.expandRefs}, outcome);
  } catch (const std::exception& error) {
    fail(outcome, file, error.what());
    return std::nullopt;
  }
}

Outcome compared(const Options& options) {
  Outcome outcome;
  const std::optional<Document> before = read(options.before, options, outcome);
  const std::optional<Document> after = read(options.after, options, outcome);
  if (!before || !after) return outcome;
  const std::vector<Change> changes = compare(*before, *after, options.isSemantic);
  outcome.out =
      options.isJson ? jsonOf(changes, options) : textOf(changes, screenOf(options.colours));
  outcome.exitCode = changes.empty() ? kDone : kNo;
  return outcome;
}

void requireOneStdin(const Options& options) {
  if (options.before == "-" && options.after == "-") {
    throw CLI::ValidationError("diff", "standard input cannot be both files");
  }
}

}  // namespace

void addDiff(CLI::App& app, Run& run) {
  const auto options = std::make_shared<Options>();
  CLI::App* command = app.add_subcommand("diff", "Compare the metadata of two files");
  command->add_option("A", options->before, "The first file; - is standard input")->required();
  command->add_option("B", options->after, "The second file")->required();
  command->add_flag("--json", options->isJson, "As JSON, with the values of both sides");
  command->add_flag("--semantic", options->isSemantic,
                    "Leave out dates, and identifiers of documents, versions and entries");
  command->add_flag("--expand", options->expandRefs,
                    "A run of numbered files as one reference for each file");
  addColourOption(*command, options->colours);
  addReadOptions(*command, options->inputs);
  command->footer(
      "Items of lists are found again by what identifies them, wherever they stand. "
      "+ is in B alone, - in A alone, ~ has changed, ^ stands in another order. How the packets "
      "lie in their files, and what no record covers, is not compared.\n"
      "Exit code 0: the same; 1: different; 2: trouble.\n"
      "Example: vxmeta diff --semantic proof.pdf plate.pdf && echo same");
  command->callback([&run, options] {
    requireOneStdin(*options);
    run.exitCode = forEachFile({options->before}, options->inputs,
                               [&](const std::string&) { return compared(*options); });
  });
}

}  // namespace vxmeta
