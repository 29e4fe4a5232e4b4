// The closed book: a board with spine, name and picture, and room for a message below.
#pragma once

#include <functional>
#include <string>

#include "platform/image.h"
#include "platform/label.h"
#include "platform/panel.h"

namespace tolmer {

// Stands on a bare window of its own size.
class CoverBoard {
 public:
  // The picture is a file of the program's folder (without a final backslash).
  CoverBoard(Container& window, const std::string& programFolder);

  static constexpr Size size{pixels(480), pixels(372)};
  // Of a message, on `pnlCover`.
  static constexpr Rect messagePlace{pixels(48), pixels(286), pixels(400), pixels(62)};

  // Wherever the user clicks on the board.
  void onClick(const std::function<void()>& clicked);

  Panel pnlCover;
  Panel pnlSpine;
  Label lblCoverTitle;
  Image imgCoverBackground;
};

}  // namespace tolmer
