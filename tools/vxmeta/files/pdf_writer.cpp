// SPDX-License-Identifier: Apache-2.0
#include "files/pdf_writer.h"

#include <memory>
#include <qpdf/QPDF.hh>
#include <qpdf/QPDFObjectHandle.hh>
#include <set>

#include "files/packet_text.h"
#include "files/pdf_compare.h"
#include "files/pdf_pages.h"
#include "files/pdf_ways.h"
#include "files/qpdf_file.h"

namespace vxmeta {
namespace {

// --- What stands against a write ----------------------------------------------------------------

// A signature field that has a signature. Fields nest; one that is met again is not gone into.
bool hasSignature(QPDFObjectHandle fields) {
  std::vector<QPDFObjectHandle> todo = {fields};
  std::set<QPDFObjGen> seen;
  while (!todo.empty()) {
    QPDFObjectHandle next = todo.back();
    todo.pop_back();
    if (next.isIndirect() && !seen.insert(next.getObjGen()).second) continue;
    for (int i = 0; next.isArray() && i < next.getArrayNItems(); ++i) {
      todo.push_back(next.getArrayItem(i));
    }
    if (!next.isDictionary()) continue;
    QPDFObjectHandle value = next.getKey("/V");
    if (value.isDictionary() && value.hasKey("/ByteRange")) return true;
    todo.push_back(next.getKey("/Kids"));
  }
  return false;
}

struct State {
  bool isSigned = false;
  bool isEncrypted = false;
  bool isProtected = false;  // its permissions do not allow a change
  bool isMended = false;
};

State stateOf(QPDF& pdf) {
  State state;
  QPDFObjectHandle root = pdf.getRoot();
  QPDFObjectHandle form = root.getKey("/AcroForm");
  state.isSigned = root.getKey("/Perms").isDictionary() ||
                   (form.isDictionary() && hasSignature(form.getKey("/Fields")));
  state.isEncrypted = pdf.isEncrypted();
  state.isProtected = state.isEncrypted && !pdf.ownerPasswordMatched() && !pdf.allowModifyOther();
  state.isMended = !repairsOf(pdf).empty();
  return state;
}

[[noreturn]] void throwMended() {
  throw FileError(
      "is a damaged PDF, which would be written mended; --force does it, or get it anew");
}

void requireAllowed(const State& state, const WriteOptions& options) {
  if (options.force) return;
  if (state.isMended) throwMended();
  if (state.isSigned) {
    throw FileError("is digitally signed; --force appends an update, the signed revision stays");
  }
  if (state.isProtected) {
    throw FileError("is protected against changes; give the owner's password, or --force");
  }
}

// --- The way ------------------------------------------------------------------------------------

void requirePossible(How how, const State& state) {
  if (state.isSigned && how != How::append) {
    throw FileError("is digitally signed, and takes an update alone: --how append");
  }
  if (how == How::append && state.isEncrypted) {
    throw FileError(state.isSigned
                        ? "is digitally signed and encrypted; it cannot be written"
                        : "is encrypted, so that nothing can be appended; use --how rewrite");
  }
  if (how != How::rewrite && state.isMended) {
    throw FileError("is a damaged PDF, which can only be written anew: --how rewrite");
  }
}

// A packet of the old one's length, and its place.
struct Splice {
  std::uint64_t offset = 0;
  std::string bytes;
};

std::optional<Splice> spliceFor(const PdfSource& source, const std::string& packet) {
  const std::optional<std::uint64_t> offset = plainMetadataAt(source);
  if (!offset) return std::nullopt;
  const std::size_t length = decoded(source.pdf.getRoot().getKey("/Metadata")).size();
  const std::optional<std::string> bytes = atLength(packet, length);
  if (!bytes) return std::nullopt;
  return Splice{*offset, *bytes};
}

How wayFor(const PdfSource& source, const State& state, const std::optional<Splice>& splice) {
  if (state.isSigned) return How::append;
  if (state.isMended) return How::rewrite;
  if (splice) return How::splice;
  const bool isLarge = source.file.size() > kMostRewritten;
  return isLarge && !state.isEncrypted ? How::append : How::rewrite;
}

struct Plan {
  How how = How::rewrite;
  std::optional<Splice> splice;
};

Plan planFor(const PdfSource& source, const std::string& packet, const WriteOptions& options) {
  const State state = stateOf(source.pdf);
  requireAllowed(state, options);
  std::optional<Splice> splice = spliceFor(source, packet);
  const How how = options.how ? *options.how : wayFor(source, state, splice);
  requirePossible(how, state);
  if (how == How::splice && !splice) {
    throw FileError(
        "cannot be spliced: its metadata is missing, compressed, encrypted or has too little "
        "padding; use --how append or rewrite");
  }
  return {how, std::move(splice)};
}

// What was written, and how it is to be read again.
struct Made {
  Written written;
  std::string packet;
  Renumbered names;
};

Made make(const PdfSource& source, const std::string& packet, const Plan& plan,
          const std::string& to) {
  if (plan.how == How::rewrite) {
    Renumbered names = rewritePdf(source, packet, to);
    return {{"written anew", {}}, packet, std::move(names)};
  }
  if (plan.how == How::append) {
    const std::string bytes = std::to_string(appendToPdf(source, packet, to));
    return {{"appended an update of " + bytes + " bytes", {}}, packet, {}};
  }
  const Splice& splice = *plan.splice;
  splicePdf(source, splice.offset, splice.bytes, to);
  const std::string bytes = std::to_string(splice.bytes.size());
  return {{"spliced " + bytes + " bytes in place", {}}, splice.bytes, {}};
}

// --- Reading it again ---------------------------------------------------------------------------

void requireSamePdf(QPDF& before, QPDF& after, const Made& made, bool isSmall) {
  QPDFObjectHandle metadata = after.getRoot().getKey("/Metadata");
  if (!metadata.isStream() || decoded(metadata) != made.packet) {
    throw FileError("the new file has another packet than it should; nothing is written");
  }
  if (isSmall) return requireSameObjects(before, after, made.names);
  if (pagesOf(before).size() != pagesOf(after).size()) {
    throw FileError("the new file has another number of pages; nothing is written");
  }
}

void requireWritten(const InputFile& file, const std::string& to, const Made& made,
                    const WriteOptions& options) {
  const InputFile written(to);
  const auto before = openPdf(file, options.read.password);
  const auto after = openPdf(written, options.read.password);
  withPdfErrors([&] {
    requireSamePdf(*before, *after, made, file.size() <= kMostCompared);
    if (!options.force && !repairsOf(*before).empty()) throwMended();
    if (repairsOf(*before).empty() && !repairsOf(*after).empty()) {
      throw FileError("the new file came out damaged; nothing is written");
    }
  });
}

std::uint64_t headerIn(const InputFile& file) {
  const std::size_t at = file.head().find("%PDF-");
  return at == std::string_view::npos ? 0 : at;
}

}  // namespace

void requireWritablePdf(const InputFile& file, const std::string& packet,
                        const WriteOptions& options) {
  const auto pdf = openPdf(file, options.read.password);
  withPdfErrors([&] { planFor({file, *pdf, headerIn(file)}, packet, options); });
}

Written writePdf(const InputFile& file, const std::string& packet, const WriteOptions& options,
                 const std::string& to) {
  const auto pdf = openPdf(file, options.read.password);
  Made made;
  withPdfErrors([&] {
    const PdfSource source = {file, *pdf, headerIn(file)};
    made = make(source, packet, planFor(source, packet, options), to);
  });
  requireWritten(file, to, made, options);
  return made.written;
}

}  // namespace vxmeta
