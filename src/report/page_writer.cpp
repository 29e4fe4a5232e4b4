#include "report/page_writer.h"

#include <algorithm>
#include <utility>

#include "platform/text_metrics.h"

namespace tolmer {

PageWriter::PageWriter(Paper paper) {
  pages_.paper = printed::sizeOf(paper);
  pages_.pages.emplace_back();
}

double PageWriter::widthOf(bool isAcross) const {
  return (isAcross ? pages_.paper.height : pages_.paper.width) - 2 * margin;
}

void PageWriter::newPage(bool isAcross) {
  pages_.pages.push_back({.isAcross = isAcross});
  top_ = margin;
}

void PageWriter::require(double height) {
  if (!isFresh() && room() < height) newPage();
}

void PageWriter::separate(double height, bool isAcross) {
  const bool lies = page().isAcross == isAcross;
  if (!lies || (!isFresh() && room() < printed::partGap + height))
    newPage(isAcross);
  else if (!isFresh())
    skip(printed::partGap);
}

void PageWriter::beginPart(const std::string& title, double body, bool isAcross) {
  separate(heightOf(title, printed::heading, widthOf(isAcross)) + printed::headingGap + body,
           isAcross);
  pages_.headings.push_back({title, pages_.pages.size() - 1, top_});
  paragraph(title, printed::heading);
  skip(printed::headingGap);
}

void PageWriter::continuePart(const std::string& line, double body) {
  separate(heightOf(line, printed::small, width()) + printed::headingGap + body, page().isAcross);
  paragraph(line, printed::small);
  skip(printed::headingGap);
}

double PageWriter::heightOf(const std::string& text, const PrintedLook& look, double width) {
  return static_cast<double>(wrapText(look.font(), text, width).size()) * look.line();
}

void PageWriter::paragraph(const std::string& text, const PrintedLook& look, double indent) {
  const double room = width() - indent;
  for (std::string& line : wrapText(look.font(), text, room)) {
    require(look.line());
    put(PrintedText{.x = left() + indent,
                    .baseLine = look.baseLine(top_),
                    .text = std::move(line),
                    .font = look.font(),
                    .colour = look.colour,
                    .room = room});
    skip(look.line());
  }
}

void PageWriter::item(const std::string& text, const PrintedLook& look) {
  constexpr double indent = 12;
  require(look.line());
  put(PrintedText{.x = left(),
                  .baseLine = look.baseLine(top_),
                  .text = "\u2022",
                  .font = look.font(),
                  .colour = look.colour});
  paragraph(text, look, indent);
}

void PageWriter::panel(const std::vector<std::string>& paragraphs, const PrintedLook& look,
                       const printed::PanelColours& colours) {
  constexpr double barWidth = 3;
  constexpr double indent = 10;
  const double inside = width() - 2 * indent;
  std::vector<std::string> lines;
  for (const std::string& text : paragraphs)
    for (std::string& line : wrapText(look.font(), text, inside)) lines.push_back(std::move(line));
  for (std::size_t at = 0; at < lines.size();) {
    require(look.line() + 2 * printed::panelPadding);
    const auto fit = static_cast<std::size_t>((room() - 2 * printed::panelPadding) / look.line());
    const std::size_t end = std::min(lines.size(), at + std::max<std::size_t>(fit, 1));
    const double height = static_cast<double>(end - at) * look.line() + 2 * printed::panelPadding;
    put(PrintedBox{left(), top_, width(), height, colours.ground});
    put(PrintedBox{left(), top_, barWidth, height, colours.bar});
    for (double top = top_ + printed::panelPadding; at < end; ++at, top += look.line())
      put(PrintedText{.x = left() + indent,
                      .baseLine = look.baseLine(top),
                      .text = lines[at],
                      .font = look.font(),
                      .colour = look.colour,
                      .room = inside});
    skip(height);
    if (at < lines.size()) newPage();
  }
}

void PageWriter::numberPages() {
  constexpr const PrintedLook& look = printed::footer;
  constexpr double toTheNumber = 60;
  const std::string whole = std::to_string(pages_.pages.size());
  for (std::size_t i = 0; i < pages_.pages.size(); ++i) {
    PrintedPage& page = pages_.pages[i];
    const double right = pages_.widthOf(page) - margin;
    const double baseLine = pages_.heightOf(page) - margin / 2;
    const std::string number = std::to_string(i + 1) + " / " + whole;
    page.marks.emplace_back(
        PrintedText{right, baseLine, number, look.font(), look.colour, Align::right});
    if (i == 0) continue;
    const double room = right - margin - toTheNumber;
    const auto lines = wrapText(look.font(), pages_.title, room);
    const std::string text = lines.front() + (lines.size() > 1 ? " \u2026" : "");
    page.marks.emplace_back(
        PrintedText{margin, baseLine, text, look.font(), look.colour, Align::left, room});
  }
}

PrintedPages PageWriter::finish(std::string title, std::string author) && {
  pages_.title = std::move(title);
  pages_.author = std::move(author);
  numberPages();
  return std::move(pages_);
}

}  // namespace tolmer
