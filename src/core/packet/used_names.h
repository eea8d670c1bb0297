// SPDX-License-Identifier: Apache-2.0
// The names that a text uses: whether a load would take them, and the namespaces of their prefixes.
#pragma once

#include <expat.h>

#include <array>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "core/packet/survey.h"

namespace xmpl {

// Throws XMP_Error with words of this library's.
[[noreturn]] void refuseToWrite(const char* why);

class UsedNames {
 public:
  UsedNames() {
    prefixes_.reserve(kUsual);
    namespaces_.reserve(kUsual);
    prefixes_.assign({"rdf", "xml"});
  }

  // An element or a qualifier by its full name. The string must stay where it is.
  void use(const std::string& name) {
    const std::string*& recent = recent_[slotOf(name)];
    if (recent != nullptr && *recent == name) return;
    useNew(name);
    recent = &name;
  }

  // Declares a prefix, given with its colon, if it is new.
  void declare(std::string_view prefixAndColon, std::string_view uri);

  // In the order of first use. Throws XMP_Error if there are more than a load would take.
  std::vector<NamespaceInUse> namespaces() &&;

 private:
  using Parser = std::unique_ptr<std::remove_pointer_t<XML_Parser>, decltype(&XML_ParserFree)>;

  // Records repeat their names: those seen lately need no other look. A table this small can be
  // missed on purpose; what then follows is still no more than n log n.
  static constexpr std::size_t kRecent = 128;
  static std::size_t slotOf(const std::string& name) {
    const std::size_t size = name.size();
    if (size < 2) return 0;
    const auto at = [&name](std::size_t i) -> std::size_t {
      return static_cast<unsigned char>(name[i]);
    };
    // Where names differ: in number of characters, at their ends, and behind a prefix of some.
    return (size * 3 + at(1) * 5 + at(size - 1) * 7 + at(size - 2) * 31 + at(size / 2) * 13) %
           kRecent;
  }

  static constexpr std::size_t kUsual = 16;  // namespaces

  void useNew(const std::string& name);
  bool insertPrefix(std::string_view prefix);
  void checkName(std::string_view name, std::size_t limit);
  void checkOddName(std::string_view name);

  std::array<const std::string*, kRecent> recent_{};
  std::string_view lastPrefix_ = "rdf";
  std::vector<std::string_view> prefixes_;  // sorted
  std::vector<NamespaceInUse> namespaces_;
  Parser parser_{nullptr, XML_ParserFree};  // for names outside ASCII
};

}  // namespace xmpl
