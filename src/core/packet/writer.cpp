// SPDX-License-Identifier: Apache-2.0
#include "core/packet/writer.h"

#include <algorithm>

#include "core/packet/element_writer.h"
#include "core/packet/limits.h"
#include "core/packet/survey.h"
#include "core/packet/text_output.h"
#include "core/packet/used_names.h"
#include "core/toolkit/whole_trees.h"

namespace xmpl {
namespace {

constexpr std::size_t kPropertyIndent = 3;

constexpr TextOutput::Limit kSavable{
    limits::kTextBytes,
    [](std::string&) { refuseToWrite("Packet not written: more than 256 MiB of text"); }};

// For a text that nobody reads.
constexpr TextOutput::Limit kForgotten{std::size_t{1} << 16,
                                       [](std::string& text) { text.clear(); }};

class PacketWriter {
 public:
  PacketWriter(const XMP_Node& tree, std::string& text, std::size_t around,
               const TextOutput::Limit& limit = kSavable)
      : tree_(tree), survey_(survey(tree)), out_(text, limit) {
    text.reserve(std::min(expected() + around, limit.bytes));
  }

  void header() {
    out_.put("<?xpacket begin=\"\xEF\xBB\xBF\" id=\"W5M0MpCehiHzreSzNTczkc9d\"?>\n");
  }

  void packet() {
    out_.put("<x:xmpmeta xmlns:x=\"adobe:ns:meta/\" x:xmptk=\"" kXMPCore_VersionMessage "\">\n");
    out_.put("   <rdf:RDF xmlns:rdf=\"http://www.w3.org/1999/02/22-rdf-syntax-ns#\">\n");
    description();
    out_.put("   </rdf:RDF>\n");
    out_.put("</x:xmpmeta>\n");
  }

  // Whole lines of 100 blanks, then what is left.
  void padding(std::size_t bytes) {
    constexpr std::size_t kLine = 100;
    for (--bytes; bytes > kLine; bytes -= kLine + 1) {
      out_.blanks(kLine);
      out_.put("\n");
    }
    out_.blanks(bytes);
    out_.put("\n");
  }

  void trailer() { out_.put("<?xpacket end=\"w\"?>"); }

  void finish() { out_.flush(); }

 private:
  // Some bytes for every so many, since text grows by escaping.
  std::size_t expected() const {
    constexpr std::size_t kFrame = 400;
    std::size_t bytes = kFrame + tree_.name.size() + survey_.expectedBytes;
    bytes += bytes / 16;
    for (const NamespaceInUse& used : survey_.namespaces) {
      bytes += kFrame / 16 + used.prefix.size() + used.uri.size();
    }
    return bytes;
  }

  void description() {
    out_.put("      <rdf:Description rdf:about=\"");
    out_.escape<Place::toolkitForgets>(tree_.name);
    out_.put("\"");
    for (const NamespaceInUse& used : survey_.namespaces) declare(used);
    if (tree_.children.empty()) return out_.put("/>\n");
    out_.put(">\n");
    ElementWriter elements(out_);
    for (const XMP_Node* schema : tree_.children) {
      for (const XMP_Node* property : schema->children) {
        elements.element(*property, kPropertyIndent);
      }
    }
    out_.room();
    out_.put("      </rdf:Description>\n");
  }

  void declare(const NamespaceInUse& used) {
    out_.put("\n            xmlns:");
    out_.put(used.prefix);
    out_.put("=\"");
    out_.escape<Place::toolkitForgets>(used.uri);
    out_.put("\"");
  }

  const XMP_Node& tree_;
  Survey survey_;
  TextOutput out_;
};

// Runs `write`, which fills `text`. After an exception that is empty, and holds no memory.
template <class Write>
void emptyOnFailure(std::string& text, const Write& write) {
  try {
    text.clear();
    write();
  } catch (...) {
    text = std::string();
    throw;
  }
}

}  // namespace

void writePacket(const Metadata& metadata, std::string& text) {
  emptyOnFailure(text, [&] {
    PacketWriter writer(insideOf(metadata).tree, text, 0);
    writer.packet();
    writer.finish();
  });
}

void requireSavable(const Metadata& metadata) {
  const Metadata copy = copyOf(metadata);  // writing settles language alternatives
  std::string text;
  PacketWriter(insideOf(copy).tree, text, 0, kForgotten).packet();
}

void writeWrapped(const Metadata& metadata, XMP_StringLen padding, std::string& text) {
  constexpr XMP_StringLen kDefaultPadding = 2048;
  emptyOnFailure(text, [&] {
    if (padding == 0) padding = kDefaultPadding;
    if ((padding >> 28) != 0) {
      throw XMP_Error(kXMPErr_BadOptions, "Outrageously large padding size");
    }
    PacketWriter writer(insideOf(metadata).tree, text, padding);
    writer.header();
    writer.packet();
    writer.padding(padding);
    writer.trailer();
    writer.finish();
  });
}

}  // namespace xmpl
