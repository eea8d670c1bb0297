// SPDX-License-Identifier: Apache-2.0
#include "files/packet_writer.h"

#include <memory>

#include "files/artwork_writer.h"
#include "files/file_kind.h"
#include "files/input_file.h"
#include "files/packet_text.h"
#include "files/pdf_writer.h"
#include "files/replace_file.h"

namespace vxmeta {
namespace {

Written writeText(const std::string& packet, const std::string& to) {
  writeNewFile(to, packet);
  const InputFile written(to);
  if (written.read(0, packet.size() + 1) != packet) {
    throw FileError("the new file came out damaged; nothing is written");
  }
  return {"written", {}};
}

void requireKind(const FileKind& kind, const WriteOptions& options) {
  if (kind.family == FileKind::pdf) return;
  if (options.how) throw FileError("is no PDF; --how is for PDFs");
  if (kind.family == FileKind::artwork || kind.family == FileKind::packet) return;
  throw FileError("is no XMP packet, PDF, TIFF, JPEG, PSD, EPS, INDD, GIF or PNG; is not written");
}

Written writeNew(const InputFile& file, const FileKind& kind, const std::string& packet,
                 const WriteOptions& options, const std::string& to) {
  requireKind(kind, options);
  if (kind.family == FileKind::pdf) return writePdf(file, packet, options, to);
  if (kind.family == FileKind::artwork) return writeArtwork(file, kind, packet, to);
  return writeText(packet, to);
}

// Text goes on in a pipe; another file is read there, and needs a name for what it becomes.
std::string targetOf(const std::string& file, const FileKind& kind, const WriteOptions& options) {
  if (!options.out.empty()) return options.out;
  if (file == "-" && kind.family != FileKind::packet) {
    throw FileError("has no name to be written under; give one with -o");
  }
  return file;
}

// Calls `work`; its errors name the other file that is written.
template <class Work>
auto onOutput(const WriteOptions& options, const Work& work) {
  try {
    return work();
  } catch (const FileError& error) {
    if (options.out.empty() || options.out == "-") throw;
    throw FileError("its output " + options.out + " " + error.what());
  }
}

// A write that can be begun.
struct Order {
  FileKind kind;
  std::string target;
  ReplaceOptions replace;
};

Order orderFor(const std::string& file, const InputFile& opened, const std::string& packet,
               const WriteOptions& options) {
  if (options.read.object) throw FileError("only the document's own packet is written");
  if (packet.size() > kMostPacketBytes) throw FileError("the packet is over 256 MiB");
  const FileKind kind = fileKind(opened.head());
  return {kind, targetOf(file, kind, options), {options.force, options.backup}};
}

void require(const std::string& file, const InputFile& opened, const std::string& packet,
             const WriteOptions& options) {
  const Order order = orderFor(file, opened, packet, options);
  onOutput(options, [&] { requireReplaceable(order.target, order.replace); });
  requireKind(order.kind, options);
  if (order.kind.family == FileKind::pdf) requireWritablePdf(opened, packet, options);
}

Written write(const std::string& file, const InputFile& opened, const std::string& packet,
              const WriteOptions& options) {
  const Order order = orderFor(file, opened, packet, options);
  const auto replacement =
      onOutput(options, [&] { return std::make_unique<Replacement>(order.target, order.replace); });
  Written written = writeNew(opened, order.kind, packet, options, replacement->path());
  const std::vector<std::string> notes = onOutput(options, [&] { return replacement->commit(); });
  written.notes.insert(written.notes.end(), notes.begin(), notes.end());
  return written;
}

std::string textOf(const XMPlib& xmp) {
  const std::string& text = xmp.GetXML();
  if (text.empty()) throw FileError("the new packet cannot be written as text: " + xmp.ErrStr());
  return text;
}

std::string packetFor(const InputFile& file, const XMPlib& xmp, const ReadOptions& options) {
  const std::string body = textOf(xmp);
  try {
    return inPlaceOf(readPacket(file, options).text, body);
  } catch (const NoPacketError&) {
    return xmp.GetXMLPacket(false, 0);
  }
}

}  // namespace

Written writePacket(const std::string& file, const XMPlib& xmp, const WriteOptions& options) {
  const InputFile opened(file);
  return write(file, opened, packetFor(opened, xmp, options.read), options);
}

Written writePacketText(const std::string& file, const std::string& packet,
                        const WriteOptions& options) {
  return write(file, InputFile(file), packet, options);
}

void requireWritable(const std::string& file, const XMPlib& xmp, const WriteOptions& options) {
  const InputFile opened(file);
  require(file, opened, packetFor(opened, xmp, options.read), options);
}

void requireWritableText(const std::string& file, const std::string& packet,
                         const WriteOptions& options) {
  require(file, InputFile(file), packet, options);
}

}  // namespace vxmeta
