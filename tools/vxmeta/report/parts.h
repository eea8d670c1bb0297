// SPDX-License-Identifier: Apache-2.0
// The parts of a document's page. Each is empty where the document holds nothing of it.
#pragma once

#include <string>
#include <vector>

#include "checks/finding.h"
#include "model/document.h"
#include "report/html.h"
#include "report/place.h"

namespace vxmeta {

Markup factsPart(const Document& document, Place& place);     // document, job, product, dates ...
Markup inksPart(const Document& document, Place& place);      // with the roses of their angles
Markup screensPart(const Document& document, Place& place);   // linked to the curves
Markup curvesPart(const Document& document, Place& place);    // DGC curves, drawn
Markup geometryPart(const Document& document, Place& place);  // page, film, CAD registration
Markup repeatsPart(const Document& document, Place& place);   // step and repeat, to scale
Markup rangesPart(const Document& document, Place& place);    // page ranges as a strip
Markup filesPart(const Document& document, Place& place);
Markup listsPart(const Document& document, Place& place);  // fonts, barcodes, layers ...
Markup separationsPart(const Document& document, Place& place);
Markup leftOverPart(const Document& document, Place& place);  // what no record covers

// The line under the title: product, order, size, pages, inks.
Markup leadLine(const Document& document);
Markup inkChips(const Document& document);

// Linked to their places, which the other parts have made by now.
Markup findingsPart(const std::vector<Finding>& findings, Place& place);

// "2 errors, 1 note"; "" for none.
std::string countsOf(const std::vector<Finding>& findings);

// "246 × 182.5 mm"; "" where no size is known.
std::string sizeOf(const Document& document);

}  // namespace vxmeta
