// SPDX-License-Identifier: Apache-2.0
// What `vxmeta get FILE job.id` does, by the library alone: the least that the tool can cost.
#include <XMPlib.h>

#include <cstdio>
#include <fstream>
#include <iterator>
#include <string>

int main(int argc, char** argv) {
  if (argc < 2) return 0;  // what a start costs
  std::ifstream file(argv[1], std::ios::binary);
  const std::string packet{std::istreambuf_iterator<char>(file), {}};
  XMPlib xmp;
  xmp.SetXML(packet);
  XMPlJobData job;
  xmp.GetJobData(job);
  return std::puts(job.id.c_str()) < 0 ? 1 : 0;
}
