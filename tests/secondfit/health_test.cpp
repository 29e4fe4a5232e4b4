// Which shown numbers count as confirmed.
#include "secondfit/health.h"

#include "secondfit/shown_figures.h"
#include "secondfit/tail_areas.h"
#include "support/regression_data.h"

namespace tolmer {
namespace {

TEST(Health, ConfirmsOneUnitOfTheLastShownDigit) {
  const auto doubt = [](std::string_view text, double value, double error = 0) {
    return doubtOf(text, {value, error});
  };
  for (const auto& [text, value] :
       std::vector<std::pair<const char*, double>>{{"1,234.5", 1234.64},
                                                   {"1,234.5", 1234.35},
                                                   {".0012", 0.00134},
                                                   {"-3.20", -3.19},
                                                   {"2.50E+5", 250900.0},
                                                   {"9.99E-7", 1.0e-6},
                                                   {"0.000", 0.00049},
                                                   {"1000", 1000.4}})
    EXPECT_EQ(doubt(text, value), Doubt::none) << text;
  for (const auto& [text, value] :
       std::vector<std::pair<const char*, double>>{{"1,234.5", 1234.66},
                                                   {"3.20", -3.20},
                                                   {"0.000", 0.00051},
                                                   {"-0.01", 0.02},
                                                   {"2.50E+5", 252000.0},
                                                   {"1000", INFINITY}})
    EXPECT_EQ(doubt(text, value), Doubt::differs) << text;
  EXPECT_EQ(doubt("3.20", 3.2, 0.004), Doubt::none);
  EXPECT_EQ(doubt("3.20", 3.2, 0.005), Doubt::uncertain);
  EXPECT_EQ(doubt("3.20", NAN, INFINITY), Doubt::uncertain);
  for (const char* text :
       {"", "---", "NA", "********", "> 2 SE", "-", "1.2.3", "E+5", "12 3", "5E"})
    EXPECT_FALSE(doubt(text, 1)) << text;
}

TEST(Health, TellsWhatWouldStandThereInTheSameDigits) {
  const std::vector<ShownCell> cells{{"frmANOVA", 2, 2, "1,234,567.8", {1334567.84, 0}},
                                     {"frmANOVA", 2, 3, "NA", {1, 0}},
                                     {"frmEstCoef", 3, 2, ".0012", {-0.00156, 0}},
                                     {"frmEstCoef", 3, 3, "1.50E-6", {2.5e-7, 0}},
                                     {"frmEstCoef", 3, 4, "2.00", {2.001, 0}}};
  Health health;
  for (const ShownCell& cell : cells) checkCell(health, cell);
  EXPECT_EQ(health.checked, 4);
  std::vector<std::string> better;
  for (const Unconfirmed& one : health.unconfirmed) better.push_back(one.better);
  EXPECT_THAT(better, testing::ElementsAre("1,334,567.8", "-.0016", "2.50E-7"));
  EXPECT_EQ(health.unconfirmed[1].row, 3);
}

// The published analysis of these data: Draper and Smith, chapter 15 and appendix 15A.
TEST(Health, FindsTheFigureOfEachCell) {
  const AnalysisState state = cementModel();
  const ModelData data = heldData(state);
  const SecondFit fit = fitSecond(data);
  const auto confirms = [&](const char* display, int row, int column, const char* text,
                            bool labelled = false) {
    const auto figure = shownFigures(display)({data, fit, labelled}, row, column);
    return figure && doubtOf(text, *figure) == Doubt::none;
  };
  EXPECT_TRUE(confirms("frmEstCoef", 2, 2, "62.41"));
  EXPECT_TRUE(confirms("frmEstCoef", 3, 5, "0.071"));
  EXPECT_TRUE(confirms("frmEstCoef", 4, 6, "254.4"));
  EXPECT_TRUE(confirms("frmEstCoef", 6, 8, "1.491"));
  EXPECT_TRUE(confirms("frmANOVA", 2, 5, "111.5"));
  EXPECT_TRUE(confirms("frmANOVA", 3, 4, "5.983"));
  EXPECT_TRUE(confirms("frmANOVA", 6, 2, "0.9824"));
  EXPECT_TRUE(confirms("frmResidList", 2, 3, "78.50", true));
  EXPECT_TRUE(confirms("frmResidList", 2, 3, "78.50", false));  // fitted 78.495
  EXPECT_FALSE(confirms("frmResidList", 2, 2, "1", true));
  EXPECT_FALSE(shownFigures("frmEstCoef")({data, fit}, 2, 6));
}

// Exact values: to 18 digits by the same areas in 50-digit arithmetic.
TEST(TailAreas, KeepTheirDigitsFarOut) {
  EXPECT_NEAR(studentTwoTails(1, 1) / 0.5, 1, 1e-14);
  EXPECT_NEAR(studentTwoTails(2, 1e6) / 9.999999999985e-13, 1, 1e-13);
  EXPECT_NEAR(studentTwoTails(1000, 37.5) / 7.0435158419978341e-193, 1, 1e-13);
  EXPECT_NEAR(fTail(49, 32000, 30) / 5.3602650498267544e-269, 1, 2e-13);
  EXPECT_NEAR(fTail(2, 4, 6) / 0.0625, 1, 1e-14);
  EXPECT_NEAR(studentQuantile(1, 0.05) / 12.706204736174704, 1, 1e-14);
  EXPECT_NEAR(studentQuantile(2, 0.05) / 4.302652729749464, 1, 1e-14);
  EXPECT_EQ(studentTwoTails(5, 0), 1);
  EXPECT_EQ(fTail(3, 5, 0), 1);
  EXPECT_TRUE(std::isnan(studentTwoTails(0, 1)));
}

}  // namespace
}  // namespace tolmer
