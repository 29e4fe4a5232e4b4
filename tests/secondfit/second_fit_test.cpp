// The second fit against certified results of public sets, against fractions, and against itself.
#include "secondfit/second_fit.h"

#include <cmath>
#include <fstream>
#include <sstream>

#include "support/regression_data.h"
#include "support/tree.h"

namespace tolmer {
namespace {

const std::string folder = TOLMER_SOURCE_DIR "/tests/secondfit/";

// A set as published; powers of the first predictor as products of doubles from the left.
struct PublicSet {
  ModelData data;
  std::map<std::string, std::vector<double>> certified;
};

double held(double value) { return static_cast<float>(value); }

PublicSet readSet(const std::string& name, bool single) {
  std::ifstream file(folder + "sets/" + name + ".txt");
  PublicSet set;
  std::vector<std::vector<double>> cases;
  std::string line;
  while (std::getline(file, line)) {
    std::istringstream words(line);
    std::string key;
    words >> key;
    auto& values = key == "case" ? cases.emplace_back() : set.certified[key];
    for (std::string text; key != "#" && words >> text;) values.push_back(std::stod(text));
  }
  const auto degree = static_cast<std::size_t>(set.certified["degree"][0]);
  ModelData& data = set.data;
  data.intercept = set.certified["intercept"][0] != 0;
  data.cases = static_cast<int>(cases.size());
  if (data.intercept) data.x.assign(cases.size(), 1);
  for (auto& row : cases)
    while (row.size() <= degree) row.push_back(row.back() * row[1]);
  for (std::size_t j = 0; j < cases[0].size(); ++j)
    for (const auto& row : cases)
      (j == 0 ? data.y : data.x).push_back(single ? held(row[j]) : row[j]);
  data.terms = static_cast<int>(data.x.size() / cases.size());
  for (int j = 0; j <= data.terms; ++j) data.names.push_back("V" + std::to_string(j));
  return set;
}

// Digits that agree, 16 at most; of a certified 0 those behind the point.
double digits(double value, double certified) {
  const double difference = std::abs(value - certified);
  const double scale = certified == 0 ? 1 : std::abs(certified);
  return difference == 0 ? 16 : std::min(16.0, -std::log10(difference / scale));
}

class Certified : public testing::TestWithParam<const char*> {};

TEST_P(Certified, DataInDoublesGiveNineDigits) {
  const std::string name = GetParam();
  auto [data, certified] = readSet(name, false);
  const SecondFit fit = fitSecond(data);
  double least = 16;
  for (std::size_t j = 0; j < fit.byTerm.size(); ++j) {
    least =
        std::min(least, digits(fit.byTerm[j].coefficient.value, certified["coefficient"][2 * j]));
    least = std::min(
        least, digits(fit.byTerm[j].standardError.value, certified["coefficient"][2 * j + 1]));
  }
  const ModelFigures& model = fit.model;
  least = std::min(least, digits(model.standardError.value, certified["deviation"][0]));
  least = std::min(least, digits(model.sse.value, certified["residual"][0]));
  if (data.intercept) {  // the published sums without one are not about the mean
    least = std::min(least, digits(model.ssr.value, certified["regression"][0]));
    least = std::min(least, digits(model.rSquared.value, certified["r-squared"][0]));
    if (std::isfinite(certified["f"][0]))
      least = std::min(least, digits(model.f.value, certified["f"][0]));
  }
  RecordProperty("digits", std::to_string(least));
  // Rounding the powers of filip's x to doubles moves its exact solution in the 8th digit already.
  EXPECT_GE(least, name == "filip" ? 7 : 9);
}

std::map<std::string, Figure> figuresOf(const SecondFit& fit) {
  std::map<std::string, Figure> all{{"sse 0", fit.model.sse},
                                    {"ssr 0", fit.model.ssr},
                                    {"sst 0", fit.model.sst},
                                    {"f 0", fit.model.f},
                                    {"durbinWatson 0", fit.model.durbinWatson}};
  for (std::size_t j = 0; j < fit.byTerm.size(); ++j) {
    const std::string index = " " + std::to_string(j);
    all["coefficient" + index] = fit.byTerm[j].coefficient;
    all["standardError" + index] = fit.byTerm[j].standardError;
    all["inflation" + index] = fit.byTerm[j].inflation;
  }
  for (const std::size_t i : {std::size_t{0}, fit.byCase.size() - 1}) {
    const std::string index = " " + std::to_string(i);
    all["residual" + index] = fit.byCase[i].residual;
    all["leverage" + index] = fit.byCase[i].leverage;
    all["internal" + index] = fit.byCase[i].internal;
    all["studentized" + index] = fit.byCase[i].studentized;
  }
  return all;
}

// held_values.txt is written by exact_values.py.
TEST_P(Certified, HeldSinglesAgreeWithFractionsWithinTheBounds) {
  const std::string name = GetParam();
  const auto [data, certified] = readSet(name, true);
  const SecondFit fit = fitSecond(data);
  auto figures = figuresOf(fit);
  std::ifstream file(folder + "held_values.txt");
  std::string set, figure, index;
  double exact = 0;
  int compared = 0;
  for (std::string text; file >> set >> figure >> index >> text;) {
    if (set != name) continue;
    exact = std::stod(text);
    ++compared;
    const Figure& found = figures.at(figure + " " + index);
    EXPECT_LE(std::abs(found.value - exact), found.error) << figure << index << " " << exact;
    EXPECT_LE(found.error, 2e-7 * std::abs(exact) + 1e-18) << figure << index << " " << exact;
  }
  EXPECT_GT(compared, 8);
}

INSTANTIATE_TEST_SUITE_P(PublicSets, Certified,
                         testing::Values("norris", "pontius", "noint1", "noint2", "filip",
                                         "longley", "wampler1", "wampler2", "wampler3", "wampler4",
                                         "wampler5"),
                         [](const auto& info) { return std::string(info.param); });

ModelData without(const ModelData& data, int row) {
  ModelData result = data;
  const auto at = [&](auto& values, int position) { values.erase(values.begin() + position); };
  for (int j = data.terms - 1; j >= 0; --j) at(result.x, j * data.cases + row);
  at(result.y, row);
  --result.cases;
  return result;
}

// Leaving a case out and fitting again is what Cook's distance, DFFITS and the studentized residual
// are defined by; the fit computes them from the leverages.
TEST(SecondFit, InfluenceIsWhatLeavingACaseOutDoes) {
  for (const bool intercept : {true, false}) {
    const ModelData data = heldData(cementModel(intercept));
    const SecondFit fit = fitSecond(data);
    double leverages = 0;
    for (int i = 0; i < data.cases; ++i) {
      const CaseFigures& one = fit.byCase[static_cast<std::size_t>(i)];
      leverages += one.leverage.value;
      const SecondFit other = fitSecond(without(data, i));
      std::vector<double> point;
      for (int j = 0; j < data.terms; ++j) point.push_back(data.at(i, j));
      const Prediction there = predictSecond(other, point);
      const double s = other.model.standardError.value;
      const double y = data.y[static_cast<std::size_t>(i)];
      const double ownError = s * std::sqrt(1 + there.leverage);
      EXPECT_NEAR(one.studentized.value, (y - there.fit) / ownError, 1e-9);
      EXPECT_NEAR(one.dffits.value,
                  (one.fitted.value - there.fit) / (s * std::sqrt(one.leverage.value)), 1e-9);
      double moved = 0;
      for (int row = 0; row < data.cases; ++row) {
        double change = 0;
        for (int j = 0; j < data.terms; ++j) {
          const auto term = static_cast<std::size_t>(j);
          change += data.at(row, j) *
                    (fit.byTerm[term].coefficient.value - other.byTerm[term].coefficient.value);
        }
        moved += change * change;
      }
      EXPECT_NEAR(one.cooks.value, moved / data.terms / std::pow(fit.model.standardError.value, 2),
                  1e-9);
    }
    EXPECT_NEAR(leverages, data.terms, 1e-12);
  }
}

std::string written(const std::vector<Combination>& all) {
  std::ostringstream text;
  for (const Combination& one : all) {
    text << one.name << (one.exact ? " =" : " ~");
    for (const auto& part : one.parts) text << " " << part.coefficient << " " << part.name;
    text << "; ";
  }
  return text.str();
}

TEST(SecondFit, NamesTheColumnsThatFollowFromOthers) {
  AnalysisState state = emptyModel(12, 5);
  SteadyNoise noise(4);
  for (int c = 1; c <= 12; ++c) {
    state.sData(c, 1) = static_cast<float>(c);
    state.sData(c, 2) = static_cast<float>(noise());
    state.sData(c, 3) = 2 * state.sData(c, 1) - 3;                     // exact in single
    state.sData(c, 4) = state.sData(c, 2) * 0.1F + state.sData(c, 1);  // rounded
    state.sData(c, 5) = static_cast<float>(noise());
    state.sData(c, 6) = state.sData(c, 1) * 7 + state.sData(c, 5) * 1.1F;  // Y, rounded
  }
  const ModelData data = heldData(state);
  const SecondFit fit = fitSecond(data);
  EXPECT_EQ(fit.rank, 5);
  EXPECT_FALSE(fit.determined());
  EXPECT_TRUE(std::isnan(fit.byTerm[1].coefficient.value));
  EXPECT_EQ(written(combinations(data, fit)),
            "X3 = -3 Intercept 2 X1; X4 ~ 1 X1 0.1 X2; Y ~ 7 X1 1.1 X5; ");
  const ModelData cement = heldData(cementModel());
  EXPECT_TRUE(combinations(cement, fitSecond(cement)).empty());
}

TEST(SecondFit, WithoutEnoughCasesOrWithGapsNothingIsDetermined) {
  ModelData data = heldData(cementModel());
  data.y[3] = std::nan("");
  EXPECT_EQ(fitSecond(data).rank, 0);
  EXPECT_EQ(fitSecond(ModelData{}).rank, 0);
  EXPECT_EQ(heldData(AnalysisState{}).cases, 0);
  data = heldData(modelOf({{1, 2, 3}, {2, 1, 5}, {4, 4, 4}}));
  EXPECT_FALSE(fitSecond(data).determined());
}

}  // namespace
}  // namespace tolmer
