// Real numbers, for callers who write properties of their own.
#include "XMPlib.h"
#include "core/toolkit/client.h"
#include "core/value_text.h"

void XMPlib::SetProperty_Float(const char* schemaNS, const char* propName, double value) {
  if (meta == nullptr) return;
  meta->SetProperty(schemaNS, propName, xmpl::realText(value));
}
