// SPDX-License-Identifier: Apache-2.0
// vxmeta report: the metadata as a page that one looks at.
#include "report/report.h"

#include <memory>

#include "commands/inputs.h"
#include "commands/made_file.h"
#include "files/file_kind.h"
#include "files/input_file.h"

namespace vxmeta {
namespace {

struct ReportOptions {
  std::vector<std::string> files;
  std::string out = "-";
  Inputs inputs;
};

// A PDF whose pages cannot be read still has its packet checked.
std::optional<PdfFacts> pdfFactsOf(const std::string& name, const InputFile& file,
                                   const Inputs& inputs, Outcome& outcome) {
  if (fileKind(file.head()).family != FileKind::pdf) return std::nullopt;
  try {
    return readPdfFacts(file, inputs.options.password);
  } catch (const FileError& error) {
    outcome.messages +=
        messageLine(name, std::string("warning: is not checked as a PDF: ") + error.what());
    return std::nullopt;
  }
}

void readEntry(const std::string& name, const ReportOptions& options, ReportEntry& entry,
               Outcome& outcome) {
  const InputFile file(name);
  const FilePacket packet = read(name, file, options.inputs, outcome);
  XMPlib xmp;
  loadPacket(packet.text, xmp);
  entry.document = readDocument(xmp, {});
  entry.document.packet = packetInfo(packet);
  Subject subject = {xmp, packetFacts(packet.text), {}};
  subject.pdf = pdfFactsOf(name, file, options.inputs, outcome);
  for (const Check& check : allChecks()) {
    for (Finding& finding : run(check, subject)) entry.findings.push_back(std::move(finding));
  }
}

Outcome read(const std::string& name, const ReportOptions& options, ReportEntry& entry) {
  Outcome outcome;
  try {
    readEntry(name, options, entry, outcome);
  } catch (const std::exception& error) {
    entry = {};
    entry.error = error.what();
    fail(outcome, name, error.what());
  }
  entry.document.file = name;
  return outcome;
}

bool isAnyRead(const std::vector<ReportEntry>& entries) {
  for (const ReportEntry& entry : entries) {
    if (entry.error.empty()) return true;
  }
  return false;
}

int makeReport(ReportOptions& options) {
  for (const std::string& file : options.files) refuseToOverwrite(file, options.out);
  std::vector<ReportEntry> entries(options.files.size());
  const int exitCode = forEachFile(options.files, options.inputs, [&](const std::string& file) {
    return read(file, options, entries[static_cast<std::size_t>(&file - options.files.data())]);
  });
  if (!isAnyRead(entries)) return kTrouble;
  writeOutput(options.out, reportPage(entries));
  return exitCode;
}

}  // namespace

void addReport(CLI::App& app, Run& run) {
  const auto options = std::make_shared<ReportOptions>();
  CLI::App* command = app.add_subcommand("report", "Make a page to look at, print and keep");
  command->add_option("FILE", options->files, "Documents; - is standard input")->required();
  command->add_option("-o,--output", options->out, "Where the page goes; - is standard output")
      ->type_name("OUT");
  addReadOptions(*command, options->inputs);
  addJobsOption(*command, options->inputs);
  command->footer(
      "One HTML page that holds all it needs and runs nothing: findings of all checks, inks,\n"
      "screens, curves, geometry, layout, files. Several files: a summary, then each in its part.\n"
      "A file that cannot be read stands in the summary with the reason; exit code 2.\n\n"
      "Example: vxmeta report carton.pdf label.pdf -o report.html");
  command->callback([options, &run] {
    try {
      run.exitCode = makeReport(*options);
    } catch (const FileError& error) {
      Outcome outcome;
      fail(outcome, options->out, error.what());
      std::fputs(outcome.messages.c_str(), stderr);
      run.exitCode = kTrouble;
    }
  });
}

}  // namespace vxmeta
