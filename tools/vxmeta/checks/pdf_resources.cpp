// SPDX-License-Identifier: Apache-2.0
#include "checks/pdf_resources.h"

#include <cctype>

#include "checks/pdf_content.h"
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

std::string textOfName(QPDFObjectHandle name) { return name.getName().substr(1); }

int integerOf(QPDFObjectHandle value) { return value.isInteger() ? value.getIntValueAsInt() : 0; }

}  // namespace

void ResourceWalk::visit(const std::vector<PdfPage>& pages) {
  for (const PdfPage& page : pages) {
    visitResources(page.resources);
    visitContent(entry(page.page, "/Contents"));
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

// A form, an image, a pattern, a shading, or the glyph of a font.
void ResourceWalk::visitPainter(QPDFObjectHandle painter) {
  if (entry(painter, "/Subtype").isNameAndEquals("/Image")) return visitImage(painter);
  visitResources(entry(painter, "/Resources"));
  visitColorSpace(entry(painter, "/ColorSpace"));
  visitColorSpace(entry(entry(painter, "/Shading"), "/ColorSpace"));
  const bool isShading = !entry(painter, "/ShadingType").isNull();
  if (painter.isStream() && !isShading) visitContentStream(painter);
}

void ResourceWalk::visitImage(QPDFObjectHandle image) {
  visitColorSpace(entry(image, "/ColorSpace"));
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
    QPDFObjectHandle family = space;
    if (space.isArray() && space.getArrayNItems() > 0) family = space.getArrayItem(0);
    if (!family.isName()) return;
    const std::string name = family.getName();
    facts_.usesCmyk = facts_.usesCmyk || name == "/DeviceCMYK";
    facts_.usesGray = facts_.usesGray || name == "/DeviceGray";
    if (!space.isArray() || space.getArrayNItems() < 2) return;
    QPDFObjectHandle second = space.getArrayItem(1);
    if (name == "/Separation") return noteColorant(second);
    if (name == "/DeviceN") {
      return eachItem(second, [&](QPDFObjectHandle colorant) { noteColorant(colorant); });
    }
    if (name == "/ICCBased") {
      facts_.usesCmyk = facts_.usesCmyk || integerOf(entry(second, "/N")) == 4;
      return;
    }
    if (name != "/Indexed" && name != "/Pattern") return;
    space = second;
  }
}

void ResourceWalk::visitContent(QPDFObjectHandle content) {
  if (content.isStream()) visitContentStream(content);
  eachItem(content, [&](QPDFObjectHandle part) { visitContentStream(part); });
}

void ResourceWalk::visitContentStream(QPDFObjectHandle stream) {
  if (!stream.isStream() || (facts_.usesCmyk && facts_.usesGray)) return;
  ContentColours colours;
  try {
    const std::string content = decoded(stream, contentLeft_);
    contentLeft_ -= content.size();
    colours = coloursIn(content);
  } catch (const FileError&) {
    colours = {true, true};
  }
  facts_.usesCmyk = facts_.usesCmyk || colours.cmyk;
  facts_.usesGray = facts_.usesGray || colours.gray;
}

}  // namespace vxmeta
