// SPDX-License-Identifier: Apache-2.0
// Signals that would end the program in the middle of a write.
#pragma once

namespace vxmeta {

// While one lives, SIGINT, SIGTERM and SIGHUP wait: the last one to go lets the signal that came
// end the program, on whatever thread. A file that grows over its limit is an error and no signal.
class HeldSignals {
 public:
  HeldSignals();
  ~HeldSignals();
  HeldSignals(const HeldSignals&) = delete;
  HeldSignals& operator=(const HeldSignals&) = delete;

  // Throws FileError when a signal has come. For places where nothing has changed yet.
  static void check();
};

}  // namespace vxmeta
