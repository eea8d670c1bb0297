// SPDX-License-Identifier: Apache-2.0
// A PDF with a packet, for `vxmeta check`.
#pragma once

#include <XMPlib.h>

#include <nlohmann/json.hpp>
#include <set>
#include <string>

#include "support/pdf.h"

// A PDF and the records of its packet.
struct CheckedPdf {
  XMPlib xmp;
  Pdf pdf;

  // They agree on everything.
  CheckedPdf();

  std::string text();
};

XMPlInk ink(const std::string& name, const std::string& type = "spot");
XMPlLay layer(const std::string& name);
void setSize(XMPlib& xmp, const std::string& units, double width, double height);

nlohmann::json findings(const std::string& pdf, const std::string& arguments = "");

using Names = std::multiset<std::string>;

// "id path" of every finding.
Names found(const std::string& pdf, const std::string& arguments = "");
