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

// An operation with its records or flags from the input.
template <class Value, class Operation>
void runWith(Fields& input, const Operation& operation) {
  Value value{};
  take(input, value);
  run([&] { operation(value); });
}

class Changes {
 public:
  explicit Changes(const std::vector<std::string>& packets) : packets_(packets) {
    xmp_.SetXML(packets.front());
    other_.SetXML(packets.back());
  }

  void change(Fields& input) {
    const std::string name = input.next();
    if (name.size() != 1) return;
    int place = 0;
    forEachKind([&]<class Value>(const Kind<Value>& kind) {
      if ('A' + place++ != name[0]) return;
      runWith<Value>(input, [&](const Value& value) { kind.set(xmp_, value); });
    });
    set(name[0], input);
    if (!isSlow(filesOf(xmp_) + filesOf(other_))) merge(name[0], input);
  }

  const XMPlib& result() const { return xmp_; }

 private:
  static std::string uriOf(const std::string& prefix) {
    std::string uri = prefix;
    run([&] { xmpl::Metadata::GetNamespaceURI(prefix.c_str(), &uri); });
    return uri;
  }

  template <class Value>
  void runList(Fields& input, bool (XMPlib::*operation)(const Value&)) {
    runWith<Value>(input, [&](const Value& value) { (xmp_.*operation)(value); });
  }

  void set(char name, Fields& input) {
    if (name == '0') runList(input, &XMPlib::SetPDFData);
    if (name == '1') runList(input, &XMPlib::SetMMData);
    if (name == '2') runList(input, &XMPlib::SetUsedDigitalJobRefs);
    if (name == 'a') runList(input, &XMPlib::SetMetaDataDigFilms);
    if (name == '3') {
      const std::string uri = uriOf(input.next()), path = input.next();
      run([&] { xmp_.SetProperty_Float(uri.c_str(), path.c_str(), 0.5); });
    }
  }

  void merge(char name, Fields& input) {
    if (name == '4') runList(input, &XMPlib::MergeExtRefs);
    if (name == '5') runList(input, &XMPlib::MergeCadFiles);
    if (name == '6') runList(input, &XMPlib::MergeFonts);
    if (name == '7') runList(input, &XMPlib::MergeBarcodes);
    if (name == '8') runList(input, &XMPlib::MergeLayers);
    if (name == '9') run([&] { xmp_.MergeNonOrvo(&other_); });
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
