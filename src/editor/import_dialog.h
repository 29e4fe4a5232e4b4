// A student's way from foreign text to a table for the sheet.
#pragma once

#include <map>
#include <optional>
#include <string>

#include "platform/buttons.h"
#include "platform/control_array.h"
#include "platform/desktop.h"
#include "platform/fields.h"
#include "platform/grid/grid.h"
#include "platform/labels.h"
#include "platform/panels.h"
#include "platform/window.h"
#include "sheet/sheet_paste.h"
#include "textimport/text_import.h"

namespace tolmer {

// Shows how foreign text would land in the sheet, asks what is doubtful in it, and says what was
// taken for granted. It lives for one showing.
class frmTextImport : public Window {
 public:
  // `sheet` is where the table lands: columns that come without a name are shown with its headings.
  // `source` says in the title where the text is from. Both texts outlive the window.
  frmTextImport(Desktop& desktop, const TextImport& import, const SheetContent& sheet,
                const std::string& source);

  // Shows the window modally. The whole table as the user wants it; nothing on Cancel. Where an
  // answer was not to bring something in, OK says where it lies and the window stays. Of a table
  // that is larger than its room the variables and cases are chosen before.
  std::optional<ImportedTable> ask();

  Label lblPreview{this, "lblPreview", ""};
  Grid spdPreview{this, "spdPreview"};
  Panel picQuestions{this, "picQuestions"};
  ControlArray<Label> lblQuestion{picQuestions, "lblQuestion"};  // one for each kind of doubt
  ControlArray<ComboBox> cmboAnswer{picQuestions, "cmboAnswer"};
  Label lblNotes{this, "lblNotes", ""};
  Label lblState{this, "lblState", ""};
  Button cmdOK{this, "cmdOK", "OK"};
  Button cmdCancel{this, "cmdCancel", "Cancel"};
  Button cmdVariables{this, "cmdVariables", "&Variables..."};

 private:
  void loadQuestions();
  void Form_Activate();
  void Form_Resize();
  void cmboAnswer_Click(int index);
  void cmdOK_Click();
  bool chooseVariables();

  void refresh();
  bool dropStaleAnswers(const ImportPreview& preview);
  void showPreview(const ImportPreview& preview);
  void showQuestions(const ImportPreview& preview);
  void showRows(const ImportPreview& preview);
  void fitColumns();
  void showRefusal(const Error& error);
  const ImportQuestion* shownQuestion(ImportDoubt doubt) const;

  Twips placeQuestions();
  Twips heightOfAllButGrid();
  void growToContent();

  const TextImport& import_;
  std::string source_;
  const SheetContent& sheet_;
  ImportAnswers answers_;
  ImportChoice choice_;
  bool mustChoose_ = false;
  bool wasShown_ = false;
  std::vector<ImportQuestion> questions_;           // on the screen
  std::map<ImportDoubt, ImportQuestion> answered_;  // as they stood when they were answered
  std::optional<ImportedTable> table_;
  bool showing_ = false;  // the program, not the user, sets the answers
};

// A table and the cell where its upper left one lands. It says where it is from.
struct LandingTable {
  CellAddress first;
  PasteTable table;
};

// The same of another program's file, which is read by the program for such files.
std::optional<LandingTable> tableFromForeignFile(Desktop& desktop, const std::string& name,
                                                 const ImportTarget& target,
                                                 const SheetContent& into);

// Reads the text, asks what is doubtful in it and shows what was taken for granted, or says why it
// is refused. nullopt where it was refused or called off. `into` is the sheet as it stands before,
// `source` says where the text is from.
std::optional<LandingTable> tableFromText(Desktop& desktop, std::string text,
                                          const ImportTarget& target, const SheetContent& into,
                                          const std::string& source);

}  // namespace tolmer
