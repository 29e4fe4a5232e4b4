#include "displaywindows/graph_window.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "base/sentence_parts.h"
#include "displays/case_words.h"
#include "platform/desktop.h"
#include "platform/graph/svg_writer.h"

namespace tolmer {

GraphWindow::GraphWindow(Desktop& desktop, AnalysisState& state, DisplayHost& host,
                         const Display& display)
    : DisplayWindow(desktop, state, host, display), graph_(this, display.control) {
  GraphPointer = &graph_;
  graph_.setAccessibleName(display.caption);
  graph_.Click = [this] {
    if (display_.keepsPanel)
      host_.axisListsDisabled();
    else
      UpdateControls();
  };
  graph_.Pick = [this](const std::vector<int>& cases, ClickKeys held) { pick(cases, held); };
  graph_.describe = [this](const CaseMark& mark) { return wordsOn(mark); };
  graph_.MouseUp = [this](MouseButton button) { Form_MouseUp(button); };
  Resize = [this] { Form_Resize(); };
}

void GraphWindow::Form_MouseUp(MouseButton button) {
  if (state() == WindowState::maximised)
    activate();
  else
    DisplayWindow::Form_MouseUp(button);
}

void GraphWindow::Form_Resize() {
  if (!state_.bProcessResize) return;
  FitGraphToForm();
  const UpdateLock lock(*this);
  UpdateDisplay();
}

void GraphWindow::FitGraphToForm() {
  state_.bProcessResize = false;
  graph_.setPlace({0, 0, innerWidth(), innerHeight()});
  state_.bProcessResize = true;
}

void GraphWindow::drawDisplay() {
  if (!hasFit(state_)) return;
  shown_ = std::get<GraphContent>(content(graph_.viewSize()));
  graph_.show(std::move(shown_.plot), marksOfBars(shown_));
  graph_.setTip(shown_.tip);
  graph_.setAccessibleDescription(shown_.description);
  showCases();
}

void GraphWindow::showCases() {
  const CaseSelection* selection = host_.selectedCases();
  if (!selection) return;
  graph_.light({.cases = selection->cases(),
                .current = selection->current(),
                .nameOf = [this](int iCase) { return shortNameOf(state_, iCase); }});
}

// Of a bar with a part of its cases selected, by keys that step through them, which these are.
std::string GraphWindow::wordsOn(const CaseMark& mark) const {
  if (!mark.isBar) return wordsOnPoint(state_, shown_, mark.cases.front());
  std::vector<int> selected;
  for (const int one : mark.cases)
    if (isLit(graph_.lit(), one)) selected.push_back(one);
  const auto bar = std::find_if(shown_.bars.begin(), shown_.bars.end(),
                                [&mark](const auto& one) { return one.cases == mark.cases; });
  const std::string words = bar == shown_.bars.end() ? "" : wordsOnBar(state_, *bar);
  if (selected.empty() || selected == mark.cases) return words;
  return words + "; selected " + casesInWords(selected, caseLabels(state_));
}

void GraphWindow::CopyGraph() {
  ClipboardContent copy;
  const CaseSelection* selection = host_.selectedCases();
  const bool showsCases = selection && selection->isShownInCopies;
  copy.svg = writeSvg(showsCases ? graph_.picture() : graph_.plot().picture(), display_.caption,
                      graph_.accessibleDescription() +
                          (showsCases ? wordsOnSelected(state_, shown_, selection->cases()) : ""));
  desktop().setClipboard(copy);
}

ScatterWindow::ScatterWindow(Desktop& desktop, AnalysisState& state, DisplayHost& host,
                             const Display& display)
    : GraphWindow(desktop, state, host, display) {
  Activate = [this] { UpdateControls(); };
  ScatterWindow::UpdateControls();
}

void ScatterWindow::drawDisplay() {
  GraphWindow::drawDisplay();
  const auto plot = static_cast<std::size_t>(display_.id.iIndex);
  state_.iSavedPlotXVar[plot] = state_.iPlotXVar[plot];
  state_.iSavedPlotYVar[plot] = state_.iPlotYVar[plot];
  state_.bDrawnRegressionLine[plot] = state_.bShowRegressionLine;
  state_.bDrawnCorrelation[plot] = state_.bShowCorrelation;
  host_.scatterPlotDrawn();
}

void ScatterWindow::UpdateControls() {
  state_.iCurrentPlot = static_cast<Int16>(display_.id.iIndex);
  host_.controlsEnabled();
}

}  // namespace tolmer
