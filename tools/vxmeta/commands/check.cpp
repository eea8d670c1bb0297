// SPDX-License-Identifier: Apache-2.0
// vxmeta check: what would go wrong with a document.
#include <fmt/format.h>
#include <algorithm>
#include <memory>
#include <nlohmann/json.hpp>

#include "checks/finding.h"
#include "commands/inputs.h"
#include "files/file_kind.h"
#include "files/input_file.h"
#include "text/terminal.h"

namespace vxmeta {
namespace {

struct CheckOptions {
  std::vector<std::string> files;
  std::vector<std::string> only;
  std::vector<std::string> ignored;
  bool json = false;
  bool strict = false;
  bool list = false;
  Inputs inputs;
};

using Json = nlohmann::ordered_json;

bool contains(const std::vector<std::string>& ids, const char* id) {
  return std::find(ids.begin(), ids.end(), id) != ids.end();
}

bool isChosen(const Check& check, const CheckOptions& options) {
  return (options.only.empty() || contains(options.only, check.id)) &&
         !contains(options.ignored, check.id);
}

std::vector<Finding> findingsIn(const Subject& subject, const CheckOptions& options) {
  std::vector<Finding> findings;
  for (const Check& check : allChecks()) {
    if (!isChosen(check, options)) continue;
    for (Finding& finding : run(check, subject)) findings.push_back(std::move(finding));
  }
  return findings;
}

std::vector<Finding> findingsOf(const std::string& name, const CheckOptions& options,
                                Outcome& outcome) {
  const InputFile file(name);
  const FilePacket packet = read(name, file, options.inputs, outcome);
  XMPlib xmp;
  loadPacket(packet.text, xmp);
  Subject subject = {xmp, packetFacts(packet.text), {}};
  const bool isPdf = fileKind(file.head()).family == FileKind::pdf;
  if (isPdf) subject.pdf = readPdfFacts(file, options.inputs.options.password);
  return findingsIn(subject, options);
}

Json asJson(const std::string& file, const Finding& finding) {
  return {
      {"file", file},         {"id", finding.id},           {"severity", nameOf(finding.severity)},
      {"path", finding.path}, {"message", finding.message}, {"hint", finding.hint}};
}

std::string asLines(const std::string& file, const Finding& finding) {
  return fmt::format("{}: {}: {} [{}]\n    {}\n", visible(file), nameOf(finding.severity),
                     visible(finding.message), finding.id, visible(finding.hint));
}

bool isAnswerNo(const Finding& finding, bool strict) {
  return finding.severity == Severity::error || (strict && finding.severity == Severity::warning);
}

// The findings of a file: as lines in the outcome, else as JSON in the list.
Outcome checked(const std::string& file, const CheckOptions& options, Json& list) {
  Outcome outcome;
  try {
    for (const Finding& finding : findingsOf(file, options, outcome)) {
      if (options.json) {
        list.push_back(asJson(file, finding));
      } else {
        outcome.out += asLines(file, finding);
      }
      if (isAnswerNo(finding, options.strict)) outcome.exitCode = kNo;
    }
  } catch (const std::exception& error) {
    fail(outcome, file, error.what());
  }
  return outcome;
}

int checkAll(CheckOptions& options) {
  const std::vector<std::string>& files = options.files;
  std::vector<Json> lists(files.size(), Json::array());
  const int exitCode = forEachFile(files, options.inputs, [&](const std::string& file) {
    return checked(file, options, lists[static_cast<std::size_t>(&file - files.data())]);
  });
  if (!options.json) return exitCode;
  Json all = Json::array();
  for (Json& list : lists) all.insert(all.end(), list.begin(), list.end());
  // Names in a PDF may be in any encoding.
  printOut(all.dump(2, ' ', false, Json::error_handler_t::replace) + '\n');
  return exitCode;
}

void listChecks() {
  for (const Check& check : allChecks()) {
    printOut(fmt::format("{:<22} {:<8} {}\n", check.id, nameOf(check.severity), check.summary));
  }
}

CLI::Validator isCheck() {
  return {[](const std::string& id) -> std::string {
            for (const Check& known : allChecks()) {
              if (id == known.id) return "";
            }
            return "no check is called " + id + "; --list-checks shows them";
          },
          ""};
}

}  // namespace

void addCheck(CLI::App& app, Run& run) {
  CLI::App* command = app.add_subcommand("check", "Find what would go wrong with documents");
  const auto options = std::make_shared<CheckOptions>();
  CLI::Option* files =
      command->add_option("FILE", options->files, "Documents; - is standard input");
  CLI::Option* list =
      command->add_flag("--list-checks", options->list, "Show all checks, and do none");
  command->add_flag("--json", options->json, "Print the findings as a JSON list");
  command->add_flag("--strict", options->strict, "Let warnings count as errors for the exit code");
  command->add_option("--only", options->only, "Do this check alone; may be repeated")
      ->type_name("ID")
      ->allow_extra_args(false)
      ->check(isCheck());
  command->add_option("--ignore", options->ignored, "Leave this check out; may be repeated")
      ->type_name("ID")
      ->allow_extra_args(false)
      ->check(isCheck());
  addReadOptions(*command, options->inputs);
  addJobsOption(*command, options->inputs);
  command->footer(
      "Exits with 1 when there is an error.\n\n"
      "Example: vxmeta check --strict --ignore pdf-producer carton.pdf");
  command->callback([=, &run] {
    if (!*list && !*files) throw CLI::RequiredError("FILE");
    if (options->list) return listChecks();
    run.exitCode = checkAll(*options);
  });
}

}  // namespace vxmeta
