#include "fitted_claims.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <numeric>
#include <stdexcept>
#include <vector>

#include "fieldfile/field_reader.h"
#include "formula/formula.h"
#include "insight/influence.h"
#include "report/options.h"
#include "secondfit/second_fit.h"
#include "secondfit/tail_areas.h"

namespace tolmer {
namespace {

// A data set as the data editor would hold it: labels in column 0.
class CourseSheet : public CellSource {
 public:
  explicit CourseSheet(NamedTable table)
      : table_(std::move(table)), labelled_(!table_.labels.empty()) {
    std::vector<std::string> headings(labelled_ ? 0 : 1);
    headings.insert(headings.end(), table_.names.begin(), table_.names.end());
    names_.emplace(SheetSize{table_.rows, static_cast<int>(headings.size())}, headings);
  }

  CellValue cellValue(CellAddress cell) const override {
    const int column = cell.column - (labelled_ ? 0 : 1);
    if (column < 0 || (labelled_ && column == 0)) return CellValue::empty();
    const auto& numbers = table_.numbers[static_cast<std::size_t>(column)];
    return CellValue::ofNumber(numbers[static_cast<std::size_t>(cell.row) - 1].written);
  }
  int rows() const { return table_.rows; }
  std::string caseName(int row) const {
    return labelled_ ? table_.labels[static_cast<std::size_t>(row) - 1] : std::to_string(row);
  }
  double value(const std::string& variable, int row) const {
    const auto formula =
        parseFormula(variable.starts_with('=') ? variable : "=[" + variable + "]", *names_, 1);
    if (!formula) throw std::runtime_error(formula.error().message());
    return evaluate(*formula, *this, row).number;
  }

 private:
  NamedTable table_;
  bool labelled_;
  std::optional<SheetNames> names_;
};

struct Fitted {
  CourseModel model;      // without the words about cases
  std::vector<int> rows;  // of the sheet, that are in the fit
  ModelData data;
  SecondFit fit;
};

std::vector<double> termsOf(const CourseSheet& sheet, const CourseModel& model, int row) {
  std::vector<double> terms(model.intercept ? 1 : 0, 1.0);
  for (const std::string& x : model.x) terms.push_back(sheet.value(x, row));
  return terms;
}

// Takes the words about cases out of the model.
std::vector<int> casesOf(const CourseSheet& sheet, CourseModel& model) {
  std::vector<int> rows(static_cast<std::size_t>(sheet.rows()));
  std::iota(rows.begin(), rows.end(), 1);
  for (; model.x.back().starts_with("without "); model.x.pop_back())
    std::erase_if(rows, [&](int row) { return sheet.caseName(row) == model.x.back().substr(8); });
  if (model.x.back().starts_with("first ")) {
    rows.resize(std::stoul(model.x.back().substr(6)));
    model.x.pop_back();
  }
  return rows;
}

Fitted fitted(const CourseSheet& sheet, CourseModel model) {
  Fitted all;
  all.rows = casesOf(sheet, model);
  all.model = std::move(model);
  ModelData& data = all.data;
  data.cases = static_cast<int>(all.rows.size());
  data.intercept = all.model.intercept;
  data.terms = static_cast<int>(all.model.x.size()) + (data.intercept ? 1 : 0);
  data.names.resize(static_cast<std::size_t>(data.terms) + 1);
  data.x.resize(all.rows.size() * static_cast<std::size_t>(data.terms));
  for (std::size_t i = 0; i < all.rows.size(); ++i) {
    const auto terms = termsOf(sheet, all.model, all.rows[i]);
    for (std::size_t j = 0; j < terms.size(); ++j) data.x[j * all.rows.size() + i] = terms[j];
    data.y.push_back(sheet.value(all.model.y, all.rows[i]));
  }
  all.fit = fitSecond(data);
  return all;
}

using Columns = std::map<std::string, double>;

Columns ofTerm(const Fitted& fitted, const std::string& name) {
  const auto at = std::ranges::find(fitted.model.x, name);
  if (name != "Intercept" && at == fitted.model.x.end()) return {};
  const auto place = name == "Intercept" ? 0 : at - fitted.model.x.begin() + 1;
  const TermFigures& term =
      fitted.fit.byTerm.at(static_cast<std::size_t>(place - (fitted.model.intercept ? 0 : 1)));
  return {{"Est Coeff", term.coefficient.value},
          {"Std Error", term.standardError.value},
          {"t", term.t.value},
          {"P", term.p.value},
          {"95% Lower", term.lower.value},
          {"95% Upper", term.upper.value}};
}

Columns ofCase(const CourseSheet& sheet, const Fitted& fitted, const std::string& name) {
  for (std::size_t i = 0; i < fitted.rows.size(); ++i) {
    const CaseFigures& one = fitted.fit.byCase[i];
    if (sheet.caseName(fitted.rows[i]) == name)
      return {{"Std Resid", one.standardized.value},
              {"Studentized", one.studentized.value},
              {"Leverage", one.leverage.value},
              {"Cook", one.cooks.value}};
  }
  return {};
}

Columns ofModel(const Fitted& fitted) {
  const ModelFigures& model = fitted.fit.model;
  double back = 0, below = 0;
  for (const CaseFigures& one : fitted.fit.byCase) {
    back += std::exp(one.fitted.value);
    below += one.fitted.value < 0;
  }
  const double cases = fitted.fit.cases;
  const auto error = [&](std::size_t i) { return fitted.fit.byCase[i].residual.value; };
  const std::size_t last = fitted.fit.byCase.size() - 1;
  return {{"Leaving one out", leavingOneOut(fitted.data, fitted.fit)},
          {"Std Error", model.standardError.value},
          {"Durbin Watson", model.durbinWatson.value},
          {"ends", (error(0) * error(0) + error(last) * error(last)) / model.sse.value},
          {"mean of exp", back / cases},
          {"below 0", below}};
}

Columns ofPrediction(const Fitted& fitted, std::vector<double> terms) {
  const Prediction point = predictSecond(fitted.fit, terms);
  return {{"fit", point.fit},
          {"mean lower", point.meanLower},
          {"mean upper", point.meanUpper},
          {"new lower", point.newLower},
          {"new upper", point.newUpper},
          {"leverage", point.leverage}};
}

Columns ofGroup(const CourseSheet& sheet, const Fitted& large, const std::string& smaller) {
  CourseModel model = large.model;
  model.x = fieldsOfList(smaller);
  const Fitted small = fitted(sheet, model);
  const int added = large.data.terms - small.data.terms;
  const int left = large.data.cases - large.data.terms;
  const double F = (small.fit.model.sse.value - large.fit.model.sse.value) / added /
                   (large.fit.model.sse.value / left);
  return {{"F", F}, {"P", fTail(added, left, F)}};
}

Columns rowOf(const CourseSheet& sheet, const Fitted& fitted, const std::string& row) {
  if (row == "model") return ofModel(fitted);
  if (row.starts_with("case ")) return ofCase(sheet, fitted, row.substr(5));
  if (row.starts_with("over ")) return ofGroup(sheet, fitted, row.substr(5));
  if (row.starts_with("at ")) {
    std::vector<double> terms(fitted.model.intercept ? 1 : 0, 1.0);
    for (const std::string& value : fieldsOfList(row.substr(3))) terms.push_back(std::stod(value));
    return ofPrediction(fitted, terms);
  }
  if (row.starts_with("next ")) {
    const int next = std::stoi(row.substr(5));
    Columns columns = ofPrediction(fitted, termsOf(sheet, fitted.model, next));
    columns["miss"] = sheet.value(fitted.model.y, next) - columns["fit"];
    return columns;
  }
  return ofTerm(fitted, row);
}

}  // namespace

std::optional<double> fittedNumber(const CourseModel& model, const std::string& row,
                                   const std::string& column, const std::string& dataFolder) {
  auto table = courseTable(dataFolder + model.dataSet + ".csv");
  if (!table) return std::nullopt;
  const CourseSheet sheet(std::move(*table));
  const Columns columns = rowOf(sheet, fitted(sheet, model), row);
  const auto found = columns.find(column);
  return found == columns.end() ? std::nullopt : std::optional(found->second);
}

std::optional<double> computedNumber(const std::string& formula) {
  const SheetNames names(SheetSize{1, 1}, {});
  const auto parsed = parseFormula(formula, names, 1);
  if (!parsed || !parsed->areas.empty()) return std::nullopt;
  struct Nothing : CellSource {
    CellValue cellValue(CellAddress) const override { return CellValue::empty(); }
  } nothing;
  return evaluate(*parsed, nothing, 1).number;
}

}  // namespace tolmer
