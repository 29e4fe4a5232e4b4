#include "symbolfile/file_error.h"

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
  cmdRetry.Click = [this] { choose(mbRetry); };
  cmdAbort.Click = [this] { choose(mbAbort); };
  cmdEndProgram.Click = [this] { this->desktop().endProgram(1); };
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

void frmFileError::choose(bool& mbChoice) {
  mbChoice = true;
  hide();
}

std::string_view failureDescription(FailureClass kind) {
  if (kind == FailureClass::notFound) return "File could not be found";
  if (kind == FailureClass::pastEnd) return "No more data in file";
  if (kind == FailureClass::badNumber) return "Invalid data read from file. ";
  if (kind == FailureClass::permission) return "File access permission denied";
  if (kind == FailureClass::device) return "Could not read data from file";
  if (kind == FailureClass::format) return "Error in internal format. ";
  return "Unknown error";
}

std::string failureCauses(const FileFailure& failure) {
  switch (failure.kind) {
    case FailureClass::notFound:
      return "The file or the directory it is in may have been deleted or renamed. You may have "
             "typed an invalid file specification. If you are using Zelmar on a network, the "
             "network drive or service may not be available. If an error occurred during "
             "installation (such as running out of space on the installation drive), the file may "
             "not have been installed correctly. If all else fails, try reinstalling Zelmar.";
    case FailureClass::pastEnd:
      return "The file has been changed. There is less data in the file. If this is a Zelmar "
             "file, copy a good version from somewhere else, or reinstall Zelmar.";
    case FailureClass::badNumber:
      return "You are trying the read the wrong file. The wrong type of data is in the file (such "
             "as a letter in a numeric data file). The file has been corrupted.";
    case FailureClass::permission:
      return "The file is opened for editing by another user. You have opened the file for editing "
             "in another program, such as a word processor. Try closing the file and shutting down "
             "the other program.";
    case FailureClass::device:
      return "There may be an error on your disk. If you are using Zelmar on a network, the "
             "network drive or service may not be available. If you are trying to access a "
             "floppy, the drive door may be open or there may be no disk in the drive. You may "
             "have typed an invalid file specification. ";
    case FailureClass::none:
    case FailureClass::format:
    case FailureClass::other:
      break;
  }
  return "The operating system reported an error. Error number: " + std::to_string(failure.code) +
         ", Description: " + failure.description;
}

}  // namespace tolmer
