// SPDX-License-Identifier: Apache-2.0
// The same work with plain calls of the toolkit, as a careful application programmer writes it who
// has no such library: one path buffer, no call more than the work needs.
#pragma once

#include <string>

#include "XMP.hpp"
#include "document.h"
#include "records.h"

namespace bench::by_hand {

using Meta = TXMPMeta<std::string>;

void parse(Meta& meta, const std::string& packet);
void serialise(const Meta& meta, std::string& text);

Inks readInks(const Meta& meta);
Fonts readFonts(const Meta& meta);
Refs readRefs(const Meta& meta);

Document readDocument(const Meta& meta);
std::size_t readLists(const Meta& meta);  // as bench::readLists

void writeInks(Meta& meta, const Inks& inks);
void writeFonts(Meta& meta, const Fonts& fonts);
void writeRefs(Meta& meta, const Refs& refs);  // in both layouts

}  // namespace bench::by_hand
