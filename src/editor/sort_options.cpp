#include "editor/sort_options.h"

#include <algorithm>
#include <string>

#include "editor/dialog_parts.h"

namespace tolmer {
namespace {

constexpr long helpOnSorting = 102;
constexpr int mostOptions = 5;

constexpr Twips gap = pixels(12);
constexpr Twips underTitle = pixels(22);  // where the inside of a frame begins
constexpr Twips pitch = pixels(26);       // from one option to the next
constexpr Twips optionHeight = pixels(23);
constexpr Twips sortByWidth = pixels(250);
constexpr Twips sortOrderWidth = pixels(150);

Rect optionPlace(int index, Twips frameWidth) {
  return {gap, underTitle + static_cast<float>(index) * pitch, frameWidth - 2 * gap, optionHeight};
}

}  // namespace

frmSortOptions::frmSortOptions(Desktop& desktop, DataSheet& sheet)
    : Window(desktop, "frmSortOptions", WindowStyle::dialog, "Sort Options"),
      sheet_(sheet),
      offersList_(sheet.variables() > mostOptions) {
  if (offersList_)
    offerList();
  else
    offerOptions();
  layOut();
  cmdOK.setTip("Sort the rows");
  cmdCancel.setTip("Exit without sorting");
  Activate = [this] { Form_Activate(); };
  cmdOK.Click = [this] { cmdOK_Click(); };
  cmdCancel.Click = [this] { hide(); };
  cmdHelp.Click = [this] { showEditorHelp(this->desktop(), helpOnSorting); };
  centreOnScreen();
}

void frmSortOptions::offerOptions() {
  lblSortVbl.setVisible(false);
  cmboSortVbl.setVisible(false);
  optSortByLabel.setCaption(asCaption(columnName(sheet_, 0)));
  optSortByLabel.setPlace(optionPlace(0, sortByWidth));
  optSortByLabel.Click = [this] { miSortCol_ = 0; };
  for (int i = 1; i <= sheet_.variables(); ++i) {
    OptionButton& option = optSortBy.load();
    option.setCaption(asCaption(columnName(sheet_, i)));
    option.setPlace(optionPlace(i, sortByWidth));
    option.Click = [this, i] { miSortCol_ = static_cast<Int16>(i); };
    option.setVisible(true);
  }
}

void frmSortOptions::offerList() {
  optSortByLabel.setVisible(false);
  lblSortVbl.setPlace({gap, underTitle, sortByWidth - 2 * gap, pixels(20)});
  cmboSortVbl.setPlace({gap, lblSortVbl.bottom(), sortByWidth - 2 * gap, pixels(28)});
  for (int i = 0; i <= sheet_.variables(); ++i) cmboSortVbl.addItem(columnName(sheet_, i));
  cmboSortVbl.Click = [this] { miSortCol_ = static_cast<Int16>(cmboSortVbl.listIndex()); };
}

void frmSortOptions::layOut() {
  const int rows = offersList_ ? 2 : std::max(sheet_.variables() + 1, 2);
  const Twips frameHeight = underTitle + static_cast<float>(rows) * pitch + pixels(8);
  const Twips top = dialogMargin + pixels(28);
  setPlace({0, 0, sortByWidth + sortOrderWidth + gap + 2 * dialogMargin,
            top + frameHeight + commandHeight + 2 * dialogMargin});
  lblInstructions.setPlace({dialogMargin, dialogMargin, width() - 2 * dialogMargin, pixels(20)});
  fraSortBy.setPlace({dialogMargin, top, sortByWidth, frameHeight});
  fraSortOrder.setPlace({fraSortBy.right() + gap, top, sortOrderWidth, frameHeight});
  optAscending.setPlace(optionPlace(0, sortOrderWidth));
  optDescending.setPlace(optionPlace(1, sortOrderWidth));
  optAscending.setValue(true);
  placeCommands({&cmdOK, &cmdCancel, &cmdHelp}, width() - dialogMargin,
                height() - dialogMargin - commandHeight);
}

void frmSortOptions::Form_Activate() {
  miSortCol_ = 0;
  if (offersList_) {
    cmboSortVbl.setListIndex(0);
    cmboSortVbl.setFocus();
  } else {
    optSortByLabel.setValue(true);
    optSortByLabel.setFocus();
  }
}

void frmSortOptions::cmdOK_Click() {
  if (!agreesToValues()) return;
  sheet_.sort(miSortCol_, optAscending.value());
  hide();
}

// A formula that looks at other rows would look at other cases after the sort. Its present number
// belongs to its case and goes with it.
bool frmSortOptions::agreesToValues() {
  const int formulas = sheet_.orderDependentFormulas();
  if (formulas == 0) return true;
  const std::string subject =
      formulas == 1 ? "One formula depends" : std::to_string(formulas) + " formulas depend";
  const MessageBox box{
      .title = "Sort",
      .text = subject + " on the order of the rows. Sorting replaces " +
              (formulas == 1 ? "it by its present number" : "them by their present numbers") +
              "; Undo brings " + (formulas == 1 ? "it" : "them") + " back. Do you want to sort?",
      .icon = MessageIcon::question,
      .buttons = MessageButtons::okCancel};
  return desktop().messageBox(box) == Answer::ok;
}

}  // namespace tolmer
