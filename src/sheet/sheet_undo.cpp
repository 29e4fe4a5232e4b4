#include "sheet/sheet_undo.h"

#include <algorithm>
#include <iterator>

namespace tolmer {
namespace {

struct Performer {
  SheetState& state;
  SheetChange& change;

  void operator()(CellStep& step) {
    std::swap(state.content.cells(step.at.row, step.at.column), step.cell);
    change.cells.push_back(step.at);
  }
  void operator()(DecimalsStep& step) {
    auto& decimals = state.content.decimals;
    std::swap(step.column == 0 ? state.miStdDecDigits : decimals[step.column], step.digits);
    if (step.column > 0) change.decimals.push_back(step.column);
  }
  void operator()(TitleStep& step) {
    std::swap(state.content.title, step.title);
    change.title = true;
  }
  void operator()(LabelStep& step) {
    SheetContent& content = state.content;
    std::swap(step.column == 0 ? content.source : content.labels[step.column], step.label);
    change.title = true;
  }
  void operator()(RowOrderStep& step) {
    Matrix<DataCell>& cells = state.content.cells;
    const int columns = cells.lastColumn() + 1;
    std::vector<DataCell> before(
        std::make_move_iterator(cells.row(step.first)),
        std::make_move_iterator(cells.row(step.first) + std::ssize(step.from) * columns));
    std::vector<std::uint16_t> back(step.from.size());
    for (std::size_t i = 0; i < step.from.size(); ++i) {
      const auto source = before.begin() + std::ptrdiff_t{step.from[i]} * columns;
      std::move(source, source + columns, cells.row(step.first + static_cast<int>(i)));
      back[step.from[i]] = static_cast<std::uint16_t>(i);
    }
    step.from = std::move(back);
    change.all = true;
  }
  void operator()(WholeStep& step) {
    std::swap(state, *step.state);
    change.all = true;
  }
};

}  // namespace

void perform(SheetStep& step, SheetState& state, SheetChange& change) {
  std::visit(Performer{state, change}, step);
}

void SheetJournal::add(Action action) {
  if (action.steps.empty()) return;
  if (kept_ > static_cast<std::ptrdiff_t>(place_)) kept_ = -1;
  actions_.erase(actions_.begin() + static_cast<std::ptrdiff_t>(place_), actions_.end());
  actions_.push_back(std::move(action));
  ++place_;
  sealed_ = false;
}

bool SheetJournal::continues(std::string_view name) const {
  return !sealed_ && place_ > 0 && actions_[place_ - 1].name == name;
}

const SheetJournal::Action* SheetJournal::undo(SheetState& state, SheetChange& change) {
  if (place_ == 0) return nullptr;
  --place_;
  auto& steps = actions_[place_].steps;
  std::for_each(steps.rbegin(), steps.rend(),
                [&](SheetStep& step) { perform(step, state, change); });
  sealed_ = true;
  return &actions_[place_];
}

const SheetJournal::Action* SheetJournal::redo(SheetState& state, SheetChange& change) {
  if (place_ == actions_.size()) return nullptr;
  for (SheetStep& step : actions_[place_].steps) perform(step, state, change);
  ++place_;
  sealed_ = true;
  return &actions_[place_ - 1];
}

std::string_view SheetJournal::undoName() const {
  return place_ == 0 ? std::string_view() : actions_[place_ - 1].name;
}

std::string_view SheetJournal::redoName() const {
  return place_ == actions_.size() ? std::string_view() : actions_[place_].name;
}

void SheetJournal::forget() {
  const bool kept = atKept();
  actions_.clear();
  place_ = 0;
  kept_ = kept ? 0 : -1;
  sealed_ = true;
}

void SheetJournal::keep() {
  kept_ = static_cast<std::ptrdiff_t>(place_);
  sealed_ = true;
}

}  // namespace tolmer
