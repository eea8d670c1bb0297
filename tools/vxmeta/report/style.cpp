// SPDX-License-Identifier: Apache-2.0
#include "report/style.h"

namespace vxmeta {

const char* const kStyle = R"css(
:root {
  --page: #ffffff; --panel: #f5f6f8; --text: #191c20; --dim: #555d69; --line: #d3d8df;
  --link: #0b57a4; --error: #b3261e; --warning: #8a5300; --note: #3b5a7d;
  --k0: #0b57a4; --k1: #b3261e; --k2: #1b7a3d; --k3: #7b3fa0; --k4: #9a6200; --k5: #0f7580;
}
@media screen and (prefers-color-scheme: dark) {
  :root {
    --page: #14171b; --panel: #1d2127; --text: #e7e9ec; --dim: #a6aeb9; --line: #39414c;
    --link: #8ab8f0; --error: #ff8a80; --warning: #f0b450; --note: #9cc0ea;
    --k0: #7db4f5; --k1: #ff8a80; --k2: #6fd08c; --k3: #cf9df0; --k4: #f0b450; --k5: #6fd3dd;
  }
}
* { box-sizing: border-box; }
html { color-scheme: light dark; }
body { margin: 0; background: var(--page); color: var(--text);
  font: 15px/1.45 system-ui, "Segoe UI", Roboto, "Helvetica Neue", "Liberation Sans", sans-serif; }
main { max-width: 68rem; margin: 0 auto; padding: 1.5rem 1.25rem 4rem; }
main { overflow-wrap: anywhere; }
bdi { white-space: break-spaces; }
h1, h2, h3, h4 { line-height: 1.2; margin: 0; overflow-wrap: anywhere; break-after: avoid; }
h1 { font-size: 1.75rem; }
h2 { font-size: 1.25rem; margin: 2.25rem 0 .75rem; padding-bottom: .3rem;
  border-bottom: 2px solid var(--line); }
h3 { font-size: 1.05rem; margin: 1.5rem 0 .5rem; }
h4 { font-size: 1rem; margin: 1.25rem 0 .5rem; }
article + article, section + article { margin-top: 3rem; border-top: 4px solid var(--line); }
article header h2 { border: 0; margin-bottom: 0; font-size: 1.5rem; }
p { margin: .4rem 0; }
a { color: var(--link); }
small, .note, figcaption, .id { color: var(--dim); font-size: .87rem; }
.lead { font-size: 1.1rem; }
.chips { list-style: none; margin: .75rem 0; padding: 0; display: flex; flex-wrap: wrap;
  gap: .4rem; }
.chips li { background: var(--panel); border: 1px solid var(--line); border-radius: 1rem;
  padding: .15rem .7rem .15rem .35rem; max-width: 100%; }
.swatch { display: inline-block; width: 1.1em; height: 1.1em; border-radius: 3px;
  vertical-align: -.15em; border: 1px solid #808080; margin-right: .25em; }
.swatch.unknown { background: repeating-linear-gradient(45deg, #999 0 2px, #fff 2px 5px); }
.badge { display: inline-block; border: 1px solid var(--dim); border-radius: 3px; color: var(--dim);
  font-size: .78rem; padding: 0 .35em; }
.severity { font-size: .78rem; text-transform: uppercase; letter-spacing: .04em;
  border: 1px solid; border-radius: 3px; padding: 0 .35em; }
.error { color: var(--error); } .warning { color: var(--warning); } .severity.note { color: var(--note); }
.findings, .signs { list-style: none; margin: 0; padding: 0; }
.findings li { border-left: 4px solid var(--line); padding: .1rem 0 .1rem .8rem; margin: .6rem 0;
  break-inside: avoid; }
.findings p { margin: .15rem 0; overflow-wrap: anywhere; }
.hint { color: var(--dim); font-size: .9rem; } .where { margin-right: .3em; font-family: monospace; }
.id::before { content: "["; } .id::after { content: "]"; }
.signs li { margin: .3rem 0; color: var(--text); }
.scroll { overflow-x: auto; margin: .5rem 0; }
table { border-collapse: collapse; min-width: 40%; overflow-wrap: break-word; }
caption { position: absolute; width: 1px; height: 1px; overflow: hidden; clip-path: inset(50%);
  white-space: nowrap; }
th, td { text-align: left; vertical-align: top; padding: .35rem .9rem .35rem 0;
  border-bottom: 1px solid var(--line); font-weight: normal; min-width: 3rem; }
th:last-child, td:last-child { padding-right: 0; }
thead th { color: var(--dim); font-size: .84rem; vertical-align: bottom; white-space: nowrap; }
tbody th { min-width: 9rem; } tbody th.number { min-width: 3rem; }
td bdi, th bdi { display: inline-block; max-width: 28rem; vertical-align: top; }
.number { text-align: right; font-variant-numeric: tabular-nums; white-space: nowrap; }
tr:target, .card:target, dt:target, div:target, section:target { background: var(--panel);
  outline: 2px solid var(--link); outline-offset: 2px; }
.bar { display: inline-block; width: 7rem; height: .8em; margin-right: .4em;
  border: 1px solid var(--dim); background: #ffffff; vertical-align: -.05em; }
.bar span { display: block; height: 100%; }
.share { display: inline-block; min-width: 4.2em; }
details { margin: .4rem 0; } summary { cursor: pointer; color: var(--link); }
.cards { display: grid; grid-template-columns: repeat(auto-fill, minmax(min(19rem, 100%), 1fr));
  gap: .75rem; align-items: start; }
.card { background: var(--panel); border: 1px solid var(--line); border-radius: 6px;
  padding: .6rem .9rem .7rem; break-inside: avoid; margin-bottom: .75rem; }
.cards .card { margin: 0; }
.cardtitle { font-weight: 600; margin: 0 0 .3rem; }
dl { margin: 0; display: grid; grid-template-columns: 8.5rem 1fr; gap: .2rem .6rem; }
dt { color: var(--dim); } dd { margin: 0; overflow-wrap: anywhere; min-width: 0; }
figure { margin: 1rem 0; break-inside: avoid; }
figcaption { max-width: 40rem; margin-top: .3rem; }
.beside, .figures, .sides { display: flex; flex-wrap: wrap; gap: .5rem 2rem; align-items: flex-start; }
.beside figure { margin-top: 0; } .beside div { flex: 1 1 17rem; min-width: 0; }
.beside div div { flex: none; }
.figures figure { margin: .25rem 0 1rem; max-width: 100%; }
svg { max-width: 100%; height: auto; font-size: 12.5px; overflow: visible; display: block; }
svg text { fill: var(--text); } svg .middle { text-anchor: middle; } svg .end { text-anchor: end; }
.sample { display: inline-block; width: 32px; height: 12px; }
.rim { fill: none; stroke: var(--dim); } .tick, .measure { stroke: var(--dim); }
.grid { stroke: var(--line); } .across { stroke: var(--dim); stroke-dasharray: 3 4; opacity: .7; }
.under { stroke: var(--text); stroke-width: 5; } .spoke { stroke-width: 3; }
.spoke:not([stroke]) { stroke: var(--page); }
.close { fill: var(--warning); opacity: .3; }
svg .shared { fill: var(--warning); font-weight: 600; }
.curve { fill: none; stroke-width: 2.2; }
.curve circle { stroke: none; }
.dashed { stroke-dasharray: 7 4; }
.k0 { stroke: var(--k0); } .k0 circle { fill: var(--k0); }
.k1 { stroke: var(--k1); } .k1 circle { fill: var(--k1); }
.k2 { stroke: var(--k2); } .k2 circle { fill: var(--k2); }
.k3 { stroke: var(--k3); } .k3 circle { fill: var(--k3); }
.k4 { stroke: var(--k4); } .k4 circle { fill: var(--k4); }
.k5 { stroke: var(--k5); } .k5 circle { fill: var(--k5); }
.sheet { fill: var(--panel); stroke: var(--text); stroke-width: 1.5; } .back { stroke-dasharray: 6 3; }
.margin { fill: none; stroke: var(--link); stroke-dasharray: 5 3; }
.mark { fill: none; stroke: var(--error); stroke-width: 1.5; }
.cut { stroke: var(--dim); }
.range { stroke: #808080; } .range:not([fill]) { fill: var(--k0); }
@media (max-width: 40rem) {
  main { padding: 1rem .8rem 3rem; }
  h1 { font-size: 1.35rem; }
  .bar { width: 4rem; }
  .scroll table { width: max-content; }
  td { max-width: 20rem; }
  td bdi, th bdi { max-width: 14rem; }
  dl { grid-template-columns: 7rem 1fr; }
}
@media print {
  @page { margin: 14mm; }
  body { font-size: 9.5pt; }
  main { max-width: none; padding: 0; }
  * { print-color-adjust: exact; -webkit-print-color-adjust: exact; }
  a { color: inherit; text-decoration: none; }
  .scroll { overflow: visible; }
  th, td { padding-right: .5rem; min-width: 0; }
  tbody th { min-width: 0; }
  thead { display: table-header-group; } tr { break-inside: avoid; }
  .bar { width: 3rem; }
  td bdi, th bdi { max-width: 13rem; }
  td { max-width: 18rem; }
  .wide { font-size: 8.5pt; } .wide thead th { white-space: normal; }
  .wide td bdi, .wide th bdi { max-width: 6rem; }
  article + article { break-before: page; border: 0; }
}
)css";

}  // namespace vxmeta
