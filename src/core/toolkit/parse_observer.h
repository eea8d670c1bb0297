// SPDX-License-Identifier: Apache-2.0
// Sees what the toolkit's parser meets, before the toolkit does.
#pragma once

#include <string>

namespace xmpl {

// What these throw ends the parse. Names are the XML parser's: the URI, "@" and the local name, or
// the local name alone where there is no namespace.
class ParseObserver {
 public:
  virtual ~ParseObserver() = default;
  virtual void declare(const char* prefix, const char* uri) = 0;  // a null prefix: the default
  // `attributes`: name and value in turn, up to a null.
  virtual void startElement(const char* name, const char** attributes) = 0;
  virtual void endElement() = 0;
  virtual void doctype() = 0;

  // The text since the last tag, joined: a parse may come in several calls.
  std::string joinedText;

  // Of the parse in this thread; null: nobody looks. A pointer alone: for what has a destructor the
  // C library takes memory in each thread, and ends the process where there is none.
  static ParseObserver*& current() {
    static thread_local ParseObserver* observer = nullptr;
    return observer;
  }
};

}  // namespace xmpl
