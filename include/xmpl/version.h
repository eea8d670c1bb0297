// The version of the library.
#ifndef XMPL_VERSION_H
#define XMPL_VERSION_H

#define XMPLIB_VERSION_MAJOR 1
#define XMPLIB_VERSION_MINOR 1
#define XMPLIB_VERSION_PATCH 0

// One number that grows with every version: 10100 is 1.1.0.
#define XMPLIB_VERSION \
  (XMPLIB_VERSION_MAJOR * 10000 + XMPLIB_VERSION_MINOR * 100 + XMPLIB_VERSION_PATCH)

#endif
