#include "editor/instructions.h"

namespace tolmer {
namespace {

constexpr const char* openTheFile =
    ".  Bring the text file into the spreadsheet program."
    "\n(a)  Select Open under File in the spreadsheet Menu Bar."
    "\n(b)  In the File Type combo box select All files (*.*)."
    "\n(c)  Use the Look In combo box to select the drive that contains your file."
    "\n(d)  In the main window open the folder (double click on the folder) that contains your "
    "file."
    "\n(e)  Select the file to open and press the Open button.";

constexpr const char* parseTheData =
    ".  Parse the data into columns."
    "\n(a)  A wizard will often appear automatically to guide you."
    "\n(b)  If not, select Text to Columns under Data in many spreadsheet programs or consult the "
    "spreadsheet's Help file.";

constexpr const char* copyTheData =
    ".  Copy a column or block of data. The Label column is for data labels."
    "\n(a)  Highlight the data you want to copy."
    "\n(b)  Copy the data from the spreadsheet (select Copy from the Edit menu).";

constexpr const char* pasteTheData =
    ".  Paste the data in the ZM Data Editor."
    "\n(a)  Return to the ZM Data Editor and place the cursor where you want the data to be "
    "placed. If the copied data includes a label the cursor should be placed in the header row."
    "\n(b)  Paste the data into the Data Editor by selecting Paste under Edit in the Menu Bar.";

}  // namespace

std::string instructions(int index) {
  const bool fromText = index == 0;
  std::string text = std::string("Instructions for Bringing ") +
                     (fromText ? "Text" : "Spreadsheet") + " Files into Data Editor";
  int number = 0;
  const auto step = [&](const char* words) { text += "\n\n" + std::to_string(++number) + words; };
  step(".  Open your spreadsheet program (e.g., Excel or 123).");
  step(openTheFile);
  if (fromText) step(parseTheData);
  step(copyTheData);
  step(pasteTheData);
  return text;
}

}  // namespace tolmer
