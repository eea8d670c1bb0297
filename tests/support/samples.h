// SPDX-License-Identifier: Apache-2.0
// The packets in the sample files of the toolkit.
#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

inline std::vector<std::string> samplePackets() {
  std::vector<std::string> packets;
  for (const auto& each : std::filesystem::recursive_directory_iterator(XMPLIB_TEST_SAMPLES)) {
    if (!each.is_regular_file()) continue;
    std::ifstream file(each.path(), std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(file), {}};
    for (std::size_t begin = 0;; ++begin) {
      begin = bytes.find("<?xpacket begin=", begin);
      const std::size_t trailer = bytes.find("<?xpacket end=", begin);
      if (trailer == bytes.npos) break;
      packets.push_back(bytes.substr(begin, bytes.find("?>", trailer) + 2 - begin));
    }
  }
  return packets;
}
