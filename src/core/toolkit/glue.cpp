// SPDX-License-Identifier: Apache-2.0
// The one instantiation of the toolkit's client templates; compiled as part of the toolkit.
#include <string>

#include "XMP.incl_cpp"
