// The list of a table's variables, from which those are ticked that the sheet is to have.
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "platform/buttons.h"
#include "platform/desktop.h"
#include "platform/fields.h"
#include "platform/grid/grid.h"
#include "platform/labels.h"
#include "platform/panels.h"
#include "platform/window.h"
#include "textimport/text_import.h"

namespace tolmer {

// Chooses variables and cases, and what becomes of each variable. It lives for one showing.
class frmVariableChoice : public Window {
 public:
  // What of a choice cannot be done, as a sentence; it may take a while.
  using CheckChoice = std::function<std::optional<Error>(const ImportChoice&)>;

  // `preview` is of the choice as it stands; `source` says in the title where the table is from.
  frmVariableChoice(Desktop& desktop, const ImportPreview& preview, const ImportChoice& choice,
                    const std::string& source, CheckChoice check);

  // Shows the window modally; nothing on Cancel.
  std::optional<ImportChoice> ask();

  Label lblSize{this, "lblSize"};
  Label lblFind{this, "lblFind", "&Find:"};
  TextBox txtFind{this, "txtFind"};
  Button cmdAll{this, "cmdAll", "Tick &All"};
  Button cmdNone{this, "cmdNone", "Tick &None"};
  Grid spdVariables{this, "spdVariables"};
  Label lblValues{this, "lblValues"};
  Label lblUse{this, "lblUse", "Comes a&s:"};
  ComboBox cmboUse{this, "cmboUse"};
  Label lblReference{this, "lblReference", "&Reference:"};
  ComboBox cmboReference{this, "cmboReference"};
  Frame fraCases{this, "fraCases", "Cases"};
  OptionButton optFirst{&fraCases, "optFirst"};
  OptionButton optEvery{&fraCases, "optEvery", "One &in every"};
  NumberBox numEvery{&fraCases, "numEvery"};
  OptionButton optWhere{&fraCases, "optWhere", "Those &with"};
  TextBox txtWhere{&fraCases, "txtWhere"};
  Label lblExample{&fraCases, "lblExample", "as in  Age >= 18 and Region = North"};
  Label lblState{this, "lblState"};
  Button cmdOK{this, "cmdOK", "OK"};
  Button cmdCancel{this, "cmdCancel", "Cancel"};
  Button cmdHelp{this, "cmdHelp", "&Help"};

 private:
  void loadChoice(const ImportChoice& choice);
  void loadCases(const ImportChoice& choice);
  void wire();
  void Form_Resize();
  void placeCases(Twips top, Twips width);
  void cmdOK_Click();

  void listVariables();
  void showVariable(int row);
  void showTicks();
  void showState();
  void showCurrent();
  void tick(const std::vector<std::size_t>& variables, bool on);
  void toggleMarked();
  void tickShown(bool on);
  void cmboUse_Click();
  void cmboReference_Click();

  const ImportVariable* current() const;
  ColumnUse useOf(const ImportVariable& variable) const;
  std::string useText(const ImportVariable& variable) const;
  std::string referenceOf(const ImportVariable& variable) const;
  int columnsOf(const ImportVariable& variable) const;
  int columnsTaken() const;
  ImportChoice choice() const;
  void refuse(const std::string& text);

  const std::vector<ImportVariable> variables_;
  const int cases_;
  const int roomForCases_;
  const int roomForVariables_;
  CheckChoice check_;
  std::set<int> ticked_;  // their places in the file
  std::map<int, ColumnUse> uses_;
  std::map<int, std::string> references_;
  std::vector<std::size_t> shown_;  // the variables of the list's rows
  std::optional<ImportChoice> chosen_;
  bool showing_ = false;  // the program, not the user, sets the fields
};

}  // namespace tolmer
