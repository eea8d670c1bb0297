// SPDX-License-Identifier: Apache-2.0
#include "core/toolkit/namespace_table.h"

#include "core/toolkit/nodes.h"
#include "source/UnicodeInlines.incl_cpp"

namespace xmpl {
namespace {

using Table = XMP_NamespaceTable;

// The table's members are private; an explicit instantiation may name them all the same.
template <class Name, typename Name::Member member>
struct Reach {
  friend typename Name::Member memberOf(Name) { return member; }
};
struct Lock {
  using Member = XMP_ReadWriteLock Table::*;
  friend Member memberOf(Lock);
};
struct Prefixes {
  using Member = XMP_StringMap Table::*;
  friend Member memberOf(Prefixes);
};
struct Uris {
  using Member = XMP_StringMap Table::*;
  friend Member memberOf(Uris);
};
template struct Reach<Lock, &Table::lock>;
template struct Reach<Prefixes, &Table::uriToPrefixMap>;
template struct Reach<Uris, &Table::prefixToURIMap>;

}  // namespace

bool registerWholly(const std::string& uri, const std::string& prefix) {
  VerifySimpleXMLName(prefix.data(), prefix.data() + prefix.size());
  const std::string withColon = prefix + ':';
  // All memory is taken here: what follows only moves the two entries into place.
  XMP_StringMap newPrefix{{uri, withColon}};
  XMP_StringMap newUri{{withColon, uri}};

  Table& table = *sRegisteredNamespaces;
  XMP_StringMap& prefixes = table.*memberOf(Prefixes());
  XMP_StringMap& uris = table.*memberOf(Uris());
  const XMP_AutoLock lock(&(table.*memberOf(Lock())), kXMP_WriteLock);
  if (prefixes.contains(uri)) return true;
  if (uris.contains(withColon)) return false;
  prefixes.merge(newPrefix);
  uris.merge(newUri);
  return true;
}

}  // namespace xmpl
