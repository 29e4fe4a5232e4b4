// A student's visits to the data editor, and the boxes it asks him with.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "editor/data_editor.h"
#include "support/headless_user.h"
#include "support/script.h"
#include "support/temp_folder.h"

namespace tolmer::test {

inline const MessageBox saveFirst{
    "Data Changed", "There is unsaved data in the Data Editor. Do you want to save it?",
    MessageIcon::question, MessageButtons::yesNo};

inline const MessageBox beforeTheEnd{
    "Unsaved Data",
    "The data in the Data Editor have not been saved. Do you want to save them before the program "
    "ends?",
    MessageIcon::question, MessageButtons::saveDontSaveCancel};

class EditorVisit : public testing::Test {
 protected:
  // One visit, in which the student does this and leaves.
  void visit(const std::function<void()>& actions) {
    script.window("frmDataEditor", actions);
    editor.ShowDataEditor();
    script.finish();
  }
  // Leaves without the data, and without saving where something has changed.
  void cancel() {
    if (editor.sheet().changeMade()) script.box(saveFirst, Answer::no);
    click("cmdCancel");
  }
  void click(const std::string& button) { user.click("frmDataEditor", button); }
  void key(int code) { user.key("frmDataEditor", {code}); }
  void choose(const std::string& path) { user.menu("frmDataEditor", path); }

  // Rows and columns as the sheet counts them: 0 are the headings and the labels.
  void type(int row, int col, const std::string& text) {
    EXPECT_TRUE(editor.spdData.enter({row + 1, col + 1}, text)) << text;
  }
  // Rows of values from observation 1, variable 1 on.
  void fill(const std::vector<std::vector<std::string>>& rows) {
    for (std::size_t i = 0; i < rows.size(); ++i)
      for (std::size_t j = 0; j < rows[i].size(); ++j)
        type(static_cast<int>(i) + 1, static_cast<int>(j) + 1, rows[i][j]);
  }
  std::string shown(int row, int col) { return editor.spdData.text(row + 1, col + 1); }
  void go(int row, int col) {
    editor.spdData.setFocus();
    editor.spdData.press({row + 1, col + 1});
  }
  void mark(int row, int col, int row2, int col2) {
    go(row, col);
    editor.spdData.press({row2 + 1, col2 + 1}, {.shift = true, .control = false});
  }

  // What the next file dialogs are answered; no name calls them off.
  void opens(std::optional<std::string> name) {
    desktop.onOpenFile = [name](const FileQuestion&) { return name; };
  }
  void savesAs(std::optional<std::string> name) {
    desktop.onSaveFile = [name](const FileQuestion&) { return name; };
  }
  bool isLit(const Button& button) { return button.backColour() == Colour::rgb(255, 255, 128); }

  TempFolder folder;
  HeadlessDesktop desktop;
  HeadlessUser user{desktop};
  Script script{desktop};
  frmDataEditor editor{desktop, {folder.path() + "/tolmod", nullptr}};
};

}  // namespace tolmer::test
