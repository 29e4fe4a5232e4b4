// The one shared record of the current data, model, fit and display layout.
//
// Displays only read it; the few writers are named at each group. Arrays run from 1 with element 0
// left empty, except where a line says otherwise. They are resized by the procedures at the end of
// this file and nowhere else.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "state/data_origin.h"
#include "state/matrix.h"

namespace tolmer {

class Window;

using Int16 = std::int16_t;

enum DataSource : Int16 { databasePage = 1, dataEditor = 2, scenarioExample = 3 };

enum VarType : Int16 { wholeNumbers = 1, hasFractions = 2, dummyVariable = 3 };

enum DisplayCategory : int { graphDisplays = 1, scatterDisplays, tableDisplays, textDisplays };

enum DisplayState : Int16 { displayHidden = 0, displayShown = 1, noSuchDisplay = 3 };

// The results of one least-squares fit. Arrays run from 1; element 0 stays empty. A fit that meets
// a non-positive pivot sets bSingular and leaves every other field as it was.
struct Fit {
  std::vector<float> sFitted;  // (0..iNumCases) fitted values, in units of the dependent variable
  std::vector<float> sResid;   // (0..iNumCases) observed less fitted
  std::vector<float> sCoef;    // (0..iNumTerms) coefficients
  std::vector<float> sCoefSE;  // (0..iNumTerms) their standard errors
  std::vector<float> sCoefT;   // (0..iNumTerms) t statistics
  std::vector<float> sCoefP;   // (0..iNumTerms) two-sided p-values
  Matrix<float> sVarCov;       // (0..iNumTerms+1)^2 variances on the diagonal, 0 off it
  float sSSR = 0;              // sum of squares of the fitted values about the mean of Y
  float sSSE = 0;              // sum of squared residuals
  float sSST = 0;              // sum of squares of Y about its mean
  float sStdErr = 0;           // standard error of the regression
  float sRSquared = 0;
  float sR = 0;             // multiple R
  float sF = 0;             // overall F
  float sFProb = 0;         // right-tail probability of sF
  float sDurbinWatson = 0;  // written by DurbinWatson
  bool bSingular = false;   // the last fit stopped at a non-positive pivot

  friend bool operator==(const Fit&, const Fit&) = default;
};

// What stands in one of the 2 x 2 quadrants.
struct Quadrant {
  Int16 iCategory = 0;  // 0: the control panel, or nothing yet
  Int16 iIndex = 0;
  Window* frmDisplay = nullptr;
};

struct AnalysisState {
  // --- run and flow; writers: the main flow, the designer and the control panel
  bool bStartingUp = false;        // while True, displays ignore their resize events
  bool bAppIsLoading = false;      // the notebook object is being read
  bool bStartingAnalysis = false;  // the first analysis: the frame is not rearranged
  Int16 iDataSource = 0;           // DataSource
  bool bUseDefaultData = false;    // with scenarioExample: take the default example
  bool bNewDataRequested = false;  // go back to the notebook for another data set
  bool bChangeModelOnly = false;   // the designer is open to change the model of the present data
  bool bChangeDataOnly = false;    // the designer is open after the editor changed the data
  bool bModelHasChanged = false;   // the designer accepted a model that differs from the last
  bool bAnalysing = false;         // the record is between two analyses; writer: Analysis
  bool bDisplaysReady = false;     // False while a new fit is being written into the displays
  bool bProcessResize = true;      // False while the shell itself moves a child
  bool bAllowUnload = false;       // True while the shell itself hides or closes a display
  Window* frmCurrentDisplay = nullptr;  // the display last right-clicked

  // --- data; writers: the designer and its loaders
  Int16 iNumCases = 0;
  Int16 iNumCols = 0;  // variables in the data set
  std::string tDataFileName;
  std::string tDataFileInfoName;
  bool bLabeledData = false;
  bool bInfoAvailable = false;
  std::string tLabelColName;
  Matrix<float> sData;                  // (0..iNumCases, 0..iNumCols); column 0 is the constant 1
  std::vector<std::string> tVarName;    // (0..iNumCols); element 0 is "Intercept"
  std::vector<std::string> tCaseLabel;  // (0..iNumCases)
  std::vector<std::string> tVarDesc;    // (0..iNumCols); element 0 the data set's comment
  DataOrigin uOrigin;

  // --- model; writer: the designer
  Int16 iNumPredictors = 0;  // K, the intercept not counted
  bool bUseIntercept = false;
  std::vector<Int16> iModelCol;  // (0..K+2) 1 dependent variable, 2..K+1 predictors, K+2 stays 0
  bool bSavedRegressionLine = false;  // copies of the control panel, to see a pending update
  bool bSavedCorrelation = false;
  bool bSavedUseIntercept = false;

  // --- fit inputs and results per model variable; writers: the pipeline
  Int16 iNumTerms = 0;          // K+1 with an intercept, else K
  std::vector<Int16> iTermCol;  // (0..iNumTerms+1) data column of each term, the last one Y's
  std::vector<Int16> iVarType;  // (0..K+1) VarType, index as iModelCol
  std::vector<std::string> tVarFormat;  // (0..iNumCases) number pictures, index as iModelCol
  Matrix<double> dDescStat;  // (0..4, 0..K+1) rows 1 mean, 2 standard deviation, 3 min, 4 max
  Matrix<float> sCorr;       // (0..K+1, 0..K+1) correlations of the model variables
  std::vector<float> sVIF;   // (0..K) variance inflation factor of each predictor
  tolmer::Fit Fit;
  int iCompletedFits = 0;  // how many times FitRegression has run

  // --- residuals; writers: the pipeline
  std::vector<float> sSortedResid;             // (0..iNumCases) ascending
  std::vector<std::string> tSortedResidLabel;  // (0..iNumCases) swapped along, never filled
  Int16 iNumResidClasses = 0;                  // 4 to 20
  std::array<float, 22> sResidClassLimit{};    // (1..21)
  std::array<Int16, 22> iResidClassCount{};    // (1..20); the one after the last class stays 0
  Int16 iResidOutside = 0;
  std::array<Int16, 10> iStdResidClassCount{};  // (1..8)
  Int16 iStdResidOutside = 0;

  // --- display layout; writers: the shell
  bool bShowRegressionLine = false;
  bool bShowCorrelation = false;
  Matrix<Int16> iDisplayState{4, 6};                   // (0..4, 0..6) DisplayState
  std::array<std::array<Quadrant, 3>, 3> uQuadrant{};  // (1..2, 1..2)
  float sQuadrantWidth = 0;                            // twips
  float sQuadrantHeight = 0;                           // twips
  Int16 iCurrentPlot = 0;            // the scatter plot that the control panel is editing, 1 to 3
  std::array<Int16, 4> iPlotXVar{};  // (1..3) list index of each plot's X item
  std::array<Int16, 4> iPlotYVar{};
  std::array<Int16, 4> iSavedPlotXVar{};  // as last drawn
  std::array<Int16, 4> iSavedPlotYVar{};
  std::array<bool, 4> bDrawnRegressionLine{};  // (1..3) what the plots last drew of the options
  std::array<bool, 4> bDrawnCorrelation{};
};

// Whether a data set and a model stand, so that there is something to fit. The shared arrays are
// empty until the first model is accepted.
bool hasModel(const AnalysisState& state);

// For a new data set of iNumCases, iNumCols and iNumPredictors: sData, tVarName, tCaseLabel,
// tVarDesc and iModelCol at their bounds. All their contents are lost.
void RedimDataArrays(AnalysisState& state);

// For a new analysis: Fit.sFitted, Fit.sResid, iVarType, tVarFormat, sCorr, dDescStat,
// sSortedResid, tSortedResidLabel and sVIF, emptied.
void RedimAnalysisArrays(AnalysisState& state);

// For a fit of iTerms terms: iTermCol and the coefficient arrays of Fit, emptied.
void RedimFitArrays(AnalysisState& state, int iTerms);

// For a reader: the data's file without folder and ending, "Data editor" for data of the editor,
// "Edited copy of stakloss".
std::string dataSetName(const AnalysisState& state);

// As it was written where that was kept, else as it is held.
double writtenValue(const AnalysisState& state, int iCase, int column);

// The variables of the model by their places in iModelCol: 1 the dependent one, then the
// predictors.

// Whether the arrays of the analysis have the bounds of the present data and model: not before the
// first analysis, nor while another model waits for its own or is being analysed. A display has
// nothing to show then.
bool isAnalysed(const AnalysisState& state);

// How many variables there are to list: K + 1, or 0 unless isAnalysed.
int listedVariables(const AnalysisState& state);

// The labels of the cases in their order, the first one's at 0; none where the data have none.
std::span<const std::string> caseLabels(const AnalysisState& state);

// The short name of the variable; 1 <= variable <= K + 1.
const std::string& variableName(const AnalysisState& state, int variable);

}  // namespace tolmer
