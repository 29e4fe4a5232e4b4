// Sheets of paper that are filled from the top down.
#pragma once

#include <string>
#include <vector>

#include "report/page_setup.h"

namespace tolmer {

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
  void panel(const std::vector<std::string>& paragraphs, const PrintedLook& look,
             const printed::PanelColours& colours);

  // The pages, numbered, with the title at the foot of all but the first.
  PrintedPages finish(std::string title, std::string author) &&;

 private:
  static constexpr double margin = printed::margin;

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
