// SPDX-License-Identifier: Apache-2.0
// A program outside the project: typed data in, typed data out, the toolkit's error by its type.
#include <XMP_Const.h>
#include <XMPlib.h>

#include <string>
#include <vector>

static XMPlib withPages(int pages) {
  XMPlib xmp;
  xmp.SetNrPages(pages);
  return xmp;
}

// What a C++11 program can do with handles and records as values.
static bool hasValueSemantics() {
  std::vector<XMPlib> handles;
  handles.push_back(withPages(1));
  handles.push_back(withPages(2));
  handles.front() = handles.back().CloneXAP();
  std::vector<XMPlUnreadItems> unread;
  int pages = 0;
  return handles.front().GetNrPages(pages) && pages == 2 &&
         !handles.back().GetUnreadItems(unread) && !(XMPlFont() != XMPlFont()) &&
         XMPlib::Version() == XMPLIB_VERSION;
}

int main() {
  if (!hasValueSemantics()) return 4;
  XMPlib xmp;
  int pages = 0;
  if (!xmp.SetNrPages(7) || !xmp.GetNrPages(pages) || pages != 7) return 1;
  try {
    xmp.SetProperty_Float("http://unknown.example/", "x", 1);
  } catch (const XMP_Error& error) {
    return error.GetErrMsg()[0] == '\0' ? 2 : 0;
  }
  return 3;
}
