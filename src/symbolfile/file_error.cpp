#include "symbolfile/file_error.h"

#include <initializer_list>

#include "platform/desktop.h"

namespace tolmer {
namespace {

constexpr Twips margin = pixels(16);
constexpr Twips inside = pixels(508);

}  // namespace

frmFileError::frmFileError(Desktop& desktop)
    : Window(desktop, "frmFileError", WindowStyle::dialog, "File Error") {
  layOut();
  txtFileSpec.setReadOnly(true);
  txtFileSpec.setAccessibleName(Label2.caption());
  txtCauses.setReadOnly(true);
  txtCauses.setMultiLine(true);
  txtCauses.setAccessibleName(Label4.caption());
  cmdRetry.setTip("Retry the file operation");
  cmdAbort.setTip("Abort the file operation but continue the program");
  cmdEndProgram.setTip("End the program now");
  Activate = [this] { Form_Activate(); };
  cmdRetry.Click = [this] { cmdRetry_Click(); };
  cmdAbort.Click = [this] { cmdAbort_Click(); };
  cmdEndProgram.Click = [this] { cmdEndProgram_Click(); };
  centreOnScreen();
}

void frmFileError::layOut() {
  setPlace({0, 0, inside + 2 * margin, pixels(408)});
  Twips top = margin;
  const auto put = [&top](Control& control, float height, float gap) {
    control.setPlace({margin, top, inside, pixels(height)});
    top += pixels(height + gap);
  };
  put(Label1, 20, 8);
  put(Label2, 20, 0);
  put(txtFileSpec, 28, 8);
  put(Label3, 20, 0);
  lblErrorDesc.setFont({FontFamily::interface, 12, true});
  put(lblErrorDesc, 20, 8);
  put(Label4, 20, 0);
  put(txtCauses, 112, 8);
  put(Label5, 20, 0);
  Label6.setWordWrap(true);
  put(Label6, 40, 8);
  const Twips gap = pixels(8);
  const Twips width = (inside - 2 * gap) / 3;
  Twips left = margin;
  for (Button* button : {&cmdRetry, &cmdAbort, &cmdEndProgram}) {
    button->setPlace({left, top, width, pixels(30)});
    left += width + gap;
  }
}

void frmFileError::Form_Activate() {
  mbRetry = false;
  mbAbort = false;
  desktop().beep();
  for (Button* button : {&cmdRetry, &cmdAbort, &cmdEndProgram})
    if (button->canBeUsed()) return button->setFocus();
}

void frmFileError::cmdRetry_Click() {
  mbRetry = true;
  hide();
}

void frmFileError::cmdAbort_Click() {
  mbAbort = true;
  hide();
}

void frmFileError::cmdEndProgram_Click() { desktop().endProgram(1); }

}  // namespace tolmer
