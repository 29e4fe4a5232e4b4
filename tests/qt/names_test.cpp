// What a screen reader is told of every window: whatever takes the keyboard has a name and a role.
#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <set>

#include "displays/display_list.h"
#include "platform/qt/help_window.h"
#include "platform/qt/kept_window.h"
#include "shell/every_window.h"
#include "support/qt_user.h"
#include "support/tree.h"

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
      if (window->isVisible()) {
        QAccessibleInterface& one = *QAccessible::queryAccessibleInterface(window);
        if (one.role() == QAccessible::Client)
          faults.insert(text(one) + ": no window to a screen reader");
        look(one, *window);
      }
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
  ScriptedQtDesktop desktop;
  QtUser user{desktop};
  Script script{desktop.onModal, desktop.onMessageBox};
  Module module{desktop, TOLMER_PROGRAM_FOLDER};
  std::set<std::string> faults;
  int stops = 0;
  int others = 0;
};

TEST_F(NamesOfEveryWindow, EveryStopHasANameAndARole) {
  desktop.setHelpFolder(TOLMER_PROGRAM_FOLDER "/help");
  EveryWindow every(desktop, user, script, module, [this](Window&) { look(); });
  every.start();
  for (const Display& display : displayList()) {
    module.parts().manager.bringUp(display);
    look();
  }
  every.besideTheQuadrants();
  every.ofOwnData();
  every.rare();
  desktop.showHelp({.file = "tolmod", .context = 101});
  look();
  desktop.helpWindow()->hide();
  module.parts().notebook.window().cmdKeepBeside.click();
  look();
  desktop.keptWindow()->hide();
  script.finish();
  for (const std::string& fault : faults) ADD_FAILURE() << fault;
  EXPECT_GT(stops, 200);
}

}  // namespace
}  // namespace tolmer::test
