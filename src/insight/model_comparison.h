// Fits of one run, kept to be held against each other.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "secondfit/second_fit.h"
#include "state/analysis_state.h"

namespace tolmer {

// A completed fit, without the data themselves.
struct ModelRecord {
  std::string dataName;         // as dataSetName
  std::vector<Int16> modelCol;  // as AnalysisState::iModelCol, to take the model up again
  bool intercept = false;
  int cases = 0;
  std::vector<std::string> names;     // (k + 1) of the terms, then of the dependent variable
  std::vector<std::uint64_t> prints;  // (k + 1) of their values in the order of the cases: columns
                                      // of the same values have the same
  ModelFigures model;
  double leavingOneOut = 0;         // in units of the dependent variable; may be not a number
  std::vector<TermFigures> byTerm;  // (k)

  int terms() const { return static_cast<int>(byTerm.size()); }
  const std::string& dependent() const { return names.back(); }
};

// Nothing after a failed fit, nor where the second fit is not determined.
std::optional<ModelRecord> recordOf(const AnalysisState& state, const ModelData& data,
                                    const SecondFit& fit);
// "Y on X1, X2, X3 and 4 more, no intercept". The names are those of the terms, then of the
// dependent variable.
std::string modelTitle(std::span<const std::string> names, bool intercept);
std::string titleOf(const ModelRecord& record);
// None with fewer than two predictors.
std::optional<double> largestInflation(const ModelRecord& record);
// Whether the record's model can be taken up again: the present data have its columns.
bool isOfPresentData(const ModelRecord& record, const AnalysisState& state);
// Why not, as a sentence; empty where it can.
std::string whyNotOfPresentData(const ModelRecord& record, const AnalysisState& state);

// The completed fits of a run in their order, each once however often it was made; of very many
// only the last ones (mostKeptModels). They are numbered from 1 on, and keep their numbers.
class ModelHistory {
 public:
  // The number of the fit.
  int add(ModelRecord record);
  std::span<const ModelRecord> records() const { return records_; }
  // Of the first one that is still there, and of the last one.
  int firstNumber() const { return forgotten_ + 1; }
  int lastNumber() const { return forgotten_ + static_cast<int>(records_.size()); }
  // Null for a number that has none, or none any more.
  const ModelRecord* record(int number) const;

 private:
  std::vector<ModelRecord> records_;
  int forgotten_ = 0;
};

// Coefficient and standard error of one term in two fits; undetermined where the fit lacks it.
struct TermChange {
  std::string name;
  Figure coefficientBefore{}, errorBefore{}, coefficientAfter{}, errorAfter{};
};
// Those of `before` in their order, then those that only `after` has.
std::vector<TermChange> termChanges(std::span<const std::string> namesBefore,
                                    std::span<const TermFigures> before,
                                    std::span<const std::string> namesAfter,
                                    std::span<const TermFigures> after);

// The partial F test: whether the terms that only the larger model has explain more than chance.
// Source: N. R. Draper and H. Smith, Applied Regression Analysis, 3rd edition 1998, section 6.1.
struct PartialTest {
  double f = 0;
  int degrees = 0;       // terms that only the larger model has
  int errorDegrees = 0;  // of the larger model
  double p = 0;
};

struct ModelComparison {
  std::vector<TermChange> terms;
  bool casesAgree = false;          // the same dependent variable and, where both models have a
                                    // predictor, the same values of it, case by case
  std::optional<PartialTest> test;  // where the cases agree and one model holds the other
  std::vector<std::string> sentences;
};
ModelComparison compareModels(const ModelRecord& before, const ModelRecord& after);

}  // namespace tolmer
