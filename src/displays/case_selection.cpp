#include "displays/case_selection.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace tolmer {

void CaseSelection::become(std::vector<int> cases, int current) {
  if (cases == cases_ && current == current_) return;
  cases_ = std::move(cases);
  current_ = current;
  if (changed) changed();
}

void CaseSelection::select(std::vector<int> cases) {
  const int first = cases.empty() ? 0 : cases.front();
  std::sort(cases.begin(), cases.end());
  cases.erase(std::unique(cases.begin(), cases.end()), cases.end());
  become(std::move(cases), first);
}

void CaseSelection::add(std::span<const int> cases) {
  if (cases.empty()) return;
  std::vector<int> together(cases.begin(), cases.end());
  std::sort(together.begin(), together.end());
  std::vector<int> all;
  std::set_union(cases_.begin(), cases_.end(), together.begin(), together.end(),
                 std::back_inserter(all));
  all.erase(std::unique(all.begin(), all.end()), all.end());
  become(std::move(all), cases.front());
}

void CaseSelection::toggle(std::span<const int> cases) {
  if (cases.empty()) return;
  const auto isSelected = [this](int one) {
    return std::binary_search(cases_.begin(), cases_.end(), one);
  };
  if (!std::all_of(cases.begin(), cases.end(), isSelected)) return add(cases);
  std::vector<int> left;
  for (const int one : cases_)
    if (std::find(cases.begin(), cases.end(), one) == cases.end()) left.push_back(one);
  const int current = left.empty() ? 0 : left.back();
  become(std::move(left), current);
}

void CaseSelection::follow(const AnalysisState& state) {
  if (data_ == state.sData && labels_ == state.tCaseLabel) return;
  data_ = state.sData;
  labels_ = state.tCaseLabel;
  clear();
}

}  // namespace tolmer
