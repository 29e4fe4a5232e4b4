// Which variables and cases of a table are taken, and words that become numbers.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "textimport/text_import.h"
#include "textimport/typed_number.h"

namespace tolmer {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using Way = CaseChoice::Way;

const ImportTarget asFile{.observations = 500, .variables = 50};

// "[names]|row|row", cells divided by blanks, "_" where empty; or the error.
std::string landed(const TextImport& import, const ImportChoice& choice = {},
                   const ImportAnswers& answers = {}) {
  const auto table = import.apply(answers, choice);
  if (!table) return table.error().message();
  std::string all;
  for (const std::string& name : table->headings) all += "[" + name + "]";
  for (int row = 0; row <= table->cells.lastRow(); ++row)
    for (int column = 0; column <= table->cells.lastColumn(); ++column) {
      const ImportedCell& cell = table->cells(row, column);
      all += (column ? " " : "|") + (cell.number         ? exactText(*cell.number)
                                     : cell.text.empty() ? "_"
                                                         : cell.text);
    }
  return all;
}
std::string landed(const std::string& text, const ImportChoice& choice = {},
                   const ImportAnswers& answers = {}) {
  return landed(*TextImport::read(text, asFile), choice, answers);
}
std::string told(const TextImport& import, const ImportChoice& choice) {
  std::string all;
  const auto preview = import.preview({}, choice);
  for (const std::string& note : preview->notes) all += note + "\n";
  return all;
}

TEST(ImportChoice, wordsBecomeDummiesOfAllCategoriesButTheReference) {
  const std::string text =
      "x,Region,Smoker,Sex\n1,North,no,m\n2,South,yes,f\n3,NA,,f\n4,East,no,m\n"
      "5,South,no,f\n";
  EXPECT_EQ(landed(text),
            "[x][Region: North][Region: South][Smoker][Sex: m]"
            "|1 1 0 0 1|2 0 1 1 0|3 _ _ _ 0|4 0 0 0 1|5 0 1 0 0");
  EXPECT_EQ(landed(text, {.references = {{2, "North"}, {4, "m"}}}),
            "[x][Region: East][Region: South][Smoker][Sex: f]"
            "|1 0 0 0 0|2 0 1 1 1|3 _ _ _ 1|4 1 0 0 0|5 0 1 0 1");
  EXPECT_EQ(landed(text, {}, {{ImportDoubt::wordColumns, 1}}), "[x]|1|2|3|4|5");
  EXPECT_EQ(landed(text, {.uses = {{2, ColumnUse::labels}, {3, ColumnUse::leftOut}}}),
            "[Region][x][Sex: m]|North 1 1|South 2 0|NA 3 0|East 4 1|South 5 0");
  // Tables show 10 characters of a name.
  EXPECT_EQ(landed("x,Education\n1,low\n2,high\n3,mid\n4,low\n"),
            "[x][Educ: low][Educ: mid]|1 1 0|2 0 0|3 0 1|4 1 0");
  const auto import = TextImport::read(text, asFile);
  EXPECT_EQ(import->preview({})->questions[0].text,
            "Region, Smoker and 1 more hold words. What is to become of them?");
  EXPECT_THAT(
      told(*import, {}),
      HasSubstr("Region comes as 2 dummy variables, \"Region: North\" to \"Region: South\", "
                "all 0 for East.\nSmoker comes as \"Smoker\": 1 for yes, 0 for no.\n"));
  const auto table = import->apply({});
  EXPECT_EQ(table->variables[4].valueLabels[1].label, "m");
}

TEST(ImportChoice, theFirstColumnIsLabelsOnlyByAnOffer) {
  const std::string towns = "Town,x\nUlm,1\nRom,2\nUlm,3\nRom,4\n";
  EXPECT_EQ(landed(towns), "[Town: Ulm][x]|1 1|0 2|1 3|0 4");
  EXPECT_EQ(landed(towns, {}, {{ImportDoubt::labels, 0}}), "[Town][x]|Ulm 1|Rom 2|Ulm 3|Rom 4");
  EXPECT_EQ(landed(towns, {}, {{ImportDoubt::labels, 2}}), "[x]|1|2|3|4");
  EXPECT_EQ(landed(towns, {.columns = std::set{2}}), "[x]|1|2|3|4");
  const std::string days = "Day,x\n2024-03-05,1\n2024-03-06,2\n";
  EXPECT_EQ(landed(days), "[Day][x]|2024-03-05 1|2024-03-06 2");
  EXPECT_EQ(landed(days, {}, {{ImportDoubt::labels, 1}}), "[Day][x]|45356 1|45357 2");
  // Elsewhere somebody has to say.
  const std::string born = "x,Born\n1,2024-03-05\n2,1899-12-30\n";
  EXPECT_THAT(landed(born), HasSubstr("An answer is missing: What is to become of dates?"));
  EXPECT_EQ(landed(born, {}, {{ImportDoubt::dates, 0}}), "[x][Born]|1 45356|2 0");
  EXPECT_EQ(landed(born, {}, {{ImportDoubt::dates, 2}}), "[Born][x]|2024-03-05 1|1899-12-30 2");
  EXPECT_EQ(landed(born, {.uses = {{2, ColumnUse::numbers}}}), "[x][Born]|1 45356|2 0");
}

TEST(ImportChoice, aNumberApartFromAllOthersMayBeACode) {
  const std::string text = "Pay,Wave,Score\n2,-9,99\n-99,1,7\n3,2,-9\n-99,-9,5\n";
  EXPECT_EQ(
      landed(text),
      "An answer is missing: \"-99\" (line 3, column 1, 2 in all) stands apart from all other "
      "numbers of Pay. Other columns have such numbers, too. Is it a code for a missing value?");
  EXPECT_EQ(landed(text, {}, {{ImportDoubt::likelyCodes, 0}}),
            "[Pay][Wave][Score]|2 _ 99|_ 1 7|3 2 -9|_ _ 5");
  EXPECT_EQ(landed(text, {.columns = std::set{1}}, {{ImportDoubt::likelyCodes, 1}}),
            "[Pay]|2|-99|3|-99");
  EXPECT_EQ(landed("x\n-99\n-99\n-4\n"), "[x]|-99|-99|-4");
}

TEST(ImportChoice, whatMakesTooManyDummiesIsToldAndNotOffered) {
  std::string text = "x,Name,Group,Same\n";
  for (int i = 0; i < 120; ++i)
    text +=
        std::to_string(i) + ",n" + std::to_string(i / 2) + ",g" + std::to_string(i % 40) + ",s\n";
  const auto import = TextImport::read(text, asFile);
  EXPECT_EQ(import->apply({})->headings.size(), 40U);
  EXPECT_THAT(told(*import, {}),
              HasSubstr("Name and Same hold words that make no dummy variables"));
  EXPECT_THAT(told(*import, {.columns = std::set{1, 2}}),
              HasSubstr("Name holds more than 50 different words in 120 cases, too many"));
  // What does not fit beside the others is no offer either.
  const auto narrow = TextImport::read(text, {.observations = 500, .variables = 39});
  EXPECT_EQ(narrow->apply({})->headings, std::vector<std::string>{"x"});
}

TEST(ImportChoice, casesAreTheFirstOrEveryOrThoseThatMeetACondition) {
  std::string text = "Nr,Age,Region\n";
  for (int i = 1; i <= 1200; ++i)
    text += std::to_string(i) + "," + (i % 7 ? std::to_string(i % 90) : "") + "," +
            (i % 3 ? "North" : "South") + "\n";
  const auto import = TextImport::read(text, asFile);
  EXPECT_EQ(import->preview({})->mustChoose,
            "The text has 1200 rows and 3 columns of data; there is room for 500 and 50.");
  EXPECT_THAT(landed(*import), HasSubstr("there is room for 500"));
  const auto cases = [&](Way way, int every, const std::string& condition) {
    const ImportChoice choice{.cases = CaseChoice{way, every, condition}};
    const auto table = import->apply({}, choice);
    if (!table) return table.error().message();
    return std::to_string(table->cells.lastRow() + 1) + " to " +
           exactText(*table->cells(table->cells.lastRow(), 0).number) + ": " +
           table->choice.front();
  };
  EXPECT_EQ(cases(Way::first, 1, ""),
            "500 to 500: Of 1200 cases the first 500 were taken; 700 were not.");
  EXPECT_EQ(cases(Way::every, 3, ""),
            "400 to 1198: Of 1200 cases 400 are one of every 3 and were taken; 800 were not.");
  EXPECT_EQ(cases(Way::where, 1, "region = \"south\" AND Age >= 18"),
            "271 to 1200: Of 1200 cases 271 meet \"region = \"south\" AND Age >= 18\" and were "
            "taken; 929 were not.");
  EXPECT_EQ(
      cases(Way::where, 1, "Region <> South"),
      "500 to 749: Of 1200 cases 800 meet \"Region <> South\", and the first 500 of them were "
      "taken; 700 were not.");
  EXPECT_THAT(told(*import, {.cases = CaseChoice{Way::where, 1, "Region = South"}}),
              HasSubstr("Region holds one word alone. It is left out."));
  for (const auto& [condition, error] : std::vector<std::pair<std::string, std::string>>{
           {"Age > 200", "No case meets the condition."},
           {"Size > 1", "The condition: there is no variable \"Size\"."},
           {"Age > old",
            "The condition: \"old\" is no number: words are compared by = and <> alone."},
           {"Age >", "The condition: \"Age\" is compared with nothing."},
           {"Age and Nr = 1",
            "The condition: \"Age\" is no comparison: write a variable, one of = <> < <= > >=, and "
            "a value."}})
    EXPECT_EQ(cases(Way::where, 1, condition), error);
}

// A file of 9000 cases with a row of names, of which as much is read as is asked for.
struct LargeFile {
  Result<CutBook> read(const CutRequest& request) {
    CutBook book{.format = "xlsx", .sheets = {{"Data", false, true}}};
    CutTable& table = book.table;
    table.texts = {"Nr", "Group", "A", "B"};
    table.rowsInAll = 9001;
    for (const int column : {1, 2})
      if (request.columns.empty() || request.columns.front() == column)
        table.columns.push_back({.number = column, .different = column == 2 ? 3 : 51});
    for (int row = 0; row <= 9000 && static_cast<int>(table.rows()) < request.rows; ++row) {
      const bool isKept = row < request.head ||
                          (request.only.empty() ? (row - request.head) % request.every == 0
                                                : std::ranges::binary_search(request.only, row));
      if (!isKept) continue;
      table.rowNumbers.push_back(row);
      for (CutColumn& column : table.columns) {
        const auto text =
            static_cast<std::uint32_t>(row == 0 ? column.number - 1 : 2 + (row % 3 == 0 ? 1 : 0));
        table.fields.push_back(row > 0 && column.number == 1
                                   ? CutField{static_cast<double>(row), noText, CutKind::number}
                                   : CutField{0, text, CutKind::text});
      }
    }
    for (CutColumn& column : table.columns)
      column
          .counts[static_cast<std::size_t>(column.number == 1 ? CutKind::number : CutKind::text)] =
          9000 + column.number - 1;
    reads += "(" + std::to_string(table.rows()) + "x" + std::to_string(table.columns.size()) + ")";
    return book;
  }
  std::string reads;
};

TEST(ImportChoice, ofALargeFileOnlyTheChosenCasesAreReadAgain) {
  LargeFile file;
  const auto import = TextImport::of(
      *file.read({}), [&](const CutRequest& request) { return file.read(request); }, asFile);
  const auto preview = import.preview({});
  EXPECT_THAT(preview->mustChoose, HasSubstr("9000 rows"));
  EXPECT_EQ(preview->variables[1].values, 9000);
  EXPECT_EQ(preview->variables[1].different, 2);
  const auto last = [&](const CaseChoice& cases) {
    const ImportChoice choice{.cases = cases};
    const auto table = import.apply({}, choice);
    if (!table) return table.error().message();
    EXPECT_EQ(table->headings, (std::vector<std::string>{"Nr", "Group: B"}));
    return exactText(*table->cells(table->cells.lastRow(), 0).number) + told(import, choice);
  };
  EXPECT_THAT(last({Way::first}), HasSubstr("500Of 9000 cases the first 500"));
  EXPECT_EQ(file.reads, "(525x2)");
  EXPECT_THAT(last({Way::every, 20}), HasSubstr("8981Of 9000 cases 450 are one of every 20"));
  EXPECT_EQ(file.reads, "(525x2)(451x2)");
  EXPECT_THAT(last({Way::where, 1, "Nr > 8000"}),
              HasSubstr("8500Of 9000 cases 1000 meet \"Nr > 8000\", and the first 500 of them"));
  EXPECT_EQ(file.reads, "(525x2)(451x2)(9001x1)(501x2)");
}

}  // namespace
}  // namespace tolmer
