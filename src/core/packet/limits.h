// SPDX-License-Identifier: Apache-2.0
// What a packet may hold, loaded and saved alike: what is over a limit is refused by a load, and by
// whatever would make it. Within them, loading takes time and memory in step with the text.
#pragma once

#include <cstddef>

namespace xmpl::limits {

// The toolkit recurses over elements, and the indentation of a saved packet grows with their depth.
inline constexpr std::size_t kElementDepth = 128;

inline constexpr std::size_t kTextBytes = std::size_t{256} << 20;

// Names come again in every node, many times what stands for them in the packet.
inline constexpr std::size_t kPrefixBytes = 64;
inline constexpr std::size_t kLocalNameBytes = 256;
inline constexpr std::size_t kUriBytes = 128;

// Of namespaces that are not in the library's table. The toolkit keeps every one until the process
// ends.
inline constexpr std::size_t kNamespaces = 1024;

// Properties of one namespace, fields of one structure, qualifiers of one value. The toolkit's
// paths search them from the first. The library's own properties do not count.
inline constexpr std::size_t kNamedChildren = 2048;

// rdf:value of one property: one is meant. Each goes before what is there already.
inline constexpr std::size_t kValues = 16;

}  // namespace xmpl::limits
