#include "shell/all_displays.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "advice/interpretation.h"
#include "graphs/normality_plot.h"
#include "graphs/residual_histogram.h"
#include "graphs/scatter_plot.h"
#include "graphs/standardized_histogram.h"
#include "graphs/vif_chart.h"
#include "tables/anova_table.h"
#include "tables/coefficient_table.h"
#include "tables/correlation_table.h"
#include "tables/data_list.h"
#include "tables/description_table.h"
#include "tables/residual_list.h"

namespace tolmer {
namespace {

using Maker = std::unique_ptr<DisplayWindow> (*)(Desktop&, AnalysisState&, DisplayHost&);

template <class Display>
std::unique_ptr<DisplayWindow> make(Desktop& desktop, AnalysisState& state, DisplayHost& host) {
  return std::make_unique<Display>(desktop, state, host);
}

template <int iNumber>
std::unique_ptr<DisplayWindow> makeScatterPlot(Desktop& desktop, AnalysisState& state,
                                               DisplayHost& host) {
  return std::make_unique<frmScatterPlot>(desktop, state, host, iNumber);
}

struct Entry {
  DisplayId id;
  Maker make;
};

constexpr std::array entries = {
    Entry{{graphDisplays, 1}, make<frmResidHist>},
    Entry{{graphDisplays, 2}, make<frmStdResidHist>},
    Entry{{graphDisplays, 3}, make<frmProbPlot>},
    Entry{{graphDisplays, 4}, make<frmVIFPlot>},
    Entry{{scatterDisplays, 1}, makeScatterPlot<1>},
    Entry{{scatterDisplays, 2}, makeScatterPlot<2>},
    Entry{{scatterDisplays, 3}, makeScatterPlot<3>},
    Entry{{tableDisplays, 1}, make<frmEstCoef>},
    Entry{{tableDisplays, 2}, make<frmANOVA>},
    Entry{{tableDisplays, 3}, make<frmResidList>},
    Entry{{tableDisplays, 4}, make<frmDataList>},
    Entry{{tableDisplays, 5}, make<frmCorrMatrix>},
    Entry{{tableDisplays, 6}, make<frmDescStats>},
    Entry{{textDisplays, 1}, make<frmInterpretation>},
};

constexpr auto allIds = [] {
  std::array<DisplayId, entries.size()> ids{};
  std::transform(entries.begin(), entries.end(), ids.begin(),
                 [](const Entry& entry) { return entry.id; });
  return ids;
}();

// entries.size() for a pair that names no display.
std::size_t find(DisplayId id) {
  return static_cast<std::size_t>(std::find(allIds.begin(), allIds.end(), id) - allIds.begin());
}

}  // namespace

AllDisplays::AllDisplays(Desktop& desktop, AnalysisState& state, DisplayHost& host)
    : desktop_(desktop), state_(state), host_(host), displays_(entries.size()) {}

std::span<const DisplayId> AllDisplays::ids() { return allIds; }

bool AllDisplays::exists(int iCategory, int iIndex) {
  return find({iCategory, iIndex}) < entries.size();
}

DisplayWindow* AllDisplays::display(int iCategory, int iIndex) {
  const std::size_t at = find({iCategory, iIndex});
  if (at == entries.size()) return nullptr;
  auto& place = displays_[at];
  if (!place) {
    place = entries[at].make(desktop_, state_, host_);
    if (created) created(*place);
  }
  return place.get();
}

void AllDisplays::updateShown() {
  for (const auto [iCategory, iIndex] : ids())
    if (state_.iDisplayState(iCategory, iIndex) == displayShown)
      display(iCategory, iIndex)->UpdateDisplay();
}

}  // namespace tolmer
