#include "report/table_source.h"

#include "report/model_by_name.h"
#include "report_fixture.h"
#include "sheet/new_sheet.h"
#include "sheetfiles/editor_file.h"

namespace tolmer {
namespace {

using test::Json;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

TEST(FieldsOfList, Names) {
  EXPECT_THAT(fieldsOfList("Size, Age"), ElementsAre("Size", "Age"));
  EXPECT_THAT(fieldsOfList("\"Size, net\",Age"), ElementsAre("Size, net", "Age"));
  EXPECT_THAT(fieldsOfList("A,,"), ElementsAre("A", "", ""));
  EXPECT_THAT(fieldsOfList("The \"new\" one, \"say \"\"A, B\"\"\" ,\"open"),
              ElementsAre("The \"new\" one", "say \"A, B\"", "open"));
  EXPECT_THAT(fieldsOfList("A,1:\"B:C\"", ':'), ElementsAre("A,1", "B:C"));
}

class TableSet : public testing::Test {
 protected:
  TableSet() { options.y = "Rent"; }
  Result<WorkingCopy> read(const std::string& bytes) {
    const auto table = tableFromText("t.csv", bytes, options);
    if (!table) return table.error();
    auto copy = dataSetFromTable(*table, "t.csv", options);
    if (!copy) return copy;
    if (auto error = chooseModelByName(*copy, options)) return *error;
    return copy;
  }
  std::string faultOf(const std::string& bytes) {
    const auto copy = read(bytes);
    return copy ? "no fault" : copy.error().message();
  }
  const std::string rents = "Town,Age,Rent,Size\nBern,20,9,3\nBasel,30,8,2\n";
  ReportOptions options;
};

TEST_F(TableSet, NumericColumnsMakeTheSetAndTheOthersAreLeftOut) {
  const auto copy = *read(rents);
  EXPECT_THAT(copy.otColName.values(), ElementsAre("Intercept", "Age", "Rent", "Size"));
  EXPECT_EQ(copy.miDepVarCol, 2);
  EXPECT_THAT(copy.oiIndepVarCol.values(), ElementsAre(0, 1, 3, 0));
  EXPECT_EQ(copy.osData(2, 3), 2.0F);
  EXPECT_EQ(copy.osData(2, 0), 1.0F);
  EXPECT_FALSE(copy.mbLabeledData);
  options.columns = {"Rent", "Size"};
  EXPECT_THAT(read(rents)->otColName.values(), ElementsAre("Intercept", "Rent", "Size"));
}

TEST_F(TableSet, ChosenPredictorsAreAscendingAndLabelsAreTaken) {
  options.x = {"Size", "Age", "Size"};
  options.labels = "Town";
  const auto copy = *read(rents);
  EXPECT_EQ(copy.miNumPredictors, 2);
  EXPECT_EQ(copy.oiIndepVarCol(1), 1);
  EXPECT_EQ(copy.mtLabelColName, "Town");
  EXPECT_EQ(copy.otCaseLabel(2), "Basel");
  // A column of numbers can give the labels too, and is then no variable.
  options.x = {};
  options.labels = "Age";
  EXPECT_EQ(read(rents)->miNumPredictors, 1);
}

TEST_F(TableSet, WordsBecomeDummiesAndAConditionChoosesCases) {
  options.dummies = {"Town"};
  options.references = {{"Town", "Bern"}};
  options.x = {"Town", "Age"};
  options.where = "Age < 30 and Town <> Biel";
  const auto table = *tableFromText("t.csv",
                                    "Town,Age,Rent\nBern,20,9\nBasel,30,8\nBiel,21,7\n"
                                    "Zug,22,6\nBasel,,5\nBasel,23,\nBern,24,3\n",
                                    options);
  EXPECT_THAT(table.told, ElementsAre("Of 7 cases 4 meet \"Age < 30 and Town <> Biel\" and were "
                                      "taken; 3 were not.",
                                      "Town comes as 2 dummy variables, \"Town: Basel\" to "
                                      "\"Town: Zug\", all 0 for Bern."));
  const auto whole = *withDummies(options, table);
  EXPECT_THAT(whole.x, ElementsAre("Town: Basel", "Town: Zug", "Age"));
  const auto copy = *dataSetFromTable(table, "t.csv", whole);
  EXPECT_THAT(copy.otColName.values(),
              ElementsAre("Intercept", "Town: Basel", "Town: Zug", "Age", "Rent"));
  EXPECT_EQ(copy.miNumCases, 3);
  EXPECT_EQ(copy.osData(2, 2), 1.0F);
  EXPECT_EQ(copy.origin.leftOut.at(0).row, 6);
  options.dummies = {"Town", "Canton"};
  EXPECT_EQ(withDummies(options, table).error().message(),
            "there is no column \"Canton\" for dummy variables");
}

// The same by the quick way and by the import's.
TEST_F(TableSet, CasesWithGapsInTheModelAreLeftOutAndTold) {
  const std::string gaps = "Town,Rent,Age,Size\nA,9,20,3\nB,8,NA,2\nC,,,1\nD,5,30,4\n";
  std::string semicolons = gaps;
  std::replace(semicolons.begin(), semicolons.end(), ',', ';');
  options.labels = "Town";
  for (const std::string& text : {gaps, semicolons}) {
    options.x = {};
    const auto copy = *read(text);
    EXPECT_EQ(copy.miNumCases, 2);
    EXPECT_EQ(copy.otCaseLabel(2), "D");
    EXPECT_EQ(copy.osData(2, 3), 4.0F);
    EXPECT_THAT(copy.origin.leftOut,
                ElementsAre(LeftOutCase{2, "B", "a gap in Age"},
                            LeftOutCase{3, "C", "a gap in Rent, a gap in Age"}));
    options.x = {"Size"};
    EXPECT_THAT(read(text)->otColName.values(), ElementsAre("Intercept", "Rent", "Size"));
    EXPECT_EQ(read(text)->miNumCases, 3);
  }
  EXPECT_EQ(faultOf("Rent,Size\n1,\n,2\n"), "t.csv: no case is complete: row 1 has a gap in Size");
}

TEST_F(TableSet, CasesAreChosen) {
  options.every = 2;
  options.first = 2;
  const auto copy = *read("Rent,Size\n1,1\n2,2\n3,\n4,4\n5,5\n");
  EXPECT_EQ(copy.miNumCases, 1);  // the first and the third, which has a gap
  EXPECT_EQ(copy.origin.leftOut.front().row, 3);
  std::string many = "Rent,Size\n";
  for (int i = 0; i < 32768; ++i) many += "1,2\n";
  options = {};
  EXPECT_EQ(faultOf(many),
            "t.csv: 32768 cases, there is room for 32767; choose with --first, --every or "
            "--columns");
}

TEST_F(TableSet, DoubtsNameTheirOption) {
  const auto with = [this](std::string_view option, const std::string& value,
                           const std::string& bytes) {
    options.import = {};
    EXPECT_FALSE(takeImportOption(options.import, option, value)) << value;
    const auto copy = read(bytes);
    return copy ? std::to_string(copy->osData(1, 2)) : copy.error().message();
  };
  EXPECT_EQ(faultOf("Rent,Size\n1,2\n3,x\n"),
            "t.csv: There is text where numbers belong, first \"x\" (line 3, column 2). Say it "
            "with --words empty.");
  EXPECT_EQ(with("--words", "empty", "Rent,Size\n1,2\n3,x\n"), "2.000000");
  const std::string comma = "Rent;Size\n1;1,234\n3;2,345\n";
  EXPECT_THAT(faultOf(comma), HasSubstr("Say it with --decimal point or comma."));
  EXPECT_EQ(with("--decimal", "comma", comma), "1.234000");
  EXPECT_EQ(with("--decimal", "point", comma), "1234.000000");
  EXPECT_EQ(with("--separator", "tab", "Rent\tSize\n1\t2\n3\t4\n"), "2.000000");
  EXPECT_EQ(with("--header-row", "3", "About, rents\n\nRent,Size\n1,2\n3,4\n"), "2.000000");
  EXPECT_EQ(with("--percent", "divided", "Rent;Size\n1;50%\n3;4\n"), "0.500000");
  EXPECT_EQ(with("--missing", "-99", "Rent,Size\n-99,7\n1,2\n3,4\n"), "2.000000");
  options.import = {};
  EXPECT_EQ(faultOf("Rent,1990\n1,2\n3,4\n"), "no fault");  // --y names one
  options.y = "Price";
  EXPECT_THAT(faultOf("Rent,1990\n1,2\n3,4\n"), HasSubstr("--header-row with its number"));
  options.y = "Rent";
  EXPECT_THAT(faultOf("Rent,Size\n1,2\n3,1e39\n"),
              HasSubstr("t.csv, line 3, column 2: 1e39 is no number this program can hold"));
  EXPECT_THAT(faultOf("Rent,Size,Rent\n1,2,3\n"), HasSubstr("a second column is named \"Rent\""));
  EXPECT_THAT(faultOf("Rent,Size\n"), HasSubstr("t.csv: "));
  EXPECT_EQ(*takeImportOption(options.import, "--dates", "later"),
            "--dates is number or empty, not \"later\"");
}

TEST_F(TableSet, NamesThatCannotBeInTheModel) {
  options.x = {"Rooms"};
  EXPECT_EQ(faultOf(rents),
            "t.csv: there is no variable \"Rooms\"; the variables are Age, Rent, Size");
  options.x = {"Rent"};
  EXPECT_THAT(faultOf(rents), HasSubstr("cannot explain itself"));
  options.x = {};
  options.labels = "Rent";
  EXPECT_THAT(faultOf(rents), HasSubstr("there is no variable \"Rent\""));
  options.labels = "";
  EXPECT_THAT(faultOf("Town,Rent\nBern,1\n"), HasSubstr("no other variable"));
  options.y = "";
  EXPECT_EQ(faultOf(rents), "t.csv: --y is missing; the variables are Age, Rent, Size");
}

using TableFiles = test::ReportFixture;

// The fixture's flats as text on standard input, in a sheet of the editor and from a file.
TEST_F(TableFiles, OneReportFromEveryPlace) {
  SheetContent sheet = newContent(editorObservations, editorVariables);
  const auto flat = *readTable(parseOptions({table, "--labels", "Street"}).operator*(), {});
  sheet.cells(0, 0).text = "Street";
  for (int column = 1; column < 4; ++column) {
    const auto at = static_cast<std::size_t>(column);
    sheet.cells(0, column).text = flat.table.names[at];
    for (int row = 1; row <= flat.table.rows; ++row) {
      const auto i = static_cast<std::size_t>(row) - 1;
      sheet.cells(row, 0) = {.kind = DataCell::Kind::text, .text = flat.table.labels[i]};
      sheet.cells(row, column) = {.kind = DataCell::Kind::number,
                                  .number = flat.table.numbers[at][i].written};
    }
  }
  const auto from = [this](const std::string& file) {
    return output({file, "--y", "Rent", "--labels", "Street"}, "json");
  };
  const std::string expected = from(table);
  input = flats;
  EXPECT_EQ(from("-"), expected);
  EXPECT_EQ(from(write("flats.zmm", editorFileBytes(sheet))), expected);
  EXPECT_THAT(report({write("bad.zmm", "ZMDATA 1 500 50\n"), "--y", "Rent"}).errors,
              HasSubstr("bad.zmm: is damaged"));
}

TEST_F(TableFiles, FilesOfOtherProgramsAskBySheetAndOption) {
  const std::string folder = TOLMER_SOURCE_DIR "/fuzz/corpus/foreign_file/";
  EXPECT_THAT(report({folder + "openpyxl.xlsx", "--y", "num"}).errors,
              HasSubstr("Which sheet is it? Say it with --sheet and its name: "));
  for (const char* file : {"openpyxl.xlsx", "haven.sav", "haven14.dta"}) {
    std::vector<std::string> words{folder + file, "--y",      "price", "--x",
                                   "size",        "--format", "json"};
    if (file[0] == 'o') words.insert(words.end(), {"--sheet", "Data"});
    const ReportOutcome outcome = report(words);
    const Json document = test::JsonReader(outcome.output).readAll();
    EXPECT_EQ(outcome.errors.find("A percentage comes as the number that is stored") == 11,
              file[0] == 'o')
        << outcome.errors;
    EXPECT_EQ(document["cases"]["used"].text, "2") << file;
    EXPECT_EQ(document["cases"]["leftOut"][0]["why"].text, "a gap in price");
    EXPECT_EQ(document["displays"]["frmDataList"]["cells"][1][1].text, "27.3") << file;
    EXPECT_EQ(document["displays"]["frmDataList"]["cells"][2][2].text, "-0.1");
  }
  EXPECT_THAT(report({folder + "haven.sav", "--y", "size", "--x", "kind"}).output,
              HasSubstr("Kind of house (1 = new, 2 = old, 9 = no answer)"));
  EXPECT_EQ(
      json({folder + "haven14.dta", "--y", "price", "--x", "size"})["description"]["data"].text,
      "Sold houses");
  input = std::string("\x89PNG\r\n\x1a\n", 8);
  EXPECT_THAT(report({"-", "--y", "x"}).errors, HasSubstr("standard input: it is a picture"));
}

}  // namespace
}  // namespace tolmer
