#include "notebook/cover_board.h"

#include "base/paths.h"
#include "notebook/book_look.h"

namespace tolmer {
namespace {

constexpr Colour cream = Colour::rgb(251, 248, 241);
constexpr Colour edge = Colour::rgb(176, 176, 176);
constexpr Colour spine = Colour::rgb(26, 79, 224);  // the blue of the points in all pictures
constexpr Twips edgeWidth = pixels(1);
constexpr Twips spineWidth = pixels(16);
constexpr Size board{CoverBoard::size.width - 2 * edgeWidth,
                     CoverBoard::size.height - 2 * edgeWidth};
constexpr Size picture{pixels(400), pixels(210)};
constexpr Twips left = CoverBoard::messagePlace.left;

}  // namespace

CoverBoard::CoverBoard(Container& window, const std::string& programFolder)
    : pnlCover(&window, "pnlCover"),
      pnlSpine(&pnlCover, "pnlSpine"),
      lblCoverTitle(&pnlCover, "lblCoverTitle", "Zelmar"),
      imgCoverBackground(&pnlCover, "imgCoverBackground") {
  window.setBackColour(edge);
  pnlCover.setPlace({edgeWidth, edgeWidth, board.width, board.height});
  pnlCover.setBackColour(cream);
  pnlSpine.setPlace({0, 0, spineWidth, board.height});
  pnlSpine.setBackColour(spine);
  lblCoverTitle.setPlace({left, pixels(20), picture.width, pixels(40)});
  lblCoverTitle.setFont(book_look::coverHeadingFont);
  lblCoverTitle.setForeColour(book_look::headingInk);
  lblCoverTitle.setBackColour(cream);
  imgCoverBackground.setPlace({left, pixels(64), picture.width, picture.height});
  imgCoverBackground.setFile(hostPath(programFolder + "\\cover.svg"));
}

void CoverBoard::onClick(const std::function<void()>& clicked) {
  pnlCover.Click = clicked;
  pnlSpine.Click = clicked;
  lblCoverTitle.Click = clicked;
  imgCoverBackground.Click = clicked;
}

}  // namespace tolmer
