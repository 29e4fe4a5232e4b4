#include "shell/display_checks.h"

#include <gtest/gtest.h>

#include <set>

#include "displays/unattended_host.h"
#include "platform/graph/graph.h"
#include "platform/graph/svg_writer.h"
#include "platform/grid/grid.h"
#include "platform/headless/headless_desktop.h"

namespace tolmer::test {
namespace {

std::string contentOf(const Graph* graph) {
  return writeSvg(graph->picture(), "", graph->accessibleDescription());
}
std::string contentOf(const Grid* grid) {
  std::string content;
  for (int row = 1; row <= grid->maxRows(); ++row)
    for (int col = 1; col <= grid->maxCols(); ++col) content += grid->text(row, col) + "\t";
  return content;
}
std::string contentOf(const TextBox* box) { return box->text(); }

std::string contentOf(const DisplayWindow& display) {
  return std::visit([](const auto* shown) { return contentOf(shown); }, display.shownControl());
}

void expectMenusAgree(ShellParts& parts, DisplayId id) {
  const bool shown = parts.state.iDisplayState(id.iCategory, id.iIndex) == displayShown;
  for (DisplayMenu* menu : {&parts.frame.displays, &parts.menus.displays}) {
    const MenuItem& entry = *menu->entry(id.iCategory, id.iIndex);
    // With the panel active the main menu has no interpretation to offer.
    if (id.iCategory == textDisplays && menu == &parts.frame.displays && !entry.enabled()) continue;
    EXPECT_EQ(entry.enabled(), !shown) << entry.name();
  }
}

void expectPanelFitsPlots(ShellParts& parts) {
  bool anyPlot = false;
  for (int plot = 1; plot <= 3; ++plot)
    anyPlot = anyPlot || parts.state.iDisplayState(scatterDisplays, plot) == displayShown;
  frmControlPanel& panel = parts.panel;
  EXPECT_TRUE(panel.visible());
  EXPECT_EQ(panel.tag(), "12");
  EXPECT_TRUE(anyPlot || !panel.cboXAxisVar.canBeUsed());
  EXPECT_TRUE(anyPlot || !panel.cmdUpdateGraphs.canBeUsed());
  const auto plot = static_cast<std::size_t>(parts.state.iCurrentPlot);
  const AnalysisState& state = parts.state;
  const bool pending = panel.cboXAxisVar.listIndex() != state.iSavedPlotXVar[plot] ||
                       panel.cboYAxisVar.listIndex() != state.iSavedPlotYVar[plot] ||
                       state.bShowRegressionLine != state.bSavedRegressionLine ||
                       state.bShowCorrelation != state.bSavedCorrelation;
  EXPECT_EQ(panel.tmrFlashUpdate.enabled(), pending);
}

// Line and caption of a plot follow the options at its last drawing, not those of now.
std::string dataOf(const DisplayWindow& plot) {
  const GraphSettings& settings = plot.GraphPointer->settings;
  std::string data = settings.x.title + "\n" + settings.y.title;
  for (const GraphPoint& point : settings.points)
    data += "\n" + std::to_string(point.x) + " " + std::to_string(point.value);
  return data;
}

// The plots draw the choices of the plot that is current.
void expectFreshDisplay(ShellParts& parts, const DisplayWindow& display, DisplayId id) {
  HeadlessDesktop desktop;
  UnattendedHost host;
  AnalysisState& state = parts.state;
  const Int16 iCurrentPlot = state.iCurrentPlot;
  AllDisplays displays(desktop, state, host);
  DisplayWindow& fresh = *displays.display(id.iCategory, id.iIndex);
  if (id.iCategory == scatterDisplays) state.iCurrentPlot = static_cast<Int16>(id.iIndex);
  fresh.reportInnerSize({display.innerWidth(), display.innerHeight()});
  fresh.UpdateDisplay();
  if (id.iCategory == scatterDisplays)
    EXPECT_EQ(dataOf(display), dataOf(fresh)) << display.name();
  else
    EXPECT_EQ(contentOf(display), contentOf(fresh)) << display.name();
  EXPECT_EQ(display.caption(), fresh.caption());
  state.iCurrentPlot = iCurrentPlot;
}

}  // namespace

void expectSoundQuadrants(ShellParts& parts) {
  std::set<std::string> places;
  for (const DisplayId id : AllDisplays::ids()) {
    expectMenusAgree(parts, id);
    if (parts.state.iDisplayState(id.iCategory, id.iIndex) != displayShown) continue;
    const DisplayWindow& display = *parts.displays.display(id.iCategory, id.iIndex);
    EXPECT_TRUE(display.visible()) << display.name();
    const Quadrant& quadrant =
        parts.state.uQuadrant.at(static_cast<std::size_t>(display.tag()[0] - '0'))
            .at(static_cast<std::size_t>(display.tag()[1] - '0'));
    EXPECT_EQ((DisplayId{quadrant.iCategory, quadrant.iIndex}), id) << display.name();
    places.insert(display.tag());
  }
  EXPECT_EQ(places, (std::set<std::string>{"11", "21", "22"}));
  for (const Window* child : parts.frame.childWindows()) {
    const auto* display = dynamic_cast<const DisplayWindow*>(child);
    EXPECT_TRUE(!display || !display->visible() || places.contains(display->tag()));
  }
  expectPanelFitsPlots(parts);
  EXPECT_TRUE(parts.state.bProcessResize);
  EXPECT_FALSE(parts.state.bAllowUnload);
  EXPECT_EQ(parts.frame.updateLocks(), 0);
}

void expectFreshDisplays(ShellParts& parts) {
  for (const DisplayId id : AllDisplays::ids())
    if (parts.state.iDisplayState(id.iCategory, id.iIndex) == displayShown)
      expectFreshDisplay(parts, *parts.displays.display(id.iCategory, id.iIndex), id);
}

}  // namespace tolmer::test
