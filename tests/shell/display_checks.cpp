#include "shell/display_checks.h"

#include <gtest/gtest.h>

#include <cmath>
#include <set>

#include "displays/case_words.h"
#include "displaywindows/interpretation_window.h"
#include "displaywindows/table_window.h"
#include "platform/graph/graph.h"
#include "platform/grid/grid.h"
#include "platform/headless/headless_desktop.h"
#include "state/analysis_state.h"
#include "support/recording_host.h"

namespace tolmer::test {
namespace {

// Numbers as they are, to the last bit.
class Bytes {
 public:
  template <class... Numbers>
  void add(Numbers... numbers) {
    (text_.append(reinterpret_cast<const char*>(&numbers), sizeof numbers), ...);
  }
  void add(const std::string& text) { text_ += text + '\n'; }
  void operator()(const BoxPrimitive& box) {
    add(box.place.left, box.place.bottom, box.place.width, box.place.height);
  }
  void operator()(const LinePrimitive& line) {
    for (const ViewPoint& point : line.points) add(point.x, point.y);
    add(line.width, line.dashed);
  }
  void operator()(const SymbolPrimitive& symbol) {
    add(symbol.centre.x, symbol.centre.y, symbol.diameter);
  }
  void operator()(const TextPrimitive& text) {
    add(text.anchor.x, text.anchor.y, text.pixels);
    add(text.text);
  }
  const std::string& text() const { return text_; }

 private:
  std::string text_;
};

using Content = std::variant<std::string, Sheet>;

Content contentOf(const Graph& graph) {
  Bytes bytes;
  bytes.add(graph.accessibleDescription());
  for (const Primitive& primitive : graph.plot().picture().primitives) std::visit(bytes, primitive);
  return bytes.text();
}

// Line and caption of a plot follow the options at its last drawing, not those of now.
Content dataOf(const DisplayWindow& plot) {
  const GraphSettings& settings = plot.GraphPointer->plot().settings;
  Bytes bytes;
  bytes.add(settings.x.title + settings.y.title);
  for (const GraphPoint& point : settings.points) bytes.add(point.x, point.value);
  return bytes.text();
}

// What stands in the control that fills a display.
Content contentOf(const DisplayWindow& display) {
  if (display.display().id.iCategory == scatterDisplays) return dataOf(display);
  if (const auto* table = dynamic_cast<const TableWindow*>(&display)) return table->grid().sheet();
  if (display.GraphPointer) return contentOf(*display.GraphPointer);
  return dynamic_cast<const frmInterpretation&>(display).txtInterpretation.text();
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
  const int current = parts.state.iCurrentPlot;
  const bool isShown =
      current > 0 && parts.state.iDisplayState(scatterDisplays, current) == displayShown;
  frmControlPanel& panel = parts.panel;
  EXPECT_TRUE(panel.visible());
  EXPECT_EQ(panel.tag(), "12");
  EXPECT_TRUE(isShown || !panel.cboXAxisVar.canBeUsed());
  EXPECT_TRUE(isShown || !panel.cmdUpdateGraphs.canBeUsed());
  const auto plot = static_cast<std::size_t>(parts.state.iCurrentPlot);
  const AnalysisState& state = parts.state;
  const bool pending = panel.cboXAxisVar.listIndex() != state.iSavedPlotXVar[plot] ||
                       panel.cboYAxisVar.listIndex() != state.iSavedPlotYVar[plot] ||
                       panel.isOutOfDate(1) || panel.isOutOfDate(2) || panel.isOutOfDate(3);
  EXPECT_EQ(panel.tmrFlashUpdate.enabled(), pending);
}

void expectInPlace(const ShellParts& parts, const Window& child) {
  const AnalysisState& state = parts.state;
  const Rect place{child.tag()[1] == '1' ? 0 : state.sQuadrantWidth,
                   child.tag()[0] == '1' ? 0 : state.sQuadrantHeight, state.sQuadrantWidth,
                   state.sQuadrantHeight};
  EXPECT_TRUE(child.place() == place) << child.name();
  EXPECT_TRUE(child.state() != WindowState::maximised || parts.frame.activeChild() == &child)
      << child.name() << " is maximised behind the others";
}

FreshDisplays::Drawn drawnAnew(AnalysisState& state, Size inner, const Display& display) {
  HeadlessDesktop desktop;
  RecordingHost host;
  auto ofPlots = std::tie(state.iCurrentPlot, state.iSavedPlotXVar, state.iSavedPlotYVar,
                          state.bDrawnRegressionLine, state.bDrawnCorrelation);
  const auto before = std::tuple(state.iCurrentPlot, state.iSavedPlotXVar, state.iSavedPlotYVar,
                                 state.bDrawnRegressionLine, state.bDrawnCorrelation);
  AllDisplays displays(desktop, state, host);
  DisplayWindow& fresh = displays.display(display);
  fresh.reportInnerSize(inner);
  fresh.UpdateDisplay();
  ofPlots = before;
  return {fresh.caption(), contentOf(fresh)};
}

}  // namespace

void expectSoundQuadrants(ShellParts& parts) {
  std::set<std::string> places;
  for (const Display& entry : displayList()) {
    const DisplayId id = entry.id;
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
  places.insert("12");  // the panel's
  for (const Window* child : parts.frame.childWindows()) {
    if (!child->visible()) continue;
    EXPECT_EQ(places.erase(child->tag()), 1U) << child->name() << " is one too many";
    expectInPlace(parts, *child);
  }
  expectPanelFitsPlots(parts);
  EXPECT_TRUE(parts.state.bProcessResize);
  EXPECT_FALSE(parts.state.bAllowUnload);
  EXPECT_EQ(parts.frame.updateLocks(), 0);
}

void expectSelectedCasesLit(ShellParts& parts) {
  const std::vector<int>& cases = parts.cases.cases();
  EXPECT_TRUE(cases.empty() || (cases.front() >= 1 && cases.back() <= parts.state.iNumCases));
  EXPECT_EQ(cases.empty(), parts.cases.current() == 0);
  for (const Display& entry : displayList()) {
    if (parts.state.iDisplayState(entry.id.iCategory, entry.id.iIndex) != displayShown) continue;
    const DisplayWindow& display = parts.displays.display(entry);
    if (display.GraphPointer) {
      EXPECT_EQ(display.GraphPointer->lit().cases, cases) << display.name();
    }
    const auto* table = dynamic_cast<const TableWindow*>(&display);
    if (!table || !entry.listsCases) continue;
    std::vector<int> lit;
    for (const int row : table->grid().litRows())
      lit.push_back(std::stoi(table->grid().text(row, 1)));
    EXPECT_EQ(lit, cases) << display.name();
  }
  if (!parts.caseWindow.visible() || !parts.notes.examination()) return;
  EXPECT_EQ(parts.caseWindow.lblCases.caption(),
            cases.empty() ? "No case" : namesOfCases(parts.state, cases));
}

void expectSoundRecord(const AnalysisState& state) {
  const int n = state.iNumCases, K = state.iNumPredictors, columns = state.iNumCols;
  const auto has = [](const auto& array, int last) { return std::ssize(array) == last + 1; };
  ASSERT_TRUE(isAnalysed(state) && n > 0 && K > 0);
  ASSERT_TRUE(state.sData.lastRow() == n && state.sData.lastColumn() == columns);
  ASSERT_TRUE(has(state.tVarName, columns) && has(state.tVarDesc, columns));
  ASSERT_TRUE(has(state.tCaseLabel, n) && has(state.iModelCol, K + 2) &&
              has(state.iVarType, K + 1));
  ASSERT_TRUE(has(state.Fit.sFitted, n) && has(state.sSortedResid, n) && has(state.sVIF, K));
  ASSERT_EQ(state.iNumTerms, state.bUseIntercept ? K + 1 : K);
  ASSERT_TRUE(has(state.Fit.sCoef, state.iNumTerms) && has(state.iTermCol, state.iNumTerms + 1));
  std::set<Int16> model(state.iModelCol.begin() + 1, state.iModelCol.end() - 1);
  ASSERT_EQ(std::ssize(model), K + 1) << "a variable twice";
  ASSERT_TRUE(*model.begin() >= 1 && *model.rbegin() <= columns);
  for (int i = 1; i <= n; ++i)
    for (int j = 0; j <= columns; ++j)
      ASSERT_TRUE(j == 0 ? state.sData(i, 0) == 1 : std::isfinite(state.sData(i, j))) << i << j;
}

void FreshDisplays::expectShown(ShellParts& parts) {
  constexpr int onceInAWhile = 64;
  AnalysisState& state = parts.state;
  if (state.iCompletedFits != fits_ || ++looks_ % onceInAWhile == 0) drawn_.clear();
  fits_ = state.iCompletedFits;
  for (const Display& entry : displayList()) {
    const DisplayId id = entry.id;
    if (state.iDisplayState(id.iCategory, id.iIndex) != displayShown) continue;
    const DisplayWindow& display = parts.displays.display(entry);
    const bool isPlot = id.iCategory == scatterDisplays;
    const auto plot = static_cast<std::size_t>(isPlot ? id.iIndex : 0);
    const Size inner{display.innerWidth(), display.innerHeight()};
    const Key key{id.iCategory,          id.iIndex,   state.iPlotXVar[plot],
                  state.iPlotYVar[plot], inner.width, inner.height};
    auto at = drawn_.find(key);
    if (at == drawn_.end()) at = drawn_.emplace(key, drawnAnew(state, inner, entry)).first;
    EXPECT_TRUE(contentOf(display) == at->second.content) << display.name();
    EXPECT_EQ(display.caption(), at->second.caption);
  }
}

}  // namespace tolmer::test
