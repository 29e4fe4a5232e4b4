// The analysis as plain loops on 500 cases of 49 predictors, with nothing read or written.
#include "base/message_box.h"
#include "support/literal_pipeline.h"
#include "support/regression_data.h"

int main() {
  tolmer::AnalysisState state = tolmer::noisyModel(500, 49);
  tolmer::MessageLog messages;
  tolmer::literal::ComputeStatistics(state, messages);
  tolmer::literal::FitRegression(state, messages);
  return state.Fit.bSingular ? 1 : 0;
}
