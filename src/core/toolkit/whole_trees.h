// SPDX-License-Identifier: Apache-2.0
// Trees as a whole.
#pragma once

#include <functional>
#include <string>

#include "core/toolkit/client.h"

class XMP_Node;

namespace xmpl {

// Whether two nodes are the same, with all that is in them, in the same form and order.
bool areEqual(const XMP_Node& a, const XMP_Node& b);

void swapTrees(Metadata& a, Metadata& b);

// As the toolkit's Clone, which loses the whole copy where memory ends before it is made.
Metadata copyOf(const Metadata& metadata);

// Whether all schemas, properties, qualifiers and values are the same, in the same form and order.
bool haveEqualTrees(const Metadata& a, const Metadata& b);

// Visits all nodes in the order of the toolkit's iterator, with their paths: schemas (without a
// path), properties, then of each its qualifiers and its fields or items.
using VisitNode = std::function<void(const std::string& schemaUri, const std::string& path,
                                     const std::string& value, XMP_OptionBits options)>;
void forEachNode(const Metadata& metadata, const VisitNode& visit);

}  // namespace xmpl
