#include "platform/graph/svg_writer.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/graph_pictures.h"

namespace tolmer {
namespace {

using testing::HasSubstr;

std::string sampleSvg() {
  test::SampleGraph graph(480, 280);
  graph.settings.x.title = "a < b & \"c\"";
  graph.settings.pointSymbol = 12;
  graph.settings.pointColour = 9;
  graph.setNumPoints(2);
  graph.setPoint(1, 50, 50);
  graph.setPoint(2, 60, 60);
  graph.setDrawMode(Plot::draw);
  DrawingView& view = graph.GSUseView();
  view.GSBox2D(100, 60, 50.005, 80, 128, 9);
  view.GSLineAbs(100, 100, 200, 100, 1, 2, 12);
  return writeSvg(graph.picture(), "Title & more", "One < two.\nThree.");
}

std::size_t count(const std::string& text, const std::string& part) {
  std::size_t found = 0;
  for (auto at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) ++found;
  return found;
}

TEST(Svg, HoldsEveryPrimitive) {
  const std::string svg = sampleSvg();
  EXPECT_THAT(svg, testing::StartsWith("<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"480\""));
  EXPECT_EQ(count(svg, "<circle"), 2U);
  EXPECT_EQ(count(svg, "<g fill=\"#1a4fe0\" fill-opacity=\"0.25\" stroke=\"#1a4fe0\">"), 1U);
  EXPECT_EQ(count(svg, "</g>"), 1U);
  EXPECT_EQ(count(svg, "<rect"), 2U) << "the paper and the bar";
  EXPECT_EQ(count(svg, "<text"), 14U) << "two times six labels and a title";
  EXPECT_THAT(svg, HasSubstr("stroke-dasharray=\"5 3\""));
  EXPECT_THAT(svg, HasSubstr("stroke=\"#d91e18\""));
  EXPECT_THAT(svg, HasSubstr("points=\"100,180.5 200,180.5\""));
  EXPECT_THAT(svg, HasSubstr("rotate(-90 "));
}

TEST(Svg, EscapesTexts) {
  const std::string svg = sampleSvg();
  EXPECT_THAT(svg, HasSubstr("a &lt; b &amp; &quot;c&quot;"));
  EXPECT_THAT(svg, HasSubstr("<title>Title &amp; more</title>"));
  EXPECT_THAT(svg, HasSubstr("<desc>One &lt; two.\nThree.</desc>"));
  EXPECT_EQ(count(svg, "<"), count(svg, ">"));
}

}  // namespace
}  // namespace tolmer
