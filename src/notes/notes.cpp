#include "notes/notes.h"

#include <array>

#include "displays/display_list.h"
#include "notes/note_makers.h"

namespace tolmer {
namespace {

struct KindOfNote {
  const char* name;
  const char* helpEntry;
  MaybeNote (*make)(const AnalysisState&, const Examination&);
};

// In the order of NoteKind.
constexpr std::array kinds = {
    KindOfNote{"noValidFit", "No valid fit", noValidFitNote},
    KindOfNote{"casesLeftOut", "Cases left out", casesLeftOutNote},
    KindOfNote{"edited", "Edited copy", editedNote},
    KindOfNote{"noIntercept", "No intercept", noInterceptNote},
    KindOfNote{"onePredictor", "One predictor", onePredictorNote},
    KindOfNote{"zeroStandardError", "Zero standard error", zeroStandardErrorNote},
    KindOfNote{"fewCases", "Few cases", fewCasesNote},
    KindOfNote{"smallP", "P shown as 0.000", smallPNote},
    KindOfNote{"influentialCase", "Influential cases", influentialCaseNote},
    KindOfNote{"unequalSpread", "Unequal spread", unequalSpreadNote},
    KindOfNote{"coarseScale", "Numbers that read alike", coarseScaleNote},
    KindOfNote{"dataRounded", "Data rounded", dataRoundedNote},
    KindOfNote{"unconfirmed", "Numbers not confirmed", unconfirmedNote},
    KindOfNote{"allConfirmed", "All numbers confirmed", allConfirmedNote},
};

const KindOfNote& entryOf(NoteKind kind) { return kinds[static_cast<std::size_t>(kind)]; }

}  // namespace

std::string_view nameOf(NoteKind kind) { return entryOf(kind).name; }
std::string_view helpEntryOf(NoteKind kind) { return entryOf(kind).helpEntry; }

const SecondFit* validFit(const AnalysisState& state, const Examination& examination) {
  return !state.Fit.bSingular && examination.fit.determined() ? &examination.fit : nullptr;
}

std::vector<Note> notesOf(const AnalysisState& state, const Examination& examination) {
  std::vector<Note> notes;
  if (!hasFit(state)) return notes;
  for (std::size_t i = 0; i < kinds.size(); ++i)
    if (auto note = kinds[i].make(state, examination)) {
      note->kind = static_cast<NoteKind>(i);
      notes.push_back(*std::move(note));
    }
  return notes;
}

}  // namespace tolmer
