// SPDX-License-Identifier: Apache-2.0
// One element of packet text, with all that is in it: a property, field, item or qualifier.
//
//   simple     <name>text</name>, <name/>, <name rdf:resource="URI"/>
//   array      <name> <rdf:Bag> items </rdf:Bag> </name>, or rdf:Seq, rdf:Alt
//   structure  <name rdf:parseType="Resource"> fields </name>
//              <name rdf:resource="URI" fields as attributes/>
//   qualified  <name rdf:parseType="Resource"> <rdf:value> as above </rdf:value> qualifiers </name>
//
// Qualifiers that are attributes stand behind the name in any of them.
#pragma once

#include "core/packet/text_output.h"
#include "core/toolkit/nodes.h"

namespace xmpl {

class ElementWriter {
 public:
  explicit ElementWriter(TextOutput& out) : out_(out) {}

  // Of a node that a survey has seen, at that indentation. Throws XMP_Error.
  void element(const XMP_Node& node, std::size_t indent);

 private:
  struct Attributes;

  void start(std::string_view name, std::size_t indent);
  void end(std::string_view name, std::size_t indent);
  void closing(std::string_view name);

  // These stand behind an open start tag.
  void qualified(const XMP_Node& node, std::string_view name, std::size_t indent);
  void generallyQualified(const XMP_Node& node, std::string_view name, std::size_t indent);
  Attributes attributes(const XMP_Node& node);
  template <Place kPlace>
  void attribute(const XMP_Node& node);
  void content(const XMP_Node& node, std::string_view name, std::size_t indent);
  void text(const XMP_Node& node, std::string_view name);
  void structure(const XMP_Node& node, std::string_view name, std::size_t indent);
  void fieldsAsAttributes(const XMP_Node& node, std::size_t indent);
  void array(const XMP_Node& node, std::string_view name, std::size_t indent);

  TextOutput& out_;
};

}  // namespace xmpl
