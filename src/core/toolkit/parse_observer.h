// Sees what the toolkit's parser meets, before the toolkit does.
#pragma once

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

  // Of the parse in this thread; null: nobody looks.
  static ParseObserver*& current() {
    static thread_local ParseObserver* observer = nullptr;
    return observer;
  }
};

}  // namespace xmpl
