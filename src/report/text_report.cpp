#include "report/text_report.h"

#include <algorithm>

#include "base/text_encoding.h"
#include "engine/number_format.h"
#include "engine/number_picture.h"
#include "report/display_table.h"
#include "report/grid_table.h"
#include "report/text_layout.h"

namespace tolmer {
namespace {

constexpr std::size_t lineWidth = 78;
constexpr int barColumns = 40;

std::string heading(std::string_view text, bool coloured) {
  const std::string line = coloured ? "\x1b[1m" + std::string(text) + "\x1b[0m" : std::string(text);
  return "\n" + line + "\n\n";
}

std::string messagesText(const ReportRun& run) {
  std::string text;
  for (const AnsweredBox& message : run.messages())
    text += wrapped("! " + message.box.text, lineWidth, 0) + "\n";
  return text;
}

std::string tableSection(ReportRun& run, int iIndex, bool coloured) {
  const DisplayWindow& window = *run.display(tableDisplays, iIndex);
  return heading(window.caption(), coloured) +
         tableText(displayTable(*std::get<const Grid*>(window.shownControl())), coloured);
}

// The class limits in one number picture, by the rule that labels the histogram's axis.
std::vector<std::string> classLimits(const AnalysisState& state) {
  const int count = state.iNumResidClasses + 1;
  const std::string picture =
      FindFormatString(state.sResidClassLimit, count, 3, 7, false, true, false, true);
  std::vector<std::string> limits;
  for (int i = 1; i <= count; ++i)
    limits.push_back(formatNumber(state.sResidClassLimit[static_cast<std::size_t>(i)], picture));
  return limits;
}

// The bar of a class among bars of which the longest fills the columns.
std::string classBar(int count, int largest) {
  const int eighths = (count * barColumns * 8 + largest / 2) / largest;
  return barText(count > 0 ? std::max(eighths, 1) : 0);
}

std::string histogramLines(const AnalysisState& state) {
  const auto limits = classLimits(state);
  std::size_t width = 0;
  for (const std::string& limit : limits) width = std::max(width, terminalWidth(limit));
  const auto& counts = state.iResidClassCount;
  const int largest = *std::max_element(counts.begin() + 1, counts.end());
  if (largest == 0) return "  No residual lies in a class.\n";
  std::string text;
  for (std::size_t i = 1; i < limits.size(); ++i)
    text += "  " + padded(limits[i - 1], width, Align::right) + " to " +
            padded(limits[i], width, Align::right) + " │" + classBar(counts[i], largest) +
            (counts[i] > 0 ? " " : "") + std::to_string(counts[i]) + "\n";
  return text;
}

std::string histogramSection(ReportRun& run, bool coloured) {
  const DisplayWindow* window = run.display(graphDisplays, 1);
  if (!window || run.state().iNumResidClasses < 1) return {};
  return heading(window->caption(), coloured) + histogramLines(run.state());
}

std::string counted(int count, const std::string& noun) {
  return std::to_string(count) + " " + noun + (count == 1 ? "" : "s");
}

std::string summaryLine(const AnalysisState& state) {
  return state.tDataFileName + ": " + counted(state.iNumCases, "case") + ", " +
         counted(state.iNumPredictors, "independent variable") +
         (state.bUseIntercept ? "" : ", no intercept");
}

}  // namespace

std::string textReport(ReportRun& run, bool coloured) {
  std::string text = messagesText(run);
  if (!text.empty()) text += "\n";
  text += wrapped(summaryLine(run.state()), lineWidth, 0) + "\n\n";
  text += wrapped(run.equation(), lineWidth, 2) + "\n";
  constexpr int coefficients = 1;
  constexpr int anova = 2;
  text += tableSection(run, coefficients, coloured);
  text += tableSection(run, anova, coloured);
  text += histogramSection(run, coloured);
  return text;
}

}  // namespace tolmer
