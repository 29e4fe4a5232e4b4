#include "editor/variable_label.h"

#include "editor/dialog_parts.h"

namespace tolmer {

frmVariableLabel::frmVariableLabel(Desktop& desktop, DataSheet& sheet, int column)
    : Window(desktop, "frmVariableLabel", WindowStyle::dialog, "Variable Label") {
  setPlace({0, 0, pixels(440), pixels(124)});
  const Twips inside = width() - 2 * dialogMargin;
  lblVariableLabel.setUsesMnemonic(false);
  lblVariableLabel.setCaption("Meaning of " + columnName(sheet, column) + ":");
  lblVariableLabel.setPlace({dialogMargin, dialogMargin, inside, pixels(20)});
  txtVariableLabel.setPlace({dialogMargin, lblVariableLabel.bottom(), inside, pixels(28)});
  placeCommands({&cmdOK, &cmdCancel, &cmdHelp}, width() - dialogMargin,
                height() - dialogMargin - commandHeight);
  Activate = [this, &sheet, column] {
    txtVariableLabel.setText(sheet.label(column));
    txtVariableLabel.setFocus();
    txtVariableLabel.selectAll();
  };
  cmdOK.Click = [this, &sheet, column] {
    sheet.setLabel(column, txtVariableLabel.text());
    hide();
  };
  cmdCancel.Click = [this] { hide(); };
  cmdHelp.Click = [this] { showEditorHelp(this->desktop(), helpOnTitle); };
  centreOnScreen();
}

}  // namespace tolmer
