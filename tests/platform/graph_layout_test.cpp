#include "platform/graph/layout.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <functional>

#include "platform/graph/picture.h"
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
  std::string name;
  GraphDesign design;
  std::function<void(SampleGraph&)> set;
  friend void PrintTo(const Case& c, std::ostream* out) { *out << c.name; }
};

const std::string longName = "Bevölkerungszuwachs in Württemberg-Übersee";

GraphDesign scatterDesign() { return {{200, 150, 100, 100}, true, "+3SE"}; }

GraphDesign barDesign() {
  GraphDesign design;
  design.scaleAsOverlay = true;
  return design;
}

void setAxes(SampleGraph& graph, std::vector<std::string> below, std::vector<std::string> left,
             std::string leftTitle) {
  SampleGraph::label(graph.settings.x, std::move(below));
  SampleGraph::label(graph.settings.y, std::move(left));
  graph.settings.y.title = std::move(leftTitle);
}

// Values that zigzag between -3e5 and 3e5.
void setPoints(SampleGraph& graph, GraphType type, int count, const std::string& name) {
  graph.settings.graphType = type;
  graph.settings.pointSymbol = 13;
  graph.setNumPoints(count);
  for (int i = 1; i <= count; ++i) {
    graph.setPoint(i, static_cast<float>(i), static_cast<float>((i * 7919) % 601 - 300) * 1000);
    graph.setPointLabel(i, name.empty() ? std::to_string(i) : name + std::to_string(i));
  }
}

void setBars(SampleGraph& graph, int count, const std::string& name) {
  setPoints(graph, GraphType::horizontalBars, count, name);
  graph.settings.x.title = " ";
  graph.settings.y = {};
  graph.settings.y.scaleMode = ScaleMode::userLimits;
  graph.settings.y.maximum = 3;
}

void setLine(SampleGraph& graph, int count, int every, const std::string& name) {
  setPoints(graph, GraphType::lineWithSymbols, count, name);
  graph.settings.labelEvery = every;
  graph.settings.tickEvery = every;
  graph.settings.x.title = "Order of Entry";
  graph.settings.y = {};
  graph.settings.y.title = longName;
}

const std::vector<Case> cases{
    {"short labels",
     {},
     [](auto& g) {
       setAxes(g, {"0", "20", "40"}, {"0", "1"}, "Frequency");
     }},
    {"wide and many labels",
     {},
     [](auto& g) {
       setAxes(g, {"-1.5E+16", "-1.0E+16", "-5.0E+15", "0.0E+00", "5.0E+15", "1.0E+16", "1.5E+16"},
               {"0", "20", "40", "60", "80", "100", "120", "140", "160", "180", "200"},
               "Frequency");
     }},
    {"no left title", scatterDesign(),
     [](auto& g) {
       setAxes(g, {"-1000", "0", "1000"}, {"-800", "-400", "0", "400"}, "");
     }},
    {"blank labels",
     {},
     [](auto& g) {
       setAxes(g, {" ", "0", " ", "1", " "}, {"0.000", "0.002"}, "Württembg");
     }},
    {"long title", {}, [](auto& g) { setAxes(g, {}, {}, longName + longName + longName); }},
    {"automatic", scatterDesign(),
     [](auto& g) {
       setPoints(g, GraphType::symbols, 500, "");
       g.settings.x = {};
       g.settings.y = {};
       g.settings.lineStatistics = 8;
     }},
    {"one bar", barDesign(), [](auto& g) { setBars(g, 1, "WWWWWWWWWW"); }},
    {"six bars", barDesign(), [](auto& g) { setBars(g, 6, longName); }},
    {"49 bars", barDesign(), [](auto& g) { setBars(g, 49, "Temperatü"); }},
    {"49 bars on a scale of their own",
     {},
     [](auto& g) {
       setBars(g, 49, longName);
       g.settings.y = {};
     }},
    {"line of 500", scatterDesign(), [](auto& g) { setLine(g, 500, 40, ""); }},
    {"line of 500, all labelled", scatterDesign(), [](auto& g) { setLine(g, 500, 1, ""); }},
    {"line with names", {}, [](auto& g) { setLine(g, 12, 1, longName); }},
    {"line of one", scatterDesign(), [](auto& g) { setLine(g, 1, 1, ""); }}};

const std::vector<ViewSize> sizes{{30, 20},    {90, 60},   {150, 100},  {240, 150},
                                  {320, 200},  {480, 280}, {640, 360},  {400, 700},
                                  {1280, 300}, {960, 500}, {1920, 1000}};

// As a display draws on top of its graph.
void drawOverlayTexts(Plot& graph, const GraphDesign& design) {
  DrawingView& view = graph.GSUseView();
  const ViewRect plot = graph.picture().plot;
  if (design.roomForCaption)
    view.GSRText(plot.left, view.GSGetVYExt() - 10, 0x110, "Autocorrelation = 0.219");
  if (!design.textAtRight.empty())
    view.GSRText(plot.right(), plot.bottom + plot.height / 2, 0x100, design.textAtRight);
  if (!design.scaleAsOverlay) return;
  for (const int label : {1, 10, 100, 1000})
    view.GSRText(plot.left + std::log10(label) / 3 * plot.width, plot.bottom - 8, 0x112,
                 std::to_string(label));
  view.GSRText(plot.left, 10, 0x100, "Variance Inflation Factor");
}

// Each label that was given room, each title and each text on top of them stands in the picture:
// none was left out because another one is in its way.
std::size_t textsWithRoom(const GraphLayout& layout, const GraphSettings& settings,
                          const std::vector<OverlayCall>& overlay) {
  std::size_t count = all<TextCall>(overlay).size();
  for (const AxisMarks* marks : {&layout.axes.below, &layout.axes.left})
    for (const AxisMark& mark : *marks) count += isBlank(mark.label) ? 0 : 1;
  for (const Axis* axis : {&settings.x, &settings.y}) count += isBlank(axis->title) ? 0 : 1;
  return count;
}

class GraphLayoutSweep : public testing::TestWithParam<Case> {};

TEST_P(GraphLayoutSweep, TextsNeitherOverlapNorAreCut) {
  for (const ViewSize& size : sizes) {
    SCOPED_TRACE(std::to_string(size.width) + " x " + std::to_string(size.height));
    SampleGraph graph(size.width, size.height, GetParam().design);
    GetParam().set(graph);
    graph.setDrawMode(Plot::draw);
    drawOverlayTexts(graph, GetParam().design);
    test::expectReadable(graph.picture(), true);
    const GraphLayout layout = layOut(graph.settings, GetParam().design, size);
    EXPECT_TRUE(layout.hasText || size.width < 320 || size.height < 200);
    if (layout.hasText)
      EXPECT_EQ(all<TextPrimitive>(graph.picture()).size(),
                textsWithRoom(layout, graph.settings, graph.overlay()));
    else
      EXPECT_THAT(all<TextPrimitive>(graph.picture()), IsEmpty());
  }
}

INSTANTIATE_TEST_SUITE_P(Cases, GraphLayoutSweep, testing::ValuesIn(cases), [](const auto& info) {
  std::string name = info.param.name;
  std::erase_if(name, [](char c) { return c == ' ' || c == ','; });
  return name;
});

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

std::vector<std::string> shown(const AxisMarks& marks) {
  std::vector<std::string> labels;
  for (const AxisMark& mark : marks)
    if (!isBlank(mark.label)) labels.push_back(mark.label);
  return labels;
}

TEST(LabelThinning, KeepsEvenDistancesAndRoundNumbers) {
  SampleGraph graph(240, 150);
  std::vector<std::string> labels;
  for (int i = 0; i <= 20; ++i) labels.push_back(std::to_string(1000 + i));
  SampleGraph::label(graph.settings.x, labels);
  EXPECT_THAT(shown(layOut(graph.settings, {}, {240, 150}).axes.below),
              ElementsAre("1000", "1004", "1008", "1012", "1016", "1020"));
  setLine(graph, 500, 40, "");
  EXPECT_THAT(shown(layOut(graph.settings, {}, {640, 360}).axes.below),
              ElementsAre("40", "80", "120", "160", "200", "240", "280", "320", "360", "400", "440",
                          "480"));
  EXPECT_THAT(shown(layOut(graph.settings, {}, {240, 150}).axes.below),
              ElementsAre("80", "160", "240", "320", "400", "480"));
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
