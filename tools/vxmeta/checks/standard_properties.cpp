#include "checks/standard_properties.h"

#include <exempi/xmp.h>
#include <exempi/xmpconsts.h>

#include <memory>

#include "files/exempi_call.h"

namespace vxmeta {
namespace {

struct Free {
  void operator()(XmpPtr metadata) const { xmp_free(metadata); }
  void operator()(XmpStringPtr text) const { xmp_string_free(text); }
};

std::string property(XmpPtr metadata, const char* name) {
  const std::unique_ptr<_XmpString, Free> value(xmp_string_new());
  const bool has = xmp_get_property(metadata, NS_PDF, name, value.get(), nullptr);
  return has ? xmp_string_cstr(value.get()) : "";
}

std::string title(XmpPtr metadata) {
  const std::unique_ptr<_XmpString, Free> value(xmp_string_new());
  const bool has = xmp_get_localized_text(metadata, NS_DC, "title", nullptr, "x-default", nullptr,
                                          value.get(), nullptr);
  return has ? xmp_string_cstr(value.get()) : "";
}

}  // namespace

StandardPdfData standardPdfData(const XMPlib& packet) {
  // What the library has loaded and written is within its limits, and safe to parse again.
  const std::string& text = packet.GetXML();
  const ExempiCall call;
  const std::unique_ptr<_Xmp, Free> metadata(xmp_new(text.data(), text.size()));
  if (!metadata) return {};
  return {title(metadata.get()), property(metadata.get(), "Producer"),
          property(metadata.get(), "Trapped")};
}

}  // namespace vxmeta
