#include "report/html_report.h"

#include <algorithm>
#include <string>
#include <vector>

#include "base/markup_text.h"
#include "displays/case_words.h"
#include "platform/graph/svg_writer.h"
#include "tables/html_writer.h"

namespace tolmer {
namespace {

// A style sheet without any outside resource, PAPER standing for the size. On paper displays keep
// together and pages break between them; lists longer than a page begin a new one, break between
// rows and repeat their heads; a table too wide for an upright page lies on a landscape one in
// smaller letters. Neither '<' nor '&' may stand here, so that the page is well-formed for readers
// of XML too.
constexpr std::string_view pageStyle = R"(
:root { color-scheme: light; }
body { font: 16px/1.5 "Noto Sans", system-ui, sans-serif; color: #222; background: #fff;
  max-width: 62rem; margin: 2rem auto; padding: 0 1.5rem; }
h1 { font-size: 1.75rem; line-height: 1.25; margin: 0 0 1rem; overflow-wrap: anywhere; }
h2 { font-size: 1.2rem; line-height: 1.3; margin: 0 0 .5rem; text-align: left; }
h3 { font-size: .95rem; letter-spacing: .04em; margin: 1rem 0 .25rem; }
p { margin: 0 0 .75rem; overflow-wrap: anywhere; }
.facts { margin: 0; }
.facts dt { float: left; clear: left; color: #555; }
.facts dd { margin: 0 0 .15rem 12.5em; overflow-wrap: anywhere; }
nav, section, .messages { margin-top: 2.25rem; }
nav ol { columns: 2; margin: 0; padding-left: 1.5rem; }
nav a { color: #1f4e8c; }
.messages { background: #fff3cd; border-left: 4px solid #b58900; padding: .75rem 1rem .1rem; }
.equation { font-size: 1.1rem; background: #f4f6f8; border-left: 4px solid #3465a4;
  padding: .75rem 1rem; overflow-wrap: anywhere; }
.notes { margin: 0; padding-left: 1.25rem; }
.table { overflow-x: auto; margin-bottom: .75rem; }
table { border-collapse: collapse; font-size: .9rem; font-variant-numeric: tabular-nums; }
caption { text-align: left; padding: 0 0 .25rem; }
th, td { padding: .25em .5em; border-bottom: 1px solid #d5d5d5; white-space: nowrap;
  font-weight: normal; text-align: left; }
th { font-weight: 600; }
thead th, .face { background: #ececec; }
thead th, thead td { border-bottom: 2px solid #888; }
.cut th { white-space: normal; overflow-wrap: anywhere; max-width: 20em; }
.right { text-align: right; }
.marked { color: #000; font-weight: 600; }
.figures td { padding-right: 2rem; }
.sign { display: inline-block; width: 0; text-indent: .1em; }
.key, .note { font-size: .9rem; }
.key .sign { width: auto; text-indent: 0; }
.key > span { color: #000; padding: .1rem .6rem; margin-left: .4rem; border: 1px solid #999; }
.unseen { position: absolute; width: 1px; height: 1px; overflow: hidden; clip-path: inset(50%);
  white-space: nowrap; }
figure { margin: 0; }
svg { display: block; max-width: 100%; height: auto; }
.spoken { font-size: .9rem; color: #333; margin: .5rem 0 0; }
@page { size: PAPER; margin: 16mm;
  @bottom-right { content: counter(page) " / " counter(pages); font: 8pt sans-serif; color: #555; } }
@page across { size: PAPER landscape; }
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
  .key, .note { break-before: avoid; }
  table { font-size: 9pt; line-height: 1.25; }
  .across { page: across; }
  .across table, .cut table { font-size: 8pt; }
  .cut table { line-height: 1.2; }
  .cut th, .cut td { padding: .15em .5em; }
  .long { break-before: page; break-inside: auto; page-break-inside: auto; }
  thead { display: table-header-group; }
  th, td, .key > span, .equation, .messages { print-color-adjust: exact;
    -webkit-print-color-adjust: exact; }
}
)";

std::string_view withoutEndBlanks(std::string_view text) {
  return text.substr(0, text.find_last_not_of(' ') + 1);
}

std::string styleFor(Paper paper) {
  constexpr std::string_view word = "PAPER";
  std::string style(pageStyle);
  for (auto at = style.find(word); at != style.npos; at = style.find(word, at))
    style.replace(at, word.size(), paper == Paper::a4 ? "A4" : "letter");
  return style;
}

struct ShownHtml {
  const ReportedPart& shown;
  const ReportDocument& document;

  std::string operator()(const FittedEquation& equation) const {
    std::string html = "<h2>" + markupText(shown.title) + "</h2>\n<p class=\"equation\">" +
                       markupText(equation.text) + "</p>\n";
    if (equation.notes.empty()) return html;
    html += "<h3>Notes</h3>\n<ul class=\"notes\">\n";
    for (const std::string& note : equation.notes) html += "<li>" + markupText(note) + "</li>\n";
    return html + "</ul>\n";
  }

  // The sentence that tells the graph stands below it, for everybody.
  std::string operator()(const GraphContent& graph) const {
    return "<figure>\n<figcaption><h2>" + markupText(shown.title) + "</h2></figcaption>\n" +
           writeSvg(pictureWith(*document.state, graph, document.selectedCases),
                    std::string(captionOf(shown.part)), graph.description) +
           "<p class=\"spoken\">" + markupText(graph.description) + "</p>\n</figure>\n";
  }

  std::string operator()(const TableContent& table) const {
    return tableHtml(table, shown.title, document.paper);
  }

  std::string operator()(const Sections& sections) const {
    std::string html = "<h2>" + markupText(shown.title) + "</h2>\n";
    for (const Section& section : sections)
      html += "<div class=\"prose\">\n<h3>" + markupText(section.heading) + "</h3>\n<p>" +
              markupText(withoutEndBlanks(section.text)) + "</p>\n</div>\n";
    return html;
  }
};

std::string partHtml(const ReportedPart& shown, const ReportDocument& document) {
  return "<section id=\"" + std::string(wordOf(shown.part)) + "\">\n" +
         std::visit(ShownHtml{shown, document}, shown.content) + "</section>\n";
}

std::string contentsHtml(const std::vector<ReportedPart>& parts) {
  std::string html = "<nav aria-label=\"Contents\">\n<h2>Contents</h2>\n<ol>\n";
  for (const ReportedPart& shown : parts)
    html += "<li><a href=\"#" + std::string(wordOf(shown.part)) + "\">" + markupText(shown.title) +
            "</a></li>\n";
  return html + "</ol>\n</nav>\n";
}

std::string factsHtml(const ReportDocument& document) {
  std::string html = "<dl class=\"facts\">\n";
  for (const ReportFact& fact : document.facts)
    html += "<dt>" + markupText(fact.name) + "</dt><dd>" + markupText(fact.value) + "</dd>\n";
  return html + "</dl>\n";
}

std::string remarksHtml(const ReportDocument& document) {
  if (document.remarks.empty()) return {};
  std::string html = "<div class=\"remarks\">\n";
  for (const std::string& line : document.remarks)
    if (!line.empty()) html += "<p>" + markupText(line) + "</p>\n";
  return html + "</div>\n";
}

std::string messagesHtml(const ReportDocument& document) {
  if (document.messages.empty()) return {};
  std::string html = "<div class=\"messages\">\n<h2>Messages</h2>\n";
  for (const std::string& text : messageTexts(document))
    html += "<p>" + markupText(text) + "</p>\n";
  return html + "</div>\n";
}

// Empty elements are closed and every entity is one of XML: the page can be read as XML too.
std::string headHtml(const std::string& title, Paper paper) {
  return "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\"/>\n"
         "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\"/>\n<title>" +
         title + "</title>\n<style>" + styleFor(paper) + "</style>\n</head>\n";
}

}  // namespace

std::string htmlReport(const ReportDocument& document) {
  const std::string title = markupText(document.title);
  std::string html = headHtml(title, document.paper) + "<body>\n<header>\n<h1>" + title +
                     "</h1>\n" + factsHtml(document) + remarksHtml(document) +
                     "</header>\n<main>\n" + messagesHtml(document);
  if (document.parts.size() > 1) html += contentsHtml(document.parts);
  for (const ReportedPart& shown : document.parts) html += partHtml(shown, document);
  return html + "</main>\n</body>\n</html>\n";
}

}  // namespace tolmer
