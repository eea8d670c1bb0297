// SPDX-License-Identifier: Apache-2.0
#include "files/qpdf_file.h"

#include <cstdint>
#include <cstdio>
#include <new>
#include <qpdf/FileInputSource.hh>
#include <qpdf/Pipeline.hh>
#include <qpdf/QPDF.hh>
#include <qpdf/QPDFLogger.hh>
#include <qpdf/QUtil.hh>
#include <set>
#include <stdexcept>

namespace vxmeta {
namespace {

constexpr std::size_t kMostRepairs = 1000;
constexpr std::uintptr_t kMostStack = std::uintptr_t{1} << 20;

// The file as qpdf reads it, which ends where reading on would do harm. Two things do, and both
// read from the file at every step: a stream whose length is another stream, whose length is
// another one ..., each a recursion; and mending object after object, each at the cost of a look
// at all of them.
class GuardedSource : public FileInputSource {
 public:
  GuardedSource(std::FILE* opened, const QPDF& pdf)
      : FileInputSource("", opened, true), pdf_(pdf), top_(here()) {}

  size_t read(char* into, size_t length) override {
    const std::uintptr_t now = here();
    if ((now < top_ ? top_ - now : now - top_) > kMostStack) {
      throw std::length_error("its objects refer to each other without end");
    }
    if (pdf_.numWarnings() > kMostRepairs) throw std::length_error("too much damage");
    return FileInputSource::read(into, length);
  }

 private:
  static std::uintptr_t here() {
    return reinterpret_cast<std::uintptr_t>(__builtin_frame_address(0));
  }

  const QPDF& pdf_;  // which owns this
  std::uintptr_t top_;
};

// The end of a stream's decoding, which takes no more than is good.
class BoundedText : public Pipeline {
 public:
  explicit BoundedText(std::size_t most) : Pipeline("packet", nullptr), most_(most) {}

  void write(const unsigned char* data, size_t length) override {
    tooLong = tooLong || length > most_ - text.size();
    if (tooLong) throw FileError("too long");  // ends the decoding; qpdf swallows it
    text.append(reinterpret_cast<const char*>(data), length);
  }
  void finish() override {}

  std::string text;
  bool tooLong = false;

 private:
  std::size_t most_;
};

std::string said(const QPDFExc& error) {
  std::string text = error.getMessageDetail();
  if (!error.getObject().empty()) text += " (" + error.getObject() + ")";
  return text;
}

std::shared_ptr<QPDF> opened(const InputFile& file, const std::string& password) {
  auto pdf = QPDF::create();
  const auto silent = QPDFLogger::create();
  silent->setInfo(silent->discard());
  silent->setWarn(silent->discard());
  silent->setError(silent->discard());
  pdf->setLogger(silent);
  pdf->setSuppressWarnings(true);
  pdf->processInputSource(std::make_shared<GuardedSource>(file.openStream(), *pdf),
                          password.c_str());
  return pdf;
}

bool isPasswordWrong(const QPDFExc& error) { return error.getErrorCode() == qpdf_e_password; }

// A password was made bytes in one of several ways when the file was encrypted. A file that opens
// without one does so whatever the environment has for others.
std::shared_ptr<QPDF> openedWithAny(const InputFile& file, const std::string& password) {
  std::vector<std::string> spellings = QUtil::possible_repaired_encodings(password);
  spellings.emplace_back();
  for (const std::string& spelt : spellings) {
    try {
      return opened(file, spelt);
    } catch (const QPDFExc& error) {
      if (!isPasswordWrong(error)) throw;
    }
  }
  throw FileError("is encrypted, and the password does not open it; check the password");
}

[[noreturn]] void throwFor(const QPDFExc& error) {
  if (isPasswordWrong(error)) {
    throw FileError(
        "is encrypted; give its password with --password-file FILE or in VXMETA_PASSWORD");
  }
  if (error.getErrorCode() == qpdf_e_unsupported) {
    throw FileError("is encrypted or built in a way that cannot be read: " + said(error));
  }
  throw FileError("is a damaged PDF that cannot be mended: " + said(error) +
                  "; get it anew from where it was made");
}

// Each of these multiplies what it is given: one after the other, a small file would fill any disk.
void refuseRepeatedCompression(QPDFObjectHandle stream) {
  static const std::set<std::string> kCompressions = {
      "/FlateDecode", "/Fl", "/LZWDecode", "/LZW", "/RunLengthDecode", "/RL"};
  QPDFObjectHandle filters = stream.getDict().getKey("/Filter");
  int compressions = 0;
  for (int i = 0; filters.isArray() && i < filters.getArrayNItems(); ++i) {
    QPDFObjectHandle filter = filters.getArrayItem(i);
    if (filter.isName() && kCompressions.count(filter.getName()) != 0) ++compressions;
  }
  if (compressions > 1) {
    throw FileError("its metadata stream is compressed more than once, as no program does");
  }
}

}  // namespace

std::shared_ptr<QPDF> openPdf(const InputFile& file, const std::string& password) {
  std::shared_ptr<QPDF> pdf;
  withPdfErrors([&] { pdf = password.empty() ? opened(file, "") : openedWithAny(file, password); });
  return pdf;
}

std::vector<std::string> repairsOf(QPDF& pdf) {
  constexpr std::size_t kMostLines = 5;
  std::vector<std::string> lines;
  const std::vector<QPDFExc> warnings = pdf.getWarnings();
  if (warnings.size() > kMostRepairs) {
    throw FileError("is a PDF damaged in over 1,000 places; get it anew from where it was made");
  }
  for (const QPDFExc& warning : warnings) {
    if (lines.size() == kMostLines) break;
    lines.push_back("damaged PDF: " + said(warning));
  }
  if (warnings.size() > lines.size()) {
    lines.push_back("damaged PDF: and " + std::to_string(warnings.size() - lines.size()) + " more");
  }
  return lines;
}

void withPdfErrors(const std::function<void()>& work) {
  try {
    work();
  } catch (const FileError&) {
    throw;
  } catch (const QPDFExc& error) {
    throwFor(error);
  } catch (const std::bad_alloc&) {
    throw FileError("needs more memory than there is; the file is too large or made to harm");
  } catch (const std::exception& error) {
    throw FileError(std::string("is a PDF that cannot be read: ") + error.what());
  }
}

std::string decoded(QPDFObjectHandle stream, std::size_t most) {
  refuseRepeatedCompression(stream);
  BoundedText bounded(most);
  bool isDecoded = false;
  const bool isWhole = stream.pipeStreamData(&bounded, &isDecoded, 0, qpdf_dl_specialized);
  if (bounded.tooLong) {
    throw FileError("its metadata is over 256 MiB, more than a packet may hold");
  }
  if (!isWhole || !isDecoded) {
    const auto warnings = stream.getOwningQPDF()->getWarnings();
    const std::string reason = warnings.empty() ? "unknown compression" : said(warnings.back());
    throw FileError("its metadata stream (object " + std::to_string(stream.getObjectID()) +
                    ") cannot be decoded: " + reason);
  }
  return std::move(bounded.text);
}

}  // namespace vxmeta
