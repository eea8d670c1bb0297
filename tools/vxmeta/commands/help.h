// SPDX-License-Identifier: Apache-2.0
// How help is laid out.
#pragma once

#include "commands/commands.h"

namespace vxmeta {

// Names what an option takes in one word, and leaves the rest to its description.
class HelpFormatter : public CLI::Formatter {
 public:
  std::string make_option_opts(const CLI::Option* option) const override {
    if (option->get_positional() || option->get_type_size() == 0) return "";
    const std::string type = option->get_type_name();
    return " " + type.substr(0, type.find(':'));
  }
};

}  // namespace vxmeta
