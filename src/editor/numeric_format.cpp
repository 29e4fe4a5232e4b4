#include "editor/numeric_format.h"

#include "base/data_limits.h"
#include "editor/dialog_parts.h"
#include "sheet/new_sheet.h"
#include "sheet/sheet_content.h"

namespace tolmer {
namespace {

constexpr long helpOnFormat = 101;
constexpr int mostBoxes = 5;

constexpr Twips dialogWidth = pixels(420);
constexpr Twips firstTop = 1100;
constexpr Twips lowTop = pixels(48);  // where there are several boxes one below the other
constexpr Twips boxHeight = pixels(28);
constexpr Twips pitch = pixels(34);
constexpr Twips boxWidth = pixels(72);
constexpr Twips nameWidth = pixels(240);
constexpr Twips boxLeft = dialogMargin + nameWidth + pixels(12);

}  // namespace

frmNumericFormat::frmNumericFormat(Desktop& desktop, DataSheet& sheet, bool mbStandard)
    : Window(desktop, "frmNumericFormat", WindowStyle::dialog, "Format"),
      sheet_(sheet),
      mbStandard_(mbStandard),
      miDecDigits_(sheet.content().decimals) {
  miDecDigits_[0] = sheet.miStdDecDigits();
  cmboVblNames.setVisible(false);
  if (mbStandard)
    offerStandard();
  else if (sheet.variables() > mostBoxes)
    offerList();
  else
    offerAll();
  Activate = [this] { Form_Activate(); };
  cmdOK.Click = [this] { cmdOK_Click(); };
  cmdCancel.Click = [this] { hide(); };
  cmdHelp.Click = [this] { showEditorHelp(this->desktop(), helpOnFormat); };
  centreOnScreen();
}

// The next box, behind its label.
NumberBox& frmNumericFormat::loadDigits(int index, const std::string& name, Twips top) {
  Label& label = lblVarName.load();
  label.setCaption(name);
  label.setPlace({dialogMargin, top, nameWidth, boxHeight});
  NumberBox& box = spnDecDigits.load();
  box.setRange(0, maxDecimals);
  box.setValue(miDecDigits_[index]);
  box.setTip("Number of digits to right of decimal point");
  box.setPlace({boxLeft, top, boxWidth, boxHeight});
  box.Changed = [this, &box, index] {
    const int element = index == 0 ? shown_ : index;
    miDecDigits_[element] = static_cast<Int16>(box.value());
  };
  return box;
}

void frmNumericFormat::offerStandard() {
  loadDigits(0, "Number of decimal digits", lowTop).setVisible(true);
  lblVarName(0).setVisible(true);
  Twips top = lowTop + pitch + pixels(4);
  for (const char* caption : {"All columns", "Only columns that have not been changed"}) {
    OptionButton& option = optCols.load();
    option.setCaption(caption);
    option.setPlace({dialogMargin, top, dialogWidth - 2 * dialogMargin, pixels(23)});
    option.setVisible(true);
    top = option.bottom() + pixels(3);
  }
  optCols(0).setValue(true);
  layOut(top);
}

void frmNumericFormat::offerList() {
  NumberBox& box = loadDigits(0, "Number of decimal digits", firstTop);
  box.setAccessibleName(lblVarName(0).caption());
  box.setVisible(true);
  cmboVblNames.setPlace({dialogMargin, firstTop, nameWidth, boxHeight});
  cmboVblNames.setVisible(true);
  for (int i = 1; i <= sheet_.variables(); ++i) cmboVblNames.addItem(columnName(sheet_, i));
  cmboVblNames.Click = [this] { cmboVblNames_Click(); };
  cmboVblNames.setListIndex(0);
  layOut(box.bottom());
}

void frmNumericFormat::offerAll() {
  loadDigits(0, {}, lowTop);
  Twips top = lowTop;
  for (int i = 1; i <= sheet_.variables(); ++i) {
    NumberBox& box = loadDigits(i, columnName(sheet_, i), top);
    if (!isOffered(i)) continue;
    lblVarName(i).setVisible(true);
    box.setVisible(true);
    top += pitch;
  }
  layOut(top);
}

// Of four variables the one for two values has whole numbers and stays so.
bool frmNumericFormat::isOffered(int iVar) const {
  return sheet_.variables() != 4 || iVar != binaryVariable;
}

void frmNumericFormat::layOut(Twips below) {
  const Twips inside = dialogWidth - 2 * dialogMargin;
  lblInstructions.setPlace({dialogMargin, dialogMargin, inside, pixels(20)});
  picDigits.setPlace({0, 0, dialogWidth, below});
  const Twips top = below + dialogMargin;
  setPlace({0, 0, dialogWidth, top + commandHeight + dialogMargin});
  placeCommands({&cmdOK, &cmdCancel, &cmdHelp}, width() - dialogMargin, top);
}

void frmNumericFormat::Form_Activate() {
  if (cmboVblNames.visible()) return cmboVblNames.setFocus();
  NumberBox& first = spnDecDigits(mbStandard_ ? 0 : 1);
  first.setFocus();
  first.selectAll();
}

// The box belongs to the new name before it shows its digits.
void frmNumericFormat::cmboVblNames_Click() {
  shown_ = cmboVblNames.listIndex() + 1;
  spnDecDigits(0).setValue(miDecDigits_[shown_]);
}

void frmNumericFormat::cmdOK_Click() {
  if (mbStandard_)
    sheet_.setStandardDecimals(miDecDigits_[0], optCols(0).value());
  else
    sheet_.setAllDecimals(miDecDigits_);
  hide();
}

}  // namespace tolmer
