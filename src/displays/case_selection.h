// The cases of the analysis that the user has selected, the same in all displays.
#pragma once

#include <functional>
#include <span>
#include <string>
#include <vector>

#include "state/analysis_state.h"

namespace tolmer {

// Cases count from 1.
class CaseSelection {
 public:
  const std::vector<int>& cases() const { return cases_; }  // rising
  bool empty() const { return cases_.empty(); }
  // The one that was touched last, from which keys go on; 0 without a selection.
  int current() const { return current_; }

  // These and no others; the first of them is the current one.
  void select(std::vector<int> cases);
  // These, too.
  void add(std::span<const int> cases);
  // As a click with Control: these, too, or where all of them are selected, these no longer.
  void toggle(std::span<const int> cases);
  void clear() { select({}); }

  // A selection belongs to the data it was made in: with others, or with other cases, it goes. To
  // be called at each analysis.
  void follow(const AnalysisState& state);

  // Whether copies and reports show it, too. Stays for the run.
  bool isShownInCopies = false;

  std::function<void()> changed;

 private:
  void become(std::vector<int> cases, int current);

  std::vector<int> cases_;
  int current_ = 0;
  Matrix<float> data_;  // as of the last analysis
  std::vector<std::string> labels_;
};

}  // namespace tolmer
