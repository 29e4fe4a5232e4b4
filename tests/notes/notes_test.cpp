// The notes on whole analyses: what they say, of which cells, and that no number passes for right
// that is not.
#include "notes/notes.h"

#include <cmath>

#include "base/message_box.h"
#include "displays/display_list.h"
#include "engine/pipeline.h"
#include "help/help_book.h"
#include "help/topic_page.h"
#include "support/regression_data.h"
#include "support/tree.h"
#include "tables/coefficient_table.h"

namespace tolmer {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

struct Noted {
  AnalysisState state;
  Examination examination;
  std::vector<Note> notes;

  const Note* find(NoteKind kind) const {
    const auto found = std::ranges::find(notes, kind, &Note::kind);
    return found == notes.end() ? nullptr : &*found;
  }
  std::string text(NoteKind kind) const { return find(kind) ? find(kind)->text : ""; }
};

Noted noted(AnalysisState state) {
  MessageLog messages;
  Analyse(state, messages);
  const Examination examination = examine(state);
  return {state, examination, notesOf(state, examination)};
}

std::vector<std::vector<float>> rowsOf(int count,
                                       const std::function<std::vector<float>(float)>& row) {
  std::vector<std::vector<float>> rows;
  for (int i = 1; i <= count; ++i) rows.push_back(row(static_cast<float>(i)));
  return rows;
}

TEST(Notes, NameTheCauseOfAFailedFit) {
  const auto cause = [](const std::vector<std::vector<float>>& rows) {
    return noted(modelOf(rows)).text(NoteKind::noValidFit);
  };
  const auto noise = [](float i) { return std::fmod(i * i * 7, 11.0F); };
  EXPECT_EQ(cause(rowsOf(9,
                         [&](float i) {
                           return std::vector{i, i, noise(i)};
                         })),
            "There is no valid fit: X2 follows exactly from other terms: X2 = X1.");
  EXPECT_EQ(
      cause(rowsOf(9,
                   [&](float i) {
                     return std::vector{i, 5.0F, noise(i)};
                   })),
      "There is no valid fit: X2 is 5 in all cases. It makes the VIF read 1000, too, of X1 (1.0).");
  EXPECT_EQ(cause(rowsOf(9,
                         [&](float i) {
                           return std::vector{i, noise(i), 2 * i + 1};
                         })),
            "There is no valid fit: the dependent variable Y is computed exactly from the "
            "predictors: Y = 2 X1 + 1.");
  EXPECT_EQ(cause({{1, 2, 3}, {2, 1, 5}, {4, 4, 4}}),
            "There is no valid fit: 3 cases cannot determine 3 terms: there must be more cases "
            "than terms.");
}

TEST(Notes, OfAFailedFitShowNoNumberAndMarkTheTerm) {
  const Noted twins = noted(modelOf({{1, 1, 3}, {2, 2, 5}, {4, 4, 4}, {5, 5, 9}, {7, 7, 8}}));
  EXPECT_FALSE(twins.examination.health);
  EXPECT_THAT(twins.find(NoteKind::noValidFit)->cells, ElementsAre(NotedCell{"frmEstCoef", 4, 1}));
  MessageLog messages;
  for (const char* form : {"frmEstCoef", "frmANOVA", "frmResidList"}) {
    const auto content = contentOf(*findDisplay(form), twins.state, {}, messages);
    const auto& table = std::get<TableContent>(content);
    for (int row = 2; row <= table.rows(); ++row)
      for (const TableCell& cell : table.row(row))
        EXPECT_FALSE(cell.mark == CellMark::pBelow01 || cell.text.find("0.0") != std::string::npos)
            << form << row << cell.text;
  }
  const TableContent coefficients = coefficientTable(twins.state);
  EXPECT_EQ(coefficients.at(3, 2).text + coefficients.at(3, 6).text, "NA1000");
  EXPECT_EQ(titleOf(*findDisplay("frmANOVA"), twins.state), "ANOVA Table (no valid fit)");
  EXPECT_EQ(titleOf(*findDisplay("frmDataList"), twins.state), "Data List");
}

// The first and the third predictor are twins; the VIF of the second is that of the model without
// the third.
TEST(Notes, TellTheVIFOfAPredictorBesideTwins) {
  const auto x = [](float i) { return std::fmod(i * i * 7, 11.0F); };
  const Noted twins = noted(modelOf(rowsOf(9, [&](float i) {
    return std::vector{i, x(i), 2 * i + 1, x(i * 3)};
  })));
  EXPECT_EQ(coefficientTable(twins.state).at(4, 6).text, "1000");
  const AnalysisState apart = noted(modelOf(rowsOf(9, [&](float i) {
                                return std::vector{i, x(i), x(i * 3)};
                              }))).state;
  const std::string told = coefficientTable(apart).at(4, 6).text;
  EXPECT_THAT(
      twins.find(NoteKind::noValidFit)->cells,
      ElementsAre(NotedCell{"frmEstCoef", 5, 1}, NotedCell{"frmEstCoef", 4, 6, "better: " + told}));
  EXPECT_THAT(twins.text(NoteKind::noValidFit),
              testing::EndsWith("It makes the VIF read 1000, too, of X2 (" + told + ")."));
}

// Each from a model in which it must be told, with the cells.
TEST(Notes, TellWhatTheDisplaysCannot) {
  const Noted cement = noted(cementModel(false));
  EXPECT_THAT(cement.text(NoteKind::noIntercept), HasSubstr("about the mean of Y"));
  EXPECT_THAT(cement.text(NoteKind::fewCases),
              HasSubstr("13 cases for 4 predictors leave 9 degrees of freedom"));
  EXPECT_THAT(cement.text(NoteKind::allConfirmed), HasSubstr("All 92 numbers"));
  const Noted one = noted(modelOf({{1, 3}, {2, 5}, {4, 4}, {5, 9}, {7, 8}, {9, 4}}, false));
  EXPECT_THAT(one.text(NoteKind::onePredictor), HasSubstr("The 0.0 stands for none"));
  EXPECT_THAT(one.find(NoteKind::onePredictor)->cells, ElementsAre(NotedCell{"frmEstCoef", 2, 6}));
  AnalysisState level = modelOf(rowsOf(9, [](float i) {
    return std::vector{1e8F + 8 * i, std::fmod(i * i * 7, 11.0F)};
  }));
  level.uOrigin.leftOut = {{5, "Ohio", "a gap in X1"}};
  const Noted gap = noted(level);
  EXPECT_EQ(gap.text(NoteKind::casesLeftOut),
            "10 cases were read and 9 used. One was left out: row 5 (Ohio: a gap in X1).");
  EXPECT_THAT(gap.text(NoteKind::coarseScale), HasSubstr("Values of X1 differ only behind"));
}

TEST(Notes, NameCasesThatDecideTheFitAndResidualsThatSpreadUnequally) {
  const auto noise = [](float i) { return std::fmod(i * i * 7, 11.0F); };
  auto rows = rowsOf(12, [&](float i) { return std::vector{i, noise(i), 0.0F, noise(i + 3)}; });
  rows[4][2] = 1;  // the only case with it
  EXPECT_EQ(noted(modelOf(rows)).text(NoteKind::influentialCase),
            "Case 5 has a leverage of 1: the fit passes through it wherever it lies.");
  rows[4][2] = 0;
  rows[7][2] = 1;
  rows[8][2] = 1;
  rows[8][3] = 90;
  EXPECT_THAT(
      noted(modelOf(rows)).text(NoteKind::influentialCase),
      HasSubstr("Cases 8 and 9 each move the fit noticeably: the largest Cook's distance "));
  const Noted wedge = noted(modelOf(rowsOf(40, [](float i) {
    return std::vector{i, i + (std::fmod(i, 2.0F) - 0.5F) * i};
  })));
  EXPECT_THAT(wedge.text(NoteKind::unequalSpread),
              HasSubstr("with 1 degree of freedom, P below 0.001), so that"));
  EXPECT_EQ(noted(cementModel()).text(NoteKind::unequalSpread), "");
}

TEST(Notes, TellWhatRoundingToSinglesMoves) {
  AnalysisState state = modelOf(rowsOf(9, [](float i) {
    return std::vector{123456789.0F + 16 * i, std::fmod(i * i * 7, 11.0F)};
  }));
  state.uOrigin.written.resize(9, 2);
  for (int i = 1; i <= 9; ++i) {
    state.uOrigin.written(i, 1) = 123456789.0 + 15.5 * i;
    state.uOrigin.written(i, 2) = state.sData(i, 2);
  }
  const Noted rounded = noted(state);
  EXPECT_THAT(rounded.text(NoteKind::dataRounded), HasSubstr("Estimated Coefficients"));
  for (int i = 1; i <= 9; ++i)
    for (const int j : {1, 2}) state.uOrigin.written(i, j) = state.sData(i, j);
  EXPECT_EQ(noted(state).text(NoteKind::dataRounded), "");
}

// Powers of 1 to 21 are so nearly combinations that the engine loses digits; the second fit has
// them, as its own tests against fractions show. Y = 1 + x + ... + x^5 + noise.
TEST(Notes, MarkWhatTheSecondFitDoesNotConfirm) {
  AnalysisState state = emptyModel(21, 5);
  for (int c = 1; c <= 21; ++c) {
    float power = 1;
    float y = c % 2 == 0 ? -2.0e5F : 2.0e5F;
    for (int j = 1; j <= 5; ++j) y += power *= static_cast<float>(c - 1), state.sData(c, j) = power;
    state.sData(c, 6) = y + 1;
  }
  const Noted powers = noted(state);
  const Note* note = powers.find(NoteKind::unconfirmed);
  ASSERT_TRUE(note);
  EXPECT_THAT(note->text, HasSubstr("condition number 2.2E+03"));
  EXPECT_EQ(note->cells.size(), powers.examination.health->unconfirmed.size());
  EXPECT_THAT(note->cells[0].remark, testing::StartsWith("better: "));
  EXPECT_FALSE(powers.find(NoteKind::allConfirmed));
}

TEST(Notes, AreExplainedInTheHelp) {
  const HelpBook book = *readHelpBook(TOLMER_SOURCE_DIR "/course/help");
  const auto page = book.find({"tolmod", Note::helpTopic});
  ASSERT_TRUE(page);
  std::vector<std::string> entries;
  for (const TopicEntry& entry : topicEntries(book.topics()[*page])) entries.push_back(entry.term);
  std::vector<std::string> kinds;
  for (int kind = 0; kind <= static_cast<int>(NoteKind::allConfirmed); ++kind)
    kinds.emplace_back(helpEntryOf(static_cast<NoteKind>(kind)));
  EXPECT_EQ(entries, kinds);
}

}  // namespace
}  // namespace tolmer
