// SPDX-License-Identifier: Apache-2.0
// PDFs for tests, small enough to stand in the test.
#pragma once

#include <string>
#include <vector>

// A document of one page. Objects: 1 catalogue, 2 metadata, 3 pages, 4 page, 5 its content, then
// `objects`. Texts are the insides of dictionaries.
struct Pdf {
  std::string packet;  // none: the catalogue has no metadata
  std::string metadata;
  std::string catalogue;
  std::string pages = "/MediaBox[0 0 100 100]";
  std::string page;
  std::string content;
  std::string info;
  std::vector<std::string> objects;

  std::string text() const;
};

std::string stream(const std::string& dictionary, const std::string& data);

// A file of these objects, counted from 1, which is the catalogue.
std::string pdfOf(const std::vector<std::string>& objects, const std::string& trailer = "");

// The file with an object replaced in an incremental update.
std::string updated(const std::string& pdf, int object, const std::string& content);
