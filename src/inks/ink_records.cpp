// Equality of the ink records. Reals are compared exactly; colour and coverage take no part.
#include "xmpl/inks.h"

bool XMPlInkBasic::operator==(const XMPlInkBasic& other) const {
  return name == other.name && type == other.type && book == other.book && vxname == other.vxname &&
         attribute == other.attribute && printingmethod == other.printingmethod;
}

bool XMPlInk::operator==(const XMPlInk& other) const {
  return XMPlInkBasic::operator==(other) && frequency == other.frequency && angle == other.angle &&
         dotshape == other.dotshape;
}

bool XMPlInkProperty::operator==(const XMPlInkProperty& other) const {
  return name == other.name && book == other.book && type == other.type &&
         printingmethod == other.printingmethod;
}
