// What a screen reader is told of every window: whatever takes the keyboard has a name and a role.
#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <set>

#include "displays/display_list.h"
#include "editor/numeric_format.h"
#include "notebook/notebook_window.h"
#include "platform/qt/help_window.h"
#include "platform/qt/kept_window.h"
#include "shell/module.h"
#include "support/qt_user.h"
#include "support/script.h"
#include "support/tree.h"
#include "symbolfile/file_error.h"

namespace tolmer::test {
namespace {

std::string text(QAccessibleInterface& one, QAccessible::Text what = QAccessible::Name) {
  return one.text(what).toStdString();
}

bool isLabelled(QAccessibleInterface& one) {
  for (const auto& [label, relation] : one.relations(QAccessible::Label))
    if (!text(*label).empty()) return true;
  return false;
}

// A list that opens is called by its entry, and so needs a label beside it.
bool hasName(QAccessibleInterface& one) {
  return one.role() == QAccessible::ComboBox ? isLabelled(one) : !text(one).empty();
}

class NamesOfEveryWindow : public testing::Test {
 protected:
  void look() {
    desktop.settle();
    for (QWidget* window : QApplication::topLevelWidgets())
      if (window->isVisible()) look(*QAccessible::queryAccessibleInterface(window), *window);
  }
  // The cells of a table are made of what stands in them.
  void look(QAccessibleInterface& one, const QWidget& window) {
    if (one.state().invisible) return;
    const auto* widget = qobject_cast<const QWidget*>(one.object());
    const bool isStop = widget && widget->isEnabled() && (widget->focusPolicy() & Qt::TabFocus);
    const bool hasRole = one.role() != QAccessible::NoRole && one.role() != QAccessible::Client;
    if (isStop && (!hasName(one) || !hasRole))
      faults.insert(window.windowTitle().toStdString() + ": " + widget->metaObject()->className() +
                    " " + widget->objectName().toStdString());
    ++(isStop ? stops : others);
    if (one.tableInterface()) return;
    for (int i = 0; i < one.childCount(); ++i)
      if (QAccessibleInterface* child = one.child(i)) look(*child, window);
  }
  void lookAndClick(const char* window, const char* button) {
    script.window(window, [this, window, button] {
      look();
      user.click(window, button);
    });
  }
  void lookAtNotebook() {
    for (const auto& [section, page] : {std::pair{1, 1}, {1, 2}, {2, 2}, {3, 2}, {4, 2}, {5, 1}}) {
      module.parts().notebook.window().goTo(section, page);
      look();
    }
    user.click("frmNotebook", "cmdKeepBeside");
    look();
    desktop.keptWindow()->hide();
    module.parts().notebook.window().goTo(1, 1);
    user.click("frmNotebook", "cmdOK");
  }
  void start() {
    script.window("frmOpeningBook", [this] { look(); });
    script.window("frmNotebook", [this] { lookAtNotebook(); });
    script.window("frmModelDesign", [this] {
      look();
      user.click("frmModelDesign", "cmdShowData");
      user.click("frmModelDesign", "cmdOK");
    });
    script.window("frmShowData", [this] {
      look();
      user.close("frmShowData");
    });
    lookAndClick("frmHint", "cmdOK");
    module.Main();
  }
  void lookAtEditor() {
    look();
    lookAndClick("frmFind", "cmdClose");
    user.menu("frmDataEditor", "Edit/Replace...");
    DataSheet sheet(4);
    frmNumericFormat format(desktop, sheet, true);
    format.show();
    look();
    format.hide();
    lookAndClick("frmSortOptions", "cmdCancel");
    user.menu("frmDataEditor", "Options/Sort...");
    user.menu("frmDataEditor", "File/Close Editor and Discard Data");
  }

  ScriptedQtDesktop desktop;
  QtUser user{desktop};
  Script script{desktop.onModal, desktop.onMessageBox};
  Module module{desktop, TOLMER_PROGRAM_FOLDER};
  std::set<std::string> faults;
  int stops = 0;
  int others = 0;
};

TEST_F(NamesOfEveryWindow, EveryStopHasANameAndARole) {
  start();
  for (const Display& display : displayList()) {
    module.parts().manager.bringUp(display);
    look();
  }
  lookAndClick("frmReport", "cmdCancel");
  user.menu("mdiReg", "File/Save Report...");
  user.menu("mdiReg", "Explore/Notes...");
  look();
  lookAndClick("frmAbout", "cmdOK");
  user.menu("mdiReg", "Help/About...");
  desktop.setHelpFolder(TOLMER_PROGRAM_FOLDER "/help");
  desktop.showHelp({.file = "tolmod", .context = 101});
  look();
  desktop.helpWindow()->hide();
  frmFileError fault(desktop);
  fault.show();
  look();
  fault.hide();
  script.window("frmDataEditor", [this] { lookAtEditor(); });
  module.parts().state.iDataSource = dataEditor;
  user.click("frmControlPanel", "cmdChangeDataSource");
  script.finish();
  for (const std::string& fault : faults) ADD_FAILURE() << fault;
  EXPECT_GT(stops, 200);
}

}  // namespace
}  // namespace tolmer::test
