// Tidy limits and steps for an axis.
#pragma once

#include "state/analysis_state.h"

namespace tolmer {

struct AxisScale {
  float sAxisMin = 0;  // a multiple of sStep, at most 1 per cent of a step above the low value
  float sStep = 1;     // 2, 5 or 10 times a power of ten
  Int16 iSteps = 5;    // the axis ends at sAxisMin + iSteps * sStep
};

// The scale for values from sLow to sHigh: a step such that the range holds 4 to 10 of them. An
// empty, reversed or not finite range, and one too small for its step to be a single, gives the
// minimum sLow, the step 1 and 5 steps.
AxisScale ComputeScale(float sLow, float sHigh);

}  // namespace tolmer
