// A program outside the project: typed data in, typed data out, the toolkit's error by its type.
#include <XMP_Const.h>
#include <XMPlib.h>

int main() {
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
