#include "shell/case_window.h"

#include <algorithm>

#include "displaywindows/table_window.h"
#include "platform/desktop.h"
#include "platform/grid/grid_fit.h"

namespace tolmer {
namespace {

constexpr Twips margin = pixels(16);
constexpr Twips gap = pixels(10);
constexpr Twips windowWidth = pixels(560);
constexpr Twips inside = windowWidth - 2 * margin;
constexpr Twips lineHeight = pixels(22);
constexpr Twips buttonHeight = pixels(30);
constexpr Twips buttonWidth = pixels(90);
constexpr Twips mostOfValues = pixels(290);
constexpr Twips mostOfWithout = pixels(190);

constexpr const char* howToSelect =
    "No case is selected. Click a point, a bar or a row of a list to select its cases; a click "
    "with "
    "Ctrl adds to them, a drag over a plot takes all inside, Escape lets go. With the keyboard: "
    "the "
    "arrow keys in a graph or a list, or First and Next here.";

void fill(Grid& grid, const TableContent& table) {
  const RedrawLock lock(grid);
  grid.setSheet(gridSheet(table));
  grid.freeze(1, table.cols() > 0 ? table.fixedColumns : 0);
  grid.setScrollBars(ScrollBars::none);
  fitToTexts(grid, lowestTableRow);
}

}  // namespace

frmCase::frmCase(Desktop& desktop) : Window(desktop, "frmCase", WindowStyle::dialog, "Case") {
  designLooks();
  wireEvents();
  optSelected.setValue(true);
  setNoCases();
}

void frmCase::designLooks() {
  const Font bold{FontFamily::interface, 12, true};
  for (Label* title : {&lblCases, &lblWithout, &lblSpreadTitle, &lblLeveragesTitle})
    title->setFont(bold);
  for (Label* text : {&lblHow, &lblSentences, &lblSpread, &lblLeverages}) text->setWordWrap(true);
  lblWithout.setCaption("Without");
  lblFarthest.setIsLink(true);
  spdValues.setSelectionMode(SelectionMode::none);
  spdValues.setAccessibleName("Numbers of the selected cases");
  spdWithout.setSelectionMode(SelectionMode::none);
  spdWithout.setAccessibleName("Coefficients with and without the selected cases");
  cmdNone.setAccessibleDescription("Lets the selection go");
  cmdClose.setCancel(true);
}

void frmCase::wireEvents() {
  const auto wire = [this](Button& button, Step what) {
    button.Click = [this, what] { raise(step, what); };
  };
  wire(cmdFirst, Step::first);
  wire(cmdPrevious, Step::previous);
  wire(cmdNext, Step::next);
  wire(cmdNone, Step::none);
  for (OptionButton* option : {&optSelected, &optAll}) option->Click = [this] { placeAll(); };
  lblFarthest.Click = [this] { raise(selectFarthest); };
  chkCopies.Click = [this] { raise(showInCopies, chkCopies.value() == 1); };
  cmdClose.Click = [this] { hide(); };
}

void frmCase::setCases(const std::string& names, int count, const CaseAccount& account) {
  const UpdateLock lock(*this);
  lblCases.setCaption(names);
  lblHow.setCaption("");
  fill(spdValues, account.values);
  fill(spdWithout, account.without);
  lblWithout.setCaption(count == 1 ? "Without this case" : "Without these cases");
  std::string text;
  for (const std::string& sentence : account.sentences)
    text += (text.empty() ? "" : " ") + sentence;
  lblSentences.setCaption(text);
  placeAll();
}

void frmCase::setNoCases() {
  const UpdateLock lock(*this);
  lblCases.setCaption("No case");
  lblHow.setCaption(howToSelect);
  fill(spdValues, {});
  fill(spdWithout, {});
  lblSentences.setCaption("");
  placeAll();
}

void frmCase::setAllCases(const AllCases& about) {
  const UpdateLock lock(*this);
  lblSpread.setCaption(about.spread);
  lblLeverages.setCaption(about.leverages);
  const bool isOne = about.farthest.size() == 1;
  lblFarthest.setCaption(isOne ? "Select case " + std::to_string(about.farthest.front())
                               : "Select these cases");
  lblFarthest.setVisible(!about.farthest.empty());
  lblLeveragesTitle.setVisible(!about.farthest.empty());
  placeAll();
}

void frmCase::placeAll() {
  const bool bSelected = optSelected.value();
  pnlSelected.setVisible(bSelected);
  pnlAll.setVisible(!bSelected);
  Twips top = margin;
  optSelected.setPlace({margin, top, pixels(140), lineHeight});
  optAll.setPlace({margin + pixels(150), top, pixels(140), lineHeight});
  top += lineHeight + gap;
  lblCases.setPlace({margin, top, inside, lineHeight});
  top += lineHeight + pixels(2);
  Twips left = margin;
  for (Button* button : {&cmdFirst, &cmdPrevious, &cmdNext, &cmdNone}) {
    button->setPlace({left, top, buttonWidth, buttonHeight});
    left += buttonWidth + gap;
  }
  top += buttonHeight + gap;
  Panel& page = bSelected ? pnlSelected : pnlAll;
  page.setPlace({0, top, windowWidth, bSelected ? placeSelected() : placeAllCases()});
  top = page.bottom();
  chkCopies.setPlace({margin, top + pixels(4), inside - 2 * (buttonWidth + gap), lineHeight});
  cmdClose.setPlace({windowWidth - margin - buttonWidth, top, buttonWidth, buttonHeight});
  cmdHelp.setPlace({cmdClose.left() - gap - buttonWidth, top, buttonWidth, buttonHeight});
  setPlace({this->left(), this->top(), windowWidth, cmdClose.bottom() + margin});
}

// In their panel; where it ends.
Twips frmCase::placeSelected() {
  const bool bAny = lblHow.caption().empty();
  const bool bFit = spdWithout.maxRows() > 0;
  lblHow.setVisible(!bAny);
  for (Control* control : {static_cast<Control*>(&spdValues), static_cast<Control*>(&lblWithout),
                           static_cast<Control*>(&lblSentences)})
    control->setVisible(bAny);
  spdWithout.setVisible(bAny && bFit);
  if (!bAny) {
    lblHow.setPlace({margin, 0, inside, lblHow.captionHeight(inside)});
    return lblHow.bottom() + gap;
  }
  Twips top = placeTable(spdValues, 0, mostOfValues);
  lblWithout.setPlace({margin, top, inside, lineHeight});
  lblSentences.setPlace({margin, lblWithout.bottom(), inside, lblSentences.captionHeight(inside)});
  top = lblSentences.bottom() + gap;
  return bFit ? placeTable(spdWithout, top, mostOfWithout) : top;
}

Twips frmCase::placeAllCases() {
  Twips top = 0;
  const auto put = [&top](Label& label, Twips height) {
    label.setPlace({margin, top, inside, height});
    top += height + pixels(2);
  };
  put(lblSpreadTitle, lineHeight);
  put(lblSpread, lblSpread.captionHeight(inside));
  top += gap;
  put(lblLeveragesTitle, lineHeight);
  put(lblLeverages, lblLeverages.captionHeight(inside));
  lblFarthest.setPlace({margin, top, lblFarthest.captionWidth(), lineHeight});
  return lblFarthest.bottom() + gap;
}

// As high as its rows, and no higher than `most`; where the next one begins.
Twips frmCase::placeTable(Grid& grid, Twips top, Twips most) {
  fitToTexts(grid, lowestTableRow);
  const Twips bar = desktop().scrollBarThickness();
  const Size content = grid.contentSize();
  const Twips needed = content.height + (content.width > inside ? bar : 0);
  const Size room{inside, std::min(needed, most)};
  grid.setPlace({margin, top, room.width, room.height});
  fillRoom(grid, room, bar);
  return grid.bottom() + gap;
}

// Over the lower right of the screen at first, then where the user has left it.
void frmCase::open() {
  if (!isPlaced_) {
    const Size screen = desktop().screenSize();
    setPlace({screen.width - windowWidth - pixels(24), pixels(60), windowWidth, height()});
    isPlaced_ = true;
  }
  if (!focus()) cmdNext.setFocus();
  show();
}

}  // namespace tolmer
