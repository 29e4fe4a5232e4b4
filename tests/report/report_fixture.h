#pragma once

#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <memory>

#include "json_reader.h"
#include "report/csv_dataset.h"
#include "report/model_by_name.h"
#include "report/report_program.h"
#include "report/report_run.h"

namespace tolmer::test {

// A folder with a table of ten flats, and the report program called as from a shell.
class ReportFixture : public testing::Test {
 public:
  ReportFixture() {
    folder =
        std::filesystem::temp_directory_path() / ("tolmer_report_" + std::to_string(::getpid()));
    std::filesystem::create_directories(folder / "data");
    std::filesystem::create_directories(folder / "tolmod");
    table = write("flats.csv", flats);
  }
  ~ReportFixture() override { std::filesystem::remove_all(folder); }

 protected:
  std::string write(const std::string& name, std::string_view bytes) const {
    std::ofstream(folder / name, std::ios::binary) << bytes;
    return (folder / name).string();
  }
  ReportOutcome report(const std::vector<std::string>& words, bool isColoured = false) const {
    return runReport(words, {(folder / "tolmod").string(), "2026-05-04", isColoured});
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
  static std::unique_ptr<ReportRun> analysed(const std::string& table, const ReportOptions& options,
                                             Size displaySize = {pixels(960), pixels(500)}) {
    const auto csv = CsvTable::open(table);
    auto copy = dataSetFromTable(*csv, options);
    EXPECT_FALSE(chooseModelByName(*copy, options));
    auto run = std::make_unique<ReportRun>(displaySize);
    run->analyse(*copy, *plotAxesByName(*copy, options.plots));
    return run;
  }

  static constexpr std::string_view flats =
      "Street,Rent,Size,Age\n"
      "A,700,40,30\nB,820,52,22\nC,1010,75,41\nD,640,38,50\nE,980,70,12\n"
      "F,1240,95,8\nG,560,30,61\nH,900,66,35\nI,1105,80,19\nJ,760,45,27\n";
  std::filesystem::path folder;
  std::string table;
};

}  // namespace tolmer::test
