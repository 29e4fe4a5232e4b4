#include "platform/qt/graph_view.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QFocusEvent>
#include <QImage>
#include <QMouseEvent>
#include <QPainter>

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

TEST_F(GraphViewTest, KeepsThinLinesSharp) {
  const QImage image = painted(plot.picture(), 1);
  const auto [left, bottom] = std::pair(qRound(plot.SDKInfo(7)), qRound(plot.SDKInfo(8)));
  const int row = 280 - bottom - 40;  // between tick marks
  EXPECT_EQ(image.pixelColor(left - 1, row), QColor(Qt::white));
  EXPECT_EQ(image.pixelColor(left, row), QColor(Qt::black));
  EXPECT_EQ(image.pixelColor(left + 1, row), QColor(Qt::white));
}

TEST_F(GraphViewTest, PaintsAZigzagSegmentBySegment) {
  test::SampleGraph order(1920, 1000);
  order.settings.graphType = GraphType::lineWithSymbols;
  order.settings.pointColour = palette::brightBlue;
  order.setNumPoints(500);
  for (int i = 1; i <= 500; ++i) order.setPoint(i, 0, static_cast<float>(i * 7919 % 101));
  order.setDrawMode(Plot::draw);
  const QImage image = painted(order.picture(), 2);
  // At the end of the first segment: 7919 modulo 101 is 41, twice that is 82.
  const ViewRect& area = order.picture().plot;
  const double x = area.left + 1.5 / 500 * area.width;
  const double y = 1000 - area.bottom - 0.82 * area.height;
  EXPECT_LT(image.pixelColor(qRound(2 * x), qRound(2 * y)).red(), 128);
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

}  // namespace
}  // namespace tolmer
