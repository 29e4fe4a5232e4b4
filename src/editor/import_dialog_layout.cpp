// Places of the import dialog's controls: the preview takes the room that the others leave.
#include <algorithm>

#include "editor/dialog_parts.h"
#include "editor/import_dialog.h"
#include "platform/grid/grid_fit.h"
#include "platform/text_metrics.h"

namespace tolmer {
namespace {

constexpr Twips firstWidth = pixels(780);
constexpr Twips answerWidth = pixels(270);
constexpr Twips lineOfText = pixels(20);
constexpr Twips leastGrid = pixels(106);  // names, two rows, a scroll bar
constexpr Twips usualGrid = pixels(232);
constexpr Twips gap = pixels(8);
constexpr Twips titleBar = pixels(40);  // of the window, on the screen

Twips textHeight(const Label& label, Twips width) {
  if (label.caption().empty()) return 0;
  return pixels(static_cast<float>(wrappedHeight(label.font(), label.caption(),
                                                 static_cast<double>(width / twipsPerPixel)))) +
         pixels(2);
}

}  // namespace

void frmTextImport::Form_Resize() {
  const Twips inside = std::max(innerWidth() - 2 * dialogMargin, pixels(400));
  const Twips others = heightOfAllButGrid();
  const Twips gridHeight = std::max(innerHeight() - others, leastGrid);
  lblPreview.setPlace({dialogMargin, gap, inside, lineOfText});
  spdPreview.setPlace({dialogMargin, lblPreview.bottom(), inside, gridHeight});
  spdPreview.setScrollBars(neededScrollBars(spdPreview.contentSize(), {inside, gridHeight},
                                            desktop().scrollBarThickness()));
  Twips top = spdPreview.bottom() + gap;
  picQuestions.setPlace({dialogMargin, top, inside, picQuestions.height()});
  top = picQuestions.bottom();
  lblNotes.setPlace({dialogMargin, top, inside, lblNotes.height()});
  top = lblNotes.bottom() + gap;
  placeCommands({&cmdOK, &cmdCancel}, dialogMargin + inside, top);
  lblState.setPlace({dialogMargin, top + pixels(5), cmdOK.left() - gap - dialogMargin,
                     2 * lineOfText - pixels(5)});
}

// With the heights of questions and notes at the present width.
Twips frmTextImport::heightOfAllButGrid() {
  const Twips inside = std::max(innerWidth() - 2 * dialogMargin, pixels(400));
  picQuestions.setWidth(inside);
  picQuestions.setHeight(placeQuestions());
  picQuestions.setVisible(picQuestions.height() > 0);
  lblNotes.setVisible(!lblNotes.caption().empty());
  lblNotes.setHeight(textHeight(lblNotes, inside));
  return gap + lineOfText + gap + picQuestions.height() + lblNotes.height() + gap + 2 * lineOfText +
         gap;
}

// Question left, answer right; the height of them all.
Twips frmTextImport::placeQuestions() {
  constexpr Twips answerHeight = pixels(26);
  const Twips answerLeft = picQuestions.width() - answerWidth;
  const Twips questionWidth = answerLeft - gap;
  Twips top = 0;
  for (int i = lblQuestion.first(); i <= lblQuestion.last(); ++i) {
    if (!lblQuestion(i).visible()) continue;
    const Twips text = textHeight(lblQuestion(i), questionWidth);
    const Twips height = std::max(text, answerHeight);
    lblQuestion(i).setPlace({0, top + (height - text) / 2, questionWidth, text});
    cmboAnswer(i).setPlace(
        {answerLeft, top + (height - answerHeight) / 2, answerWidth, answerHeight});
    top += height + gap / 2;
  }
  return top > 0 ? top + gap / 2 : 0;
}

// A window that the user has made larger stays so; one too small for a new question grows, as far
// as the screen goes.
void frmTextImport::growToContent() {
  const bool isNew = innerWidth() <= 0;
  if (isNew) setPlace({0, 0, firstWidth, usualGrid});
  const Size screen = desktop().screenSize();
  const Twips grid = spdPreview.contentSize().height + desktop().scrollBarThickness();
  const Twips needed =
      heightOfAllButGrid() + (isNew ? std::clamp(grid, leastGrid, usualGrid) : leastGrid);
  const Twips wanted = std::min(needed, screen.height - titleBar);
  if (state() == WindowState::normal && innerHeight() < wanted) {
    const Twips highest = std::max(screen.height - titleBar - wanted, 0.0F);
    setPlace({left(), std::min(top(), highest), innerWidth(), wanted});
  }
  Form_Resize();
}

}  // namespace tolmer
