#include "report/csv_reader.h"

#include "report/csv_dataset.h"
#include "report/model_by_name.h"

namespace tolmer {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

std::string errorOf(std::string_view bytes) {
  const auto table = CsvTable::parse("t.csv", std::string(bytes));
  return table ? "no error" : table.error().message();
}

TEST(CsvTable, QuotesLineEndsAndBlankLines) {
  const auto table = CsvTable::parse(
      "t.csv", "\xEF\xBB\xBFName, \"a \"\"big\"\" one\" ,\r\n\r\n\"x, y\r\nz\", 1 ,\"2\"\r\nw,3,4");
  ASSERT_TRUE(table) << table.error().message();
  EXPECT_EQ(table->columns(), 3);
  EXPECT_EQ(table->name(0), "Name");
  EXPECT_EQ(table->name(2), "Col 3");
  EXPECT_EQ(table->rows(), 2);
  EXPECT_EQ(table->cell(0, 0), "x, y\r\nz");
  EXPECT_EQ(table->cell(0, 1), "1");
  EXPECT_EQ(table->cell(0, 2), "2");
  EXPECT_EQ(table->cell(1, 2), "4");
  EXPECT_EQ(table->errorAt(1, 2, "bad").where, "t.csv:5:3");  // the quoted line end counts
}

TEST(CsvTable, DoubledQuotesAndLineEndsInTheHeading) {
  const auto table = CsvTable::parse("t.csv", "\"a \"\"big\"\"\r\none\",b\n1,2\n");
  ASSERT_TRUE(table);
  EXPECT_EQ(table->find("a \"big\" one"), 0);
  EXPECT_EQ(table->find("a"), -1);
}

TEST(CsvTable, OlderEncoding) {
  const auto table = CsvTable::parse("t.csv",
                                     "Gr\xF6\xDF"
                                     "e,b\n1,2\n");
  ASSERT_TRUE(table);
  EXPECT_EQ(table->name(0), "Größe");
}

TEST(CsvTable, ControlCharactersDoNotGetThrough) {
  const auto table = CsvTable::parse("t.csv", std::string("a\x1B[31m\x7F,b\t\n1,\0"
                                                          "2\r\n",
                                                          17));
  ASSERT_TRUE(table) << table.error().message();
  EXPECT_EQ(table->name(0), "a?[31m?");
  EXPECT_EQ(table->name(1), "b");
  EXPECT_EQ(table->cell(0, 1), "?2");
}

TEST(CsvTable, FaultsAreNamedWithTheirPlace) {
  EXPECT_EQ(errorOf(""), "t.csv: the file is empty");
  EXPECT_EQ(errorOf("\r\n \n"), "t.csv: the file is empty");
  EXPECT_EQ(errorOf("a,b\n\n"), "t.csv: there is no case below the heading");
  EXPECT_EQ(errorOf("a;b\n1;2\n"),
            "t.csv:1: the heading has one field only; fields are divided by commas");
  EXPECT_EQ(errorOf("a,b\n1,2\n3\n"), "t.csv:3: 1 field, the heading has 2");
  EXPECT_EQ(errorOf("a,b\n1,2,3\n"), "t.csv:2: 3 fields, the heading has 2");
  EXPECT_EQ(errorOf("a,b\n1,\"2\n3,4\n"), "t.csv:2: a double quote is not closed");
  EXPECT_EQ(errorOf("a,b\n1,\"2\" x\n"), "t.csv:2: text follows a closing double quote");
  EXPECT_EQ(errorOf("a,b,a\n1,2,3\n"), "t.csv:1:3: a second column is named \"a\"");
  std::string many = "a,b\n";
  for (int i = 0; i < 32768; ++i) many += "1,2\n";
  EXPECT_EQ(errorOf(many), "t.csv:32769: more than 32767 cases");
}

TEST(CsvTable, NamesOfAList) {
  EXPECT_THAT(fieldsOfList("Size, Age"), ElementsAre("Size", "Age"));
  EXPECT_THAT(fieldsOfList("\"Size, net\",Age"), ElementsAre("Size, net", "Age"));
  EXPECT_THAT(fieldsOfList("A,,"), ElementsAre("A", "", ""));
  EXPECT_THAT(fieldsOfList("The \"new\" one, \"say \"\"A, B\"\"\" ,\"open"),
              ElementsAre("The \"new\" one", "say \"A, B\"", "open"));
  EXPECT_THAT(fieldsOfList("A,1:\"B:C\"", ':'), ElementsAre("A,1", "B:C"));
}

class CsvDataSet : public testing::Test {
 protected:
  CsvDataSet() { options.y = "Rent"; }
  Result<WorkingCopy> read(const std::string& bytes) {
    const auto table = CsvTable::parse("t.csv", bytes);
    auto copy = dataSetFromTable(*table, options);
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

TEST_F(CsvDataSet, NumericColumnsMakeTheSetAndTheOthersAreLeftOut) {
  const auto copy = *read(rents);
  EXPECT_THAT(copy.otColName.values(), ElementsAre("Intercept", "Age", "Rent", "Size"));
  EXPECT_EQ(copy.miDepVarCol, 2);
  EXPECT_THAT(copy.oiIndepVarCol.values(), ElementsAre(0, 1, 3, 0));
  EXPECT_EQ(copy.osData(2, 3), 2.0F);
  EXPECT_EQ(copy.osData(2, 0), 1.0F);
  EXPECT_FALSE(copy.mbLabeledData);
  EXPECT_TRUE(copy.mbUseIntercept);
}

TEST_F(CsvDataSet, ChosenPredictorsAreAscendingAndLabelsAreTaken) {
  options.x = {"Size", "Age", "Size"};
  options.labels = "Town";
  options.intercept = false;
  const auto copy = *read(rents);
  EXPECT_EQ(copy.miNumPredictors, 2);
  EXPECT_EQ(copy.oiIndepVarCol(1), 1);
  EXPECT_EQ(copy.mtLabelColName, "Town");
  EXPECT_EQ(copy.otCaseLabel(2), "Basel");
  EXPECT_FALSE(copy.mbUseIntercept);
  // A column of numbers can give the labels too, and is then no variable.
  options.x = {};
  options.labels = "Age";
  EXPECT_EQ(read(rents)->miNumPredictors, 1);
}

TEST_F(CsvDataSet, ColumnsOutsideANamedModelMayHaveGaps) {
  const std::string gaps = "Rent,Age,Size\n9,20,3\n8,NA,2\n";
  EXPECT_THAT(faultOf(gaps), HasSubstr("t.csv:3:2: column Age: \"NA\""));
  options.x = {"Size"};
  EXPECT_THAT(read(gaps)->otColName.values(), ElementsAre("Intercept", "Rent", "Size"));
  options.x = {"Age"};
  EXPECT_THAT(faultOf(gaps), HasSubstr("t.csv:3:2: column Age"));
}

TEST_F(CsvDataSet, CellsThatAreNoNumbersAreNamed) {
  EXPECT_EQ(faultOf("Rent,Size\n1,2\n3,x\n"),
            "t.csv:3:2: column Size: \"x\" is no number this program can hold");
  EXPECT_EQ(faultOf("Rent,Size\n1,2\n\n,4\n"), "t.csv:4:1: column Rent: the cell is empty");
  EXPECT_THAT(faultOf("Rent,Size\n1,2\n3,1e99\n"), HasSubstr("t.csv:3:2: column Size"));
  EXPECT_THAT(faultOf("Rent,Size\nlow,2\nhigh,4\n"), HasSubstr("t.csv:2:1: column Rent: \"low\""));
  options.x = {"Town"};
  EXPECT_THAT(faultOf(rents), HasSubstr("t.csv:2:1: column Town"));
}

TEST_F(CsvDataSet, NamesThatCannotBeInTheModel) {
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

}  // namespace
}  // namespace tolmer
