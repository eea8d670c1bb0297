// SPDX-License-Identifier: Apache-2.0
/// @file
/// The version of the library.
#ifndef XMPL_VERSION_H
#define XMPL_VERSION_H

/// Raised, with the soname, by what breaks programs: docs/abi.md.
#define XMPLIB_VERSION_MAJOR 1
/// Raised by what is new.
#define XMPLIB_VERSION_MINOR 1
/// Raised by what is mended.
#define XMPLIB_VERSION_PATCH 0

/// One number that grows with every version: 10100 is 1.1.0.
#define XMPLIB_VERSION \
  (XMPLIB_VERSION_MAJOR * 10000 + XMPLIB_VERSION_MINOR * 100 + XMPLIB_VERSION_PATCH)

#endif
