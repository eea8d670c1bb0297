// What a packet may hold, loaded and saved alike: what is over a limit is refused by a load, and by
// whatever would make it.
#pragma once

#include <cstddef>

namespace xmpl::limits {

// The toolkit recurses over elements, and the indentation of a saved packet grows with their depth.
inline constexpr std::size_t kElementDepth = 128;

inline constexpr std::size_t kTextBytes = std::size_t{256} << 20;

// Lengths of names. They come again in every node, many times what stands in the packet.
inline constexpr std::size_t kPrefixBytes = 100;
inline constexpr std::size_t kLocalNameBytes = 256;
inline constexpr std::size_t kUriBytes = 1000;

// Of namespaces that are not the library's own. The toolkit keeps every one until the process ends.
inline constexpr std::size_t kNamespaces = 1024;

}  // namespace xmpl::limits
