// SPDX-License-Identifier: Apache-2.0
// Records, written, read back, and read again from the saved packet. The first byte picks the kind.
#include "core/value_text.h"
#include "packets.h"

namespace {

std::string storedText(std::string text) {
  text.resize(std::min(text.find('\0'), text.size()));
  const auto isControl = [](char c) {
    return (c >= 0 && c < ' ' && std::strchr("\t\n\r", c) == nullptr) || c == 0x7F;
  };
  std::replace_if(text.begin(), text.end(), isControl, ' ');
  return text;
}

std::string storedReal(double value) {
  return xmpl::realText(xmpl::toReal(xmpl::realText(value)));  // what was cut settles at once
}

// The fields as they are stored, all of them; screens end at the first empty group.
template <class Value>
std::vector<std::string> storedTexts(Value value) {
  std::vector<std::string> texts;
  const auto enter = [&]<class List>(List& list) {
    if constexpr (std::is_same_v<List, std::vector<std::vector<XMPlScreen>>>) {
      list.erase(std::find(list.begin(), list.end(), std::vector<XMPlScreen>()), list.end());
    }
    texts.push_back(std::to_string(list.size()));
  };
  visitFields(value, enter, [&]<class Field>(const Field& field) {
    constexpr bool isDgc = std::is_same_v<Value, std::vector<XMPlDgcc>>;
    if constexpr (std::is_same_v<Field, std::string>) {
      texts.push_back(storedText(field));
    } else if constexpr (std::is_same_v<Field, double>) {
      texts.push_back(isDgc ? xmpl::fixedText(field, 6) : storedReal(field));
    } else {
      texts.push_back(std::to_string(static_cast<std::int32_t>(field)));
    }
  });
  constexpr bool isSorted = std::is_same_v<Value, std::vector<XMPlFont>>;
  if (isSorted) std::sort(texts.begin(), texts.end());
  return texts;
}

// A field that a flag or an emptiness keeps from being stored is its default, a dot name the dot
// shape before it, and "now" a date.
template <class Value>
void expectRead(const Kind<Value>& kind, XMPlib& xmp, const Value& written) {
  Value value{};
  succeeds(xmp, kind.get(xmp, value));
  const std::vector<std::string> read = storedTexts(value), wanted = storedTexts(written);
  expect(read.size() == wanted.size(), "all of what was written is read");
  for (std::size_t i = 0; i < read.size(); ++i) {
    const bool isDefault = std::strstr("|0|1|-1||unknown|", ("|" + read[i] + "|").c_str());
    const bool isEarlier = i > 0 && read[i] == wanted[i - 1];
    expect(read[i] == wanted[i] || isDefault || isEarlier || wanted[i] == "now",
           "what was written is read");
  }
}

template <class Value>
void roundTrip(const Kind<Value>& kind, std::string_view input) {
  Value value{};
  Fields fields(input);
  take(fields, value);
  if constexpr (std::is_same_v<Value, XMPlColorSpace>) value.colorprofloc = "VXDatabase";
  XMPlib xmp;
  const bool written = succeeds(xmp, kind.set(xmp, value));
  const bool isAscii = std::all_of(input.begin(), input.end(), [](char c) { return c >= 0; });
  expect(written || !isAscii, "ASCII can be written");
  Reloaded reloaded(saved(xmp));
  if (!written || !kind.keepsAll) return;
  expectRead(kind, xmp, value);
  expectRead(kind, reloaded, value);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  int place = 0;
  forEachKind([&](const auto& kind) {
    if (size > 0 && 'A' + place++ == data[0]) roundTrip(kind, textOf(data + 1, size - 1));
  });
  return 0;
}
