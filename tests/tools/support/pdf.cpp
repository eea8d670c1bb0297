// SPDX-License-Identifier: Apache-2.0
#include "support/pdf.h"

#include <iomanip>
#include <sstream>

namespace {

std::string numbered(std::size_t number, const std::string& object) {
  return std::to_string(number) + " 0 obj\n" + object + "\nendobj\n";
}

std::string crossReference(std::size_t offset) {
  std::ostringstream line;
  line << std::setw(10) << std::setfill('0') << offset << " 00000 n \n";
  return line.str();
}

std::string trailerOf(const std::string& entries, std::size_t crossReferences) {
  return "trailer\n<</Root 1 0 R" + entries + ">>\nstartxref\n" + std::to_string(crossReferences) +
         "\n%%EOF\n";
}

}  // namespace

std::string stream(const std::string& dictionary, const std::string& data) {
  return "<<" + dictionary + "/Length " + std::to_string(data.size()) + ">>stream\n" + data +
         "\nendstream";
}

std::string pdfOf(const std::vector<std::string>& objects, const std::string& trailer) {
  std::string file = "%PDF-1.7\n";
  std::string table = "0000000000 65535 f \n";
  for (std::size_t i = 0; i < objects.size(); ++i) {
    table += crossReference(file.size());
    file += numbered(i + 1, objects[i]);
  }
  const std::string count = std::to_string(objects.size() + 1);
  const std::size_t at = file.size();
  return file + "xref\n0 " + count + "\n" + table + trailerOf("/Size " + count + trailer, at);
}

std::string Pdf::text() const {
  const std::string reference = packet.empty() ? "" : "/Metadata 2 0 R";
  std::vector<std::string> all = {
      "<</Type/Catalog/Pages 3 0 R" + reference + catalogue + ">>",
      packet.empty() ? "null" : stream("/Type/Metadata/Subtype/XML" + metadata, packet),
      "<</Type/Pages/Kids[4 0 R]/Count 1" + pages + ">>",
      "<</Type/Page/Parent 3 0 R/Contents 5 0 R" + page + ">>", stream("", content)};
  all.insert(all.end(), objects.begin(), objects.end());
  return pdfOf(all, "/Info<<" + info + ">>");
}

std::string updated(const std::string& pdf, int object, const std::string& content) {
  const std::string number = std::to_string(object);
  const std::size_t previous = pdf.rfind("startxref\n") + 10;
  const std::string before = pdf.substr(previous, pdf.find('\n', previous) - previous);
  std::string file = pdf + numbered(static_cast<std::size_t>(object), content);
  const std::size_t at = file.size();
  file += "xref\n" + number + " 1\n" + crossReference(pdf.size());
  return file + trailerOf("/Size 100/Prev " + before, at);
}
