#include "editor/exit_check.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <queue>

namespace tolmer {
namespace {

using testing::ElementsAre;

// Answers in turn; a box that is not expected gets no answer of the script.
class Answers : public MessagePort {
 public:
  explicit Answers(std::vector<Answer> answers = {}) : answers_(answers.begin(), answers.end()) {}
  Answer messageBox(const MessageBox& box) override {
    boxes.push_back(box);
    if (answers_.empty()) return Answer::ok;
    const Answer answer = answers_.front();
    answers_.pop_front();
    return answer;
  }
  std::vector<MessageBox> boxes;

 private:
  std::deque<Answer> answers_;
};

// Row by row; "" leaves a cell empty. Column 0 are the labels.
void fill(DataSheet& sheet, const std::vector<std::vector<const char*>>& rows) {
  int r = 0;
  for (const auto& row : rows) {
    int c = 0;
    ++r;
    for (const char* text : row) sheet.enter(r, c++, text);
  }
}

const std::vector<std::vector<const char*>> threeGood{
    {"", "1", "4"}, {"", "2", "6"}, {"", "3", "5"}};

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

TEST(ExitCheckTest, TooFewCasesMayBeLeftWithoutTheData) {
  DataSheet empty(10, 3);
  const std::string text =
      "The sample size is too small for analysis. You need at least 3 complete observations. If "
      "you leave the Data Editor this data will NOT be used! Do you want to leave the Data Editor "
      "anyway?";
  for (const Answer answer : {Answer::yes, Answer::no}) {
    Answers answers({answer});
    const ExitVerdict verdict = bfDataAreValid(empty, {}, answers);
    EXPECT_FALSE(verdict.valid);
    EXPECT_EQ(verdict.mbUserCancel, answer == Answer::yes);
    ASSERT_EQ(answers.boxes.size(), 1u);
    EXPECT_EQ(answers.boxes[0].title, "Not Enough Data");
    EXPECT_EQ(answers.boxes[0].text, text);
    EXPECT_EQ(answers.boxes[0].icon, MessageIcon::exclamation);
    EXPECT_EQ(answers.boxes[0].buttons, MessageButtons::yesNo);
  }
}

TEST(ExitCheckTest, AsksBeforeIncompleteCasesAreDiscarded) {
  DataSheet sheet(10, 3);
  fill(sheet, {{"", "1", "4"}, {"", "2", "6"}, {"", "3", ""}});
  Answers stay({Answer::cancel});
  EXPECT_FALSE(bfDataAreValid(sheet, {}, stay).valid);
  ASSERT_EQ(stay.boxes.size(), 1u);
  EXPECT_EQ(stay.boxes[0].title, "Missing Data");
  EXPECT_EQ(stay.boxes[0].icon, MessageIcon::question);
  EXPECT_EQ(stay.boxes[0].buttons, MessageButtons::okCancel);
  EXPECT_EQ(stay.boxes[0].text,
            "Warning: One case is incomplete. It cannot be used in the analysis. Press OK to "
            "proceed by discarding incomplete data, or Cancel to return to the Data Editor.");
  Answers leave({Answer::ok, Answer::no});
  EXPECT_FALSE(bfDataAreValid(sheet, {}, leave).valid);
  ASSERT_EQ(leave.boxes.size(), 2u);
  EXPECT_EQ(leave.boxes[1].title, "Not Enough Data");
  fill(sheet, {{"", "1", "4"}, {"", "2", "6"}, {"", "3", ""}, {"", "", "1"}, {"", "5", "7"}});
  Answers go({Answer::ok});
  const ExitVerdict verdict = bfDataAreValid(sheet, {}, go);
  EXPECT_TRUE(verdict.valid);
  EXPECT_EQ(verdict.data.miCompleteObs, 3);
  EXPECT_EQ(go.boxes[0].text.substr(0, 74),
            "Warning: 2 cases are incomplete. They cannot be used in the analysis. Pres");
}

TEST(ExitCheckTest, RefusesTheFirstVariableWithOneValueOtherThanZero) {
  DataSheet sheet(10, 5);
  fill(sheet, threeGood);
  for (int r = 1; r <= 3; ++r) {
    sheet.enter(r, 3, "0");
    sheet.enter(r, 4, "5");
    sheet.enter(r, 5, "6");
  }
  sheet.enter(0, 4, "Fives");
  Answers answers;
  EXPECT_FALSE(bfDataAreValid(sheet, {}, answers).valid);
  ASSERT_EQ(answers.boxes.size(), 1u);
  EXPECT_EQ(answers.boxes[0].title, "Variable Error");
  EXPECT_EQ(answers.boxes[0].text, "Your Variable Fives has only 1 value: 5");
  EXPECT_EQ(answers.boxes[0].icon, MessageIcon::critical);
  // The values are compared as singles.
  const std::vector<float> close{0, 1, static_cast<float>(1 + 1e-12)};
  EXPECT_TRUE(CheckConstantVariable(close, "X", 2).has_value());
}

TEST(ExitCheckTest, NamesBlankHeadingsWithoutCountingItAsAChange) {
  DataSheet sheet(10, 4 + 1);
  fill(sheet, threeGood);
  sheet.clear({{0, 1}, {0, 5}});
  sheet.markSaved("f");
  Answers answers;
  EXPECT_TRUE(bfDataAreValid(sheet, {}, answers).valid);
  EXPECT_EQ(sheet.heading(1), "Var1");
  EXPECT_EQ(sheet.heading(2), "Var2");
  EXPECT_EQ(sheet.heading(3), "") << "no data";
  EXPECT_FALSE(sheet.changeMade());
  EXPECT_TRUE(answers.boxes.empty());

  Answers missing;
  EXPECT_FALSE(bfDataAreValid(sheet, {.miMinVariables = 2 + 1}, missing).valid);
  EXPECT_EQ(missing.boxes.at(0).text, "You need data for variable ");
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
