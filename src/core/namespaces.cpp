#include "core/namespaces.h"

namespace xmpl {

void registerNamespaces() {
  std::string prefixInUse;  // of no interest: the table's prefixes come first in every process
  for (const Namespace& row : kNamespaces) {
    Metadata::RegisterNamespace(row.uri, row.prefix.data(), &prefixInUse);
  }
}

}  // namespace xmpl
