// SPDX-License-Identifier: Apache-2.0
// The packet in place, at the same length.
#include <fcntl.h>

#include <qpdf/Buffer.hh>
#include <qpdf/QPDF.hh>
#include <qpdf/QPDFObjectHandle.hh>
#include <qpdf/QPDFXRefEntry.hh>

#include "files/open_file.h"
#include "files/pdf_ways.h"
#include "files/replace_file.h"

#include <unistd.h>

namespace vxmeta {
namespace {

constexpr std::size_t kDictionary = std::size_t{1}
                                    << 16;  // the most that precedes a stream's bytes

std::string rawBytes(QPDFObjectHandle stream) {
  const auto data = stream.getRawStreamData();
  return {reinterpret_cast<const char*>(data->getBuffer()), data->getSize()};
}

// Where the object's number stands.
std::optional<std::uint64_t> objectAt(const PdfSource& source, QPDFObjGen object) {
  const auto table = source.pdf.getXRefTable();
  const auto entry = table.find(object);
  if (entry == table.end() || entry->second.getType() != 1) return std::nullopt;
  return source.header + static_cast<std::uint64_t>(entry->second.getOffset());
}

// Past the line end behind the word "stream".
std::size_t pastLineEnd(const std::string& bytes, std::size_t at) {
  if (bytes.compare(at, 2, "\r\n") == 0) return at + 2;
  return bytes.compare(at, 1, "\n") == 0 ? at + 1 : std::string::npos;
}

}  // namespace

std::optional<std::uint64_t> plainMetadataAt(const PdfSource& source) {
  QPDFObjectHandle stream = source.pdf.getRoot().getKey("/Metadata");
  if (!stream.isStream()) return std::nullopt;
  QPDFObjectHandle dictionary = stream.getDict();
  if (!dictionary.getKey("/Filter").isNull() || dictionary.hasKey("/F")) return std::nullopt;
  const std::optional<std::uint64_t> begin = objectAt(source, stream.getObjGen());
  if (!begin) return std::nullopt;
  const std::string raw = rawBytes(stream);
  const std::string bytes = source.file.read(*begin, kDictionary + raw.size());
  for (std::size_t at = bytes.find("stream"); at != std::string::npos;
       at = bytes.find("stream", at + 1)) {
    const std::size_t data = pastLineEnd(bytes, at + 6);
    if (data == std::string::npos) continue;
    if (bytes.compare(data, raw.size(), raw) == 0) return *begin + data;
  }
  return std::nullopt;
}

void splicePdf(const PdfSource& source, std::uint64_t offset, const std::string& bytes,
               const std::string& to) {
  copyFile(source.file.path(), to);
  const OpenFile file(to, O_WRONLY);
  if (::lseek(file.fd(), static_cast<off_t>(offset), SEEK_SET) < 0) throwUnwritable();
  file.write(bytes);
}

}  // namespace vxmeta
