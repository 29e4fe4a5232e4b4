#include "displays/display_list.h"

#include <algorithm>
#include <array>

#include "graphs/residual_plots.h"
#include "graphs/scatter_plot.h"
#include "graphs/vif_chart.h"
#include "state/analysis_state.h"
#include "tables/anova_table.h"
#include "tables/case_lists.h"
#include "tables/coefficient_table.h"
#include "tables/correlation_table.h"
#include "tables/description_table.h"

namespace tolmer {
namespace {

template <int iNumber>
GraphContent scatterPlotOf(const AnalysisState& state, ViewSize size, MessagePort& messages) {
  return scatterPlot(state, iNumber, size, messages);
}

TableContent coefficients(const AnalysisState& state) { return coefficientTable(state); }

// What few displays have: see Display.
struct Exceptions {
  const char* popupWords = nullptr;  // the menu's where there are none
  bool listsCases = false;
  bool showsFit = true;
  bool keepsPanel = false;
};

template <class Maker>
constexpr Display display(DisplayId id, const char* form, const char* word, const char* control,
                          const char* caption, const char* menuWords, int readingPlace, Maker make,
                          const Exceptions& own = {}) {
  const char* popupWords = own.popupWords ? own.popupWords : menuWords;
  return {id,         form,         word, control,        caption,      menuWords,
          popupWords, readingPlace, make, own.listsCases, own.showsFit, own.keepsPanel};
}

constexpr std::array list = {
    display({graphDisplays, 1}, "frmResidHist", "histogram", "gphResidHist",
            "Histogram of Residuals", "&Residual Histogram", 8, residualHistogram),
    display({graphDisplays, 2}, "frmStdResidHist", "standardized", "gphStdResidHist",
            "Histogram of Standardized Residuals", "Residual &Standardized Histogram", 9,
            standardizedHistogram),
    display({graphDisplays, 3}, "frmProbPlot", "normality", "gphProbPlot",
            "Normality Plot for Residuals", "Residual &Normality Plot", 10, normalityPlot),
    display({graphDisplays, 4}, "frmVIFPlot", "vif", "gphVIF", "Variance Inflation Factors",
            "&VIF Chart", 11, vifChart, {.popupWords = "&VIF Plot", .keepsPanel = true}),
    display({scatterDisplays, 1}, "frmScatterPlot1", "plot1", "gphScatter", "Scatter Plot 1",
            "Scatter Plot &1", 12, scatterPlotOf<1>),
    display({scatterDisplays, 2}, "frmScatterPlot2", "plot2", "gphScatter", "Scatter Plot 2",
            "Scatter Plot &2", 13, scatterPlotOf<2>),
    display({scatterDisplays, 3}, "frmScatterPlot3", "plot3", "gphScatter", "Scatter Plot 3",
            "Scatter Plot &3", 14, scatterPlotOf<3>),
    display({tableDisplays, 1}, "frmEstCoef", "coefficients", "spdEstCoef",
            "Estimated Coefficients", "&Estimated Coefficients", 3, coefficients),
    display({tableDisplays, 2}, "frmANOVA", "anova", "spdANOVA", "ANOVA Table",
            "&ANOVA Calculations", 2, anovaTable, {.popupWords = "&ANOVA Table"}),
    display({tableDisplays, 3}, "frmResidList", "residuals", "spdResidList", "Residual List",
            "&Residual List", 6, residualList, {.listsCases = true}),
    display({tableDisplays, 4}, "frmDataList", "data", "spdDataList", "Data List", "&Data List", 7,
            dataList, {.listsCases = true, .showsFit = false}),
    display({tableDisplays, 5}, "frmCorrMatrix", "correlations", "spdCorrMatrix",
            "Correlation Matrix", "&Correlation Matrix", 5, correlationTable,
            {.popupWords = "&Correlation matrix", .showsFit = false}),
    display({tableDisplays, 6}, "frmDescStats", "statistics", "spdDescStats",
            "Descriptive Statistics", "Descriptive &Statistics", 4, descriptionTable,
            {.showsFit = false}),
    display({textDisplays, 1}, "frmInterpretation", "interpretation", "txtInterpretation",
            "Interpretation", "&Interpretation", 1, interpretation)};

template <class Condition>
const Display* find(const Condition& condition) {
  const auto* found = std::find_if(list.begin(), list.end(), condition);
  return found == list.end() ? nullptr : found;
}

struct ContentMaker {
  const AnalysisState& state;
  ViewSize size;
  MessagePort& messages;

  DisplayContent operator()(TableMaker make) const { return make(state); }
  DisplayContent operator()(TextMaker make) const { return make(state); }
  DisplayContent operator()(GraphMaker make) const {
    if (!hasFit(state)) return GraphContent{};
    GraphContent content = make(state, size, messages);
    if (state.Fit.bSingular) content.description.insert(0, "No valid fit. ");
    return content;
  }
};

}  // namespace

std::span<const Display> displayList() { return list; }

const Display* findDisplay(DisplayId id) {
  return find([id](const Display& display) { return display.id == id; });
}

const Display* findDisplay(std::string_view form) {
  return find([form](const Display& display) { return display.form == form; });
}

std::vector<const Display*> inReadingOrder() {
  std::vector<const Display*> displays;
  for (const Display& display : list) displays.push_back(&display);
  std::stable_sort(displays.begin(), displays.end(), [](const Display* one, const Display* other) {
    return one->readingPlace < other->readingPlace;
  });
  return displays;
}

bool hasFit(const AnalysisState& state) { return state.iCompletedFits > 0 && isAnalysed(state); }

std::string fitMark(const AnalysisState& state) {
  return state.Fit.bSingular ? " (no valid fit)" : "";
}

std::string titleOf(const Display& display, const AnalysisState& state) {
  return display.caption + (display.showsFit ? fitMark(state) : "");
}

DisplayContent contentOf(const Display& display, const AnalysisState& state, ViewSize size,
                         MessagePort& messages) {
  return std::visit(ContentMaker{state, size, messages}, display.make);
}

void InitDisplayTable(AnalysisState& state) {
  int rows = 4;
  int columns = 6;
  for (const Display& display : list) {
    rows = std::max(rows, display.id.iCategory);
    columns = std::max(columns, display.id.iIndex);
  }
  state.iDisplayState.resize(rows, columns);
  for (int category = 1; category <= rows; ++category)
    for (int index = 1; index <= columns; ++index)
      state.iDisplayState(category, index) =
          findDisplay({category, index}) ? displayHidden : noSuchDisplay;
}

}  // namespace tolmer
