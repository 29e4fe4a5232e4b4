#include "report/markdown_report.h"

#include <string_view>

#include "base/text_encoding.h"
#include "tables/mark_colours.h"
#include "tables/table_parts.h"

namespace tolmer {
namespace {

// What any of the common dialects reads as markup. CommonMark takes a backslash before punctuation
// as that character.
std::string escaped(std::string_view text) {
  std::string markdown;
  text = text.substr(0, text.find_last_not_of(' ') + 1);
  for (const char c : onOneLine(std::string(text))) {
    if (std::string_view("\\`*_{}[]<>()#|~^$@&!").find(c) != std::string_view::npos)
      markdown += '\\';
    markdown += c;
  }
  return markdown;
}

// A paragraph of its own, whose first letters begin no list, rule or code.
std::string paragraph(std::string_view text) {
  const auto first = text.find_first_not_of(' ');
  if (first == text.npos) return {};
  text.remove_prefix(first);
  const auto digits = text.find_first_not_of("0123456789");
  const bool isNumbered = digits != text.npos && digits > 0 && (text[digits] == '.');
  if (isNumbered)
    return std::string(text.substr(0, digits)) + "\\" + escaped(text.substr(digits)) + "\n\n";
  const bool looksLikeMark = std::string_view("+-=:%").find(text.front()) != text.npos;
  return (looksLikeMark ? "\\" : "") + escaped(text) + "\n\n";
}

std::string heading(int level, std::string_view text) {
  return std::string(static_cast<std::size_t>(level), '#') + " " + escaped(text) + "\n\n";
}

std::string row(const std::vector<std::string>& cells) {
  std::string line = "|";
  for (const std::string& cell : cells) line += (cell.empty() ? "" : " ") + cell + " |";
  return line + "\n";
}

std::string rule(const TableRow& heads) {
  std::string line = "|";
  for (const TableCell& head : heads) line += head.align == Align::right ? " ---: |" : " --- |";
  return line + "\n";
}

struct TableMarkdown {
  const TableParts parts;

  std::string cell(const TableCell& cell) const {
    const std::string_view sign = parts.shownSign(cell);
    return escaped(cell.text) + (sign.empty() ? "" : " " + escaped(sign));
  }

  std::string row(const TableRow& cells) const {
    std::vector<std::string> texts;
    for (const TableCell& cell : cells) texts.push_back(this->cell(cell));
    return tolmer::row(texts);
  }

  // Figures behind their own names have no heads.
  std::string text() const {
    std::string text = row(parts.heads) + rule(parts.heads);
    for (const auto& body : parts.bodies) {
      if (&body != &parts.bodies.front())
        text += "\n" + row(TableRow(parts.heads.size())) + rule(body.front());
      for (const TableRow& cells : body) text += row(cells);
    }
    return text + "\n" + key();
  }

  std::string key() const {
    std::string line;
    for (const TableCell& word : parts.key)
      line += (line.empty() ? "" : ", ") + escaped(signOf(word.mark)) + " " + escaped(word.text);
    if (!line.empty()) line = "Key: " + line + "\n\n";
    for (const std::string& note : parts.notes) line += paragraph(note);
    return line;
  }
};

std::string barsMarkdown(const std::vector<PlottedBar>& bars) {
  if (bars.size() < 2) return {};
  const bool isClass = !bars.front().upperLimit.empty();
  std::string text = row(isClass ? std::vector<std::string>{"From", "To", "Cases"}
                                 : std::vector<std::string>{"Variable", "VIF"});
  text += isClass ? "| ---: | ---: | ---: |\n" : "| --- | ---: |\n";
  for (const PlottedBar& bar : bars) {
    std::vector<std::string> cells = {escaped(bar.label), escaped(bar.figure)};
    if (isClass) cells.insert(cells.begin() + 1, escaped(bar.upperLimit));
    text += row(cells);
  }
  return text + "\n";
}

struct ShownMarkdown {
  std::string operator()(const FittedEquation& equation) const {
    std::string text = paragraph(equation.text);
    for (const std::string& note : equation.notes) text += "- " + escaped(note) + "\n";
    return text + (equation.notes.empty() ? "" : "\n");
  }
  std::string operator()(const TableContent& table) const {
    return table.rows() > 0 ? TableMarkdown{partsOf(table)}.text() : std::string();
  }
  std::string operator()(const GraphContent& graph) const {
    return paragraph(graph.description) + barsMarkdown(graph.bars);
  }
  std::string operator()(const Sections& sections) const {
    std::string text;
    for (const Section& section : sections)
      text += heading(3, section.heading) + paragraph(section.text);
    return text;
  }
};

}  // namespace

std::string markdownReport(const ReportDocument& document) {
  std::string text = heading(1, document.title);
  for (const ReportFact& fact : document.facts)
    text += "- " + escaped(fact.name) + ": " + escaped(fact.value) + "\n";
  text += "\n";
  for (const std::string& line : document.remarks) text += paragraph(line);
  for (const std::string& message : messageTexts(document)) text += "> " + paragraph(message);
  for (const ReportedPart& shown : document.parts)
    text += heading(2, shown.title) + std::visit(ShownMarkdown{}, shown.content);
  return text;
}

}  // namespace tolmer
