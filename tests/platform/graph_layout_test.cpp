#include "platform/graph/layout.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/graph/screen_geometry.h"
#include "platform/text_metrics.h"
#include "support/graph_pictures.h"

namespace tolmer {
namespace {

using test::all;
using test::SampleGraph;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;

struct Case {
  std::vector<std::string> xLabels;
  std::vector<std::string> yLabels;
  std::string yTitle;
  GraphDesign design;
};

const std::vector<Case> cases{
    {{"0", "20", "40"}, {"0", "1", "2", "3"}, "Frequency", {}},
    {{"-1.5E+16", "-1.0E+16", "-5.0E+15", "0.0E+00", "5.0E+15", "1.0E+16", "1.5E+16"},
     {"0", "20", "40", "60", "80", "100", "120", "140", "160", "180", "200"},
     "Frequency",
     {}},
    {{"-1000", "0", "1000"},
     {"-800", "-400", "0", "400"},
     "",
     {{200, 150, 100, 100}, true, "+3SE"}},
    {{" ", "0", " ", "1", " "}, {"0.000", "0.002", "0.004"}, "Fitted Württembg", {}},
    {{}, {}, "A title that no window of the usual size is high enough for, however it is set", {}}};

const std::vector<ViewSize> sizes{{30, 20},    {90, 60},   {150, 100},  {240, 150},
                                  {320, 200},  {480, 280}, {640, 360},  {400, 700},
                                  {1280, 300}, {960, 500}, {1920, 1000}};

void expectNoCollision(const Picture& picture) {
  const auto texts = all<TextPrimitive>(picture);
  for (std::size_t i = 0; i < texts.size(); ++i) {
    const ViewRect a = textBounds(texts[i]);
    EXPECT_GE(a.left, 0) << texts[i].text;
    EXPECT_GE(a.bottom, 0) << texts[i].text;
    EXPECT_LE(a.right(), picture.size.width) << texts[i].text;
    EXPECT_LE(a.top(), picture.size.height) << texts[i].text;
    const ViewRect& plot = picture.plot;
    EXPECT_TRUE(a.right() <= plot.left || a.top() <= plot.bottom) << texts[i].text;
    for (std::size_t j = 0; j < i; ++j) {
      const ViewRect b = textBounds(texts[j]);
      EXPECT_TRUE(a.right() <= b.left || b.right() <= a.left || a.top() <= b.bottom ||
                  b.top() <= a.bottom)
          << texts[i].text << " on " << texts[j].text;
    }
  }
}

// Every tick mark of full length has its label: none had to be left out for want of room.
void expectLabelAtEveryLongTick(const Picture& picture, const GraphLayout& layout, int titles) {
  std::size_t longTicks = 0;
  for (const LinePrimitive& line : all<LinePrimitive>(picture)) {
    const double length = std::abs(line.points[1].x - line.points[0].x) +
                          std::abs(line.points[1].y - line.points[0].y);
    longTicks += line.points.size() == 2 && std::abs(length - layout.tickLength) < 1e-9 ? 1 : 0;
  }
  EXPECT_EQ(all<TextPrimitive>(picture).size(), longTicks + static_cast<std::size_t>(titles));
}

TEST(GraphLayout, TextsNeitherOverlapNorAreCut) {
  for (const Case& c : cases)
    for (const ViewSize& size : sizes) {
      SCOPED_TRACE(c.yTitle + " " + std::to_string(size.width) + " x " +
                   std::to_string(size.height));
      SampleGraph graph(size.width, size.height, c.design);
      SampleGraph::label(graph.settings.x, c.xLabels);
      SampleGraph::label(graph.settings.y, c.yLabels);
      graph.settings.y.title = c.yTitle;
      graph.setDrawMode(Graph::draw);
      expectNoCollision(graph.picture());
      const GraphLayout layout = layOut(graph.settings, c.design, size);
      if (layout.hasText)
        expectLabelAtEveryLongTick(graph.picture(), layout, c.yTitle.empty() ? 1 : 2);
      else
        EXPECT_THAT(all<TextPrimitive>(graph.picture()), IsEmpty());
    }
}

TEST(GraphLayout, GivesThePlotMostOfTheRoom) {
  for (const ViewSize& size : sizes) {
    if (size.width < 480 || size.height < 280) continue;
    SampleGraph graph(size.width, size.height);
    graph.setDrawMode(Graph::draw);
    const ViewRect& plot = graph.picture().plot;
    EXPECT_GT(plot.width * plot.height, 0.7 * size.width * size.height);
    EXPECT_EQ(plot.left, std::round(plot.left));
    EXPECT_EQ(plot.top(), std::round(plot.top()));
  }
}

TEST(GraphLayout, TextGrowsWithTheWindowWithinBounds) {
  const auto textPixels = [](double width, double height) {
    return layOut({}, {}, {width, height}).textPixels;
  };
  EXPECT_EQ(textPixels(480, 280), 12);
  EXPECT_EQ(textPixels(1920, 1000), 18);
  EXPECT_EQ(textPixels(4000, 3000), 18);
  EXPECT_EQ(textPixels(100, 3000), 11);
  const GraphLayout layout = layOut({}, {{200, 150, 100, 100}, false, {}}, {480, 280});
  EXPECT_THAT(layout.classPixels, ElementsAre(18, 15, 12, 12));
}

TEST(GraphLayout, KeepsRoomForWhatIsDrawnLater) {
  const GraphSettings settings;
  const ViewRect plain = layOut(settings, {}, {480, 280}).plot;
  const ViewRect roomy = layOut(settings, {{100, 100, 100, 100}, true, "+3SE"}, {480, 280}).plot;
  EXPECT_GE(480 - roomy.right(), textWidth(graphFont(12), "+3SE") + 4);
  EXPECT_LT(roomy.top(), plain.top() - 5);

  GraphSettings tall;
  tall.headroom = 0.2;
  const GraphLayout withHeadroom = layOut(tall, {}, {480, 280});
  EXPECT_NEAR(withHeadroom.plot.top() + withHeadroom.headroom, plain.top(), 1);
  tall.headroom = 1e9;
  EXPECT_GT(layOut(tall, {}, {480, 280}).plot.height, 0.6 * plain.height);
}

TEST(GraphLayout, ThinsLabelsEvenlyFromTheFirst) {
  SampleGraph graph(240, 150);
  std::vector<std::string> labels;
  for (int i = 0; i <= 20; ++i) labels.push_back(std::to_string(1000 + i));
  SampleGraph::label(graph.settings.x, labels);
  graph.setDrawMode(Graph::draw);
  const int every = layOut(graph.settings, {}, {240, 150}).everyXLabel;
  ASSERT_GT(every, 1);
  const auto texts = test::texts(graph.picture());
  EXPECT_THAT(texts, Contains("1000"));
  EXPECT_THAT(texts, Not(Contains("1001")));
  EXPECT_THAT(texts, Contains(std::to_string(1000 + every)));
}

TEST(FitText, CutsWholeCharacters) {
  EXPECT_EQ(fitText("Residual", 12, 500), "Residual");
  const double room = textWidth(graphFont(12), "üü…");
  EXPECT_EQ(fitText("üüüüüü", 12, room), "üü…");
  EXPECT_EQ(fitText("Residual", 12, 1), "");
}

// On the screen, y downward: lines of one unit lie on the middle of pixels.
TEST(ScreenGeometry, PutsThinLinesOnPixels) {
  const ViewSize view{100, 100};
  const LinePrimitive level{{{10, 40}, {60, 40}}, colours::black};
  const LinePrimitive roughly{{{10, 40.0000001}, {60, 40.0000001}}, colours::black};
  EXPECT_THAT(screenLine(level, view), ElementsAre(ViewPoint{10, 60.5}, ViewPoint{60, 60.5}));
  EXPECT_EQ(screenLine(roughly, view)[0].y, 60.5);
  const LinePrimitive sloping{{{10, 40}, {60, 41}}, colours::black};
  EXPECT_THAT(screenLine(sloping, view), ElementsAre(ViewPoint{10, 60}, ViewPoint{60, 59}));
}

TEST(ScreenGeometry, KeepsGapsBetweenBoxesEqual) {
  const ViewSize view{1000, 100};
  for (int i = 0; i < 50; ++i) {
    const double pitch = 13.37;
    const BoxPrimitive box{{10 + i * pitch + 1, 5, pitch - 2, 20}, {}, {}};
    const BoxPrimitive next{{10 + (i + 1) * pitch + 1, 5, pitch - 2, 20}, {}, {}};
    const ViewRect place = screenBox(box, view);
    EXPECT_EQ(screenBox(next, view).left - place.right(), 3) << "outlines two pixels apart";
  }
}

}  // namespace
}  // namespace tolmer
