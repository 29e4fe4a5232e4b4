// The sample book on the headless desktop, with a user and a script of what comes up.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "base/file_io.h"
#include "notebook/notebook.h"
#include "notebook/notebook_window.h"
#include "notebook/object_file.h"
#include "support/headless_user.h"
#include "support/sample_book.h"
#include "support/script.h"
#include "support/temp_folder.h"

namespace tolmer::test {

class NotebookFixture : public testing::Test {
 protected:
  NotebookFixture() {
    noteBook.tProgramFolder = folder.path();
    for (const char* name : {"one.png", "two.png"}) writePicture(name, 200, 60);
    load(sampleBook());
  }

  // As much of a PNG as tells its size.
  void writePicture(const std::string& name, int width, int height) {
    std::string bytes("\x89PNG\r\n\x1A\n\0\0\0\x0DIHDR", 16);
    for (const int size : {width, height})
      for (const int shift : {24, 16, 8, 0}) bytes += static_cast<char>((size >> shift) & 0xFF);
    ASSERT_FALSE(writeFileAtomically(folder.file(name), bytes));
  }

  void load(const Book& book) {
    const std::string file = folder.file("sample.nbo");
    ASSERT_FALSE(writeFileAtomically(file, objectFileText(book)));
    noteBook.ReadObjectFile(file);
    window().goTo(1, 1);
  }
  frmNotebook& window() { return noteBook.window(); }
  // The book is shown as it stands, or at that page, the user does this, and it is closed.
  void show(const std::function<void()>& actions) {
    script.window("frmNotebook", actions);
    noteBook.ShowNotebook();
  }
  void showAt(int section, int page, const std::function<void()>& actions) {
    script.window("frmNotebook", actions);
    noteBook.ShowNotebook(section, page);
  }
  void click(std::string_view control) { user.click("frmNotebook", control); }
  template <class Kind>
  Kind& get(std::string_view control) {
    return user.get<Kind>("frmNotebook", control);
  }
  bool sees(std::string_view control) {
    Control* found = window().find(control);
    return found && found->visible();
  }

  TempFolder folder;
  HeadlessDesktop desktop;
  HeadlessUser user{desktop};
  Script script{desktop};
  NoteBook noteBook{desktop};
};

}  // namespace tolmer::test
