// The analysis as plain loops on 500 cases of 49 predictors, with nothing read or written.
#include "support/literal_pipeline.h"
#include "support/recorded_messages.h"
#include "support/regression_data.h"

int main() {
  tolmer::AnalysisState state = tolmer::noisyModel(500, 49);
  tolmer::RecordedMessages messages;
  tolmer::literal::ComputeStatistics(state, messages);
  tolmer::literal::FitRegression(state, messages);
  return state.Fit.bSingular ? 1 : 0;
}
