// New cases as they are typed, and what the model says of them.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "base/data_limits.h"
#include "base/error.h"
#include "insight/prediction.h"
#include "notes/notes.h"
#include "sheet/data_sheet.h"
#include "state/analysis_state.h"
#include "tables/table_content.h"

namespace tolmer {

// A sheet whose columns 1..predictors() are those of the model and whose label column names the
// cases; rows count from 1. After a change of the sheet predict() is to be called.
class NewCasesSheet {
 public:
  explicit NewCasesSheet(const AnalysisState& state) : state_(state) {}

  // Cells of the sheet are others now.
  std::function<void(const SheetChange&)> changed;

  // What is known of the present fit, its leverages included, which outlives its being known here;
  // null while it is not. Cases stay where the predictors are called as before; else one at their
  // means begins anew. Whether they have begun anew.
  bool follow(const Examination* examination);
  bool isKnown() const { return examination_; }
  bool hasFit() const { return fit_; }
  // "StackLoss on AirFlow and WaterTemp"; empty while nothing is known.
  std::string model() const;

  int predictors() const { return static_cast<int>(names_.size()); }
  // Of the column: 0 is the label column.
  std::string heading(int column) const;
  // What the cell reads: a number by its first seven digits; as name where nobody has typed one,
  // whose values they are: "means", "case 21", as long as they are.
  std::string shownText(int row, int column) const;
  // All digits of the cell's value; of one without, what it shows.
  std::string exactText(int row, int column) const;
  // There is one as soon as there are predictors.
  DataSheet& sheet() { return *sheet_; }
  const DataSheet& sheet() const { return *sheet_; }

  // A table from elsewhere as it would land in a data sheet. Where it brings names, its columns go
  // to the predictors called so. The first row it went to, or why it was not taken.
  Result<int> paste(CellAddress at, const PasteTable& table);
  // Puts a case of the data, from 1, behind the others: in that row.
  Result<int> addCase(int number);

  void predict();
  // Of a row whose predictors all have values, else null.
  const PredictedCase* prediction(int row) const;
  // The texts behind the predictors, of row 0 the headings: fitted value, limits, leverage, whether
  // it lies outside. Empty where there is no prediction.
  static constexpr int figures = 7;
  std::string figure(int row, int number) const;  // 1..figures
  // Fitted value and limits of the row in a sentence; empty without a prediction.
  std::string sentence(int row) const;
  // What lies outside the data, and what has no value: a line for each such case.
  std::vector<std::string> remarks() const;
  // All of it, to be copied.
  TableContent table() const;

 private:
  void startAnew();
  std::optional<float> held(int row, int column) const;
  // The values that a row was given, by which it is called.
  struct Given {
    std::string name;
    std::vector<double> values;
  };
  void give(int row, Given given);
  std::string nameOf(int row) const;
  std::string describedCase(int row) const;
  std::string lackOf(int row) const;

  const AnalysisState& state_;
  std::unique_ptr<DataSheet> sheet_;  // megabytes, which the start would have to pay for
  const Examination* examination_ = nullptr;
  const SecondFit* fit_ = nullptr;  // of the examination, where it is valid
  std::vector<std::string> names_;  // of the predictors
  std::map<int, Given> given_;
  std::vector<PredictedCase> predicted_;
  std::vector<int> placeOf_;  // of a row in predicted_, from 1; 0 without
  TableContent figures_;      // of predicted_
};

}  // namespace tolmer
