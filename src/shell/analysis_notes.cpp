#include "shell/analysis_notes.h"

#include <algorithm>

#include "displays/display_list.h"
#include "notes/note_makers.h"

namespace tolmer {
namespace {

constexpr int aMoment = 50;  // milliseconds, in which the displays are painted

bool speaksOf(const Note& note, std::string_view form) {
  return std::ranges::find(note.cells, form, &NotedCell::display) != note.cells.end();
}

}  // namespace

AnalysisNotes::AnalysisNotes(const AnalysisState& state, TimerQueue& timers)
    : state_(state), tmrMake_(timers, "tmrMake", aMoment) {
  tmrMake_.Tick = [this] { make(); };
}

void AnalysisNotes::renew() {
  isKnown_ = false;
  notes_.clear();
  tmrMake_.setEnabled(false);
  tmrMake_.setEnabled(!state_.bStartingUp);
  if (changed) changed();
}

void AnalysisNotes::make() {
  tmrMake_.setEnabled(false);
  if (isKnown_ || !hasFit(state_)) return;
  examination_ = examine(state_);
  notes_ = notesOf(state_, examination_);
  isKnown_ = true;
  isWhole_ = false;
  if (changed) changed();
}

const Examination* AnalysisNotes::wholeExamination() {
  if (!isKnown_) return nullptr;
  if (!isWhole_) examination_.fit = fitSecond(examination_.data);
  isWhole_ = true;
  return &examination_;
}

const std::vector<Note>& AnalysisNotes::notes() {
  make();
  return notes_;
}

std::vector<CellRemark> AnalysisNotes::remarksOn(std::string_view form) const {
  std::vector<CellRemark> remarks;
  for (const Note& note : notes_)
    for (const NotedCell& cell : note.cells)
      if (cell.display == form)
        remarks.push_back({{cell.row, cell.column},
                           cell.remark.empty()
                               ? note.text
                               : std::string(helpEntryOf(note.kind)) + " - " + cell.remark});
  return remarks;
}

std::vector<std::string> AnalysisNotes::sentencesOn(std::string_view form) {
  std::vector<std::string> sentences;
  for (const Note& note : notes())
    if (speaksOf(note, form)) sentences.push_back(note.text);
  return sentences;
}

std::string AnalysisNotes::countText() const {
  if (!isKnown_) return "Notes";
  return notes_.empty() ? "no notes" : counted(static_cast<int>(notes_.size()), "note");
}

}  // namespace tolmer
