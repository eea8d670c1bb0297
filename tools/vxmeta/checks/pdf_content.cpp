// SPDX-License-Identifier: Apache-2.0
#include "checks/pdf_content.h"

#include <memory>
#include <qpdf/BufferInputSource.hh>
#include <qpdf/QPDFTokenizer.hh>

namespace vxmeta {
namespace {

using Token = QPDFTokenizer::Token;

bool isOneOf(const std::string& text, std::initializer_list<const char*> words) {
  for (const char* word : words) {
    if (text == word) return true;
  }
  return false;
}

// An operator, the name of a colour space before one, or an inline image's entry: there alone,
// spaces have short names.
void note(const Token& before, const Token& token, ContentColours& colours) {
  const std::string& text = token.getValue();
  if (token.isWord()) {
    colours.cmyk = colours.cmyk || isOneOf(text, {"k", "K"});
    colours.gray = colours.gray || isOneOf(text, {"g", "G"});
  }
  if (token.getType() != QPDFTokenizer::tt_name) return;
  const bool isImages = isOneOf(before.getValue(), {"/CS", "/ColorSpace"});
  colours.cmyk = colours.cmyk || text == "/DeviceCMYK" || (isImages && text == "/CMYK");
  colours.gray = colours.gray || text == "/DeviceGray" || (isImages && text == "/G");
}

}  // namespace

ContentColours coloursIn(const std::string& content) {
  const auto input = std::make_shared<BufferInputSource>("", content);
  QPDFTokenizer tokenizer;
  tokenizer.allowEOF();
  ContentColours colours;
  Token before;
  for (;;) {
    const Token token = tokenizer.readToken(input, "", true);
    if (token.getType() == QPDFTokenizer::tt_eof) return colours;
    note(before, token, colours);
    if (colours.cmyk && colours.gray) return colours;
    if (token.isWord("ID")) {
      char blank = 0;
      input->read(&blank, 1);
      tokenizer.expectInlineImage(input);
    }
    before = token;
  }
}

}  // namespace vxmeta
