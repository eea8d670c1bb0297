// The fields of film dimensions, written at the top level or into a structure
//   basic group   vxGr:units                                       text
//                 vxGr:vsize, hsize, vresolution, hresolution      real
//   scan group    vxGr:vdist, hdist, vscale, hscale                real
//                 vxGr:reverse                                     boolean
//                 vxGr:scanlinedirection                           integer
//   margin group  vxGr:margtop, margbot, margleft, margright       real
#pragma once

#include "xmpl/document.h"

namespace xmpl {

// `Writer` is a PropertyWriter or an ItemWriter.
template <class Writer>
void writeFilmDimensions(const Writer& fields, const XMPlDimDatDigFilm& dimensions) {
  fields.text("vxGr:units", dimensions.units);
  fields.real("vxGr:vsize", dimensions.vsize);
  fields.real("vxGr:hsize", dimensions.hsize);
  fields.real("vxGr:vresolution", dimensions.vresolution);
  fields.real("vxGr:hresolution", dimensions.hresolution);
  if (dimensions.basicOnly) return;
  fields.real("vxGr:vdist", dimensions.vdist);
  fields.real("vxGr:hdist", dimensions.hdist);
  fields.real("vxGr:vscale", dimensions.vscale);
  fields.real("vxGr:hscale", dimensions.hscale);
  fields.boolean("vxGr:reverse", dimensions.reverse);
  fields.integer("vxGr:scanlinedirection", dimensions.scanlinedirection);
  if (!dimensions.hasMargins) return;
  fields.real("vxGr:margtop", dimensions.margtop);
  fields.real("vxGr:margbot", dimensions.margbot);
  fields.real("vxGr:margleft", dimensions.margleft);
  fields.real("vxGr:margright", dimensions.margright);
}

}  // namespace xmpl
