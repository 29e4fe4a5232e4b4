// What only the grid on the screen can get wrong while cells are edited: where the line stands,
// what the mouse and composed letters do, what is repainted, what assistive programs see.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QFileDialog>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QScrollBar>
#include <QTest>
#include <QTimer>
#include <fstream>

#include "platform/fields.h"
#include "platform/grid/edit_grid.h"
#include "platform/qt/grid_view.h"
#include "support/qt_user.h"
#include "support/temp_folder.h"

namespace tolmer::test {
namespace {

class GridEditorTest : public testing::Test {
 protected:
  GridEditorTest() {
    window.setPlace({pixels(40), pixels(40), pixels(420), pixels(320)});
    window.setMenuBar(&bar);
    window.setSizable(true);
    title.setPlace({0, 0, pixels(200), pixels(26)});
    grid.setPlace({0, pixels(30), pixels(400), pixels(200)});
    grid.setSize(40, 12);
    grid.setStyle({1, 1, 40, 12}, {.type = CellType::text});
    grid.setStyle({1, 1, 1, 12}, {.type = CellType::text, .heading = true});
    grid.showHeadings(false, true);
    grid.freeze(1, 1);
    grid.setScrollBars(ScrollBars::both);
    grid.setText(1, 2, "Price");
    grid.setText(4, 0, "3");
    grid.EditDone = [this](CellPosition cell, const std::string& text, bool& accepted) {
      accepted = text != "no";
      if (accepted) grid.setText(cell.row, cell.col, text);
    };
    window.show();
    grid.setFocus();
    grid.setActiveCell({4, 2});
    EXPECT_TRUE(QTest::qWaitForWindowActive(widgetOf(window).windowHandle()));
    desktop.settle();
  }

  GridView& view() { return dynamic_cast<GridView&>(widgetOf(grid)); }
  QLineEdit& line() { return *view().findChild<QLineEdit*>(); }
  void click(CellPosition cell) {
    const QPoint place = view().cellRect(cell).center();
    QTest::mouseClick(widgetOf(window).windowHandle(), Qt::LeftButton, {},
                      view().viewport()->mapTo(&widgetOf(window), place));
    desktop.settle();
  }

  void drag(QPoint from, QPoint to) {
    QWindow* handle = widgetOf(window).windowHandle();
    const auto place = [this](QPoint at) {
      return view().viewport()->mapTo(&widgetOf(window), at);
    };
    QTest::mousePress(handle, Qt::LeftButton, {}, place(from));
    QTest::mouseMove(handle, place((from + to) / 2));
    QTest::mouseMove(handle, place(to));
    QTest::mouseRelease(handle, Qt::LeftButton, {}, place(to));
    desktop.settle();
  }

  ScriptedQtDesktop desktop;
  QtUser user{desktop};
  Window window{desktop, "frmEdit", WindowStyle::dialog, "Edit"};
  MenuItem bar{nullptr, "bar"};
  MenuItem file{&bar, "mnuFile", "&File"};
  MenuItem save{&file, "mnuFileSave", "&Save"};
  TextBox title{&window, "txtTitle"};
  EditGrid grid{&window, "spdData"};
};

TEST_F(GridEditorTest, TheLineStandsOnItsCellAndHidesBelowWhatIsFrozen) {
  user.type("frmEdit", "spdData", "1");
  EXPECT_EQ(line().geometry().topLeft(), view().cellRect({4, 2}).topLeft());
  EXPECT_GE(line().width(), view().cellRect({4, 2}).width());
  EXPECT_TRUE(line().hasFocus());
  user.type("frmEdit", "spdData", "234567890123456789");
  EXPECT_GT(line().width(), view().cellRect({4, 2}).width()) << "a long text has room";
  EXPECT_LE(line().geometry().right(), view().viewport()->rect().right());
  view().verticalScrollBar()->setValue(20);
  EXPECT_EQ(line().geometry().top(), view().cellRect({4, 2}).top());
  view().verticalScrollBar()->setValue(view().verticalScrollBar()->maximum());
  EXPECT_FALSE(line().visibleRegion().intersects(line().rect())) << "below the heading row";
  user.key("frmEdit", {keys::enter});
  EXPECT_TRUE(view().viewport()->rect().contains(view().cellRect({5, 2})));
}

TEST_F(GridEditorTest, TheMouseOnAnotherCellEntersOrStaysWhereRefused) {
  user.type("frmEdit", "spdData", "5");
  click({6, 3});
  EXPECT_EQ(grid.text(4, 2), "5");
  EXPECT_EQ(grid.activeCell(), (CellPosition{6, 3}));
  EXPECT_TRUE(line().isHidden());
  user.type("frmEdit", "spdData", "no");
  click({4, 2});
  EXPECT_EQ(grid.activeCell(), (CellPosition{6, 3}));
  EXPECT_TRUE(line().hasFocus());
  EXPECT_EQ(line().text(), "no");
  user.click("frmEdit", "txtTitle");
  EXPECT_EQ(window.focus(), &title);
  EXPECT_TRUE(line().isVisible());
  click({5, 2});
  EXPECT_TRUE(line().hasFocus());
  EXPECT_EQ(line().text(), "no");
  EXPECT_EQ(grid.text(6, 3), "");
}

TEST_F(GridEditorTest, TheMousePutsAddressesWhereTheCaretIs) {
  grid.AskPointing = [](const std::string& before, const std::string&, bool& can) {
    can = before.ends_with("(") || before == "=";
  };
  grid.AskAddress = [](const CellBlock& block, std::string& address) {
    address = "r" + std::to_string(block.row) + "-" + std::to_string(block.row2);
  };
  grid.setText(4, 2, "=\xC3\xA9()");
  grid.startEdit();
  QTest::keyClick(&line(), Qt::Key_Left);
  drag(view().cellRect({6, 3}).center(), view().cellRect({8, 3}).center());
  EXPECT_EQ(line().text().toStdString(), "=\xC3\xA9(r6-8)");
  EXPECT_EQ(line().cursorPosition(), 7);
  EXPECT_TRUE(line().hasFocus());
  EXPECT_EQ(grid.pointed(), (CellBlock{6, 3, 8, 3}));
  QTest::keyClicks(&line(), "+");
  EXPECT_FALSE(grid.pointed());
  EXPECT_EQ(grid.editText(), "=\xC3\xA9(r6-8+)");
}

TEST_F(GridEditorTest, TheCornerOfTheSelectionIsDrawnOutAndItsMenuOpensAtTheCell) {
  grid.setFills(true);
  grid.setFirstDataCell({2, 2});
  CellBlock from, to;
  grid.Fill = [&](const CellBlock& source, const CellBlock& target) { from = source, to = target; };
  grid.select({{4, 2, 5, 2}});
  drag(view().fillCorner().center(), view().cellRect({7, 3}).center());
  EXPECT_EQ(from, (CellBlock{4, 2, 5, 2}));
  EXPECT_EQ(to, (CellBlock{4, 2, 7, 2}));
  grid.setActiveCell({1, 2});
  EXPECT_TRUE(view().fillCorner().isEmpty()) << "a name is filled nowhere";

  grid.setActiveCell({5, 3});
  MenuItem top{nullptr, "mnuTop"};
  MenuItem cut{&top, "mnuCut", "Cu&t"};
  grid.MouseUp = [&](MouseButton button) {
    if (button == MouseButton::right) desktop.popupMenu(top, window);
  };
  QTest::keyClick(&view(), Qt::Key_F10, Qt::ShiftModifier);
  ASSERT_NE(QApplication::activePopupWidget(), nullptr);
  const QPoint cell = view().viewport()->mapToGlobal(view().cellRect({5, 3}).bottomLeft());
  EXPECT_EQ(QApplication::activePopupWidget()->pos(), cell);
  QApplication::activePopupWidget()->close();
  grid.MouseUp = nullptr;
}

TEST_F(GridEditorTest, AMenuEntersWhatIsTypedAndGivesTheFocusBack) {
  user.type("frmEdit", "spdData", "5");
  user.alt("frmEdit", 'F');
  auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
  ASSERT_NE(menu, nullptr) << "Alt and a letter open a menu of a dialog";
  EXPECT_EQ(grid.text(4, 2), "5");
  std::string chosen;
  save.Click = [&] { chosen = "save"; };
  QTest::keyClick(menu, Qt::Key_S);
  desktop.settle();
  EXPECT_EQ(chosen, "save");
  EXPECT_TRUE(view().hasFocus());
}

TEST_F(GridEditorTest, ComposedLettersBeginAnEdit) {
  EXPECT_TRUE(static_cast<QWidget&>(view()).inputMethodQuery(Qt::ImEnabled).toBool());
  QInputMethodEvent compose("ˆ", {});
  QApplication::sendEvent(&view(), &compose);
  ASSERT_TRUE(grid.editMode());
  QInputMethodEvent composed;
  composed.setCommitString("ê");
  QApplication::sendEvent(&line(), &composed);
  user.key("frmEdit", {keys::enter});
  EXPECT_EQ(grid.text(4, 2), "ê");
}

TEST_F(GridEditorTest, OnlyTheChangedCellsAreRepainted) {
  struct Painted : QObject {
    bool eventFilter(QObject*, QEvent* event) override {
      if (event->type() == QEvent::Paint) region += static_cast<QPaintEvent*>(event)->region();
      return false;
    }
    QRegion region;
  } painted;
  view().viewport()->installEventFilter(&painted);
  desktop.settle();
  painted.region = {};
  grid.setText(6, 3, "7");
  desktop.settle();
  EXPECT_TRUE(painted.region.contains(view().cellRect({6, 3})));
  EXPECT_LT(painted.region.boundingRect().height(), 40);
  // From the frozen heading to a scrolled row: all between, whatever is hidden of it.
  view().verticalScrollBar()->setValue(60);
  desktop.settle();
  painted.region = {};
  grid.setStyle({1, 1, 8, 3}, {.type = CellType::text, .back = colours::cyan});
  desktop.settle();
  for (const CellPosition cell : {CellPosition{1, 1}, {1, 3}, {5, 1}, {8, 3}})
    EXPECT_TRUE(painted.region.contains(view().cellRect(cell))) << cell.row << ", " << cell.col;
  EXPECT_LT(painted.region.boundingRect().bottom(), view().cellRect({10, 1}).top());
}

TEST_F(GridEditorTest, ADragOfTheHeadingsEdgeSetsTheWidth) {
  int told = 0;
  grid.ColWidthChange = [&](int col) { told = col; };
  const QRect heading = view().cellRect({1, 3});
  const QPoint edge(heading.right() + 1, heading.center().y());
  QTest::mousePress(view().viewport(), Qt::LeftButton, {}, edge);
  QTest::mouseMove(view().viewport(), edge + QPoint(30, 0));
  QTest::mouseRelease(view().viewport(), Qt::LeftButton, {}, edge + QPoint(30, 0));
  EXPECT_EQ(view().cellRect({1, 3}).width(), heading.width() + 30);
  EXPECT_EQ(told, 3);
  EXPECT_EQ(grid.activeCell(), (CellPosition{4, 2}));
}

TEST_F(GridEditorTest, CellsAreReadAndEditedFromOutside) {
  QAccessibleInterface* table = QAccessible::queryAccessibleInterface(&view());
  QAccessibleInterface* cell = table->tableInterface()->cellAt(3, 1);
  EXPECT_TRUE(cell->state().editable);
  EXPECT_EQ(cell->text(QAccessible::Description), "Price, 3");
  grid.describeCell = [](CellPosition one) { return std::string(one.row == 1 ? "Name" : ""); };
  EXPECT_EQ(table->tableInterface()->cellAt(0, 1)->text(QAccessible::Description), "Name");
  EXPECT_EQ(cell->text(QAccessible::Description), "Price, 3");
  grid.AskContent = [](CellPosition, std::string& content) { content = "1.23456"; };
  grid.setText(4, 2, "1.23");
  EXPECT_EQ(cell->textInterface()->text(0, cell->textInterface()->characterCount()), "1.23456");
  cell->editableTextInterface()->replaceText(0, 7, "42");
  EXPECT_EQ(cell->text(QAccessible::Name), "42");
  cell->editableTextInterface()->replaceText(0, 7, "no");
  EXPECT_EQ(cell->text(QAccessible::Name), "42");
  grid.setStyle({4, 2, 4, 2}, {.type = CellType::fixed});
  EXPECT_EQ(cell->editableTextInterface(), nullptr);
  grid.setActiveCell({4, 3});
  grid.setText(1, 3, "Size");
  user.type("frmEdit", "spdData", "1");
  EXPECT_EQ(line().accessibleName(), "Size, 3");
}

TEST_F(GridEditorTest, TheMenuBarOfADialogStandsAboveItsInside) {
  const QSize before = widgetOf(window).size();
  EXPECT_GT(before.height(), 320);
  int resizes = 0;
  window.Resize = [&] { ++resizes; };
  widgetOf(window).resize(before + QSize(30, 20));
  desktop.settle();
  EXPECT_EQ(window.innerWidth(), pixels(450));
  EXPECT_EQ(window.innerHeight(), pixels(340));
  EXPECT_EQ(resizes, 1);
  window.setPlace({pixels(40), pixels(40), pixels(420), pixels(320)});
  desktop.settle();
  EXPECT_EQ(widgetOf(window).size(), before);
  auto* menuBar = widgetOf(window).findChild<QMenuBar*>();
  EXPECT_EQ(widgetOf(title).mapTo(&widgetOf(window), QPoint()).y(), menuBar->height());
}

TEST_F(GridEditorTest, SavingOverAFileAsksFirst) {
  const TempFolder folder;
  std::ofstream(folder.file("there.zmd")) << "x";
  int questions = 0;
  QTimer answers;
  QObject::connect(&answers, &QTimer::timeout, &answers, [&] {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (!box) return;
    ++questions;
    QTest::mouseClick(box->button(questions == 1 ? QMessageBox::No : QMessageBox::Yes),
                      Qt::LeftButton);
    if (questions > 1) return;
    // Back in the file dialog.
    QTimer::singleShot(0, [] {
      auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
      QTest::keyClick(dialog->findChild<QLineEdit*>("fileNameEdit"), Qt::Key_Return);
    });
  });
  answers.start(10);
  desktop.onSaveFile = [&](const FileQuestion&) { return folder.file("there"); };
  const auto chosen = desktop.saveFileDialog(
      {.title = "Save Data", .kinds = {{"Data", {"zmd"}}}, .folder = folder.path()});
  EXPECT_EQ(questions, 2);
  ASSERT_TRUE(chosen);
  EXPECT_EQ(chosen->path, folder.file("there.zmd"));
}

}  // namespace
}  // namespace tolmer::test
