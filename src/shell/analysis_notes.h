// The notes on the present analysis.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "notes/notes.h"
#include "platform/grid/grid.h"
#include "platform/timer.h"
#include "state/analysis_state.h"

namespace tolmer {

// They take up to half the time of a fit, so they are made once an analysis: when somebody asks, or
// a moment after its displays have come to the screen, but not during the start of the program.
class AnalysisNotes {
 public:
  AnalysisNotes(const AnalysisState& state, TimerQueue& timers);

  // Another analysis stands, or the start is over: the notes are to be made anew.
  void renew();
  // In order of weight; made where they are not known yet.
  const std::vector<Note>& notes();
  // None before they are made.
  const std::vector<Note>& known() const { return notes_; }
  // The second fit that they were made of; null before, and again with the next renew().
  const Examination* examination() const { return isKnown_ ? &examination_ : nullptr; }
  // The same with the leverages and influence of all cases, which notes do without: worked out when
  // somebody asks.
  const Examination* wholeExamination();

  // Of the cells of a display, by its form's name; none before the notes are made.
  std::vector<CellRemark> remarksOn(std::string_view form) const;
  // The sentences that speak of cells of the display. Makes the notes.
  std::vector<std::string> sentencesOn(std::string_view form);

  // "2 notes"; "Notes" while nobody has counted them.
  std::string countText() const;

  // Other notes are known now, or none any more.
  std::function<void()> changed;

 private:
  void make();

  const AnalysisState& state_;
  Timer tmrMake_;
  Examination examination_;
  std::vector<Note> notes_;
  bool isKnown_ = false;
  bool isWhole_ = false;  // the fit of the examination
};

}  // namespace tolmer
