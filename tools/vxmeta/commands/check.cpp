// vxmeta check: what would go wrong with a document.
#include <fmt/format.h>
#include <algorithm>
#include <memory>
#include <nlohmann/json.hpp>

#include "checks/finding.h"
#include "commands/commands.h"
#include "commands/messages.h"
#include "commands/read_options.h"
#include "files/file_kind.h"
#include "files/input_file.h"
#include "files/packet_file.h"

namespace vxmeta {
namespace {

struct CheckOptions {
  std::vector<std::string> files;
  std::vector<std::string> only;
  std::vector<std::string> ignored;
  bool json = false;
  bool strict = false;
  bool list = false;
  ReadOptions read;
};

using Json = nlohmann::ordered_json;

struct FileFinding {
  std::string file;
  Finding finding;
};

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

std::vector<Finding> checkFile(const std::string& name, const CheckOptions& options) {
  const InputFile file(name);
  const FilePacket packet = readPacket(file, options.read);
  for (const std::string& warning : packet.warnings) sayWarning(name, warning);
  XMPlib xmp;
  xmp.SetXML(packet.text);
  if (!xmp.ErrStr().empty()) throw FileError("its packet cannot be read: " + xmp.ErrStr());
  Subject subject = {xmp, packetFacts(packet.text), {}};
  const bool isPdf = fileKind(file.head()).family == FileKind::pdf;
  if (isPdf) subject.pdf = readPdfFacts(file, options.read.password);
  return findingsIn(subject, options);
}

// --- What is printed ----------------------------------------------------------------------------

Json asJson(const FileFinding& found) {
  const Finding& finding = found.finding;
  return {
      {"file", found.file},   {"id", finding.id},           {"severity", nameOf(finding.severity)},
      {"path", finding.path}, {"message", finding.message}, {"hint", finding.hint}};
}

std::string asLines(const FileFinding& found) {
  const Finding& finding = found.finding;
  return fmt::format("{}: {}: {} [{}]\n    {}\n", printable(found.file), nameOf(finding.severity),
                     printable(finding.message), finding.id, printable(finding.hint));
}

void print(const std::vector<FileFinding>& all, bool json) {
  std::string text;
  Json list = Json::array();
  for (const FileFinding& found : all) {
    if (json) {
      list.push_back(asJson(found));
    } else {
      text += asLines(found);
    }
  }
  // Names in a PDF may be in any encoding.
  if (json) text = list.dump(2, ' ', false, Json::error_handler_t::replace) + '\n';
  writeOut(text);
}

void listChecks() {
  std::string text;
  for (const Check& check : allChecks()) {
    text += fmt::format("{:<22} {:<8} {}\n", check.id, nameOf(check.severity), check.summary);
  }
  writeOut(text);
}

bool isAnswerNo(const FileFinding& found, bool strict) {
  const Severity severity = found.finding.severity;
  return severity == Severity::error || (strict && severity == Severity::warning);
}

int checkAll(const CheckOptions& options) {
  std::vector<FileFinding> all;
  bool isTrouble = false;
  for (const std::string& file : options.files) {
    try {
      for (Finding& finding : checkFile(file, options)) all.push_back({file, std::move(finding)});
    } catch (const FileError& error) {
      sayTrouble(file, error.what());
      isTrouble = true;
    }
  }
  print(all, options.json);
  if (isTrouble) return kTrouble;
  const auto isNo = [&](const FileFinding& found) { return isAnswerNo(found, options.strict); };
  return std::any_of(all.begin(), all.end(), isNo) ? kNo : kDone;
}

int check(const CheckOptions& options) {
  try {
    if (!options.list) return checkAll(options);
    listChecks();
    return kDone;
  } catch (const FileError& error) {
    sayTrouble("check", error.what());
    return kTrouble;
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
  addReadOptions(*command, options->read);
  command->footer(
      "Exits with 1 when there is an error.\n\nExample:\n"
      "  vxmeta check --strict --ignore pdf-producer carton.pdf");
  command->callback([=, &run] {
    if (!*list && !*files) throw CLI::RequiredError("FILE");
    run.exitCode = check(*options);
  });
}

}  // namespace vxmeta
