#include "insight/model_comparison.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <utility>

#include "base/data_limits.h"
#include "base/sentence_parts.h"
#include "engine/statistical_limits.h"
#include "insight/change_words.h"
#include "insight/influence.h"
#include "secondfit/tail_areas.h"

namespace tolmer {
namespace {

// FNV-1a over whole words, with a fold.
class Print {
 public:
  void add(double value) {
    hash_ = (hash_ ^ std::bit_cast<std::uint64_t>(value + 0.0)) * 0x100000001B3U;  // -0 is 0
    hash_ ^= hash_ >> 29U;  // a product carries upwards only
  }
  std::uint64_t value() const { return hash_; }

 private:
  std::uint64_t hash_ = 0xCBF29CE484222325U;
};

std::vector<std::uint64_t> printsOf(const ModelData& data) {
  std::vector<std::uint64_t> prints;
  for (int term = 0; term <= data.terms; ++term) {
    Print print;
    for (const double value : data.column(term)) print.add(value);
    prints.push_back(print.value());
  }
  return prints;
}

std::uint64_t printOfColumn(const AnalysisState& state, int column) {
  Print print;
  for (int i = 1; i <= state.iNumCases; ++i) print.add(state.sData(i, column));
  return print.value();
}

// Its place among the terms of the record, or their number.
std::size_t placeOf(std::span<const std::string> names, std::size_t terms,
                    const std::string& name) {
  return static_cast<std::size_t>(std::ranges::find(names.first(terms), name) - names.begin());
}

bool sameModel(const ModelRecord& one, const ModelRecord& other) {
  return one.names == other.names && one.prints == other.prints && one.dataName == other.dataName;
}

bool casesAgree(const ModelRecord& one, const ModelRecord& other) {
  if (one.cases != other.cases || one.prints.back() != other.prints.back()) return false;
  for (std::size_t i = 0; i < one.byTerm.size(); ++i) {
    const std::size_t at = placeOf(other.names, other.byTerm.size(), one.names[i]);
    if (at < other.byTerm.size() && one.prints[i] != other.prints[at]) return false;
  }
  return true;
}

// Terms of `one` that `other` lacks.
std::vector<std::string> lacking(const ModelRecord& one, const ModelRecord& other) {
  std::vector<std::string> names;
  for (std::size_t i = 0; i < one.byTerm.size(); ++i)
    if (placeOf(other.names, other.byTerm.size(), one.names[i]) == other.byTerm.size())
      names.push_back(one.names[i] == "Intercept" ? "the intercept" : one.names[i]);
  return names;
}

// `larger` holds all terms of `smaller`.
PartialTest partialTest(const ModelRecord& smaller, const ModelRecord& larger) {
  PartialTest test;
  test.degrees = larger.terms() - smaller.terms();
  test.errorDegrees = larger.cases - larger.terms();
  const double error = larger.model.sse.value;
  test.f =
      std::max(0.0, smaller.model.sse.value - error) / test.degrees / (error / test.errorDegrees);
  test.p = fTail(test.degrees, test.errorDegrees, test.f);
  return test;
}

// Two models of the same cases in words.
class Sentences {
 public:
  Sentences(const ModelRecord& before, const ModelRecord& after)
      : before_(before),
        after_(after),
        dropped_(lacking(before, after)),
        added_(lacking(after, before)) {}

  std::string onChange() const {
    const auto inflation = inflationWords(largestInflation(before_), largestInflation(after_));
    const bool hasSquares = before_.intercept && after_.intercept;
    const Figure &r = before_.model.rSquared, &now = after_.model.rSquared;
    if (inflation)
      return subject() + " " + *inflation + (hasSquares ? "; " + squaresWords(r, now) : "") + ".";
    if (hasSquares) return subject() + " " + squaresMoved(r, now) + ".";
    return subject() + " " +
           movedWords("the standard error", before_.model.standardError.value,
                      after_.model.standardError.value) +
           ".";
  }

  std::string onTest(const PartialTest& test) const {
    const auto& more = dropped_.empty() ? added_ : dropped_;
    const std::string numbers = "(partial F = " + figureText(test.f, 2) + " with " +
                                std::to_string(test.degrees) + " and " +
                                counted(test.errorDegrees, "degree") + " of freedom, " +
                                probabilityWords(test.p) + ")";
    const bool isOne = more.size() == 1;
    if (test.p < usualLevelOfDoubles)  // which is no proof
      return "Chance alone would seldom explain as much as " + listed(more) +
             (isOne ? " does " : " together do ") + numbers + ".";
    return "The data do not show that " + listed(more) +
           (isOne ? " explains" : " together explain") + " more than chance would " + numbers + ".";
  }

  std::string onCriteria() const {
    const ModelFigures &one = before_.model, &other = after_.model;
    const int aic = preferred(one.aic, other.aic);
    const int bic = preferred(one.bic, other.bic);
    const std::string aics = pair(one.aic, other.aic), bics = pair(one.bic, other.bic);
    if (aic == bic)
      return "AIC (" + aics + ") and BIC (" + bics + ") " +
             (aic == 0 ? "prefer neither model."
                       : "prefer the " + which(aic) + " model: lower is better.");
    return "AIC (" + aics + ") prefers " +
           (aic == 0 ? "neither model" : "the " + which(aic) + " model") + " and BIC (" + bics +
           ") " + (bic == 0 ? "neither" : "the " + which(bic)) +
           ": lower is better, and BIC counts terms more heavily.";
  }

  // Empty where a leverage of 1 leaves one of them undetermined.
  std::string onLeavingOneOut() const {
    const double one = before_.leavingOneOut, other = after_.leavingOneOut;
    if (std::isnan(one) || std::isnan(other)) return {};
    return "Leaving one out, the first model misses a case by " + figureText(one) +
           ", the second by " + figureText(other) + " (root mean square, in the unit of " +
           before_.dependent() + ").";
  }

  bool isSame() const { return dropped_.empty() && added_.empty(); }

 private:
  std::string subject() const {
    if (added_.empty()) return "Dropping " + listed(dropped_);
    if (dropped_.empty()) return "Adding " + listed(added_);
    return "Taking " + listed(added_) + " in place of " + listed(dropped_);
  }
  // 1 or 2, or 0 where the shown digits are the same.
  static int preferred(const Figure& one, const Figure& other) {
    if (figureText(one.value, 1) == figureText(other.value, 1)) return 0;
    return one.value < other.value ? 1 : 2;
  }
  static std::string which(int model) { return ordinal(model); }
  static std::string pair(const Figure& one, const Figure& other) {
    return figureText(one.value, 1) + " and " + figureText(other.value, 1);
  }

  const ModelRecord& before_;
  const ModelRecord& after_;
  const std::vector<std::string> dropped_, added_;
};

std::string onOtherCases(const ModelRecord& before, const ModelRecord& after) {
  std::string why;
  if (before.dependent() != after.dependent())
    why = "The models explain different variables, " + before.dependent() + " and " +
          after.dependent();
  else if (before.cases != after.cases)
    why = "The fits are of different cases, " + std::to_string(before.cases) + " and " +
          std::to_string(after.cases);
  else
    why = "The fits are of different values of the same variables";
  return why +
         ": R-squared, AIC and BIC cannot be held against each other, and there is no F test.";
}

std::vector<std::string> sentencesOn(const ModelRecord& before, const ModelRecord& after,
                                     const ModelComparison& comparison) {
  if (!comparison.casesAgree) return {onOtherCases(before, after)};
  const Sentences words(before, after);
  if (words.isSame()) return {"Both are the same model of the same cases."};
  std::vector<std::string> result{words.onChange()};
  if (comparison.test) result.push_back(words.onTest(*comparison.test));
  result.push_back(words.onCriteria());
  if (std::string left = words.onLeavingOneOut(); !left.empty()) result.push_back(std::move(left));
  return result;
}

}  // namespace

std::optional<ModelRecord> recordOf(const AnalysisState& state, const ModelData& data,
                                    const SecondFit& fit) {
  if (state.Fit.bSingular || !fit.determined()) return {};
  return ModelRecord{.dataName = dataSetName(state),
                     .modelCol = state.iModelCol,
                     .intercept = data.intercept,
                     .cases = data.cases,
                     .names = data.names,
                     .prints = printsOf(data),
                     .model = fit.model,
                     .leavingOneOut = leavingOneOut(data, fit),
                     .byTerm = fit.byTerm};
}

std::string modelTitle(std::span<const std::string> names, bool intercept) {
  const std::vector<std::string> predictors(names.begin() + (intercept ? 1 : 0), names.end() - 1);
  return names.back() + " on " + listed(predictors) + (intercept ? "" : ", no intercept");
}

std::string titleOf(const ModelRecord& record) {
  return modelTitle(record.names, record.intercept);
}

std::optional<double> largestInflation(const ModelRecord& record) {
  std::optional<double> largest;
  if (record.terms() - (record.intercept ? 1 : 0) < 2) return largest;
  for (const TermFigures& term : record.byTerm)
    if (term.inflation.value > largest.value_or(0)) largest = term.inflation.value;
  return largest;
}

bool isOfPresentData(const ModelRecord& record, const AnalysisState& state) {
  if (record.cases != state.iNumCases) return false;
  const auto holds = [&](Int16 column, std::size_t at) {
    return column >= 1 && column <= state.iNumCols &&
           state.tVarName[static_cast<std::size_t>(column)] == record.names[at] &&
           printOfColumn(state, column) == record.prints[at];
  };
  const std::size_t first = record.intercept ? 1 : 0;
  for (std::size_t at = first; at < record.byTerm.size(); ++at)
    if (!holds(record.modelCol[at - first + 2], at)) return false;
  return holds(record.modelCol[1], record.byTerm.size());
}

std::string whyNotOfPresentData(const ModelRecord& record, const AnalysisState& state) {
  if (isOfPresentData(record, state)) return {};
  const std::string present = dataSetName(state);
  if (record.dataName != present)
    return "This fit is of other data (" + record.dataName + ") than the present ones (" + present +
           ").";
  if (record.cases != state.iNumCases)
    return "This fit is of " + counted(record.cases, "case") + "; the present data have " +
           std::to_string(state.iNumCases) + ".";
  return "The present data have other columns, or other values in them, than this fit.";
}

int ModelHistory::add(ModelRecord record) {
  const auto found = std::ranges::find_if(
      records_, [&](const ModelRecord& one) { return sameModel(one, record); });
  if (found != records_.end()) return firstNumber() + static_cast<int>(found - records_.begin());
  records_.push_back(std::move(record));
  if (records_.size() > mostKeptModels) {
    records_.erase(records_.begin());
    ++forgotten_;
  }
  return lastNumber();
}

const ModelRecord* ModelHistory::record(int number) const {
  if (number < firstNumber() || number > lastNumber()) return nullptr;
  return &records_[static_cast<std::size_t>(number - firstNumber())];
}

std::vector<TermChange> termChanges(std::span<const std::string> namesBefore,
                                    std::span<const TermFigures> before,
                                    std::span<const std::string> namesAfter,
                                    std::span<const TermFigures> after) {
  std::vector<TermChange> changes;
  for (std::size_t i = 0; i < before.size(); ++i)
    changes.push_back(
        {namesBefore[i], before[i].coefficient, before[i].standardError, Figure{}, Figure{}});
  for (std::size_t i = 0; i < after.size(); ++i) {
    const std::size_t at = placeOf(namesBefore, before.size(), namesAfter[i]);
    if (at == before.size()) changes.push_back({.name = namesAfter[i]});
    TermChange& change = at == before.size() ? changes.back() : changes[at];
    change.coefficientAfter = after[i].coefficient;
    change.errorAfter = after[i].standardError;
  }
  return changes;
}

ModelComparison compareModels(const ModelRecord& before, const ModelRecord& after) {
  ModelComparison result;
  result.terms = termChanges(before.names, before.byTerm, after.names, after.byTerm);
  result.casesAgree = casesAgree(before, after);
  const bool dropsOnly = lacking(after, before).empty();
  const bool addsOnly = lacking(before, after).empty();
  if (result.casesAgree && dropsOnly != addsOnly)
    result.test = dropsOnly ? partialTest(after, before) : partialTest(before, after);
  result.sentences = sentencesOn(before, after, result);
  return result;
}

}  // namespace tolmer
