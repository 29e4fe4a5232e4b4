#include "report/text_report.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "report/table_text.h"
#include "report/text_layout.h"

namespace tolmer {
namespace {

constexpr int barColumns = 40;
constexpr int decadeColumns = 13;
constexpr int decades = 3;  // of the VIF chart's scale

std::string barLine(const std::string& label, std::size_t width, int eighths,
                    const std::string& figure) {
  return "  " + padded(label, width, Align::right) + " │" + barText(eighths) +
         (eighths > 0 ? " " : "") + figure + "\n";
}

// The longest bar fills the columns.
std::string classBars(const std::vector<PlottedBar>& bars) {
  int largest = 0;
  std::size_t width = 0;
  for (const PlottedBar& bar : bars) {
    largest = std::max(largest, static_cast<int>(bar.length));
    width = std::max({width, terminalWidth(bar.label), terminalWidth(bar.upperLimit)});
  }
  if (largest == 0) return "  No residual lies in a class.\n";
  std::string text;
  for (const PlottedBar& bar : bars) {
    const int count = static_cast<int>(bar.length);
    const int eighths = (count * barColumns * 8 + largest / 2) / largest;
    text += barLine(padded(bar.label, width, Align::right) + " to " +
                        padded(bar.upperLimit, width, Align::right),
                    2 * width + 4, count > 0 ? std::max(eighths, 1) : 0, bar.figure);
  }
  return text;
}

// The scale below bars whose ground line stands in `column`.
std::string logarithmicScale(std::size_t column) {
  std::string line = std::string(column, ' ') + "└";
  std::string labels = std::string(column, ' ') + "1";
  for (const char* label : {"10", "100", "1000"}) {
    for (int i = 1; i < decadeColumns; ++i) line += "─";
    line += "┴";
    column += decadeColumns;
    labels += std::string(column - labels.size(), ' ') + label;
  }
  return line + "\n" + labels + "\n";
}

// As the VIF chart is drawn, on a scale of decades.
std::string inflationBars(const std::vector<PlottedBar>& bars) {
  std::size_t width = 0;
  for (const PlottedBar& bar : bars) width = std::max(width, terminalWidth(bar.label));
  std::string text;
  for (const PlottedBar& bar : bars) {
    const double shown = std::min(double{static_cast<float>(bar.length)}, double{decades});
    text += barLine(bar.label, width, static_cast<int>(std::lround(shown * decadeColumns * 8)),
                    bar.figure);
  }
  return text + logarithmicScale(width + 3);
}

// Graphs that a terminal can show; a single predictor has no bar to show.
std::string barsText(const std::vector<PlottedBar>& bars) {
  if (bars.size() < 2) return {};
  return bars.front().upperLimit.empty() ? inflationBars(bars) : classBars(bars);
}

constexpr std::size_t lineWidth = 78;
constexpr std::size_t indent = 2;

std::string heading(std::string_view text, bool coloured) {
  const std::string line = coloured ? "\x1b[1m" + std::string(text) + "\x1b[0m" : std::string(text);
  return "\n" + line + "\n\n";
}

std::string messagesText(const ReportDocument& document) {
  std::string text;
  for (const std::string& message : messageTexts(document))
    text += wrapped("! " + message, lineWidth, 0) + "\n";
  return text;
}

// What stands below the heading of a display.
struct ShownText {
  bool coloured;

  std::string operator()(const FittedEquation& equation) const {
    std::string text = wrapped(equation.text, lineWidth, indent) + "\n";
    if (!equation.notes.empty()) text += "\n";
    for (const std::string& note : equation.notes)
      text += wrapped("- " + note, lineWidth, indent) + "\n";
    return text;
  }

  std::string operator()(const TableContent& table) const {
    return tableText(table, lineWidth, coloured);
  }

  std::string operator()(const GraphContent& graph) const {
    const std::string bars = barsText(graph.bars);
    return wrapped(graph.description, lineWidth, indent) + "\n" + (bars.empty() ? "" : "\n" + bars);
  }

  std::string operator()(const Sections& sections) const {
    std::string text;
    for (const Section& section : sections)
      text += (text.empty() ? "" : "\n") + wrapped(section.heading, lineWidth, indent) + "\n" +
              wrapped(section.text, lineWidth, indent) + "\n";
    return text;
  }
};

std::string headText(const ReportDocument& document) {
  std::string text = wrapped(document.title, lineWidth, 0) + "\n\n";
  for (const ReportFact& fact : document.facts)
    text += wrapped(fact.name + ": " + fact.value, lineWidth, indent) + "\n";
  if (!document.remarks.empty()) text += "\n";
  for (const std::string& line : document.remarks) text += wrapped(line, lineWidth, indent) + "\n";
  return text;
}

}  // namespace

std::string textReport(const ReportDocument& document) {
  const bool coloured = document.isColoured;
  std::string text = messagesText(document);
  if (!text.empty()) text += "\n";
  text += headText(document);
  for (const ReportedPart& shown : document.parts)
    text += heading(shown.title, coloured) + std::visit(ShownText{coloured}, shown.content);
  return text;
}

}  // namespace tolmer
