#include "platform/qt/graph_view.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QFocusEvent>
#include <QHelpEvent>
#include <QImage>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>

#include "support/graph_pictures.h"

namespace tolmer {
namespace {

using testing::ElementsAre;

QImage painted(const Picture& picture, double scale) {
  QImage image(qRound(picture.size.width * scale), qRound(picture.size.height * scale),
               QImage::Format_RGB32);
  image.setDevicePixelRatio(scale);
  image.fill(Qt::white);
  QPainter painter(&image);
  paintPicture(painter, picture);
  return image;
}

class GraphViewTest : public testing::Test {
 protected:
  GraphViewTest() {
    graph.setAccessibleName("Histogram");
    graph.setAccessibleDescription("Two bars.");
    plot.setDrawMode(Plot::draw);
    plot.GSUseView().GSBox2D(100, 60, 60, 80, 128, palette::brightBlue);
    plot.GSUseView().GSLineAbs(60, 60, 400, 200, 5, 2, palette::brightRed);
    graph.show(plot);
    view.resize(480, 280);
    view.refresh(Change::all);
    graph.MouseDown = [this](MouseButton) { events.emplace_back("down"); };
    graph.MouseUp = [this](MouseButton button) {
      events.emplace_back(button == MouseButton::right ? "right up" : "left up");
    };
    graph.Click = [this] { events.emplace_back("click"); };
  }
  void send(QEvent::Type type, Qt::MouseButton button, QPointF at) {
    QMouseEvent event(type, at, view.mapToGlobal(at), button, button, Qt::NoModifier);
    QApplication::sendEvent(&view, &event);
  }

  test::SampleGraph plot{480, 280};
  Graph graph{nullptr, "gphSample"};
  GraphView view{graph};
  std::vector<std::string> events;
};

TEST_F(GraphViewTest, ShowsThePictureOfItsPlot) {
  const QImage shown = view.grab().toImage().convertToFormat(QImage::Format_RGB32);
  const QImage picture = painted(plot.picture(), 1);
  EXPECT_EQ(shown.size(), QSize(480, 280));
  EXPECT_TRUE(shown == picture);
  EXPECT_EQ(picture.pixelColor(2, 2), QColor(Qt::white));
  const Colour fill = tint(paletteColour(palette::brightBlue), 0.38);
  EXPECT_EQ(picture.pixelColor(150, 280 - 70), QColor(fill.red, fill.green, fill.blue));
}

TEST_F(GraphViewTest, HandsTheMouseOn) {
  send(QEvent::MouseButtonPress, Qt::LeftButton, {50, 50});
  send(QEvent::MouseButtonRelease, Qt::LeftButton, {50, 50});
  EXPECT_THAT(events, ElementsAre("down", "left up", "click"));
  events.clear();
  send(QEvent::MouseButtonPress, Qt::RightButton, {50, 50});
  send(QEvent::MouseButtonRelease, Qt::RightButton, {50, 50});
  EXPECT_THAT(events, ElementsAre("down", "right up"));
  events.clear();
  send(QEvent::MouseButtonRelease, Qt::LeftButton, {500, 50});
  EXPECT_THAT(events, ElementsAre("left up")) << "let go outside: no click";
}

TEST_F(GraphViewTest, ShowsTheFocusOfTheKeyboardOnly) {
  const auto edge = [this] { return view.grab().toImage().pixelColor(0, 100); };
  for (const auto reason : {Qt::MouseFocusReason, Qt::TabFocusReason}) {
    QFocusEvent focus(QEvent::FocusIn, reason);
    QApplication::sendEvent(&view, &focus);
    EXPECT_EQ(edge() == QColor(Qt::white), reason == Qt::MouseFocusReason);
  }
  QFocusEvent gone(QEvent::FocusOut);
  QApplication::sendEvent(&view, &gone);
  EXPECT_EQ(edge(), QColor(Qt::white));
}

TEST_F(GraphViewTest, IsAChartToScreenReaders) {
  QAccessibleInterface* chart = QAccessible::queryAccessibleInterface(&view);
  ASSERT_NE(chart, nullptr);
  EXPECT_EQ(chart->role(), QAccessible::Chart);
  EXPECT_EQ(chart->text(QAccessible::Name), "Histogram");
  EXPECT_EQ(chart->text(QAccessible::Description), "Two bars.");
}

// Two points of cases 7 and 8, told to pointers, hands and screen readers alike.
TEST_F(GraphViewTest, NamesAndTakesItsCases) {
  plot.settings.pointSymbol = openCircle;
  plot.setNumPoints(2);
  plot.setPoint(1, 20, 50, 7);
  plot.setPoint(2, 80, 50, 8);
  plot.setDrawMode(Plot::draw);
  graph.setPlace({0, 0, pixels(480), pixels(280)});
  graph.show(plot);
  graph.describe = [](const CaseMark& mark) {
    return "Case " + std::to_string(mark.cases.front());
  };
  std::vector<int> picked;
  graph.Pick = [&](const std::vector<int>& cases, ClickKeys) {
    picked = cases;
    graph.light({.cases = cases, .current = cases.empty() ? 0 : cases.front()});
  };
  view.show();
  const QPoint second = view.placeOf(1).center();
  QHelpEvent rests(QEvent::ToolTip, second, view.mapToGlobal(second));
  QApplication::sendEvent(&view, &rests);
  EXPECT_TRUE(QToolTip::text().contains("Case 8"));
  send(QEvent::MouseButtonPress, Qt::LeftButton, second);
  send(QEvent::MouseButtonRelease, Qt::LeftButton, second);
  EXPECT_THAT(picked, ElementsAre(8));
  QAccessibleInterface* chart = QAccessible::queryAccessibleInterface(&view);
  ASSERT_EQ(chart->childCount(), 2);
  EXPECT_EQ(chart->child(1)->text(QAccessible::Name), "Case 8");
  EXPECT_TRUE(chart->child(1)->state().selected && !chart->child(0)->state().selected);
  send(QEvent::MouseButtonPress, Qt::LeftButton, {1, 1});
  send(QEvent::MouseMove, Qt::LeftButton, {470, 270});
  send(QEvent::MouseButtonRelease, Qt::LeftButton, {470, 270});
  EXPECT_THAT(picked, ElementsAre(7, 8));
}

}  // namespace
}  // namespace tolmer
