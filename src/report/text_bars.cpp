#include "report/text_bars.h"

#include <algorithm>
#include <cmath>
#include <span>
#include <vector>

#include "engine/number_format.h"
#include "engine/number_picture.h"
#include "report/text_layout.h"

namespace tolmer {
namespace {

constexpr int barColumns = 40;
constexpr int decadeColumns = 13;
constexpr int decades = 3;  // of the VIF chart's scale

struct Bar {
  std::string label;
  int eighths;
  std::string figure;
};

std::string barLines(const std::vector<Bar>& bars) {
  std::size_t width = 0;
  for (const Bar& bar : bars) width = std::max(width, terminalWidth(bar.label));
  std::string text;
  for (const Bar& bar : bars)
    text += "  " + padded(bar.label, width, Align::right) + " │" + barText(bar.eighths) +
            (bar.eighths > 0 ? " " : "") + bar.figure + "\n";
  return text;
}

// Class i lies between limits i - 1 and i; the longest bar fills the columns.
std::string classBars(const std::vector<std::string>& limits, std::span<const Int16> counts) {
  const int largest = *std::max_element(counts.begin(), counts.end());
  if (largest == 0) return "  No residual lies in a class.\n";
  std::size_t width = 0;
  for (const std::string& limit : limits) width = std::max(width, terminalWidth(limit));
  std::vector<Bar> bars;
  for (std::size_t i = 0; i < counts.size(); ++i) {
    const int eighths = (counts[i] * barColumns * 8 + largest / 2) / largest;
    bars.push_back({padded(limits[i], width, Align::right) + " to " +
                        padded(limits[i + 1], width, Align::right),
                    counts[i] > 0 ? std::max(eighths, 1) : 0, std::to_string(counts[i])});
  }
  return barLines(bars);
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

// As the table of coefficients shows it.
std::string inflationText(float sVIF) { return formatNumber(sVIF, sVIF > 999.99 ? "0" : "0.0"); }

// The scale below bars whose ground line stands in `column`.
std::string logarithmicScale(std::size_t column) {
  std::string line = std::string(column, ' ') + "└";
  std::string labels = std::string(column, ' ') + "1";
  for (const char* label : {"10", "100", "1000"}) {
    for (int i = 1; i < decadeColumns; ++i) line += "─";
    line += "┴";
    column += decadeColumns;
    labels += std::string(column - labels.size(), ' ') + label;
  }
  return line + "\n" + labels + "\n";
}

}  // namespace

std::string residualBars(const AnalysisState& state) {
  if (state.iNumResidClasses < 1) return {};
  return classBars(classLimits(state),
                   std::span(state.iResidClassCount)
                       .subspan(1, static_cast<std::size_t>(state.iNumResidClasses)));
}

std::string standardizedBars(const AnalysisState& state) {
  if (state.iNumResidClasses < 1) return {};
  std::vector<std::string> limits;
  for (int z = -4; z <= 4; ++z) limits.push_back(std::to_string(z));
  return classBars(limits, std::span(state.iStdResidClassCount).subspan(1, 8));
}

std::string inflationBars(const AnalysisState& state, const Graph& chart) {
  const GraphSettings& settings = chart.settings;
  const auto count = static_cast<std::size_t>(chart.numPoints());
  if (count < 2 || settings.pointLabels.size() < count || state.sVIF.size() <= count) return {};
  std::vector<Bar> bars;
  std::size_t width = 0;
  for (std::size_t i = 0; i < count; ++i) {
    const double length = std::min<double>(settings.points[i].value, decades) * decadeColumns * 8;
    bars.push_back({settings.pointLabels[i], static_cast<int>(std::lround(length)),
                    inflationText(state.sVIF[i + 1])});
    width = std::max(width, terminalWidth(bars.back().label));
  }
  return barLines(bars) + logarithmicScale(width + 3);
}

}  // namespace tolmer
