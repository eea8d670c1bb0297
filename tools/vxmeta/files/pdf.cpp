// SPDX-License-Identifier: Apache-2.0
#include "files/pdf.h"

#include <map>
#include <qpdf/QPDF.hh>

#include "files/file_kind.h"
#include "files/pdf_pages.h"
#include "files/qpdf_file.h"

namespace vxmeta {
namespace {

std::string sourceOf(const QPDFObjectHandle& stream) {
  return "pdf object " + std::to_string(stream.getObjectID());
}

QPDFObjectHandle documentsStream(QPDF& pdf) {
  QPDFObjectHandle catalogue = pdf.getRoot();
  QPDFObjectHandle stream = catalogue.getKey("/Metadata");
  if (stream.isStream()) return stream;
  // A reference to nothing counts as no entry where keys are asked for.
  const bool isNamed = catalogue.getDictAsMap().count("/Metadata") != 0;
  throw NoPacketError(isNamed ? "the metadata object of this PDF is damaged or missing; get the "
                                "file anew from where it was made"
                              : "this PDF has no metadata packet of its own; `vxmeta extract "
                                "--list` looks for those of what is placed in it",
                      repairsOf(pdf));
}

QPDFObjectHandle numberedStream(QPDF& pdf, int object) {
  for (const auto& [id, entry] : pdf.getXRefTable()) {
    if (id.getObj() != object) continue;
    QPDFObjectHandle stream = pdf.getObjectByObjGen(id);
    if (stream.isStream()) return stream;
  }
  throw FileError("object " + std::to_string(object) +
                  " is no stream; `vxmeta extract --list` shows those with metadata");
}

void requirePacket(const std::string& text, int object) {
  if (fileKind(text).family == FileKind::packet) return;
  throw FileError("object " + std::to_string(object) +
                  " holds no XMP packet; `vxmeta extract --list` shows those that do");
}

// --- Who owns a metadata stream -----------------------------------------------------------------

using Owners = std::map<QPDFObjGen, std::string>;

bool isName(QPDFObjectHandle value, const char* name) {
  return value.isName() && value.getName() == name;
}

std::string kindOf(QPDFObjectHandle dictionary) {
  if (isName(dictionary.getKey("/Type"), "/Catalog")) return "document";
  if (isName(dictionary.getKey("/Subtype"), "/Image")) return "image";
  if (isName(dictionary.getKey("/Subtype"), "/Form")) return "form";
  const bool isFont = dictionary.hasKey("/Length1") || dictionary.hasKey("/FontName") ||
                      isName(dictionary.getKey("/Subtype"), "/Type1C") ||
                      isName(dictionary.getKey("/Subtype"), "/CIDFontType0C") ||
                      isName(dictionary.getKey("/Subtype"), "/OpenType");
  if (isFont) return "font";
  return dictionary.hasKey("/N") ? "colour profile" : "";
}

// Notes what `value` and the direct objects in it call their metadata. Direct objects nest as deep
// as qpdf parses them: 500 levels.
void noteOwner(QPDFObjectHandle value, const std::string& object, Owners& owners) {
  if (value.isArray()) {
    for (int i = 0; i < value.getArrayNItems(); ++i) {
      QPDFObjectHandle item = value.getArrayItem(i);
      if (!item.isIndirect()) noteOwner(item, object, owners);
    }
    return;
  }
  if (!value.isStream() && !value.isDictionary()) return;
  QPDFObjectHandle dictionary = value.isStream() ? value.getDict() : value;
  for (const std::string& key : dictionary.getKeys()) {
    QPDFObjectHandle entry = dictionary.getKey(key);
    if (key == "/Metadata" && entry.isIndirect()) {
      const std::string kind = kindOf(dictionary);
      owners.emplace(entry.getObjGen(), kind.empty() ? object : kind);
    } else if (!entry.isIndirect()) {
      noteOwner(entry, object, owners);
    }
  }
}

Owners ownersIn(QPDF& pdf, const std::vector<QPDFObjectHandle>& objects) {
  Owners owners;
  int number = 0;
  for (PdfPage& page : pagesOf(pdf)) {
    noteOwner(page.page, "page " + std::to_string(++number), owners);
  }
  for (const QPDFObjectHandle& object : objects) {
    noteOwner(object, "object " + std::to_string(object.getObjectID()), owners);
  }
  return owners;
}

ListedPacket listed(const QPDFObjectHandle& stream, const Owners& owners) {
  ListedPacket packet;
  packet.source = sourceOf(stream);
  const auto owner = owners.find(stream.getObjGen());
  packet.owner = owner == owners.end() ? "nothing" : owner->second;
  try {
    packet.bytes = decoded(stream).size();
  } catch (const FileError&) {
    packet.owner += ", cannot be decoded";
  }
  return packet;
}

}  // namespace

FilePacket readPdf(const InputFile& file, const ReadOptions& options) {
  const auto pdf = openPdf(file, options.password);
  FilePacket packet;
  withPdfErrors([&] {
    QPDFObjectHandle stream =
        options.object ? numberedStream(*pdf, *options.object) : documentsStream(*pdf);
    packet.text = decoded(stream);
    packet.source = sourceOf(stream);
    packet.warnings = repairsOf(*pdf);
  });
  if (options.object) {
    requirePacket(packet.text, *options.object);
  } else if (packet.text.empty()) {
    throw NoPacketError(
        "the metadata of this PDF is an empty stream; `vxmeta embed` puts a packet there");
  }
  return packet;
}

PacketList listPdf(const InputFile& file, const ReadOptions& options) {
  const auto pdf = openPdf(file, options.password);
  PacketList list;
  withPdfErrors([&] {
    const std::vector<QPDFObjectHandle> objects = pdf->getAllObjects();
    const Owners owners = ownersIn(*pdf, objects);
    const QPDFObjGen documents = pdf->getRoot().getKey("/Metadata").getObjGen();
    for (const QPDFObjectHandle& object : objects) {
      QPDFObjectHandle stream = object;
      const bool isOwned = owners.count(stream.getObjGen()) != 0 && stream.isStream();
      if (!isOwned && !stream.isStreamOfType("/Metadata")) continue;
      list.packets.push_back(listed(stream, owners));
      list.packets.back().isDocuments = stream.getObjGen() == documents;
    }
    list.warnings = repairsOf(*pdf);
  });
  return list;
}

}  // namespace vxmeta
