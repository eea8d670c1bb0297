// SPDX-License-Identifier: Apache-2.0
// Symbol visibility of the shared library.
#ifndef XMPL_EXPORT_H
#define XMPL_EXPORT_H

#if defined(__GNUC__)
#define XMPLIB_API __attribute__((visibility("default")))
#define XMPLIB_LOCAL __attribute__((visibility("hidden")))
#else
#define XMPLIB_API
#define XMPLIB_LOCAL
#endif

#endif
