// SPDX-License-Identifier: Apache-2.0
#include "checks/pdf_resources.h"

#include <algorithm>
#include <cctype>

#include "checks/pdf_content.h"
#include "checks/pdf_names.h"
#include "files/qpdf_file.h"

namespace vxmeta {
namespace {

template <class Visit>
void eachValue(QPDFObjectHandle dictionary, Visit&& visit) {
  if (!dictionary.isDictionary()) return;
  for (const std::string& key : dictionary.getKeys()) visit(dictionary.getKey(key));
}

template <class Visit>
void eachItem(QPDFObjectHandle array, Visit&& visit) {
  for (int i = 0; array.isArray() && i < array.getArrayNItems(); ++i) visit(array.getArrayItem(i));
}

QPDFObjectHandle dictionaryOf(QPDFObjectHandle object) {
  return object.isStream() ? object.getDict() : object;
}

QPDFObjectHandle entry(QPDFObjectHandle object, const char* key) {
  QPDFObjectHandle dictionary = dictionaryOf(object);
  return dictionary.isDictionary() ? dictionary.getKey(key) : QPDFObjectHandle::newNull();
}

// "ABCDEF+Name" is a subset of the font "Name".
std::string withoutSubsetPrefix(const std::string& name) {
  constexpr std::size_t kPrefix = 6;
  if (name.size() <= kPrefix || name[kPrefix] != '+') return name;
  for (std::size_t i = 0; i < kPrefix; ++i) {
    if (std::isupper(static_cast<unsigned char>(name[i])) == 0) return name;
  }
  return name.substr(kPrefix + 1);
}

int integerOf(QPDFObjectHandle value) { return value.isInteger() ? value.getIntValueAsInt() : 0; }

bool isMask(QPDFObjectHandle image) {
  QPDFObjectHandle mask = entry(image, "/ImageMask");
  return mask.isBool() && mask.getBoolValue();
}

std::set<std::string> masksAmong(QPDFObjectHandle resources) {
  std::set<std::string> names;
  QPDFObjectHandle painters = entry(resources, "/XObject");
  if (!painters.isDictionary()) return names;
  for (const std::string& name : painters.getKeys()) {
    if (isMask(painters.getKey(name))) names.insert(name);
  }
  return names;
}

// A space is the name of its family, or an array that begins with it; empty: it is neither.
std::string familyOf(QPDFObjectHandle space) {
  if (space.isArray() && space.getArrayNItems() > 0) space = space.getArrayItem(0);
  return space.isName() ? space.getName() : "";
}

// What stands behind the family; null: nothing.
QPDFObjectHandle parameterOf(QPDFObjectHandle space) {
  const bool hasIt = space.isArray() && space.getArrayNItems() > 1;
  return hasIt ? space.getArrayItem(1) : QPDFObjectHandle::newNull();
}

}  // namespace

void ResourceWalk::visit(const std::vector<PdfPage>& pages) {
  for (const PdfPage& page : pages) {
    pageResources_ = page.resources;
    visitResources(page.resources);
    visitContent(entry(page.page, "/Contents"), page.resources);
    pushAppearances(page.page);
    visitPainters();
  }
}

// Direct objects are part of one that is indirect, and come once with it.
bool ResourceWalk::isNew(QPDFObjectHandle object) {
  return !object.isIndirect() || seen_.insert(object.getObjGen()).second;
}

void ResourceWalk::push(QPDFObjectHandle painter) {
  const bool isPainter = painter.isStream() || painter.isDictionary();
  if (isPainter && isNew(painter)) painters_.push_back(painter);
}

// An appearance is a form, or a dictionary of forms, one for each state.
void ResourceWalk::pushAppearances(QPDFObjectHandle page) {
  eachItem(entry(page, "/Annots"), [&](QPDFObjectHandle annotation) {
    eachValue(entry(annotation, "/AP"), [&](QPDFObjectHandle appearance) {
      if (appearance.isStream()) return push(appearance);
      eachValue(appearance, [&](QPDFObjectHandle state) { push(state); });
    });
  });
}

void ResourceWalk::visitPainters() {
  while (!painters_.empty()) {
    QPDFObjectHandle painter = painters_.back();
    painters_.pop_back();
    visitPainter(painter);
  }
}

// A form, an image, a pattern, a shading, or the glyph of a font. A form of old may have no
// resources of its own, and then uses those of the page.
void ResourceWalk::visitPainter(QPDFObjectHandle painter) {
  if (entry(painter, "/Subtype").isNameAndEquals("/Image")) return visitImage(painter);
  QPDFObjectHandle resources = entry(painter, "/Resources");
  visitResources(resources);
  visitColorSpace(entry(painter, "/ColorSpace"));
  visitColorSpace(entry(entry(painter, "/Shading"), "/ColorSpace"));
  const bool isShading = !entry(painter, "/ShadingType").isNull();
  if (!painter.isStream() || isShading) return;
  visitContent(painter, resources.isNull() ? pageResources_ : resources);
}

// The data of JPEG 2000 may name the space in their place.
void ResourceWalk::visitImage(QPDFObjectHandle image) {
  QPDFObjectHandle space = entry(image, "/ColorSpace");
  if (space.isNull() && !isMask(image)) facts_.usesProcess = true;
  visitColorSpace(space);
}

void ResourceWalk::visitResources(QPDFObjectHandle resources) {
  if (!resources.isDictionary() || !isNew(resources)) return;
  const auto pushIt = [&](QPDFObjectHandle painter) { push(painter); };
  eachValue(resources.getKey("/XObject"), pushIt);
  eachValue(resources.getKey("/Pattern"), pushIt);
  eachValue(resources.getKey("/Shading"), pushIt);
  eachValue(resources.getKey("/ColorSpace"),
            [&](QPDFObjectHandle space) { visitColorSpace(space); });
  eachValue(resources.getKey("/Font"), [&](QPDFObjectHandle font) { visitFont(font); });
  eachValue(resources.getKey("/ExtGState"), [&](QPDFObjectHandle state) {
    eachItem(entry(state, "/Font"), [&](QPDFObjectHandle font) { visitFont(font); });
  });
}

void ResourceWalk::visitFont(QPDFObjectHandle font) {
  if (!font.isDictionary() || !isNew(font)) return;
  QPDFObjectHandle name = font.getKey("/BaseFont");
  QPDFObjectHandle descendants = font.getKey("/DescendantFonts");
  if (descendants.isArray() && descendants.getArrayNItems() > 0) {
    name = entry(descendants.getArrayItem(0), "/BaseFont");
  }
  if (name.isName()) facts_.fonts.insert(withoutSubsetPrefix(textOfName(name)));
  if (!font.getKey("/Subtype").isNameAndEquals("/Type3")) return;
  eachValue(font.getKey("/CharProcs"), [&](QPDFObjectHandle glyph) { push(glyph); });
  visitResources(font.getKey("/Resources"));
}

void ResourceWalk::noteColorant(QPDFObjectHandle name) {
  if (!name.isName()) return;
  const std::string text = textOfName(name);
  if (text != "All" && text != "None") facts_.colorants.insert(text);
}

// Indexed and Pattern spaces stand on another one.
void ResourceWalk::visitColorSpace(QPDFObjectHandle space) {
  constexpr int kMostBases = 8;
  for (int i = 0; i < kMostBases; ++i) {
    const std::string family = familyOf(space);
    QPDFObjectHandle parameter = parameterOf(space);
    if (family != "/Indexed" && family != "/Pattern") return noteSpace(family, parameter);
    space = parameter;
  }
}

// What is neither gray nor of named colorants is separated into process inks.
void ResourceWalk::noteSpace(const std::string& family, QPDFObjectHandle parameter) {
  if (family.empty()) return;
  if (family == "/Separation") return noteColorant(parameter);
  if (family == "/DeviceN") {
    return eachItem(parameter, [&](QPDFObjectHandle colorant) { noteColorant(colorant); });
  }
  const bool isGray = family == "/DeviceGray" || family == "/CalGray" ||
                      (family == "/ICCBased" && integerOf(entry(parameter, "/N")) == 1);
  (isGray ? facts_.usesGray : facts_.usesProcess) = true;
}

// Once there are process colours, content has nothing to add.
void ResourceWalk::visitContent(QPDFObjectHandle content, QPDFObjectHandle resources) {
  if (facts_.usesProcess) return;
  try {
    const ContentColours colours = coloursIn(textOf(content), masksAmong(resources));
    facts_.usesProcess = colours.process;
    facts_.usesGray = facts_.usesGray || colours.gray;
  } catch (const FileError&) {
    facts_.usesProcess = true;
  }
}

// The parts of content are one: a colour that is set in one holds in the next.
std::string ResourceWalk::textOf(QPDFObjectHandle content) {
  constexpr std::size_t kMost = std::size_t{1} << 28;  // at once in memory
  std::string text;
  const auto append = [&](QPDFObjectHandle part) {
    if (!part.isStream()) return;
    const std::string more =
        decoded(part, std::min(contentLeft_, kMost - std::min(kMost, text.size())));
    contentLeft_ -= more.size();
    text += more + '\n';
  };
  append(content);
  eachItem(content, append);
  return text;
}

}  // namespace vxmeta
