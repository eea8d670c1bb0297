// SPDX-License-Identifier: Apache-2.0
#include <algorithm>
#include <set>

#include "core/call_guard.h"
#include "core/list_merge.h"
#include "core/unread.h"

namespace {

constexpr xmpl::List kFonts{"vxFontL:fonts", xmpl::ArrayKind::unordered};

constexpr auto kFontFields = [](const auto& item, auto& font) {
  return item.text("vxFont:name", font.name) && item.text("vxFont:type", font.type) &&
         item.text("vxFont:location", font.location) &&
         item.text("vxFont:fontfile", font.fontfile) &&
         item.boolean("vxFont:protection", font.protection);
};

// In the order that operator< gives the fields weight. Ordered by
// them, fonts stand as operator< has them, and those that it orders both ways stand unprotected
// first: operator< itself would lead a sort out of bounds.
constexpr auto kFontIdentity = [](const XMPlFont& font) {
  return std::tie(font.name, font.type, font.location, font.protection, font.fontfile);
};

bool isEmbedded(const XMPlFont& font) { return font.location == "embedded"; }
bool hasFileName(const XMPlFont& font) { return font.fontfile.find(';') != std::string::npos; }
std::string fileName(const XMPlFont& font) {
  return font.fontfile.substr(font.fontfile.rfind(';') + 1);
}

// An embedded font is a duplicate of one that is not embedded and has the same file name.
void dropEmbeddedDuplicates(std::vector<XMPlFont>& fonts) {
  std::set<std::string> files;
  for (const XMPlFont& font : fonts) {
    if (!isEmbedded(font) && hasFileName(font)) files.insert(fileName(font));
  }
  std::erase_if(fonts, [&](const XMPlFont& font) {
    return isEmbedded(font) && hasFileName(font) && files.contains(fileName(font));
  });
}

}  // namespace

bool XMPlFont::operator==(const XMPlFont& other) const {
  return kFontIdentity(*this) == kFontIdentity(other);
}

bool XMPlFont::operator<(const XMPlFont& other) const {
  if (name != other.name) return name < other.name;
  if (type != other.type) return type < other.type;
  if (location != other.location) return location < other.location;
  if (!protection && other.protection) return true;
  // Deliberate: a protected font is not greater than an unprotected one; the files decide.
  return fontfile < other.fontfile;
}

void xmpl::findUnreadFonts(const Metadata& metadata, Unread& unread) {
  findUnread<XMPlFont>(metadata, kFonts, kFontFields, unread);
}

bool XMPlib::GetFonts(std::vector<XMPlFont>& fonts) const { return GetFonts(fonts, true); }

bool XMPlib::GetFonts(std::vector<XMPlFont>& fonts, bool keepDuplicates) const {
  fonts.clear();
  return guarded([&](const xmpl::Metadata& metadata) {
    const bool found = readList(metadata, kFonts, kFontFields, fonts);
    if (!keepDuplicates) dropEmbeddedDuplicates(fonts);
    return found;
  });
}

bool XMPlib::SetFonts(const std::vector<XMPlFont>& fonts) {
  return guarded([&](xmpl::Metadata& metadata) {
    std::vector<XMPlFont> sorted = fonts;
    std::sort(sorted.begin(), sorted.end(), [](const XMPlFont& a, const XMPlFont& b) {
      return kFontIdentity(a) < kFontIdentity(b);
    });
    return writeList(metadata, kFonts, kFontFields, sorted);
  });
}

bool XMPlib::MergeFonts(const std::vector<XMPlFont>& fonts) {
  return guarded(xmpl::merging(*this, &XMPlib::GetFonts, &XMPlib::SetFonts, fonts, kFontIdentity));
}
