#include "insight/prediction.h"

#include <algorithm>
#include <cmath>
#include <numeric>

#include "base/sentence_parts.h"
#include "engine/number_format.h"

namespace tolmer {
namespace {

struct Range {
  double least, most;
  bool holds(double value) const { return value >= least && value <= most; }
};

std::string number(double value) { return generalText(static_cast<float>(value)); }

// What does not change from one new case to the next.
class Predictor {
 public:
  Predictor(const ModelData& data, const SecondFit& fit) : data_(data), fit_(fit) {
    for (int term = first(); term < data.terms; ++term) {
      const auto [least, most] = std::ranges::minmax_element(data.column(term));
      ranges_.push_back({*least, *most});
    }
    for (const CaseFigures& one : fit.byCase)
      largestLeverage_ = std::max(largestLeverage_, one.leverage.value + 2 * one.leverage.error);
  }

  // Empty where all predictors are there.
  std::string missingFrom(const std::vector<std::string>& names) {
    std::vector<std::string> missing;
    for (int term = first(); term < data_.terms; ++term) {
      const auto found = std::ranges::find(names, nameOf(term));
      if (found == names.end()) missing.push_back("\"" + nameOf(term) + "\"");
      columns_.push_back(static_cast<std::size_t>(found - names.begin()));
    }
    return listed(missing);
  }

  PredictedCase predict(const std::vector<double>& row) const {
    std::vector<double> terms(data_.intercept ? 1 : 0, 1.0);
    for (const std::size_t column : columns_) terms.push_back(row[column]);
    PredictedCase result{predictSecond(fit_, terms), {}, false, {}};
    std::vector<std::string> places;
    for (std::size_t i = 0; i < ranges_.size(); ++i) {
      const double value = terms[i + static_cast<std::size_t>(first())];
      if (std::isnan(value) || ranges_[i].holds(value)) continue;
      result.outside.push_back(nameOf(static_cast<int>(i) + first()));
      places.push_back(result.outside.back() + " (" + number(value) + "; in the data " +
                       number(ranges_[i].least) + " to " + number(ranges_[i].most) + ")");
    }
    result.extrapolates = result.prediction.leverage > largestLeverage_ * (1 + 1e-9);
    result.words = wordsOn(result, places);
    return result;
  }

 private:
  int first() const { return data_.intercept ? 1 : 0; }
  const std::string& nameOf(int term) const { return data_.names[static_cast<std::size_t>(term)]; }
  static std::string wordsOn(const PredictedCase& one, const std::vector<std::string>& places) {
    if (std::isnan(one.prediction.fit)) return "A value is missing.";
    const char* far = " It lies farther out than any case of the data (its leverage is larger).";
    if (!places.empty())
      return "Outside the data: " + listed(places) + "." + (one.extrapolates ? far : "");
    if (one.extrapolates)
      return "Outside the data: each value lies within its range, but no case of the data lies as "
             "far out as this combination (its leverage is larger).";
    return {};
  }

  const ModelData& data_;
  const SecondFit& fit_;
  std::vector<Range> ranges_;         // of the predictors
  std::vector<std::size_t> columns_;  // of the new cases, for each predictor
  double largestLeverage_ = 0;
};

}  // namespace

Result<std::vector<PredictedCase>> predictCases(const ModelData& data, const SecondFit& fit,
                                                const NewCases& cases) {
  Predictor predictor(data, fit);
  if (const std::string missing = predictor.missingFrom(cases.names); !missing.empty())
    return Error{"", "there is no column " + missing + ", which the model needs"};
  std::vector<PredictedCase> result;
  for (const auto& row : cases.rows) result.push_back(predictor.predict(row));
  return result;
}

NewCases casesAtMeans(const ModelData& data) {
  NewCases cases{{}, {{}}};
  for (int term = data.intercept ? 1 : 0; term < data.terms; ++term) {
    const auto values = data.column(term);
    cases.names.push_back(data.names[static_cast<std::size_t>(term)]);
    cases.rows[0].push_back(std::reduce(values.begin(), values.end()) / data.cases);
  }
  return cases;
}

}  // namespace tolmer
