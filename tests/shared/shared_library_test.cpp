// SPDX-License-Identifier: Apache-2.0
// The shared library as an application meets it, in one process with another copy of the toolkit.
#include <XMP_Const.h>
#include <XMPlib.h>
#include <exempi/xmp.h>
#include <exempi/xmpconsts.h>
#include <gtest/gtest.h>

#include <type_traits>

static_assert(!std::is_copy_assignable<XMPlib>::value, "handles are not assignable");
static_assert(std::is_constructible<XMPlib, XMPlib&>::value, "handles are copied");
static_assert(!std::is_constructible<XMPlib, const XMPlib&>::value, "from a non-const handle");
static_assert(!std::is_assignable<XMPlib&, XMPlib&>::value, "from no lvalue at all");
static_assert(std::is_nothrow_move_constructible<XMPlib>::value, "vectors move handles");

TEST(SharedLibrary, IsOfTheVersionOfItsHeaders) { EXPECT_EQ(XMPlib::Version(), XMPLIB_VERSION); }

TEST(SharedLibrary, LetsToolkitErrorsBeCaughtByType) {
  XMPlib xmp;
  try {
    xmp.SetProperty_Float("http://unknown.example/", "x", 1);
    FAIL() << "no error";
  } catch (const XMP_Error& error) {
    EXPECT_EQ(error.GetID(), kXMPErr_BadSchema);
    EXPECT_STREQ(error.GetErrMsg(), "Unregistered schema namespace URI");
  }
}

TEST(SharedLibrary, IsUndisturbedByAnotherCopyOfTheToolkit) {
  ASSERT_TRUE(xmp_init());
  // The other copy binds our prefix and our namespace otherwise; its tables are its own.
  xmp_register_namespace("http://foreign.example/", "vxGr", nullptr);
  xmp_register_namespace("http://ns.orvo.example/xmp/grinfo/1.0/", "theirs", nullptr);

  XMPlib xmp;
  ASSERT_TRUE(xmp.SetNrPages(12));
  const std::string packet = xmp.GetXMLPacket(false, 0);
  EXPECT_NE(packet.find("<vxGr:nrpages>12</vxGr:nrpages>"), std::string::npos);

  XmpPtr theirs = xmp_new(packet.data(), packet.size());
  ASSERT_NE(theirs, nullptr);
  int32_t pages = 0;
  EXPECT_TRUE(xmp_get_property_int32(theirs, "http://ns.orvo.example/xmp/grinfo/1.0/", "nrpages",
                                     &pages, nullptr));
  EXPECT_EQ(pages, 12);
  xmp_free(theirs);
  xmp_terminate();

  int ours = 0;
  EXPECT_TRUE(xmp.GetNrPages(ours));
  EXPECT_EQ(ours, 12);
}
