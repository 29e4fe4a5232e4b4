#include "editor/find_dialog.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "editor/dialog_parts.h"

namespace tolmer {
namespace {

constexpr long helpOnFinding = 106;
constexpr Twips gap = pixels(8);
constexpr Twips rowHeight = pixels(26);
constexpr Twips labelWidth = pixels(96);
constexpr Twips boxWidth = pixels(270);
constexpr Twips buttonWidth = pixels(112);

std::string cells(int number) {
  return number == 1 ? std::string("One cell") : std::to_string(number) + " cells";
}

}  // namespace

frmFind::frmFind(Desktop& desktop, DataSheet& sheet, FindRequest& request, CellAddress from,
                 std::function<void(CellAddress)> show)
    : Window(desktop, "frmFind", WindowStyle::dialog, "Find and Replace"),
      sheet_(sheet),
      request_(request),
      at_(from),
      show_(std::move(show)) {
  txtFind.setText(request.words.text);
  txtReplace.setText(request.by);
  chkCase.setValue(request.words.matchCase ? 1 : 0);
  chkWhole.setValue(request.words.wholeCell ? 1 : 0);
  lblFind.setUsesMnemonic(true);
  lblReplace.setUsesMnemonic(true);
  lblFound.setWordWrap(true);
  wire();
  layOut();
}

void frmFind::wire() {
  cmdFindNext.Click = [this] { find(true); };
  cmdFindPrevious.Click = [this] { find(false); };
  cmdReplace.Click = [this] { cmdReplace_Click(); };
  cmdReplaceAll.Click = [this] { cmdReplaceAll_Click(); };
  cmdClose.Click = [this] { hide(); };
  cmdHelp.Click = [this] { showEditorHelp(desktop(), helpOnFinding); };
  cmdFindNext.setDefault(true);
  cmdClose.setCancel(true);
  cmdFindNext.setTip("Go to the next cell with the text");
  cmdFindPrevious.setTip("Go to the cell with the text before this one");
  cmdReplace.setTip("Replace the text in the cell that was found, and find the next");
  cmdReplaceAll.setTip("Replace the text in all cells");
  txtFind.setAccessibleName("Find what");
  txtReplace.setAccessibleName("Replace with");
  Activate = [this] {
    txtFind.setFocus();
    txtFind.selectAll();
  };
  for (TextBox* box : {&txtFind, &txtReplace}) box->Changed = [this] { tell({}); };
}

void frmFind::startAtReplace() {
  Activate = [this] {
    txtReplace.setFocus();
    txtReplace.selectAll();
  };
}

// In the lower right corner of the screen: data fill a sheet from the upper left.
void frmFind::layOut() {
  const Twips boxLeft = dialogMargin + labelWidth;
  const Twips buttonLeft = boxLeft + boxWidth + 2 * gap;
  const Twips width = buttonLeft + buttonWidth + dialogMargin;
  Twips top = dialogMargin;
  for (Button* button :
       {&cmdFindNext, &cmdFindPrevious, &cmdReplace, &cmdReplaceAll, &cmdClose, &cmdHelp}) {
    button->setPlace({buttonLeft, top, buttonWidth, commandHeight});
    top += commandHeight + gap * 3 / 4;
  }
  const Twips height = cmdHelp.bottom() + dialogMargin;
  lblFind.setPlace({dialogMargin, dialogMargin, labelWidth, rowHeight});
  txtFind.setPlace({boxLeft, dialogMargin, boxWidth, rowHeight});
  lblReplace.setPlace({dialogMargin, txtFind.bottom() + gap, labelWidth, rowHeight});
  txtReplace.setPlace({boxLeft, lblReplace.top(), boxWidth, rowHeight});
  chkCase.setPlace({boxLeft, txtReplace.bottom() + gap, boxWidth, rowHeight});
  chkWhole.setPlace({boxLeft, chkCase.bottom(), boxWidth, rowHeight});
  const Twips foundTop = chkWhole.bottom() + gap;
  lblFound.setPlace(
      {dialogMargin, foundTop, buttonLeft - gap - dialogMargin, height - dialogMargin - foundTop});
  const Size screen = desktop().screenSize();
  setPlace({std::max(screen.width - width - pixels(24), 0.0F),
            std::max(screen.height - height - pixels(56), 0.0F), width, height});
}

void frmFind::takeRequest() {
  request_ = {{.text = txtFind.text(),
               .matchCase = chkCase.value() == 1,
               .wholeCell = chkWhole.value() == 1},
              txtReplace.text()};
}

void frmFind::tell(std::string text, bool isTrouble) {
  lblFound.setForeColour(isTrouble ? refusalText : colours::buttonText);
  lblFound.setCaption(std::move(text));
  if (isTrouble) desktop().beep();
}

// From the last cell on to the first one, and back again.
void frmFind::find(bool forward) {
  takeRequest();
  const std::vector<CellAddress> all = foundCells(request_.words, sheet_.content());
  found_ = !all.empty();
  if (request_.words.text.empty()) return tell("Type what is to be found.", true);
  if (all.empty()) return tell("\"" + request_.words.text + "\" is in no cell.", true);
  auto place = forward ? std::ranges::upper_bound(all, at_) : std::ranges::lower_bound(all, at_);
  if (forward && place == all.end())
    place = all.begin();
  else if (!forward)
    place = (place == all.begin() ? all.end() : place) - 1;
  showFound(*place, static_cast<int>(place - all.begin()) + 1, static_cast<int>(all.size()));
}

void frmFind::showFound(CellAddress at, int number, int count) {
  at_ = at;
  show_(at);
  tell(std::to_string(number) + " of " + std::to_string(count) + ":  " + describedCell(sheet_, at));
}

void frmFind::cmdReplace_Click() {
  takeRequest();
  if (!found_ || !isFound(request_.words, sheet_.cell(at_.row, at_.column))) return find(true);
  const ReplaceOutcome outcome = sheet_.replace(request_.words, request_.by, {&at_, 1});
  if (outcome.refused > 0) return tell("The cell was not changed. " + outcome.reason, true);
  const bool anyLeft = !foundCells(request_.words, sheet_.content()).empty();
  anyLeft ? find(true) : tell("Replaced. There is no other.");
}

void frmFind::cmdReplaceAll_Click() {
  takeRequest();
  if (request_.words.text.empty()) return tell("Type what is to be found.", true);
  const ReplaceOutcome outcome =
      sheet_.replace(request_.words, request_.by, foundCells(request_.words, sheet_.content()));
  found_ = false;
  if (outcome.cells + outcome.refused == 0)
    return tell("\"" + request_.words.text + "\" is in no cell.", true);
  std::string text = cells(outcome.cells) + (outcome.cells == 1 ? " was" : " were") + " changed.";
  if (outcome.refused == 0) return tell(std::move(text));
  at_ = outcome.refusedAt;
  show_(at_);
  tell(text + " " + cells(outcome.refused) +
           (outcome.refused == 1 ? " was not, " : " were not, first ") +
           placeText({{at_, at_}}, sheet_.variables()) + ": " + outcome.reason,
       true);
}

}  // namespace tolmer
