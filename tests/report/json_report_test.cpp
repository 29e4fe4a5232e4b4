#include "report/json_report.h"

#include <cmath>

#include "report_fixture.h"
#include "tables/mark_colours.h"

namespace tolmer {
namespace {

using test::Json;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;
using ::testing::StartsWith;

using JsonReport = test::ReportFixture;

template <class Array>
void expectArray(const Json& shown, const Array& array, int first, int last) {
  using Value = std::decay_t<decltype(array[0])>;
  ASSERT_EQ(shown.items.size(), static_cast<std::size_t>(last - first + 1));
  for (int i = first; i <= last; ++i) {
    const Json& item = shown[static_cast<std::size_t>(i - first)];
    if constexpr (std::is_same_v<Value, std::string>)
      EXPECT_EQ(item.text, array[static_cast<std::size_t>(i)]);
    else
      EXPECT_EQ(item.number<Value>(), array[static_cast<std::size_t>(i)]);
  }
}

template <class Value>
void expectMatrix(const Json& shown, const Matrix<Value>& matrix) {
  ASSERT_EQ(shown.items.size(), static_cast<std::size_t>(matrix.lastRow()));
  for (int row = 1; row <= matrix.lastRow(); ++row)
    for (int column = 1; column <= matrix.lastColumn(); ++column)
      EXPECT_EQ(shown[static_cast<std::size_t>(row) - 1][static_cast<std::size_t>(column) - 1]
                    .number<Value>(),
                matrix(row, column));
}

TEST_F(JsonReport, GivesTheStateBackExactly) {
  ReportOptions options;
  options.y = "Rent";
  const auto run = analysed(table, options);
  const AnalysisState& state = *run.state;

  const Json document = json({table, "--y", "Rent"});
  EXPECT_THAT(document["messages"].items, IsEmpty());
  EXPECT_THAT(document["equation"].text, StartsWith("Rent = "));
  const Json& shown = document["state"];
  EXPECT_EQ(shown["iNumCases"].number<int>(), 10);
  EXPECT_EQ(shown["iNumPredictors"].number<int>(), 2);
  EXPECT_EQ(shown["iNumTerms"].number<int>(), 3);
  EXPECT_EQ(shown["bUseIntercept"].text, "true");
  EXPECT_EQ(shown["bSingular"].text, "false");
  expectArray(shown["iModelCol"], state.iModelCol, 1, 3);
  expectArray(shown["tVarName"], state.tVarName, 0, 3);
  expectArray(shown["iVarType"], state.iVarType, 1, 3);
  expectArray(shown["tVarFormat"], state.tVarFormat, 1, 3);
  expectMatrix(shown["dDescStat"], state.dDescStat);
  expectMatrix(shown["sCorr"], state.sCorr);
  expectArray(shown["sVIF"], state.sVIF, 1, 2);
  const Fit& fit = state.Fit;
  expectArray(shown["sFitted"], fit.sFitted, 1, 10);
  expectArray(shown["sResid"], fit.sResid, 1, 10);
  expectArray(shown["sCoef"], fit.sCoef, 1, 3);
  expectArray(shown["sCoefSE"], fit.sCoefSE, 1, 3);
  expectArray(shown["sCoefT"], fit.sCoefT, 1, 3);
  expectArray(shown["sCoefP"], fit.sCoefP, 1, 3);
  EXPECT_EQ(shown["sVarCovDiagonal"][2].number<float>(), fit.sVarCov(3, 3));
  const std::pair<const char*, float> scalars[] = {
      {"sSSR", fit.sSSR},           {"sSSE", fit.sSSE},     {"sSST", fit.sSST},
      {"sStdErr", fit.sStdErr},     {"sR", fit.sR},         {"sF", fit.sF},
      {"sRSquared", fit.sRSquared}, {"sFProb", fit.sFProb}, {"sDurbinWatson", fit.sDurbinWatson}};
  for (const auto& [name, value] : scalars) EXPECT_EQ(shown[name].number<float>(), value) << name;
  expectArray(shown["sSortedResid"], state.sSortedResid, 1, 10);
  const int classes = state.iNumResidClasses;
  EXPECT_EQ(shown["iNumResidClasses"].number<int>(), classes);
  expectArray(shown["sResidClassLimit"], state.sResidClassLimit, 1, classes + 1);
  expectArray(shown["iResidClassCount"], state.iResidClassCount, 1, classes);
  EXPECT_EQ(shown["iResidOutside"].number<int>(), state.iResidOutside);
  expectArray(shown["iStdResidClassCount"], state.iStdResidClassCount, 1, 8);
  EXPECT_EQ(shown["iStdResidOutside"].number<int>(), state.iStdResidOutside);
}

// What stands in the report of a display, against its content.
struct ExpectShown {
  const Json& shown;

  void operator()(const FittedEquation& equation) const { EXPECT_EQ(shown.text, equation.text); }
  void operator()(const Sections& sections) const {
    EXPECT_EQ(shown["text"].text, wholeText(sections));
  }

  void operator()(const TableContent& table) const {
    ASSERT_EQ(shown["rows"].number<int>(), table.rows());
    ASSERT_EQ(shown["cols"].number<int>(), table.cols());
    for (int row = 1; row <= table.rows(); ++row)
      for (int col = 1; col <= table.cols(); ++col) {
        const auto r = static_cast<std::size_t>(row) - 1;
        const auto c = static_cast<std::size_t>(col) - 1;
        EXPECT_EQ(shown["cells"][r][c].text, table.at(row, col).text);
        EXPECT_EQ(colourOf(shown["back"][r][c].text), backOf(table.at(row, col)));
      }
  }

  void operator()(const GraphContent& graph) const {
    const GraphSettings& settings = graph.plot.settings;
    EXPECT_EQ(shown["type"].number<int>(), static_cast<int>(settings.graphType));
    EXPECT_EQ(shown["bottomTitle"].text, settings.x.title);
    EXPECT_EQ(shown["leftTitle"].text, settings.y.title);
    const bool isLine = settings.graphType == GraphType::lineWithSymbols;
    expectAxis(shown["x"], settings.x, isLine ? settings.pointLabels : settings.x.labels);
    expectAxis(shown["y"], settings.y, settings.y.labels);
    expectPoints(settings);
    EXPECT_EQ(shown["symbol"].number<int>(), settings.pointSymbol);
    EXPECT_EQ(shown["symbolSize"].number<int>(), settings.symbolSize);
    EXPECT_EQ(shown["lineStatistics"].number<int>(), settings.lineStatistics);
    ASSERT_THAT(shown["overlay"].items, SizeIs(graph.plot.overlay().size()));
    for (std::size_t i = 0; i < graph.plot.overlay().size(); ++i)
      EXPECT_EQ(numbersOf(shown["overlay"][i]), std::visit(numbersOfCall, graph.plot.overlay()[i]));
    EXPECT_EQ(shown["plot"]["left"].number<double>(), graph.plot.SDKInfo(7));
    EXPECT_EQ(shown["plot"]["height"].number<double>(), graph.plot.SDKInfo(6));
  }

 private:
  static Colour colourOf(const std::string& name) {
    if (name == "white") return colours::white;
    if (name == "face") return colours::buttonFace;
    const auto part = [&name](std::size_t at) {
      return std::stoi(name.substr(at, 2), nullptr, 16);
    };
    return Colour::rgb(part(1), part(3), part(5));
  }
  static void expectAxis(const Json& shown, const Axis& axis,
                         const std::vector<std::string>& labels) {
    EXPECT_EQ(shown["mode"].number<int>(), static_cast<int>(axis.scaleMode));
    EXPECT_EQ(shown["min"].number<float>(), axis.minimum);
    EXPECT_EQ(shown["max"].number<float>(), axis.maximum);
    EXPECT_EQ(shown["ticks"].number<int>(), axis.ticks);
    expectTexts(shown["labels"], labels);
  }
  static void expectTexts(const Json& shown, const std::vector<std::string>& texts) {
    ASSERT_THAT(shown.items, SizeIs(texts.size()));
    for (std::size_t i = 0; i < texts.size(); ++i) EXPECT_EQ(shown[i].text, texts[i]);
  }
  void expectPoints(const GraphSettings& settings) const {
    ASSERT_THAT(shown["points"].items, SizeIs(settings.points.size()));
    for (std::size_t i = 0; i < settings.points.size(); ++i) {
      const Json& point = shown["points"][i];
      if (settings.graphType == GraphType::symbols)
        EXPECT_EQ(point[0].number<float>(), settings.points[i].x);
      else
        EXPECT_EQ(point[0].text, "null");
      EXPECT_EQ(point[1].number<float>(), settings.points[i].value);
    }
    EXPECT_EQ(shown.has("pointLabels"), !settings.pointLabels.empty());
    if (!settings.pointLabels.empty()) expectTexts(shown["pointLabels"], settings.pointLabels);
  }
  // All numbers of an overlay call in order.
  static std::vector<double> numbersOf(const Json& call) {
    std::vector<double> numbers;
    for (const Json& item : call.items)
      if (item.kind == Json::Kind::word) numbers.push_back(item.number<double>());
    return numbers;
  }
  struct NumbersOfCall {
    using Numbers = std::vector<double>;
    Numbers operator()(const BoxCall& box) const {
      return {box.x, box.y, box.width, box.height, 1.0 * box.pattern, 1.0 * box.colour};
    }
    Numbers operator()(const LineCall& line) const {
      return {line.x1,         line.y1,          line.x2,          line.y2,
              1.0 * line.mode, 1.0 * line.style, 1.0 * line.colour};
    }
    Numbers operator()(const TextCall& text) const { return {text.x, text.y, 1.0 * text.flags}; }
  };
  static constexpr NumbersOfCall numbersOfCall{};
};

TEST_F(JsonReport, HoldsEveryDisplayInOrderWithAllItShows) {
  ReportOptions options;
  options.y = "Rent";
  options.labels = "Street";
  options.plots = {{3, "Entry", "Rent"}};
  const auto run = analysed(table, options);
  const Json document =
      json({table, "--y", "Rent", "--labels", "Street", "--plot", "3=Entry:Rent"});
  const Json& displays = document["displays"];
  EXPECT_THAT(
      displays.names,
      ElementsAre("frmResidHist", "frmStdResidHist", "frmProbPlot", "frmVIFPlot", "frmScatterPlot1",
                  "frmScatterPlot2", "frmScatterPlot3", "frmEstCoef", "frmANOVA", "frmResidList",
                  "frmDataList", "frmCorrMatrix", "frmDescStats", "frmInterpretation"));
  for (const ReportedPart& reported : run.document.parts) {
    SCOPED_TRACE(reported.title);
    const Json& shown = reported.part ? displays[reported.part->form] : document["equation"];
    std::visit(ExpectShown{shown}, reported.content);
  }
}

}  // namespace
}  // namespace tolmer
