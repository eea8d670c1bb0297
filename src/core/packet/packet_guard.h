// One pass over a packet before the toolkit parses it. It refuses what would take the toolkit more
// time, stack or memory than its size warrants, and drops the blanks between tags, which the
// toolkit would make nodes of and then skip.
#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "core/namespaces.h"

namespace xmpl {

namespace limits {
// The toolkit recurses over elements, and its indentation grows with their depth.
inline constexpr std::size_t kElementDepth = 128;
// It searches the attributes of an element, and the named children of one, from the first.
inline constexpr std::size_t kAttributes = 4096;
inline constexpr std::size_t kNamedChildren = 16384;  // also: properties of all rdf:Description
inline constexpr std::size_t kNameSearches = std::size_t{1} << 30;  // names compared, in all
// It keeps every namespace until the process ends.
inline constexpr std::size_t kNamespaces = 1024;
inline constexpr std::size_t kTextBytes = std::size_t{256} << 20;
inline constexpr std::size_t kSerialisedBytes = std::size_t{1} << 30;  // as estimated
}  // namespace limits

// Tells which limit, and where.
class PacketRefused : public std::runtime_error {
  using std::runtime_error::runtime_error;
};

struct GuardedPacket {
  std::string text;                                // what the toolkit shall parse
  std::vector<NamespaceDeclaration> declarations;  // one for each URI
};

// Throws PacketRefused for a packet over a limit. What is not well formed is left to the toolkit.
GuardedPacket guardPacket(std::string_view packet);

}  // namespace xmpl
