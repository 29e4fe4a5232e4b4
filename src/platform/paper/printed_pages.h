// A document as it lies on paper: what becomes a PDF, and what is printed.
//
// Lengths are points (1/72 inch) from the upper left corner of a page, y downward; so are the sizes
// of letters.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <variant>
#include <vector>

#include "platform/graph/picture.h"
#include "platform/look.h"

namespace tolmer {

struct PrintedText {
  double x = 0;  // of its left end, its middle or its right end, as `align` says
  double baseLine = 0;
  std::string text{};
  Font font{};
  Colour colour = colours::black;
  Align align = Align::left;
  double room =
      0;  // letters that the tables of widths do not know are narrowed to it; 0: they run on
};

struct PrintedBox {
  double left = 0;
  double top = 0;
  double width = 0;
  double height = 0;
  Colour fill{};
};

// Its view units are scaled so that it has that width.
struct PrintedPicture {
  double left = 0;
  double top = 0;
  double width = 0;
  std::shared_ptr<const Picture> picture{};
};

using PrintedMark = std::variant<PrintedBox, PrintedText, PrintedPicture>;

struct PrintedPage {
  bool isAcross = false;  // the paper's longer side lies level
  std::vector<PrintedMark> marks{};
};

struct PrintedHeading {
  std::string title;
  std::size_t page = 0;  // from 0
  double top = 0;
};

struct PaperSize {
  double width = 0;  // the shorter side
  double height = 0;
};

struct PrintedPages {
  std::string title;
  std::string author;
  PaperSize paper;
  std::vector<PrintedPage> pages;
  std::vector<PrintedHeading> headings;  // in their order

  double heightOf(const PrintedPage& page) const {
    return page.isAcross ? paper.width : paper.height;
  }
  double widthOf(const PrintedPage& page) const {
    return page.isAcross ? paper.height : paper.width;
  }
};

}  // namespace tolmer
