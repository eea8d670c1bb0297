// SPDX-License-Identifier: Apache-2.0
// Runs a fuzz target once for every file that is named.
#include <fstream>
#include <iostream>
#include <iterator>

#include "target.h"

int main(int argc, char** argv) {
  if (argc == 1 || std::freopen("/dev/null", "w", stdout) == nullptr) return 1;
  for (int i = 1; i < argc; ++i) {
    std::cerr << argv[i] << '\n';
    std::ifstream file(argv[i], std::ios::binary);
    if (!file) return 1;
    const std::string input{std::istreambuf_iterator<char>(file), {}};
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(input.data()), input.size());
  }
}
