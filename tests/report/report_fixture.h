#pragma once

#include <filesystem>
#include <fstream>

#include "base/file_io.h"
#include "json_reader.h"
#include "report/model_by_name.h"
#include "report/report_document.h"
#include "report/report_program.h"
#include "report/report_run.h"
#include "report/table_dataset.h"
#include "report/table_source.h"
#include "support/temp_folder.h"
#include "support/tree.h"

namespace tolmer::test {

// The texts that a reader must find of a display, none of them empty.
struct TextsOf {
  using Texts = std::vector<std::string>;
  Texts operator()(const FittedEquation& equation) const { return {equation.text}; }
  Texts operator()(const GraphContent& graph) const { return {graph.description}; }
  Texts operator()(const Sections& sections) const {
    Texts texts;
    for (const Section& section : sections) {
      texts.push_back(section.heading);
      texts.push_back(section.text.substr(0, section.text.find_last_not_of(' ') + 1));
    }
    return texts;
  }
  Texts operator()(const TableContent& table) const {
    Texts texts;
    for (int row = 1; row <= table.rows(); ++row)
      for (const TableCell& cell : table.row(row))
        if (!cell.text.empty()) texts.push_back(cell.text);
    return texts;
  }
};

struct Analysed {
  std::unique_ptr<AnalysisState> state;
  ReportDocument document;
};

// A folder with a table of ten flats, and the report program called as from a shell.
class ReportFixture : public testing::Test {
 public:
  ReportFixture() {
    for (const char* part : {"data", "tolmod"}) std::filesystem::create_directory(folder / part);
    table = write("flats.csv", flats);
  }

 protected:
  std::string write(const std::string& name, std::string_view bytes) const {
    std::ofstream(folder / name, std::ios::binary) << bytes;
    return (folder / name).string();
  }
  ReportOutcome report(const std::vector<std::string>& words, bool isColoured = false) const {
    return runReport(words,
                     {[this] { return (folder / "tolmod").string(); }, [] { return "2026-05-04"; },
                      isColoured, [this] { return Result(input); },
                      ImportReader{.program = TOLMER_PROGRAM_FOLDER "/tolimport"}});
  }
  // A report that is made without any fault.
  std::string output(std::vector<std::string> words, const std::string& format) const {
    words.insert(words.end(), {"--format", format});
    const ReportOutcome outcome = report(words);
    EXPECT_EQ(outcome.status, 0) << outcome.errors;
    EXPECT_TRUE(outcome.errors.empty()) << outcome.errors;
    return outcome.output;
  }
  Json json(const std::vector<std::string>& words) const {
    return JsonReader(output(words, "json")).readAll();
  }
  // The same analysis, with the displays at hand.
  static Analysed analysed(const std::string& table, const ReportOptions& options) {
    ReportOptions ofTable = options;
    ofTable.file = table;
    auto copy = dataSetFromTable(readTable(ofTable, {})->table, table, options);
    EXPECT_FALSE(chooseModelByName(*copy, options));
    MessageLog messages;
    auto state = std::make_unique<AnalysisState>(
        analysisOf(*copy, messages, *chooseAxesByName(*copy, options.plots)));
    auto document = reportDocument(*state, options.request, {"2026-05-04", messages.boxes()});
    return {std::move(state), std::move(document)};
  }

  static constexpr std::string_view flats =
      "Street,Rent,Size,Age\n"
      "A,700,40,30\nB,820,52,22\nC,1010,75,41\nD,640,38,50\nE,980,70,12\n"
      "F,1240,95,8\nG,560,30,61\nH,900,66,35\nI,1105,80,19\nJ,760,45,27\n";
  const TempFolder temporary;
  const std::filesystem::path folder = temporary.path();
  std::string table;
  std::string input;  // on standard input
};

}  // namespace tolmer::test
