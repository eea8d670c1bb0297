// SPDX-License-Identifier: Apache-2.0
// Finds the XMP packet in a file without a library that knows the file's format.
#ifndef PACKET_IN_FILE_H
#define PACKET_IN_FILE_H

#include <cstddef>
#include <string>

// The packet that was taken, and from how many.
struct PacketInFile {
  std::string text;       // empty: the file holds none
  std::size_t which = 0;  // counted from 1 in the order of the file
  std::size_t count = 0;
  bool named = false;  // the PDF's catalogue names it; else it is the last, a guess among several
};

// Sees packets that stand in the file as plain UTF-8 text: those with a wrapper, or, where there is
// none of them, x:xmpmeta elements. Placed images bring packets of their own, so that in a PDF the
// one counts that the catalogue names; of several catalogues in plain text, the last one's.
// Throws std::runtime_error when that packet is not among those seen.
PacketInFile packetIn(const std::string& file);

// All bytes of a file. Throws std::runtime_error when there is no such file.
std::string readFile(const std::string& path);

#endif
