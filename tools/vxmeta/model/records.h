// SPDX-License-Identifier: Apache-2.0
// The fields of the library's records, each described once. A new field is one line in records/.
#pragma once

#include <XMPlib.h>

#include "model/type.h"

// A field of the record R of the function that it stands in, under the member's own name.
#define VXMETA_FIELD(member, help) vxmeta::field<R, &R::member>(#member, help)

namespace vxmeta {

template <>
Type describe<XMPlJobData>();
template <>
Type describe<XMPlProdData>();
template <>
Type describe<XMPlDocData>();
template <>
Type describe<XMPlDocVersion>();
template <>
Type describe<XMPlDigFilmVersion>();
template <>
Type describe<XMPlDimDatBasic>();
template <>
Type describe<XMPlDimDat>();
template <>
Type describe<XMPlDimDatDigFilm>();
template <>
Type describe<XMPlColorSpace>();
template <>
Type describe<XMPlPDFData>();
template <>
Type describe<XMPlMMData>();
template <>
Type describe<XMPlInkBasic>();
template <>
Type describe<XMPlInk>();
template <>
Type describe<XMPlInkProperty>();
template <>
Type describe<XMPlInkDigFilm>();
template <>
Type describe<XMPlUsedDigFilmRef>();
template <>
Type describe<XMPlDgcc>();
template <>
Type describe<XMPlMetaDataDigFilm>();
template <>
Type describe<XMPlScreen>();
template <>
Type describe<XMPlUsedRef>();
template <>
Type describe<XMPlExtRef>();
template <>
Type describe<XMPlFont>();
template <>
Type describe<XMPlBarcode>();
template <>
Type describe<XMPlLay>();
template <>
Type describe<XMPlPagRange>();
template <>
Type describe<XMPlSmartName>();
template <>
Type describe<XMPlRepeat>();
template <>
Type describe<XMPlCadReg>();

}  // namespace vxmeta
