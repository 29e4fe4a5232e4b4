// The single notes: each of them where there is a reason for it.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "base/sentence_parts.h"
#include "notes/notes.h"

namespace tolmer {

using MaybeNote = std::optional<Note>;

// On the model and its fit.
MaybeNote noValidFitNote(const AnalysisState& state, const Examination& examination);
MaybeNote casesLeftOutNote(const AnalysisState& state, const Examination& examination);
MaybeNote editedNote(const AnalysisState& state, const Examination& examination);
MaybeNote noInterceptNote(const AnalysisState& state, const Examination& examination);
MaybeNote onePredictorNote(const AnalysisState& state, const Examination& examination);
MaybeNote zeroStandardErrorNote(const AnalysisState& state, const Examination& examination);
MaybeNote fewCasesNote(const AnalysisState& state, const Examination& examination);

// On single cases, and on the residuals of all of them.
MaybeNote influentialCaseNote(const AnalysisState& state, const Examination& examination);
MaybeNote unequalSpreadNote(const AnalysisState& state, const Examination& examination);

// On the digits that are shown.
MaybeNote smallPNote(const AnalysisState& state, const Examination& examination);
MaybeNote coarseScaleNote(const AnalysisState& state, const Examination& examination);
MaybeNote dataRoundedNote(const AnalysisState& state, const Examination& examination);
MaybeNote unconfirmedNote(const AnalysisState& state, const Examination& examination);
MaybeNote allConfirmedNote(const AnalysisState& state, const Examination& examination);

// What their sentences are made of.

// "X3 follows exactly from other terms: X3 = 2 X1 - 3", "Y is 5 in all cases"; several with
// semicolons between.
std::string causes(const std::vector<Combination>& combinations);
// "2.1E+09".
std::string roughly(double value);

}  // namespace tolmer
