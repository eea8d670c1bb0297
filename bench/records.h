// SPDX-License-Identifier: Apache-2.0
// What the benchmarks work on: records as documents have them, packets that hold them, and digests
// by which two ways of doing the same work are compared.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "XMPlib.h"

namespace bench {

using Inks = std::vector<XMPlInk>;
using Fonts = std::vector<XMPlFont>;
using Refs = std::vector<XMPlExtRef>;
using Barcodes = std::vector<XMPlBarcode>;
using Layers = std::vector<XMPlLay>;

// Numbered from `first`, so that lists of other numbers have no record in common. Names differ;
// the other texts come from the few that a document has. Fonts are in the order of their storing.
Inks inks(std::size_t count, std::size_t first = 0);
Fonts fonts(std::size_t count, std::size_t first = 0);
Refs refs(std::size_t count, std::size_t first = 0);
Barcodes barcodes(std::size_t count, std::size_t first = 0);
Layers layers(std::size_t count, std::size_t first = 0);

// The name alone differs from record to record.
Inks alikeInks(std::size_t count);
Fonts alikeFonts(std::size_t count);

// Every text and every real differs from those of all other records.
Inks distinctInks(std::size_t count);
Fonts distinctFonts(std::size_t count);

Refs cadFiles(std::size_t count, std::size_t first = 0);
Refs numberedImages(std::size_t count);      // in runs of nine, one number missing after each
Fonts halfEmbeddedFonts(std::size_t count);  // each embedded one has its like outside
XMPlDgcc curve(std::size_t values);

std::string packetOf(const Inks& inks);
std::string packetOf(const Fonts& fonts);
std::string packetOf(const Refs& refs);
std::string filmPacket(std::size_t inks, std::size_t first);

// The packet that a file carries.
std::string packetIn(const std::string& path);

std::size_t digest(const std::string& text);
std::size_t digest(const Inks& inks);
std::size_t digest(const Fonts& fonts);
std::size_t digest(const Refs& refs);

}  // namespace bench
