// SPDX-License-Identifier: Apache-2.0
// Packets, changed by every operation that there is: whatever becomes of them can be saved and
// loaded. The first section of an input are operations, the others packets.
#include "trips.h"

namespace {

// What throws may have done a part of its work.
template <class Operation>
void run(const Operation& operation) {
  attempt<XMP_Error>([&] {
    return attempt<std::logic_error>([&] {
      operation();
      return true;
    });
  });
}

class Changes {
 public:
  explicit Changes(const std::vector<std::string>& packets) : packets_(packets) {
    xmp_.SetXML(packets.front());
    other_.SetXML(packets.back());
  }

  // 'A' and so on are the kinds of records, '0' and so on what only writes, others signs the rest.
  void change(Fields& input) {
    const std::string name = input.next();
    if (name.size() != 1 || isSlow(filesOf(xmp_) + filesOf(other_))) return;
    int sign = 'A';
    const auto set = [&]<class Value>(const Kind<Value>& kind) {
      if (sign++ != name[0]) return;
      Value value{};
      take(input, value);
      run([&] { kind.set(xmp_, value); });
    };
    forEachKind(set);
    sign = '0';
    forEachWriter(set);
    changeOtherwise(name[0], input);
  }

  const XMPlib& result() const { return xmp_; }

 private:
  static std::string uriOf(const std::string& prefix) {
    std::string uri = prefix;
    run([&] { xmpl::Metadata::GetNamespaceURI(prefix.c_str(), &uri); });
    return uri;
  }

  void changeOtherwise(char name, Fields& input) {
    if (name == '=') {
      const std::string uri = uriOf(input.next()), path = input.next();
      run([&] { xmp_.SetProperty_Float(uri.c_str(), path.c_str(), 0.5); });
    }
    if (name == '<') run([&] { xmp_.MergeNonOrvo(&other_); });
    if (name == '+') run([&] { xmp_.MergeXML(packets_.back(), true); });
    if (name == '-') run([&] { other_.MergeNonOrvo(&xmp_); });
    if (name == '*') {
      const int mode = std::atoi(input.next().c_str());
      run([&] { xmp_.MergeXML(packets_, mode % 3, mode > 2); });
    }
  }

  std::vector<std::string> packets_;
  XMPlib xmp_, other_;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::vector<std::string_view> sections = sectionsOf(textOf(data, size));
  std::vector<std::string> packets;
  for (std::size_t i = 1; i < sections.size(); ++i) packets.push_back(packetOf(sections[i]));
  if (packets.empty()) packets.emplace_back();
  Changes changes(packets);
  for (Fields input(sections[0]); !input.atEnd();) changes.change(input);
  checkTrips(saved(changes.result()));
  return 0;
}
