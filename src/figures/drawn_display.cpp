#include "figures/drawn_display.h"

#include <algorithm>

#include "figures/field_lines.h"
#include "report/csv_reader.h"
#include "report/plot_axes.h"

namespace tolmer {
namespace {

constexpr std::string_view scatterName = "frmScatterPlot";

Result<std::string> takeWord(DisplayChoice& choice, const std::string& word) {
  if (word == "no-line") {
    choice.regressionLine = false;
  } else if (word == "no-correlation") {
    choice.correlation = false;
  } else if (const std::size_t colon = word.find(':'); colon != word.npos) {
    choice.x = word.substr(0, colon);
    choice.y = word.substr(colon + 1);
  } else {
    return Error{"", "\"" + word + "\" is neither a pair of axes nor an option of a display"};
  }
  return word;
}

// 0 where the display is no scatter plot.
int scatterNumber(const DisplayChoice& choice) {
  if (!choice.name.starts_with(scatterName)) return 0;
  return choice.name.back() - '0';
}

}  // namespace

Result<DisplayChoice> displayChoice(std::string_view text) {
  DisplayChoice choice;
  for (const std::string& word : wordsOf(text)) {
    if (choice.name.empty())
      choice.name = word;
    else if (auto taken = takeWord(choice, word); !taken)
      return taken.error();
  }
  return choice;
}

Result<std::unique_ptr<AnalysedModel>> AnalysedModel::open(const CourseModel& model,
                                                           const std::string& dataFolder) {
  const auto copy = modelledData(model, dataFolder);
  if (!copy) return copy.error();
  std::unique_ptr<AnalysedModel> analysed(new AnalysedModel(*copy));
  analysed->run_.analyse(*copy);
  return analysed;
}

std::optional<Error> AnalysedModel::chooseAxes(const DisplayChoice& choice) {
  const int plot = scatterNumber(choice);
  if (plot == 0) return std::nullopt;
  state_.iCurrentPlot = static_cast<Int16>(plot);
  if (choice.x.empty()) return std::nullopt;
  const auto axes = plotAxesByName(copy_, {{plot, choice.x, choice.y}});
  if (!axes) return axes.error();
  state_.iPlotXVar.at(static_cast<std::size_t>(plot)) = axes->front().x;
  state_.iPlotYVar.at(static_cast<std::size_t>(plot)) = axes->front().y;
  return std::nullopt;
}

Result<DisplayWindow*> AnalysedModel::draw(const DisplayChoice& choice, DisplaySize size) {
  state_ = run_.state();
  state_.bShowRegressionLine = choice.regressionLine;
  state_.bShowCorrelation = choice.correlation;
  displays_ = std::make_unique<AllDisplays>(desktop_, state_, host_);
  DisplayWindow* found = nullptr;
  for (const auto [iCategory, iIndex] : AllDisplays::ids())
    if (DisplayWindow* display = displays_->display(iCategory, iIndex);
        display->name() == choice.name)
      found = display;
  if (!found) return Error{"", "there is no display \"" + choice.name + "\""};
  if (auto error = chooseAxes(choice)) return *error;
  // Its size changes before there is anything to draw at the new one.
  state_.bProcessResize = false;
  found->setPlace(
      {0, 0, pixels(static_cast<float>(size.width)), pixels(static_cast<float>(size.height))});
  found->PositionControls();
  state_.bProcessResize = true;
  found->UpdateDisplay();
  return found;
}

}  // namespace tolmer
