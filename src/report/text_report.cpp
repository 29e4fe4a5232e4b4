#include "report/text_report.h"

#include "platform/graph/graph.h"
#include "platform/text_box.h"
#include "report/grid_table.h"
#include "report/headed_text.h"
#include "report/reading_order.h"
#include "report/table_text.h"
#include "report/text_bars.h"
#include "report/text_layout.h"

namespace tolmer {
namespace {

constexpr std::size_t lineWidth = 78;
constexpr std::size_t indent = 2;

std::string heading(std::string_view text, bool coloured) {
  const std::string line = coloured ? "\x1b[1m" + std::string(text) + "\x1b[0m" : std::string(text);
  return "\n" + line + "\n\n";
}

std::string messagesText(const ReportRun& run) {
  std::string text;
  for (const std::string& message : run.messageTexts())
    text += wrapped("! " + message, lineWidth, 0) + "\n";
  return text;
}

// What stands below the heading of a display.
struct ShownText {
  const AnalysisState& state;
  std::string_view name;
  bool coloured;

  std::string operator()(const Grid* grid) const {
    return tableText(displayTable(*grid), lineWidth, coloured);
  }

  std::string operator()(const Graph* graph) const {
    const std::string bars = barsOf(*graph);
    return wrapped(graph->accessibleDescription(), lineWidth, indent) + "\n" +
           (bars.empty() ? "" : "\n" + bars);
  }

  std::string operator()(const TextBox* box) const {
    std::string text;
    for (const HeadedPart& part : headedParts(box->text())) {
      if (!text.empty()) text += "\n";
      if (!part.heading.empty()) text += wrapped(part.heading, lineWidth, indent) + "\n";
      for (const std::string_view paragraph : part.paragraphs)
        text += wrapped(paragraph, lineWidth, indent) + "\n";
    }
    return text;
  }

 private:
  std::string barsOf(const Graph& graph) const {
    if (name == "frmResidHist") return residualBars(state);
    if (name == "frmStdResidHist") return standardizedBars(state);
    return name == "frmVIFPlot" ? inflationBars(state, graph) : std::string();
  }
};

std::string counted(int count, const std::string& noun) {
  return std::to_string(count) + " " + noun + (count == 1 ? "" : "s");
}

std::string summaryLine(const ReportRun& run) {
  const AnalysisState& state = run.state();
  return std::string(run.dataFile()) + ": " + counted(state.iNumCases, "case") + ", " +
         counted(state.iNumPredictors, "independent variable") +
         (state.bUseIntercept ? "" : ", no intercept");
}

}  // namespace

std::string textReport(ReportRun& run, bool coloured) {
  std::string text = messagesText(run);
  if (!text.empty()) text += "\n";
  text += wrapped(summaryLine(run), lineWidth, 0) + "\n\n";
  text += wrapped(run.equation(), lineWidth, indent) + "\n";
  for (const ReportedDisplay& display : inReadingOrder(run))
    text +=
        heading(display.window->caption(), coloured) +
        std::visit(ShownText{run.state(), display.name, coloured}, display.window->shownControl());
  return text;
}

}  // namespace tolmer
