// SPDX-License-Identifier: Apache-2.0
// --color, of the commands that print for people.
#pragma once

#include "commands/words.h"
#include "text/terminal.h"

namespace vxmeta {

inline void addColourOption(CLI::App& command, ColourChoice& choice) {
  static const std::map<std::string, ColourChoice> kChoices = {
      {"auto", ColourChoice::automatic},
      {"always", ColourChoice::always},
      {"never", ColourChoice::never},
  };
  command.add_option("--color", choice, "auto (in a terminal, without NO_COLOR), always or never")
      ->type_name("WHEN")
      ->transform(wordOf(kChoices));
}

}  // namespace vxmeta
