#include "platform/qt/grid_view.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QMouseEvent>
#include <QScrollBar>
#include <QTest>
#include <QToolTip>

#include "platform/qt/convert.h"
#include "platform/qt/theme.h"

namespace tolmer {
namespace {

using testing::ElementsAre;

class GridViewTest : public testing::Test {
 protected:
  GridViewTest() {
    grid.setAccessibleName("Numbers");
    grid.setSize(100, 12);
    grid.freeze(1, 1);
    grid.setScrollBars(ScrollBars::both);
    for (int col = 1; col <= 12; ++col) {
      grid.setStyle({1, col, 1, col}, {.heading = true, .back = colours::buttonFace});
      grid.setText(1, col, "X" + std::to_string(col));
    }
    for (int row = 2; row <= 100; ++row) grid.setText(row, 2, std::to_string(row));
    view.resize(400, 300);
    view.show();
    view.refresh(Change::all);
    grid.setPeer(std::make_unique<ViewPeer>(view));
  }
  ~GridViewTest() override { grid.setPeer(nullptr); }

  struct ViewPeer : Peer {
    explicit ViewPeer(GridView& view) : view(view) {}
    void changed(Change what) override { view.refresh(what); }
    GridView& view;
  };

  QPoint middleOf(CellPosition cell) const { return view.cellRect(cell).center(); }
  QColor colourAt(CellPosition cell) {
    return view.viewport()->grab().toImage().pixelColor(view.cellRect(cell).topLeft() +
                                                        QPoint(2, 2));
  }
  void click(CellPosition cell, Qt::KeyboardModifiers held = Qt::NoModifier) {
    QTest::mouseClick(view.viewport(), Qt::LeftButton, held, middleOf(cell));
  }

  Grid grid{nullptr, "spdAny"};
  GridView view{grid};
};

TEST_F(GridViewTest, ATableMayLoseAllItsCellsWithTheSelectedOne) {
  grid.setSelectionMode(SelectionMode::cells);
  grid.setActiveCell({90, 9});
  EXPECT_GT(view.verticalScrollBar()->value(), 0);
  grid.setSheet({});
  EXPECT_EQ(view.verticalScrollBar()->value(), 0);
}

TEST_F(GridViewTest, FrozenCellsStayWhenTheOthersScroll) {
  const QRect corner = view.cellRect({1, 1});
  const QRect head = view.cellRect({1, 5});
  view.horizontalScrollBar()->setValue(70);
  view.verticalScrollBar()->setValue(110);
  EXPECT_EQ(view.cellRect({1, 1}), corner);
  EXPECT_EQ(view.cellRect({1, 5}), head.translated(-70, 0));
  grid.setStyle({7, 4, 7, 4}, {.back = colours::red});
  EXPECT_EQ(colourAt({7, 4}), QColor(Qt::red));
  for (const CellPosition cell : {CellPosition{1, 1}, {1, 5}, {9, 1}, {9, 4}})
    EXPECT_EQ(view.cellAt(middleOf(cell)), cell);
}

TEST_F(GridViewTest, TheMouseMarksBlocksInTheModel) {
  std::vector<std::string> events;
  grid.Click = [&](CellPosition cell) {
    events.push_back("click " + grid.text(cell.row, cell.col));
  };
  grid.MouseUp = [&](MouseButton button) {
    events.emplace_back(button == MouseButton::right ? "right up" : "left up");
  };
  grid.DblClick = [&](CellPosition) { events.emplace_back("double"); };
  click({4, 2});
  EXPECT_EQ(grid.activeCell(), (CellPosition{4, 2}));
  EXPECT_THAT(events, ElementsAre("left up", "click 4"));
  click({6, 3}, Qt::ShiftModifier);
  click({9, 2}, Qt::ControlModifier);
  EXPECT_THAT(grid.selection().blocks(), ElementsAre(CellBlock{4, 2, 6, 3}, CellBlock{9, 2, 9, 2}));
  events.clear();
  QTest::mouseClick(view.viewport(), Qt::RightButton, Qt::NoModifier, middleOf({5, 2}));
  EXPECT_THAT(events, ElementsAre("right up"));
  EXPECT_EQ(grid.selection().blocks().size(), 2U) << "the right button marks nothing";
  events.clear();
  QTest::mouseDClick(view.viewport(), Qt::LeftButton, Qt::NoModifier, middleOf({5, 2}));
  EXPECT_THAT(events, testing::Contains("double"));
}

TEST_F(GridViewTest, ADragBeyondTheEdgeScrollsOn) {
  QTest::mousePress(view.viewport(), Qt::LeftButton, Qt::NoModifier, middleOf({3, 2}));
  const QPointF below(middleOf({3, 2}).x(), view.viewport()->height() + 30);
  QMouseEvent move(QEvent::MouseMove, below, view.viewport()->mapToGlobal(below), Qt::NoButton,
                   Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(view.viewport(), &move);
  const int first = grid.selection().blocks().at(0).row2;
  EXPECT_TRUE(QTest::qWaitFor([&] { return grid.selection().blocks().at(0).row2 > first + 3; }));
  QTest::mouseRelease(view.viewport(), Qt::LeftButton, Qt::NoModifier, middleOf({3, 2}));
}

TEST_F(GridViewTest, KeysMoveTheCellIntoViewOrScrollATable) {
  QTest::keyClick(&view, Qt::Key_End, Qt::ControlModifier);
  EXPECT_EQ(grid.activeCell(), (CellPosition{100, 12}));
  EXPECT_TRUE(view.viewport()->rect().contains(view.cellRect({100, 12})));
  QTest::keyClick(&view, Qt::Key_Home, Qt::ControlModifier);
  EXPECT_EQ(view.verticalScrollBar()->value(), 0);
  grid.setSelectionMode(SelectionMode::none);
  QTest::keyClick(&view, Qt::Key_End);
  EXPECT_EQ(view.verticalScrollBar()->value(), view.verticalScrollBar()->maximum());
  bool menu = false;
  grid.MouseUp = [&](MouseButton button) { menu = button == MouseButton::right; };
  QTest::keyClick(&view, Qt::Key_Menu);
  EXPECT_TRUE(menu);
}

// As where a window goes with a click on it: the view is dropped, and deleted a little later.
TEST(GridViewLifeTest, SurvivesAGridThatGoesInItsOwnEvent) {
  for (const bool onKey : {false, true}) {
    auto grid = std::make_unique<Grid>(nullptr, "spdAny");
    grid->setSize(9, 9);
    GridView view(*grid);
    view.resize(400, 300);
    view.show();
    const auto unload = [&] {
      view.hide();
      view.enter = [](const std::function<void()>&) {};
      grid.reset();
    };
    if (onKey) {
      grid->SelectionChange = unload;
      QTest::keyClick(&view, Qt::Key_Down);
    } else {
      grid->MouseUp = [&](MouseButton) { unload(); };
      QTest::mouseClick(view.viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(30, 30));
    }
    EXPECT_EQ(grid, nullptr);
    QAccessibleInterface* table = QAccessible::queryAccessibleInterface(&view);
    EXPECT_EQ(table->childCount(), 0);
    EXPECT_EQ(table->childAt(30, 30), nullptr);
  }
}

TEST_F(GridViewTest, IsATableToScreenReaders) {
  QAccessibleInterface* self = QAccessible::queryAccessibleInterface(&view);
  ASSERT_NE(self, nullptr);
  EXPECT_EQ(self->role(), QAccessible::Table);
  EXPECT_EQ(self->text(QAccessible::Name), "Numbers");
  QAccessibleTableInterface* table = self->tableInterface();
  ASSERT_NE(table, nullptr);
  EXPECT_EQ(table->rowCount(), 100);
  EXPECT_EQ(table->columnCount(), 12);
  EXPECT_EQ(table->columnDescription(2), "X3");
  EXPECT_EQ(table->cellAt(0, 2)->role(), QAccessible::ColumnHeader);
  EXPECT_EQ(table->cellAt(100, 0), nullptr);

  QAccessibleInterface* cell = table->cellAt(4, 1);
  EXPECT_EQ(cell->text(QAccessible::Name), "5");
  EXPECT_EQ(cell->text(QAccessible::Description), "X2");
  grid.setRemarks({{{5, 2}, "better: 5.1"}, {{5, 2}, "or so"}});
  EXPECT_EQ(cell->text(QAccessible::Description), "X2, better: 5.1\nor so");
  const QRect place = view.cellRect({5, 2});
  QHelpEvent rests(QEvent::ToolTip, place.center(), view.viewport()->mapToGlobal(place.center()));
  QCoreApplication::sendEvent(view.viewport(), &rests);
  EXPECT_TRUE(QToolTip::text().contains("better: 5.1"));
  const QImage picture = view.viewport()->grab().toImage();
  EXPECT_EQ(picture.pixelColor(place.topRight() - QPoint(1, -1)), theme::accent);
  EXPECT_NE(picture.pixelColor(place.topLeft()), theme::accent);
  EXPECT_EQ(cell->role(), QAccessible::Cell);
  EXPECT_EQ(self->child(self->indexOfChild(cell)), cell);
  const QPoint middle = cell->rect().center();
  EXPECT_EQ(self->childAt(middle.x(), middle.y()), cell);
  EXPECT_FALSE(cell->state().offscreen);
  EXPECT_TRUE(table->cellAt(99, 1)->state().offscreen);
  grid.select({5, 2, 6, 2});
  EXPECT_TRUE(cell->state().selected);
  EXPECT_EQ(table->selectedCellCount(), 2);

  grid.setSize(3, 3);
  EXPECT_EQ(table->rowCount(), 3);
  EXPECT_EQ(table->cellAt(1, 1)->text(QAccessible::Name), "2");
}

}  // namespace
}  // namespace tolmer
