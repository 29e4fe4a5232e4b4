#include "report/report_program.h"

#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "json_reader.h"
#include "notebook/object_file.h"
#include "report/csv_dataset.h"
#include "report/model_by_name.h"
#include "report/report_run.h"

namespace tolmer {
namespace {

using test::Json;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::StartsWith;

// A folder with a table of ten flats, and the report program called as from a shell.
class ReportProgram : public testing::Test {
 protected:
  ReportProgram() {
    folder =
        std::filesystem::temp_directory_path() / ("tolmer_report_" + std::to_string(::getpid()));
    std::filesystem::create_directories(folder / "data");
    std::filesystem::create_directories(folder / "tolmod");
    table = write("flats.csv", flats);
  }
  ~ReportProgram() override { std::filesystem::remove_all(folder); }

  std::string write(const std::string& name, std::string_view bytes) const {
    std::ofstream(folder / name, std::ios::binary) << bytes;
    return (folder / name).string();
  }
  ReportOutcome report(const std::vector<std::string>& words, bool isColoured = false) const {
    return runReport(words, {(folder / "tolmod").string(), "2026-05-04", isColoured});
  }
  Json json(std::vector<std::string> words) const {
    words.insert(words.end(), {"--format", "json"});
    const ReportOutcome outcome = report(words);
    EXPECT_EQ(outcome.status, 0) << outcome.errors;
    EXPECT_THAT(outcome.errors, IsEmpty());
    return test::JsonReader(outcome.output).readAll();
  }

  static constexpr std::string_view flats =
      "Street,Rent,Size,Age\n"
      "A,700,40,30\nB,820,52,22\nC,1010,75,41\nD,640,38,50\nE,980,70,12\n"
      "F,1240,95,8\nG,560,30,61\nH,900,66,35\nI,1105,80,19\nJ,760,45,27\n";
  std::filesystem::path folder;
  std::string table;
};

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

TEST_F(ReportProgram, JsonGivesTheStateBackExactly) {
  ReportOptions options;
  options.y = "Rent";
  const auto csv = CsvTable::parse("flats.csv", std::string(flats));
  auto copy = dataSetFromTable(*csv, options);
  ASSERT_FALSE(chooseModelByName(*copy, options));
  ReportRun run;
  run.analyse(*copy);
  const AnalysisState& state = run.state();

  const Json document = json({table, "--y", "Rent"});
  EXPECT_THAT(document["messages"].items, IsEmpty());
  EXPECT_EQ(document["equation"].text, run.equation());
  EXPECT_THAT(run.equation(), StartsWith("Rent = "));
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

TEST_F(ReportProgram, JsonHoldsWhatTheDisplaysShow) {
  const Json document = json({table, "--y", "Rent"});
  const Json& displays = document["displays"];
  const Json& coefficients = displays["frmEstCoef"];
  EXPECT_EQ(coefficients["rows"].number<std::size_t>(), coefficients["cells"].items.size());
  EXPECT_EQ(coefficients["cells"][0][7].text, "95% Upper");
  EXPECT_EQ(coefficients["cells"][2][0].text, "Size");
  EXPECT_EQ(coefficients["back"][0][0].text, "face");
  EXPECT_EQ(coefficients["back"][2][1].text, "white");
  EXPECT_EQ(coefficients["back"][2][4].text, "#00FFFF");
  EXPECT_EQ(displays["frmANOVA"]["cells"][7][4].text, "10");

  const Json& histogram = displays["frmResidHist"];
  EXPECT_EQ(histogram["type"].text, "9");
  EXPECT_EQ(histogram["bottomTitle"].text, "Residual");
  EXPECT_EQ(histogram["leftTitle"].text, "Frequency");
  EXPECT_EQ(histogram["points"].items.size(), 2U);
  EXPECT_EQ(histogram["x"]["labels"].items.size(),
            histogram["x"]["ticks"].number<std::size_t>() + 1);
  const auto& overlay = histogram["overlay"].items;
  const auto calls = [&overlay](const char* name) {
    return std::count_if(overlay.begin(), overlay.end(),
                         [name](const Json& call) { return call[0].text == name; });
  };
  const auto& counts = document["state"]["iResidClassCount"].items;
  EXPECT_EQ(calls("box"), std::count_if(counts.begin(), counts.end(),
                                        [](const Json& count) { return count.text != "0"; }));
  EXPECT_EQ(calls("line"), 100);
  // Bars stand on the plot area of the time when they were drawn.
  EXPECT_EQ(overlay[0][2].number<double>(), histogram["plot"]["bottom"].number<double>());
}

TEST_F(ReportProgram, ModelWithoutAnIntercept) {
  const Json document = json({table, "--y", "Rent", "--x", "Size", "--no-intercept"});
  EXPECT_EQ(document["state"]["iNumTerms"].text, "1");
  EXPECT_EQ(document["state"]["bUseIntercept"].text, "false");
  EXPECT_EQ(document["displays"]["frmANOVA"]["cells"][5][1].text, "NA");
}

TEST_F(ReportProgram, MessagesOfTheRunComeInOrderAndDoNotEndIt) {
  const std::string twins = write("twins.csv", "Y,A,B\n1,1,1\n3,2,2\n2,3,3\n5,4,4\n4,5,5\n");
  const Json document = json({twins, "--y", "Y"});
  ASSERT_EQ(document["messages"].items.size(), 4U);  // two auxiliary fits, the model, the classes
  EXPECT_THAT(document["messages"][3]["text"].text, StartsWith("Warning: "));
  const Json& message = document["messages"][2];
  EXPECT_THAT(message["text"].text, StartsWith("Singular variance-covariance matrix"));
  EXPECT_EQ(message["icon"].text, "critical");
  EXPECT_EQ(message["buttons"].text, "ok");
  EXPECT_EQ(message["answer"].text, "ok");
  EXPECT_EQ(document["state"]["bSingular"].text, "true");
  EXPECT_THAT(report({twins, "--y", "Y"}).output, HasSubstr("(no valid fit)"));

  const std::string few = write("few.csv", "Y,A,B\n1,1,7\n3,2,2\n2,3,9\n");
  EXPECT_EQ(json({few, "--y", "Y"})["messages"].items.back()["text"].text,
            "Too few cases for this model.");
}

TEST_F(ReportProgram, TextForATerminal) {
  const std::string text = report({table, "--y", "Rent"}).output;
  EXPECT_THAT(text, HasSubstr("flats.csv: 10 cases, 2 independent variables"));
  EXPECT_THAT(text, HasSubstr("  Rent = "));
  EXPECT_THAT(text, HasSubstr("  Intercept"));
  EXPECT_THAT(text, HasSubstr("** p < .01"));
  EXPECT_THAT(text, HasSubstr("│█"));
  EXPECT_EQ(text.find('\x1b'), std::string::npos);
  EXPECT_THAT(report({table, "--y", "Rent"}, true).output, HasSubstr("\x1b[46;30m"));
}

TEST_F(ReportProgram, PageStandsAlone) {
  const std::string odd = write("a&b.csv", "R<1>,\"S \"\"q\"\"\"\n1,2\n2,3\n4,5\n4,9\n");
  const std::string page = report({odd, "--y", "R<1>", "--format=html"}).output;
  EXPECT_THAT(page, StartsWith("<!DOCTYPE html>"));
  EXPECT_THAT(page, HasSubstr("<h1>Multiple regression of R&lt;1&gt;</h1>"));
  EXPECT_THAT(page, HasSubstr("a&amp;b.csv"));
  EXPECT_THAT(page, HasSubstr("4 cases"));
  EXPECT_THAT(page, HasSubstr("2026-05-04"));
  EXPECT_THAT(page, HasSubstr("<svg"));
  EXPECT_THAT(page, HasSubstr("<th scope=\"row\">S &quot;q&quot;</th>"));
  for (const char* outside : {"<script", "<link", "src=", "href="})
    EXPECT_EQ(page.find(outside), std::string::npos) << outside;
}

TEST_F(ReportProgram, FaultsGoToStandardErrorWithTheirStatus) {
  const std::string bad = write("bad.csv", "Y,A\n1,2\n3,4x\n");
  struct Case {
    std::vector<std::string> words;
    int status;
    std::string text;
  };
  for (const Case& test :
       {Case{{"--nonsense"}, 2, "there is no option --nonsense"},
        Case{{table}, 2, "--y is missing; the variables are Rent, Size, Age"},
        Case{{table, "--y", "Height"}, 2, "the variables are Rent, Size, Age"},
        Case{{table, "--y", "Rent", "--labels", "Road"}, 2, "the columns are Street, Rent"},
        Case{{bad, "--y", "Y"}, 1, "bad.csv:3:2: column A: \"4x\" is no number"},
        Case{{(folder / "none.csv").string(), "--y", "Y"}, 1, "none.csv: cannot be opened"},
        Case{{"--default"}, 1, "tolmod.nbo"}}) {
    const ReportOutcome outcome = report(test.words);
    EXPECT_EQ(outcome.status, test.status) << outcome.errors;
    EXPECT_THAT(outcome.errors, HasSubstr(test.text));
    EXPECT_THAT(outcome.errors, StartsWith("tolreport: "));
    EXPECT_THAT(outcome.output, IsEmpty());
  }
  const ReportOutcome help = report({"--help"});
  EXPECT_EQ(help.status, 0);
  EXPECT_THAT(help.output, StartsWith("Usage: tolreport FILE"));
}

// A course with examples on two pages of its third section, the second one with a wrong path.
class ReportOnCourse : public ReportProgram {
 protected:
  ReportOnCourse() {
    write("data/flats.csv", flats);
    Book book;
    book.tTitle = "Title";
    book.tChapter = "Ch. 17 Title";
    book.uSection.add({"Start", 1, 1});
    book.uSection.add({"Concepts", 2, 1});
    book.uSection.add({"Examples", 3, 3});
    book.uDefaultScenario = scenario("\\data\\flats.csv", "2");
    book.uScenario.add(scenario("\\data\\flats.csv", "3"));
    book.uScenario.add(scenario("\\data\\lost.csv", "1"));
    book.uScenario.add(scenario("\\data\\flats.csv", "1"));
    book.uScenarioElement.add({2, 1, 0});
    book.uScenarioElement.add({1, 3, 0});
    for (int plain = 0; plain < 3; ++plain) book.uPage.add({PageType::plain, 1, 0, 0, 0});
    book.uPageElement.add({ElementKind::scenario, 1, 0});
    book.uPageElement.add({ElementKind::scenario, 2, 0});
    book.uPage.add({PageType::scenario, 1, 1, 1, 0});
    book.uPage.add({PageType::scenario, 2, 1, 2, 0});
    write("tolmod/tolmod.nbo", objectFileText(book));
  }
  static Scenario scenario(const char* file, const char* dependent) {
    Scenario made;
    made.tName = "Flats";
    const char* parameters[] = {file, "", "False", "True", "10", "3", dependent};
    for (std::size_t i = 0; i < 7; ++i) made.tParameter[i + 1] = parameters[i];
    return made;
  }
};

TEST_F(ReportOnCourse, DefaultAndNumberedExamples) {
  EXPECT_THAT(json({"--default"})["equation"].text, StartsWith("Size = "));
  EXPECT_THAT(json({"--example", "1"})["equation"].text, StartsWith("Age = "));
  EXPECT_THAT(json({"--example", "3"})["equation"].text, StartsWith("Rent = "));
  const Json other = json({"--example", "3", "--y", "Age", "--x", "Rent", "--no-intercept"});
  EXPECT_EQ(other["state"]["iNumTerms"].text, "1");
  EXPECT_THAT(report({"--example", "4"}).errors,
              HasSubstr("there is no example 4; the course has 3"));
}

TEST_F(ReportOnCourse, MissingDataFileIsAFaultOfTheData) {
  const ReportOutcome outcome = report({"--example", "2"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_THAT(outcome.errors, HasSubstr("lost.csv. Check file and path."));
}

}  // namespace
}  // namespace tolmer
