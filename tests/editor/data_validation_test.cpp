#include "editor/data_validation.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/box_texts.h"

namespace tolmer {
namespace {

using testing::ElementsAre;

// Row by row; "" leaves a cell empty. Column 0 are the labels.
void fill(DataSheet& sheet, const std::vector<std::vector<const char*>>& rows) {
  int r = 0;
  for (const auto& row : rows) {
    int c = 0;
    ++r;
    for (const char* text : row) sheet.enter(r, c++, text);
  }
}

TEST(ExitCheckTest, CountsAGapOnlyBelowTheFirstValueOfItsColumn) {
  DataSheet sheet(12, 4);
  fill(sheet, {{"", "", ""},         // above all data: a case of zeros
               {"", "1", ""},        // the second variable starts later: 0
               {"gap", "", "5"},     // its label counts as entered
               {"c", "3", "=1/0"},   // an error is no value
               {"", "4", "7", "8"},  // the third starts here
               {"d", "5", "9", "1"},
               {"only a label"}});
  const CompleteCases cases = completeCases(sheet);
  EXPECT_EQ(cases.data.miCompleteObs, 4);
  EXPECT_EQ(cases.iIncomplete, 3);
  EXPECT_TRUE(cases.data.mbDataLabelsEntered);
  EXPECT_EQ(cases.usedVariables, 3);
  const auto row = [&](int i) {
    return std::vector{cases.data.mdValue(i, 1), cases.data.mdValue(i, 2),
                       cases.data.mdValue(i, 3)};
  };
  EXPECT_THAT(row(1), ElementsAre(0, 0, 0));
  EXPECT_THAT(row(2), ElementsAre(1, 0, 0));
  EXPECT_THAT(row(3), ElementsAre(4, 7, 8));
  EXPECT_THAT(row(4), ElementsAre(5, 9, 1));
  EXPECT_EQ(cases.data.mtLabel[3], "");
  EXPECT_EQ(cases.data.mtLabel[4], "d");
}

TEST(ExitCheckTest, AnErrorMakesItsCaseIncompleteInAnyRow) {
  DataSheet sheet(12, 3);
  fill(sheet, {{"", "5", "=LAG(Var1)"},            // nothing lies above
               {"", "6", "=LAG(Var1)"},            //
               {"", "8", "=LAG(Var1)", "=LN(0)"},  // in another column's first row
               {"", "9", "=LAG(Var1)", ""},        // a gap below content
               {"", "9", "", "2"},                 //
               {"", "7", "=LAG(Var1)", "=1/Var1"}});
  const CompleteCases cases = completeCases(sheet);
  EXPECT_EQ(cases.iIncomplete, 4);
  std::vector<std::string> why;
  for (const LeftOutCase& one : cases.data.leftOut)
    why.push_back(std::to_string(one.row) + ": " + one.why);
  EXPECT_EQ(why[0], "1: a formula without a value in " + sheet.heading(2));
  EXPECT_EQ(why[2], "4: a gap in " + sheet.heading(3));
  ASSERT_EQ(cases.data.miCompleteObs, 2);
  EXPECT_EQ(cases.data.mdValue(1, 1), 6);
  EXPECT_EQ(cases.data.mdValue(1, 2), 5);
  EXPECT_EQ(cases.data.mdValue(1, 3), 0) << "above the first content of its column";
  EXPECT_EQ(cases.data.mdValue(2, 2), 9);
}

TEST(ExitCheckTest, WantsDataInTheFirstSoManyVariables) {
  DataSheet sheet(10, 3);
  fill(sheet, {{"", "1", "4"}, {"", "2", "6"}, {"", "3", "5"}});
  sheet.enter(0, 3, "Rent");
  MessageLog messages;
  EXPECT_TRUE(bfDataAreValid(sheet, {.miMinVariables = 2}, messages).valid);
  EXPECT_FALSE(bfDataAreValid(sheet, {.miMinVariables = 3}, messages).valid);
  ASSERT_EQ(messages.boxes().size(), 1u);
  EXPECT_EQ(messages.boxes()[0].box.title, "");
  EXPECT_EQ(messages.boxes()[0].box.text, "You need data for variable Rent");
  EXPECT_EQ(messages.boxes()[0].box.icon, MessageIcon::none);
}

TEST(ExitCheckTest, RefusesOneValueAsASingleUnlessItIsZero) {
  DataSheet sheet(10, 3);
  fill(sheet, {{"", "1", "0", "1234.5678"},
               {"", "1.000000000001", "0", "1234.5678"},
               {"", "1", "0", "1234.5678"}});
  MessageLog messages;
  EXPECT_FALSE(bfDataAreValid(sheet, {}, messages).valid);
  sheet.enter(2, 1, "2");
  EXPECT_FALSE(bfDataAreValid(sheet, {}, messages).valid);
  sheet.enter(2, 3, "2");
  EXPECT_TRUE(bfDataAreValid(sheet, {}, messages).valid);
  EXPECT_THAT(test::textsOf(messages), ElementsAre("Your Variable Var1 has only 1 value: 1",
                                                   "Your Variable Var3 has only 1 value: 1,235"));
  EXPECT_EQ(messages.boxes()[0].box.icon, MessageIcon::critical);
}

TEST(ExitCheckTest, RefusesWhatNoSingleCanHold) {
  DataSheet sheet(10, 2);
  fill(sheet, {{"", "1", "3e38"}, {"", "2", "-4e38"}, {"", "3", "0"}});
  sheet.enter(0, 2, "Debt");
  MessageLog messages;
  EXPECT_FALSE(bfDataAreValid(sheet, {}, messages).valid);
  EXPECT_THAT(test::textsOf(messages), ElementsAre("Your Variable Debt has the value -4e+38. The "
                                                   "analysis takes numbers up to 3.4e38."));
  sheet.enter(2, 2, "-3.4e38");
  EXPECT_TRUE(bfDataAreValid(sheet, {}, messages).valid);
}

TEST(ExitCheckTest, BinaryVariableCountsItsSecondValueFromTheSecondSightingOn) {
  const auto fault = [](std::vector<float> values) {
    const int observations = static_cast<int>(values.size());
    values.insert(values.begin(), 0);
    const auto box = CheckBinaryVariable(values, observations);
    return box ? box->text : "";
  };
  EXPECT_EQ(fault({1, 1, 2, 3}), "Your Binary Variable has more than 2 values.");
  EXPECT_EQ(fault({1, 1}), "Your Binary Variable has only 1 value: 1");
  EXPECT_EQ(fault({1, 2, 2, 2}), "You have only one 1 in your data");
  EXPECT_EQ(fault({1, 1, 2, 2}), "You have only one 2 in your data");
  EXPECT_EQ(fault({1, 1, 2}), "");
  EXPECT_EQ(fault({0.5f, 0.5f, 2, 2, 2}), "");
}

}  // namespace
}  // namespace tolmer
