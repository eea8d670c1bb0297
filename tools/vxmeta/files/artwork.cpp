#include "files/artwork.h"

#include <exempi/xmp.h>
#include <exempi/xmperrors.h>

#include <iostream>
#include <memory>
#include <streambuf>

namespace vxmeta {
namespace {

// exempi prints its errors on std::cerr. This stands in for the stream's buffer and takes what the
// threads inside exempi say; all else passes.
class ExempiSilencer : public std::streambuf {
 public:
  ExempiSilencer() : passed_(std::cerr.rdbuf(this)) {}
  ~ExempiSilencer() override { std::cerr.rdbuf(passed_); }

  static thread_local bool inside;

 protected:
  int_type overflow(int_type c) override {
    if (inside || traits_type::eq_int_type(c, traits_type::eof())) return traits_type::not_eof(c);
    return passed_->sputc(traits_type::to_char_type(c));
  }
  std::streamsize xsputn(const char* text, std::streamsize length) override {
    return inside ? length : passed_->sputn(text, length);
  }
  int sync() override { return passed_->pubsync(); }

 private:
  std::streambuf* passed_;
};
thread_local bool ExempiSilencer::inside = false;

// A call of exempi, which is started with the first one and never stopped.
class InsideExempi {
 public:
  InsideExempi() {
    static ExempiSilencer silencer;
    ExempiSilencer::inside = true;
    static const bool started = xmp_init();
    if (!started) throw FileError("cannot be read: the library for artwork files does not start");
  }
  ~InsideExempi() { ExempiSilencer::inside = false; }
  InsideExempi(const InsideExempi&) = delete;
  InsideExempi& operator=(const InsideExempi&) = delete;
};

struct CloseFile {
  void operator()(XmpFilePtr file) const {
    xmp_files_close(file, XMP_CLOSE_NOOPTION);
    xmp_files_free(file);
  }
};
using File = std::unique_ptr<_XmpFile, CloseFile>;

struct FreeText {
  void operator()(XmpStringPtr text) const { xmp_string_free(text); }
};
using Text = std::unique_ptr<_XmpString, FreeText>;

[[noreturn]] void throwUnreadable(const FileKind& kind) {
  throw FileError(std::string("is a damaged or truncated ") + kind.name +
                  " file; get it anew from where it was made");
}

std::string rawPacket(const InputFile& file, const FileKind& kind) {
  const InsideExempi call;
  constexpr int kOptions = XMP_OPEN_READ | XMP_OPEN_ONLYXMP;
  const File opened(
      xmp_files_open_new(file.path().c_str(), static_cast<XmpOpenFileOptions>(kOptions)));
  if (!opened) throwUnreadable(kind);
  const Text text(xmp_string_new());
  if (!xmp_files_get_xmp_xmpstring(opened.get(), text.get(), nullptr)) {
    if (xmp_get_error() != 0) throwUnreadable(kind);
    return {};
  }
  return {xmp_string_cstr(text.get()), xmp_string_len(text.get())};
}

// A JPEG holds 64 KB of packet in one piece; the rest, which this property announces, does not
// come along.
bool isCutOff(std::string_view packet) {
  constexpr std::string_view kRest = ":HasExtendedXMP";
  const std::size_t at = packet.find(kRest);
  if (at == std::string_view::npos) return false;
  const std::size_t next = packet.find_first_not_of(" \t\r\n", at + kRest.size());
  return next != std::string_view::npos && (packet[next] == '=' || packet[next] == '>');
}

}  // namespace

FilePacket readArtwork(const InputFile& file, const FileKind& kind) {
  FilePacket packet;
  packet.text = rawPacket(file, kind);
  packet.source = kind.name;
  if (packet.text.empty()) {
    throw NoPacketError(std::string("no metadata packet is found in this ") + kind.name +
                        " file: it has none, or is truncated");
  }
  if (isCutOff(packet.text)) {
    throw FileError(
        "its packet is over 64 KB and would be cut off: the rest lies in extended segments of the "
        "JPEG; have it written as TIFF or PSD");
  }
  return packet;
}

}  // namespace vxmeta
