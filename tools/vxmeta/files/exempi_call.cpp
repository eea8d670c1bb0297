// SPDX-License-Identifier: Apache-2.0
#include "files/exempi_call.h"

#include <exempi/xmp.h>

#include <iostream>
#include <streambuf>

#include "files/packet_file.h"

namespace vxmeta {
namespace {

// exempi prints its errors on std::cerr. This stands in for the stream's buffer and takes what the
// threads inside exempi say; all else passes.
class ExempiSilencer : public std::streambuf {
 public:
  ExempiSilencer() : passed_(std::cerr.rdbuf()) { std::cerr.rdbuf(this); }
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

// Before there are threads, each of which may use the stream.
const ExempiSilencer silencer;

}  // namespace

ExempiCall::ExempiCall() {
  static const bool started = xmp_init();
  if (!started) throw FileError("cannot be read: the library for artwork files does not start");
  ExempiSilencer::inside = true;
}

ExempiCall::~ExempiCall() { ExempiSilencer::inside = false; }

}  // namespace vxmeta
