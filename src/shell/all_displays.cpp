#include "shell/all_displays.h"

#include <cstddef>

#include "displaywindows/graph_window.h"
#include "displaywindows/interpretation_window.h"
#include "displaywindows/table_window.h"

namespace tolmer {
namespace {

// The window that suits what a display has to show.
struct WindowMaker {
  Desktop& desktop;
  AnalysisState& state;
  DisplayHost& host;
  const Display& display;

  std::unique_ptr<DisplayWindow> operator()(TableMaker) const { return make<TableWindow>(); }
  std::unique_ptr<DisplayWindow> operator()(TextMaker) const { return make<frmInterpretation>(); }
  std::unique_ptr<DisplayWindow> operator()(GraphMaker) const {
    if (display.id.iCategory == scatterDisplays) return make<ScatterWindow>();
    return make<GraphWindow>();
  }

 private:
  template <class Kind>
  std::unique_ptr<DisplayWindow> make() const {
    return std::make_unique<Kind>(desktop, state, host, display);
  }
};

}  // namespace

AllDisplays::AllDisplays(Desktop& desktop, AnalysisState& state, DisplayHost& host)
    : desktop_(desktop), state_(state), host_(host), displays_(displayList().size()) {}

DisplayWindow* AllDisplays::display(int iCategory, int iIndex) {
  const Display* found = findDisplay({iCategory, iIndex});
  return found ? &display(*found) : nullptr;
}

DisplayWindow& AllDisplays::display(const Display& display) {
  auto& place = displays_[&display - displayList().data()];
  if (!place) {
    place = std::visit(WindowMaker{desktop_, state_, host_, display}, display.make);
    if (created) created(*place);
  }
  return *place;
}

void AllDisplays::updateShown() { visitShown(&DisplayWindow::UpdateDisplay); }

void AllDisplays::showRemarks() { visitShown(&DisplayWindow::showRemarks); }

void AllDisplays::showCases() { visitShown(&DisplayWindow::showCases); }

void AllDisplays::visitShown(void (DisplayWindow::*what)()) {
  for (const Display& one : displayList())
    if (state_.iDisplayState(one.id.iCategory, one.id.iIndex) == displayShown)
      (display(one).*what)();
}

}  // namespace tolmer
