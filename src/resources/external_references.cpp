// External references.
#include "xmpl/resources.h"

bool XMPlExtRef::operator==(const XMPlExtRef& other) const {
  return instanceID == other.instanceID && pagenr == other.pagenr;
}
