#include "shell/all_displays.h"

#include <cstddef>

#include "graphs/residual_histogram.h"
#include "graphs/standardized_histogram.h"
#include "tables/anova_table.h"
#include "tables/coefficient_table.h"

namespace tolmer {
namespace {

using Maker = std::unique_ptr<DisplayWindow> (*)(Desktop&, AnalysisState&, DisplayHost&);

template <class Display>
std::unique_ptr<DisplayWindow> make(Desktop& desktop, AnalysisState& state, DisplayHost& host) {
  return std::make_unique<Display>(desktop, state, host);
}

struct Entry {
  int iCategory;
  int iIndex;
  Maker make;
};

constexpr std::array entries = {
    Entry{graphDisplays, 1, make<frmResidHist>},
    Entry{graphDisplays, 2, make<frmStdResidHist>},
    Entry{tableDisplays, 1, make<frmEstCoef>},
    Entry{tableDisplays, 2, make<frmANOVA>},
};

Maker makerOf(int iCategory, int iIndex) {
  for (const Entry& entry : entries)
    if (entry.iCategory == iCategory && entry.iIndex == iIndex) return entry.make;
  return nullptr;
}

}  // namespace

AllDisplays::AllDisplays(Desktop& desktop, AnalysisState& state, DisplayHost& host)
    : desktop_(desktop), state_(state), host_(host) {}

bool AllDisplays::exists(int iCategory, int iIndex) {
  return makerOf(iCategory, iIndex) != nullptr;
}

DisplayWindow* AllDisplays::display(int iCategory, int iIndex) {
  const Maker maker = makerOf(iCategory, iIndex);
  if (!maker) return nullptr;
  auto& place = displays_[static_cast<std::size_t>(iCategory)][static_cast<std::size_t>(iIndex)];
  if (!place) {
    place = maker(desktop_, state_, host_);
    if (created) created(*place);
  }
  return place.get();
}

void AllDisplays::updateShown() {
  for (int iCategory = 1; iCategory <= lastCategory; ++iCategory)
    for (int iIndex = 1; iIndex <= lastIndex; ++iIndex)
      if (state_.iDisplayState(iCategory, iIndex) == displayShown)
        if (DisplayWindow* shown = display(iCategory, iIndex)) shown->UpdateDisplay();
}

}  // namespace tolmer
