#include "core/namespaces.h"

#include <map>
#include <mutex>

namespace xmpl {
namespace {

// The next of prefix_1_, prefix_2_ ... that is free.
std::string freeVariant(const std::string& prefix) {
  static std::mutex mutex;
  static std::map<std::string, int>& lastOf = *new std::map<std::string, int>;
  const std::lock_guard<std::mutex> lock(mutex);
  int& last = lastOf[prefix];
  std::string uri;
  std::string variant;
  do {
    variant = prefix + '_' + std::to_string(++last) + '_';
  } while (Metadata::GetNamespaceURI(variant.c_str(), &uri));
  return variant;
}

void registerDeclaration(const NamespaceDeclaration& declaration) {
  std::string registered;
  if (Metadata::GetNamespacePrefix(declaration.uri.c_str(), &registered)) return;
  const bool taken = Metadata::GetNamespaceURI(declaration.prefix.c_str(), &registered);
  const std::string prefix = taken ? freeVariant(declaration.prefix) : declaration.prefix;
  Metadata::RegisterNamespace(declaration.uri.c_str(), prefix.c_str(), &registered);
}

}  // namespace

void registerNamespaces() {
  std::string prefixInUse;  // of no interest: the table's prefixes come first in every process
  for (const Namespace& row : kNamespaces) {
    Metadata::RegisterNamespace(row.uri, row.prefix.data(), &prefixInUse);
  }
}

void registerDeclared(const std::vector<NamespaceDeclaration>& declarations) {
  for (const NamespaceDeclaration& declaration : declarations) {
    try {
      registerDeclaration(declaration);
    } catch (const XMP_Error&) {  // no XML name
    }
  }
}

}  // namespace xmpl
