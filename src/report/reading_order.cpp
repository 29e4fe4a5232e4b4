#include "report/reading_order.h"

#include <algorithm>
#include <array>

namespace tolmer {
namespace {

constexpr std::array<std::string_view, 14> readingOrder = {
    "frmInterpretation", "frmANOVA",        "frmEstCoef",      "frmDescStats",    "frmCorrMatrix",
    "frmResidList",      "frmDataList",     "frmResidHist",    "frmStdResidHist", "frmProbPlot",
    "frmVIFPlot",        "frmScatterPlot1", "frmScatterPlot2", "frmScatterPlot3"};

// A display without a place comes last.
auto placeOf(const ReportedDisplay& display) {
  return std::find(readingOrder.begin(), readingOrder.end(), display.name);
}

}  // namespace

std::vector<ReportedDisplay> inReadingOrder(ReportRun& run) {
  auto displays = run.displays();
  std::stable_sort(displays.begin(), displays.end(),
                   [](const ReportedDisplay& one, const ReportedDisplay& other) {
                     return placeOf(one) < placeOf(other);
                   });
  return displays;
}

bool isCaseList(const ReportedDisplay& display) {
  return display.name == "frmResidList" || display.name == "frmDataList";
}

}  // namespace tolmer
