#include "report/printed_report.h"

#include <algorithm>
#include <memory>
#include <string>

#include "displays/case_words.h"
#include "platform/text_metrics.h"
#include "report/page_writer.h"
#include "report/printed_table.h"

namespace tolmer {
namespace {

void printFacts(PageWriter& pages, const std::vector<ReportFact>& facts) {
  constexpr double nameWidth = 130;
  const PrintedLook& look = printed::body;
  for (const ReportFact& fact : facts) {
    const double room = pages.width() - nameWidth;
    pages.require(std::min(PageWriter::heightOf(fact.value, look, room), pages.wholeRoom()));
    pages.put(PrintedText{.x = pages.left(),
                          .baseLine = look.baseLine(pages.top()),
                          .text = fact.name,
                          .font = look.font(),
                          .colour = printed::quietInk});
    pages.paragraph(fact.value, look, nameWidth);
  }
}

void printHead(PageWriter& pages, const ReportDocument& document) {
  pages.paragraph(document.title, printed::title);
  pages.skip(printed::gap);
  printFacts(pages, document.facts);
  for (const std::string& line : document.remarks) {
    if (line.empty()) continue;
    pages.skip(printed::gap);
    pages.paragraph(line, printed::body);
  }
}

void printMessages(PageWriter& pages, const std::vector<std::string>& texts) {
  if (texts.empty()) return;
  pages.beginPart("Messages", 3 * printed::body.line());
  pages.panel(texts, printed::body, printed::ofMessages);
}

struct PartPrinter {
  PageWriter& pages;
  const std::string& title;
  const ReportDocument& document;

  void operator()(const FittedEquation& equation) const {
    const PrintedLook& look = printed::equation;
    const double height = PageWriter::heightOf(equation.text, look, pages.widthOf(false) - 20);
    pages.beginPart(title, std::min(height + 2 * printed::gap, pages.wholeRoom() / 2));
    pages.panel({equation.text}, look, printed::ofEquation);
    if (equation.notes.empty()) return;
    pages.skip(printed::gap);
    pages.require(3 * printed::body.line());
    pages.paragraph("Notes", printed::subheading);
    for (const std::string& note : equation.notes) pages.item(note, printed::body);
  }

  void operator()(const TableContent& table) const { printTable(pages, table, title); }

  // The sentence that tells the graph stands below it, for everybody.
  void operator()(const GraphContent& graph) const {
    const Picture picture = pictureWith(*document.state, graph, document.selectedCases);
    const double words =
        PageWriter::heightOf(graph.description, printed::small, pages.widthOf(false));
    const double height = heightOf(picture.size);
    pages.beginPart(title, height + printed::gap + words);
    if (height > 0) {
      const double width = height * picture.size.width / picture.size.height;
      pages.put(PrintedPicture{pages.left(), pages.top(), width,
                               std::make_shared<const Picture>(picture)});
      pages.skip(height + printed::gap);
    }
    pages.paragraph(graph.description, printed::small);
  }

  // As wide as the page, unless two of them, with their words, were then too high for one.
  double heightOf(const ViewSize& picture) const {
    constexpr double besides = 85;
    if (picture.width <= 0) return 0;
    const double whole = picture.height * pages.widthOf(false) / picture.width;
    return std::min(whole, pages.wholeRoom() / 2 - besides);
  }

  void operator()(const Sections& sections) const {
    const auto together = [this](const Section& section) {
      const double text = PageWriter::heightOf(section.text, printed::body, pages.widthOf(false));
      return std::min(printed::subheading.line() + text, pages.wholeRoom() / 3);
    };
    pages.beginPart(title, sections.empty() ? 0 : together(sections.front()));
    for (const Section& section : sections) {
      pages.require(together(section));
      pages.paragraph(section.heading, printed::subheading);
      pages.paragraph(section.text, printed::body);
      pages.skip(printed::gap);
    }
  }
};

std::string authorOf(const ReportDocument& document) {
  const auto found = std::ranges::find(document.facts, "Author", &ReportFact::name);
  return found == document.facts.end() ? std::string() : found->value;
}

}  // namespace

PrintedPages printedReport(const ReportDocument& document) {
  PageWriter pages(document.paper);
  printHead(pages, document);
  printMessages(pages, messageTexts(document));
  for (const ReportedPart& shown : document.parts)
    std::visit(PartPrinter{pages, shown.title, document}, shown.content);
  return std::move(pages).finish(document.title, authorOf(document));
}

}  // namespace tolmer
