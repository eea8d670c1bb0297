// SPDX-License-Identifier: Apache-2.0
// vxmeta get
#include <fmt/format.h>

#include <nlohmann/json.hpp>

#include "commands/inputs.h"
#include "model/json.h"
#include "model/path.h"
#include "text/terminal.h"

namespace vxmeta {
namespace {

struct Options {
  std::string file;
  std::string path;
  Inputs inputs;
};

std::string answer(const View& value) {
  if (value.is(Kind::record) || value.is(Kind::list)) return jsonText(toJson(value), true);
  const std::string text = plainText(value);
  return isTerminal() ? visible(text) : text;
}

Outcome found(const std::string& file, const Options& options) {
  Outcome outcome;
  try {
    const Path path = parsePath(options.path, typeOf<Document>());
    const Document document = loadDocument(file, options.inputs, {path[0].name, false}, outcome);
    if (const std::optional<View> value = valueAt(viewOf(document), path)) {
      outcome.out = answer(*value) + '\n';
    } else {
      outcome.messages += messageLine(file, "holds no " + options.path);
      outcome.exitCode = kNo;
    }
  } catch (const PathError& error) {
    fail(outcome, "get", error.what());
  } catch (const std::exception& error) {
    fail(outcome, file, error.what());
  }
  return outcome;
}

}  // namespace

void addGet(CLI::App& app, Run& run) {
  const auto options = std::make_shared<Options>();
  CLI::App* command = app.add_subcommand("get", "Print one value");
  command->add_option("FILE", options->file, "The file; - is standard input")->required();
  command->add_option("PATH", options->path, "Path of the value, as in the JSON")->required();
  addReadOptions(*command, options->inputs);
  command->footer(
      "Texts come as they are, numbers and truth values as in JSON, records and lists as JSON. "
      "Exit code 1 when the file holds no such value.\n"
      "Example: vxmeta get carton.pdf job.orderid\n"
      "         vxmeta get carton.pdf inks[2].angle          # the third ink; [-1] is the last\n"
      "         vxmeta get carton.pdf 'inks[name=Leaf green].pct'");
  command->callback([&run, options] {
    run.exitCode = forEachFile({options->file}, options->inputs,
                               [&](const std::string& file) { return found(file, *options); });
  });
}

}  // namespace vxmeta
