// SPDX-License-Identifier: Apache-2.0
// An update behind the old bytes of a PDF: the metadata, the catalogue where it did not have any,
// and cross references of the file's own kind.
#include <fcntl.h>

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <cstdlib>
#include <qpdf/QPDF.hh>
#include <qpdf/QPDFObjectHandle.hh>
#include <qpdf/QPDFXRefEntry.hh>
#include <set>

#include "files/open_file.h"
#include "files/packet_file.h"
#include "files/pdf_ways.h"
#include "files/replace_file.h"

namespace vxmeta {
namespace {

using Keys = std::set<std::string>;

[[noreturn]] void throwUnusual() {
  throw FileError(
      "its cross references do not end it as they should; nothing can be appended: --how rewrite");
}

// --- What the file ends with --------------------------------------------------------------------

struct OldEnd {
  std::uint64_t crossReferences = 0;  // what its last "startxref" says
  bool isTable = false;               // else a stream
  bool hasLineEnd = false;
};

OldEnd endOf(const PdfSource& source) {
  constexpr std::uint64_t kTail = 1054;  // as far back as readers look
  const std::uint64_t size = source.file.size();
  const std::uint64_t length = std::min(size, kTail);
  const std::string tail = source.file.read(size - length, static_cast<std::size_t>(length));
  const std::size_t at = tail.rfind("startxref");
  if (at == std::string::npos) throwUnusual();
  OldEnd end;
  end.crossReferences = std::strtoull(tail.c_str() + at + 9, nullptr, 10);
  const std::string there = source.file.read(source.header + end.crossReferences, 4);
  end.isTable = there == "xref";
  const bool isObject = !there.empty() && std::isdigit(static_cast<unsigned char>(there[0])) != 0;
  if (!end.isTable && !isObject) throwUnusual();
  end.hasLineEnd = tail.back() == '\n' || tail.back() == '\r';
  return end;
}

// --- Objects ------------------------------------------------------------------------------------

std::string entriesOf(QPDFObjectHandle dictionary, const Keys& without) {
  std::string text;
  for (const std::string& key : dictionary.getKeys()) {
    if (without.count(key) != 0) continue;
    text += " " + QPDFObjectHandle::newName(key).unparse() + " " + dictionary.getKey(key).unparse();
  }
  return text;
}

std::string streamObject(const std::string& entries, const std::string& data) {
  return "<<" + entries + " /Length " + std::to_string(data.size()) + " >>\nstream\n" + data +
         "\nendstream";
}

std::string metadataObject(QPDFObjectHandle old, const std::string& packet) {
  static const Keys kOfTheData = {"/Length", "/Filter",  "/DecodeParms",  "/DL",
                                  "/F",      "/FFilter", "/FDecodeParms", "/DP"};
  if (!old.isStream()) return streamObject(" /Type /Metadata /Subtype /XML", packet);
  return streamObject(entriesOf(old.getDict(), kOfTheData), packet);
}

std::string catalogueObject(QPDFObjectHandle catalogue, QPDFObjGen metadata) {
  return "<<" + entriesOf(catalogue, {"/Metadata"}) + " /Metadata " + metadata.unparse(' ') +
         " R >>";
}

// --- The update ---------------------------------------------------------------------------------

// Bytes that are to stand from some place of the file on.
class Update {
 public:
  explicit Update(std::uint64_t begin) : begin_(begin) {}

  std::uint64_t offset() const { return begin_ + text_.size(); }
  const std::string& text() const { return text_; }
  void add(const std::string& text) { text_ += text; }

  void addObject(QPDFObjGen object, const std::string& content) {
    offsets_[object] = offset();
    text_ += object.unparse(' ') + " obj\n" + content + "\nendobj\n";
  }
  void addTable(const std::string& trailer);
  void addStream(const std::string& trailer, int number);

 private:
  std::uint64_t begin_;
  std::string text_;
  std::map<QPDFObjGen, std::uint64_t> offsets_;
};

void Update::addTable(const std::string& trailer) {
  constexpr std::uint64_t kMost = 9999999999;
  if (offset() > kMost) throw FileError("is too large for the cross-reference table that it has");
  text_ += "xref\n";
  for (const auto& entry : offsets_) {
    char line[32];
    std::snprintf(line, sizeof line, "%010llu %05d n \n",
                  static_cast<unsigned long long>(entry.second), entry.first.getGen());
    text_ += std::to_string(entry.first.getObj()) + " 1\n" + line;
  }
  text_ += "trailer\n<<" + trailer + " >>\n";
}

std::string bigEndian(std::uint64_t value, int bytes) {
  std::string text;
  for (int shift = 8 * (bytes - 1); shift >= 0; shift -= 8) {
    text += static_cast<char>((value >> shift) & 0xFF);
  }
  return text;
}

void Update::addStream(const std::string& trailer, int number) {
  const QPDFObjGen own(number, 0);
  offsets_[own] = offset();
  std::string index;
  std::string data;
  for (const auto& entry : offsets_) {
    index += " " + std::to_string(entry.first.getObj()) + " 1";
    data += bigEndian(1, 1) + bigEndian(entry.second, 8) +
            bigEndian(static_cast<std::uint64_t>(entry.first.getGen()), 2);
  }
  addObject(own, streamObject(" /Type /XRef /W [ 1 8 2 ] /Index [" + index + " ]" + trailer, data));
}

// The first number that no object has.
int freeNumber(QPDF& pdf) {
  int free = 1;
  QPDFObjectHandle size = pdf.getTrailer().getKey("/Size");
  if (size.isInteger()) free = std::max(free, size.getIntValueAsInt());
  for (const auto& entry : pdf.getXRefTable()) free = std::max(free, entry.first.getObj() + 1);
  return free;
}

std::string trailerOf(QPDF& pdf, std::uint64_t previous, int size) {
  static const Keys kOfTheSection = {"/Size",  "/Prev",   "/XRefStm",     "/Type",   "/W",
                                     "/Index", "/Length", "/DecodeParms", "/Filter", "/DL"};
  return entriesOf(pdf.getTrailer(), kOfTheSection) + " /Size " + std::to_string(size) + " /Prev " +
         std::to_string(previous);
}

std::string updateOf(const PdfSource& source, const std::string& packet) {
  const OldEnd end = endOf(source);
  QPDFObjectHandle catalogue = source.pdf.getRoot();
  if (!catalogue.isIndirect()) throwUnusual();
  QPDFObjectHandle old = catalogue.getKey("/Metadata");
  int free = freeNumber(source.pdf);
  Update update(source.file.size() - source.header);
  if (!end.hasLineEnd) update.add("\n");
  const QPDFObjGen metadata = old.isStream() ? old.getObjGen() : QPDFObjGen(free++, 0);
  update.addObject(metadata, metadataObject(old, packet));
  if (!old.isStream()) {
    update.addObject(catalogue.getObjGen(), catalogueObject(catalogue, metadata));
  }
  const std::uint64_t references = update.offset();
  if (end.isTable) {
    update.addTable(trailerOf(source.pdf, end.crossReferences, free));
  } else {
    update.addStream(trailerOf(source.pdf, end.crossReferences, free + 1), free);
  }
  update.add("startxref\n" + std::to_string(references) + "\n%%EOF\n");
  return update.text();
}

}  // namespace

std::size_t appendToPdf(const PdfSource& source, const std::string& packet, const std::string& to) {
  const std::string update = updateOf(source, packet);
  copyFile(source.file.path(), to);
  OpenFile(to, O_WRONLY | O_APPEND).write(update);
  return update.size();
}

}  // namespace vxmeta
