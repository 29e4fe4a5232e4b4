// Every window of the program as it comes to the screen, for the tests that look at all of them.
#pragma once

#include <functional>
#include <initializer_list>
#include <set>
#include <string>
#include <utility>

#include "editor/graph_title.h"
#include "notebook/notebook_window.h"
#include "shell/module.h"
#include "support/script.h"
#include "support/user.h"
#include "symbolfile/file_error.h"

namespace tolmer::test {

class EveryWindow {
 public:
  // `look` is called with each window, and with one that has pages with each of them.
  EveryWindow(Desktop& desktop, User& user, Script& script, Module& module,
              std::function<void(Window&)> look)
      : desktop_(desktop), user_(user), script_(script), module_(module), look_(std::move(look)) {}

  // From the start to the quadrants of the default example.
  void start() {
    expect("frmOpeningBook", [] {});
    script_.window("frmNotebook", [this] {
      everyPage();
      user_.click("frmNotebook", "cmdOK");
    });
    expect("frmModelDesign", "cmdOK");
    expect("frmHint", "cmdOK");
    module_.Main();
    look(module_.parts().panel);
  }

  void besideTheQuadrants() {
    struct Entry {
      const char* path;
      const char* window;
      const char* wayOut;  // of one that is modal; else it is closed
    };
    for (const Entry& entry :
         std::initializer_list<Entry>{{"File/Save Report...", "frmReport", "cmdCancel"},
                                      {"Help/About...", "frmAbout", "cmdOK"},
                                      {"Explore/Notes...", "frmNotes", nullptr},
                                      {"Explore/Case...", "frmCase", nullptr},
                                      {"Explore/Predict...", "frmPredict", nullptr},
                                      {"Explore/Compare Models...", "frmModels", nullptr}}) {
      if (entry.wayOut) expect(entry.window, entry.wayOut);
      user_.menu("mdiReg", entry.path);
      if (entry.wayOut) continue;
      look(user_.window(entry.window));
      if (entry.window == std::string("frmCase")) otherPagesOfCase();
      user_.close(entry.window);
    }
    expect("frmModelDesign", [this] {
      expect("frmShowData", [this] { user_.close("frmShowData"); });
      user_.click("frmModelDesign", "cmdShowData");
      user_.click("frmModelDesign", "cmdCancel");
    });
    user_.click("frmControlPanel", "cmdChangeModel");
  }

  // By way of the notebook.
  void ofOwnData() {
    script_.window("frmNotebook", [this] {
      frmNotebook& book = module_.parts().notebook.window();
      book.goTo(1, 3);
      expect("frmSampleOnly", "cmdOK");
      user_.click("frmNotebook", book.elements.imgPicture(1).name());
      book.goTo(5, 1);
      expect("frmDataEditor", [this] { inTheEditor(); });
      user_.click("frmNotebook", "cmdOK");
    });
    user_.click("frmControlPanel", "cmdShowNotebook");
  }

  // Those that need a failure to come up, or that the program keeps for its host.
  void rare() {
    frmFileError error(desktop_);
    DataSheet sheet(20, 5);
    frmGraphTitle title(desktop_, sheet);
    for (Window* window : std::initializer_list<Window*>{&error, &title}) {
      window->show();
      look(*window);
      window->hide();
    }
  }

  const std::set<std::string>& seen() const { return seen_; }

 private:
  void look(Window& window) {
    seen_.insert(window.name());
    look_(window);
  }
  void expect(const std::string& name, std::function<void()> work) {
    script_.window(name, [this, name, work] {
      look(user_.window(name));
      work();
    });
  }
  void expect(const std::string& name, const char* way) {
    expect(name, [this, name, way] { user_.click(name, way); });
  }

  void everyPage() {
    frmNotebook& book = module_.parts().notebook.window();
    for (int section = 1; section <= book.tbNoteBook.tabCount(); ++section)
      for (int page = 1; page <= book.tbNoteBook.tab(section - 1).pageMax + 1; ++page) {
        book.goTo(section, page);
        look(book);
      }
    book.goTo(1, 1);
  }

  void otherPagesOfCase() {
    for (const char* control : {"cmdFirst", "optAll"}) {
      user_.click("frmCase", control);
      look(user_.window("frmCase"));
    }
  }

  void inTheEditor() {
    const auto menu = [this](const char* path) { user_.menu("frmDataEditor", path); };
    const auto open = [&](const char* window, const char* way, const char* path) {
      expect(window, way);
      menu(path);
    };
    user_.key("frmDataEditor", {keys::right});
    user_.type("frmDataEditor", "spdData", "1");
    user_.key("frmDataEditor", {keys::enter});
    open("frmFind", "cmdClose", "Edit/Find...");
    open("frmFind", "cmdClose", "Edit/Replace...");
    open("frmNumericFormat", "cmdCancel", "Options/Format/Standard Format...");
    open("frmNumericFormat", "cmdCancel", "Options/Format/Individual Column Format...");
    open("frmSortOptions", "cmdCancel", "Options/Sort...");
    open("frmVariableLabel", "cmdCancel", "Options/Variable Label...");
    expect("frmTextImport", [this] {
      expect("frmVariableChoice", "cmdCancel");
      user_.click("frmTextImport", "cmdVariables");
      user_.click("frmTextImport", "cmdCancel");
    });
    desktop_.setClipboard({.text = doubtful});
    menu("Edit/Paste");
    script_.box("Data Changed", "There is unsaved data in the Data Editor. Do you want to save it?",
                Answer::no);
    menu("File/Close Editor and Discard Data");
  }

  // Every question that an import can ask.
  static constexpr const char* doubtful =
      "Name\tx\ty\n1\t1,234\t12 345\nAnn\tNA\t12%\nBob\t$3\tsome words that go on\nCy\n";

  Desktop& desktop_;
  User& user_;
  Script& script_;
  Module& module_;
  std::function<void(Window&)> look_;
  std::set<std::string> seen_;
};

}  // namespace tolmer::test
