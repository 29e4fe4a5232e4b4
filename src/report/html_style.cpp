#include "report/html_style.h"

namespace tolmer {

// Neither '<' nor '&' may stand here, so that the page is well-formed for readers of XML too.
const std::string_view pageStyle = R"(
:root { color-scheme: light; }
body { font: 16px/1.5 "Noto Sans", system-ui, sans-serif; color: #222; background: #fff;
  max-width: 62rem; margin: 2rem auto; padding: 0 1.5rem; }
h1 { font-size: 1.75rem; line-height: 1.25; margin: 0 0 1rem; }
h2 { font-size: 1.2rem; line-height: 1.3; margin: 0 0 .5rem; text-align: left; }
h3 { font-size: .95rem; letter-spacing: .04em; margin: 1rem 0 .25rem; }
p { margin: 0 0 .75rem; }
.facts { margin: 0; }
.facts dt { float: left; clear: left; color: #555; }
.facts dd { margin: 0 0 .15rem 12.5em; overflow-wrap: anywhere; }
nav, section, .messages { margin-top: 2.25rem; }
nav ol { columns: 2; margin: 0; padding-left: 1.5rem; }
nav a { color: #1f4e8c; }
.messages { background: #fff3cd; border-left: 4px solid #b58900; padding: .75rem 1rem .1rem; }
.equation { font-size: 1.1rem; background: #f4f6f8; border-left: 4px solid #3465a4;
  padding: .75rem 1rem; overflow-wrap: anywhere; }
.table { overflow-x: auto; margin-bottom: .75rem; }
table { border-collapse: collapse; font-size: .9rem; font-variant-numeric: tabular-nums; }
caption { text-align: left; padding: 0 0 .25rem; }
th, td { padding: .25em .5em; border-bottom: 1px solid #d5d5d5; white-space: nowrap;
  font-weight: normal; text-align: left; }
th { font-weight: 600; }
thead th, .face { background: #ececec; }
thead th, thead td { border-bottom: 2px solid #888; }
.right { text-align: right; }
.marked { color: #000; font-weight: 600; }
.figures td { padding-right: 2rem; }
.key { font-size: .9rem; }
.key span { color: #000; padding: .1rem .6rem; margin-left: .4rem; border: 1px solid #999; }
.unseen { position: absolute; width: 1px; height: 1px; overflow: hidden; clip-path: inset(50%);
  white-space: nowrap; }
figure { margin: 0; }
svg { display: block; max-width: 100%; height: auto; }
.spoken { font-size: .9rem; color: #333; margin: .5rem 0 0; }
@page { size: A4; margin: 16mm;
  @bottom-right { content: counter(page) " / " counter(pages); font: 8pt sans-serif; color: #555; } }
@page across { size: A4 landscape; }
@media print {
  body { margin: 0; padding: 0; max-width: none; font-size: 10pt; line-height: 1.4; }
  h1 { font-size: 16pt; }
  h2 { font-size: 12pt; }
  h2, h3, caption { break-after: avoid; }
  nav { display: none; }
  section, .messages { margin-top: 7mm; }
  .equation { font-size: 10.5pt; }
  .prose, .equation, .table, figure, tr { break-inside: avoid; page-break-inside: avoid; }
  .table { overflow: visible; margin-bottom: 3mm; }
  .key { break-before: avoid; }
  table { font-size: 9pt; line-height: 1.25; }
  .across { page: across; }
  .across table, .cut table { font-size: 8pt; }
  .cut table { line-height: 1.2; }
  .cut th, .cut td { padding: .15em .5em; }
  .long { break-before: page; break-inside: auto; page-break-inside: auto; }
  thead { display: table-header-group; }
  th, td, .key span, .equation, .messages { print-color-adjust: exact;
    -webkit-print-color-adjust: exact; }
}
)";

}  // namespace tolmer
