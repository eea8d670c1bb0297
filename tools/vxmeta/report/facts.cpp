// SPDX-License-Identifier: Apache-2.0
// What the document is, and for whom.
#include <fmt/format.h>

#include "report/colours.h"
#include "report/parts.h"
#include "report/tables.h"
#include "text/cells.h"

namespace vxmeta {
namespace {

template <class Record>
Markup recordCard(std::string_view path, std::string_view title,
                  const std::optional<Record>& record, Place& place) {
  return record ? card(title, definitions(path, viewOf(*record), place)) : Markup{};
}

Markup packetCard(const Document& document, Place& place) {
  return card("Packet", definitions("packet", viewOf(document.packet), place));
}

template <class Dimensions>
std::string sizeText(const Dimensions& size) {
  return fmt::format("{} × {} {}", size.hsize, size.vsize, size.units);
}

// Joins what is there with dots.
class Lead {
 public:
  void add(const Markup& part) {
    if (part.empty()) return;
    if (!all_.empty()) all_ += plain(" · ");
    all_ += element("span", part);
  }
  const Markup& markup() const { return all_; }

 private:
  Markup all_;
};

Markup labelled(std::string_view what, const std::string& text) {
  return text.empty() ? Markup{} : plain(fmt::format("{} ", what)) + value(text);
}

void addProduct(Lead& lead, const Document& document) {
  if (!document.product) return;
  lead.add(value(document.product->prodname));
  lead.add(value(document.product->prodpartname));
}

void addJob(Lead& lead, const Document& document) {
  if (!document.job) return;
  lead.add(labelled("Job", document.job->name));
  lead.add(labelled("Order", document.job->orderid));
}

}  // namespace

std::string sizeOf(const Document& document) {
  if (document.page) return sizeText(*document.page);
  if (document.film && document.film->dimensions) return sizeText(*document.film->dimensions);
  return "";
}

Markup leadLine(const Document& document) {
  Lead lead;
  addProduct(lead, document);
  addJob(lead, document);
  lead.add(value(sizeOf(document)));
  if (document.scalars && document.scalars->nrPages) {
    const int pages = *document.scalars->nrPages;
    lead.add(plain(fmt::format("{} page{}", pages, pages == 1 ? "" : "s")));
  }
  const std::size_t inks = drawnInks(document).size();
  if (inks > 0) lead.add(plain(counted(inks, "ink")));
  return lead.markup().empty() ? Markup{} : element("p", {{"class", "lead"}}, lead.markup());
}

Markup inkChips(const Document& document) {
  constexpr std::size_t kMost = 16;
  const std::vector<DrawnInk> inks = drawnInks(document);
  Markup chips;
  for (std::size_t i = 0; i < inks.size() && i < kMost; ++i) {
    chips += element("li", swatch(inks[i].colour) + plain(" ") + value(inks[i].name));
  }
  if (inks.size() > kMost) {
    chips += element("li", plain(fmt::format("and {} more", inks.size() - kMost)));
  }
  if (chips.empty()) return {};
  return element("ul", {{"class", "chips"}, {"aria-label", "Inks"}}, chips);
}

Markup factsPart(const Document& document, Place& place) {
  Markup cards = recordCard("document", "Document", document.document, place) +
                 recordCard("job", "Job", document.job, place) +
                 recordCard("product", "Product", document.product, place) +
                 recordCard("scalars", "Values", document.scalars, place) +
                 recordCard("colorSpace", "Colour space", document.colorSpace, place) +
                 recordCard("version", "Version", document.version, place) +
                 recordCard("baseDocument", "Derived from", document.baseDocument, place) +
                 recordCard("pdfData", "PDF data", document.pdfData, place) +
                 recordCard("mmData", "Media management", document.mmData, place) +
                 packetCard(document, place);
  return place.section("facts", "The document", element("div", {{"class", "cards"}}, cards));
}

}  // namespace vxmeta
