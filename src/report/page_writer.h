// Sheets of paper that are filled from the top down.
#pragma once

#include <string>
#include <vector>

#include "platform/paper/printed_pages.h"
#include "tables/html_writer.h"

namespace tolmer {

// How letters of a text look on paper, sizes in points.
struct PrintedLook {
  float size = 10;
  bool isBold = false;
  Colour colour = Colour::rgb(0x22, 0x22, 0x22);
  double lineSpacing = 1.4;  // in parts of the size

  Font font() const { return {FontFamily::interface, size, isBold}; }
  double line() const { return size * lineSpacing; }
  // Of letters in the middle of a line that begins at `top`.
  double baseLine(double top) const { return top + line() / 2 + size * capHeight / 2; }
  static constexpr double capHeight = 0.714;  // of Noto Sans
};

namespace printed {
inline constexpr Colour quietInk = Colour::rgb(0x55, 0x55, 0x55);
inline constexpr PrintedLook body{};
inline constexpr PrintedLook title{.size = 17, .isBold = true, .lineSpacing = 1.3};
inline constexpr PrintedLook heading{.size = 12, .isBold = true};
inline constexpr PrintedLook subheading{.size = 9.5F, .isBold = true};
inline constexpr PrintedLook small{.size = 9, .lineSpacing = 1.35};
}  // namespace printed

// Lengths are points. What is written stands below what was written before; where it does not fit
// on the page it goes to a new one.
class PageWriter {
 public:
  explicit PageWriter(Paper paper);

  double left() const { return margin; }
  double width() const { return widthOf(page().isAcross); }
  double widthOf(bool isAcross) const;
  double top() const { return top_; }
  double room() const { return bottom() - top_; }                        // below
  double wholeRoom() const { return pages_.paper.height - 2 * margin; }  // of an upright page

  void newPage() { newPage(page().isAcross); }
  void newPage(bool isAcross);
  // A new page where less than that is left.
  void require(double height);
  void skip(double height) { top_ += height; }
  void put(PrintedMark mark) { page().marks.push_back(std::move(mark)); }

  // Begins a display, which has a bookmark: on a new page where heading and `body` points below it
  // do not fit on this one, or where this one lies otherwise.
  void beginPart(const std::string& title, double body, bool isAcross = false);
  // The same with a line in place of the heading, and no bookmark.
  void continuePart(const std::string& line, double body);

  static double heightOf(const std::string& text, const PrintedLook& look, double width);
  // Lines of a text; they may go on on the next page.
  void paragraph(const std::string& text, const PrintedLook& look, double indent = 0);
  void item(const std::string& text, const PrintedLook& look);
  // On a ground of their own with a bar at its left.
  void panel(const std::vector<std::string>& paragraphs, const PrintedLook& look, Colour ground,
             Colour bar);

  // The pages, numbered, with the title at the foot of all but the first.
  PrintedPages finish(std::string title, std::string author) &&;

 private:
  static constexpr double margin = 45;  // 16 mm

  PrintedPage& page() { return pages_.pages.back(); }
  const PrintedPage& page() const { return pages_.pages.back(); }
  double bottom() const { return pages_.heightOf(page()) - margin; }
  bool isFresh() const { return top_ <= margin; }
  void separate(double height, bool isAcross);
  void numberPages();

  PrintedPages pages_;
  double top_ = margin;
};

}  // namespace tolmer
