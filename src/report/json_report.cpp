#include "report/json_report.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "base/json_writer.h"
#include "base/program_version.h"
#include "insight/influence.h"
#include "tables/table_parts.h"

namespace tolmer {
namespace {

// The numbers of the state, under its own names. Arrays begin at the state's element 1, except
// tVarName, which begins at "Intercept".

// Elements first..last of an array, as far as it reaches.
template <class Array>
void writeArray(JsonWriter& json, std::string_view name, const Array& array, int first, int last) {
  json.key(name);
  json.beginArray();
  last = std::min(last, static_cast<int>(array.size()) - 1);
  for (int i = first; i <= last; ++i) json.value(array[static_cast<std::size_t>(i)]);
  json.endArray();
}

template <class Value>
void writeMatrix(JsonWriter& json, std::string_view name, const Matrix<Value>& matrix, int lastRow,
                 int lastColumn) {
  json.key(name);
  json.beginArray();
  for (int row = 1; row <= std::min(lastRow, matrix.lastRow()); ++row) {
    json.beginArray();
    for (int column = 1; column <= std::min(lastColumn, matrix.lastColumn()); ++column)
      json.value(matrix(row, column));
    json.endArray();
  }
  json.endArray();
}

void writeModel(JsonWriter& json, const AnalysisState& state) {
  const int variables = state.iNumPredictors + 1;
  json.member("iNumCases", state.iNumCases);
  json.member("iNumPredictors", state.iNumPredictors);
  json.member("iNumTerms", state.iNumTerms);
  json.member("bUseIntercept", state.bUseIntercept);
  writeArray(json, "iModelCol", state.iModelCol, 1, variables);
  writeArray(json, "tVarName", state.tVarName, 0, state.iNumCols);
  writeArray(json, "iVarType", state.iVarType, 1, variables);
  writeArray(json, "tVarFormat", state.tVarFormat, 1, variables);
  writeMatrix(json, "dDescStat", state.dDescStat, 4, variables);
  writeMatrix(json, "sCorr", state.sCorr, variables, variables);
  writeArray(json, "sVIF", state.sVIF, 1, state.iNumPredictors);
}

void writeFit(JsonWriter& json, const Fit& fit, int cases, int terms) {
  writeArray(json, "sFitted", fit.sFitted, 1, cases);
  writeArray(json, "sResid", fit.sResid, 1, cases);
  writeArray(json, "sCoef", fit.sCoef, 1, terms);
  writeArray(json, "sCoefSE", fit.sCoefSE, 1, terms);
  writeArray(json, "sCoefT", fit.sCoefT, 1, terms);
  writeArray(json, "sCoefP", fit.sCoefP, 1, terms);
  json.key("sVarCovDiagonal");
  json.beginArray();
  for (int i = 1; i <= std::min(terms, fit.sVarCov.lastRow()); ++i) json.value(fit.sVarCov(i, i));
  json.endArray();
  json.member("sSSR", fit.sSSR);
  json.member("sSSE", fit.sSSE);
  json.member("sSST", fit.sSST);
  json.member("sStdErr", fit.sStdErr);
  json.member("sRSquared", fit.sRSquared);
  json.member("sR", fit.sR);
  json.member("sF", fit.sF);
  json.member("sFProb", fit.sFProb);
  json.member("sDurbinWatson", fit.sDurbinWatson);
  json.member("bSingular", fit.bSingular);
}

void writeResiduals(JsonWriter& json, const AnalysisState& state) {
  const int classes = state.iNumResidClasses;
  writeArray(json, "sSortedResid", state.sSortedResid, 1, state.iNumCases);
  json.member("iNumResidClasses", state.iNumResidClasses);
  writeArray(json, "sResidClassLimit", state.sResidClassLimit, 1, classes + 1);
  writeArray(json, "iResidClassCount", state.iResidClassCount, 1, classes);
  json.member("iResidOutside", state.iResidOutside);
  writeArray(json, "iStdResidClassCount", state.iStdResidClassCount, 1, 8);
  json.member("iStdResidOutside", state.iStdResidOutside);
}

void writeState(JsonWriter& json, const AnalysisState& state) {
  json.beginObject();
  writeModel(json, state);
  writeFit(json, state.Fit, state.iNumCases, state.iNumTerms);
  writeResiduals(json, state);
  json.endObject();
}

using Labels = std::vector<std::string>;

void writeLabels(JsonWriter& json, std::string_view name, const Labels& labels) {
  json.key(name);
  json.beginArray();
  for (const std::string& label : labels) json.value(label);
  json.endArray();
}

void writeAxis(JsonWriter& json, std::string_view name, const Axis& axis, const Labels& labels) {
  json.key(name);
  json.beginObject();
  json.member("mode", static_cast<int>(axis.scaleMode));
  json.member("min", axis.minimum);
  json.member("max", axis.maximum);
  json.member("ticks", axis.ticks);
  writeLabels(json, "labels", labels);
  json.endObject();
}

// Bars and lines with symbols space their points evenly: they have no x position.
void writePoints(JsonWriter& json, const GraphSettings& settings) {
  json.key("points");
  json.beginArray();
  for (const GraphPoint& point : settings.points) {
    json.beginArray();
    if (settings.graphType == GraphType::symbols)
      json.value(point.x);
    else
      json.null();
    json.value(point.value);
    json.endArray();
  }
  json.endArray();
}

struct CallWriter {
  JsonWriter& json;

  void operator()(const BoxCall& box) const {
    json.value("box");
    for (const double length : {box.x, box.y, box.width, box.height}) json.value(length);
    json.value(box.pattern);
    json.value(box.colour);
  }
  void operator()(const LineCall& line) const {
    json.value("line");
    for (const double place : {line.x1, line.y1, line.x2, line.y2}) json.value(place);
    for (const int attribute : {line.mode, line.style, line.colour}) json.value(attribute);
  }
  void operator()(const TextCall& text) const {
    json.value("text");
    json.value(text.x);
    json.value(text.y);
    json.value(text.flags);
    json.value(text.text);
  }
};

void writeOverlay(JsonWriter& json, const Plot& plot) {
  json.key("overlay");
  json.beginArray();
  for (const OverlayCall& call : plot.overlay()) {
    json.beginArray();
    std::visit(CallWriter{json}, call);
    json.endArray();
  }
  json.endArray();
}

void writePlotArea(JsonWriter& json, const Plot& plot) {
  json.key("plot");
  json.beginObject();
  json.member("left", plot.SDKInfo(7));
  json.member("bottom", plot.SDKInfo(8));
  json.member("width", plot.SDKInfo(5));
  json.member("height", plot.SDKInfo(6));
  json.endObject();
}

void writeGraph(JsonWriter& json, const Plot& plot) {
  const GraphSettings& settings = plot.settings;
  json.beginObject();
  json.member("type", static_cast<int>(settings.graphType));
  json.member("bottomTitle", settings.x.title);
  json.member("leftTitle", settings.y.title);
  // The points of a line are named along its horizontal axis.
  const bool isLine = settings.graphType == GraphType::lineWithSymbols;
  writeAxis(json, "x", settings.x, isLine ? settings.pointLabels : settings.x.labels);
  writeAxis(json, "y", settings.y, settings.y.labels);
  writePoints(json, settings);
  if (!settings.pointLabels.empty()) writeLabels(json, "pointLabels", settings.pointLabels);
  json.member("symbol", settings.pointSymbol);
  json.member("symbolSize", settings.symbolSize);
  json.member("lineStatistics", settings.lineStatistics);
  writeOverlay(json, plot);
  writePlotArea(json, plot);
  json.endObject();
}

const char* iconName(MessageIcon icon) {
  switch (icon) {
    case MessageIcon::critical:
      return "critical";
    case MessageIcon::question:
      return "question";
    case MessageIcon::exclamation:
      return "exclamation";
    case MessageIcon::information:
      return "information";
    case MessageIcon::none:
      break;
  }
  return "none";
}

const char* buttonsName(MessageButtons buttons) {
  if (buttons == MessageButtons::okCancel) return "okcancel";
  if (buttons == MessageButtons::saveDontSaveCancel) return "savedontsavecancel";
  return buttons == MessageButtons::yesNo ? "yesno" : "ok";
}

const char* answerName(Answer answer) {
  switch (answer) {
    case Answer::cancel:
      return "cancel";
    case Answer::yes:
      return "yes";
    case Answer::no:
      return "no";
    case Answer::ok:
      break;
  }
  return "ok";
}

void writeMessages(JsonWriter& json, const ReportDocument& document) {
  json.key("messages");
  json.beginArray();
  for (const AnsweredBox& message : document.messages) {
    json.beginObject();
    json.member("title", message.box.title);
    json.member("text", message.box.text);
    json.member("icon", iconName(message.box.icon));
    json.member("buttons", buttonsName(message.box.buttons));
    json.member("answer", answerName(message.answer));
    json.endObject();
  }
  json.endArray();
}

template <class WriteCell>
void writeCells(JsonWriter& json, std::string_view name, const TableContent& table,
                WriteCell writeCell) {
  json.key(name);
  json.beginArray();
  for (int row = 1; row <= table.rows(); ++row) {
    json.beginArray();
    for (const TableCell& cell : table.row(row)) writeCell(cell);
    json.endArray();
  }
  json.endArray();
}

void writeTable(JsonWriter& json, const TableContent& table) {
  json.beginObject();
  json.member("rows", table.rows());
  json.member("cols", table.cols());
  writeCells(json, "cells", table, [&](const TableCell& cell) { json.value(cell.text); });
  writeCells(json, "back", table, [&](const TableCell& cell) { json.plain(backName(cell)); });
  json.endObject();
}

struct ShownWriter {
  JsonWriter& json;

  void operator()(const FittedEquation&) const {}  // stands above the displays
  void operator()(const GraphContent& graph) const { writeGraph(json, graph.plot); }
  void operator()(const TableContent& table) const { writeTable(json, table); }
  void operator()(const Sections& sections) const {
    json.beginObject();
    json.member("text", wholeText(sections));
    json.endObject();
  }
};

void writeCases(JsonWriter& json, const AnalysisState& state) {
  const auto& leftOut = state.uOrigin.leftOut;
  json.beginObject();
  json.member("read", state.iNumCases + static_cast<int>(leftOut.size()));
  json.member("used", state.iNumCases);
  json.key("leftOut");
  json.beginArray();
  for (const LeftOutCase& one : leftOut) {
    json.beginObject();
    json.member("row", one.row);
    json.member("label", one.label);
    json.member("why", one.why);
    json.endObject();
  }
  json.endArray();
  json.endObject();
}

void writeNote(JsonWriter& json, const Note& note) {
  json.beginObject();
  json.member("kind", nameOf(note.kind));
  json.member("text", note.text);
  json.key("cells");
  json.beginArray();
  for (const NotedCell& cell : note.cells) {
    json.beginArray();
    json.value(cell.display);
    json.value(cell.row);
    json.value(cell.column);
    json.endArray();
  }
  json.endArray();
  json.key("cases");
  json.beginArray();
  for (const int number : note.cases) json.value(number);
  json.endArray();
  json.endObject();
}

void writeHealth(JsonWriter& json, const Health& health) {
  json.beginObject();
  json.member("condition", health.condition);
  json.member("checked", health.checked);
  json.key("unconfirmed");
  json.beginArray();
  for (const Unconfirmed& one : health.unconfirmed) {
    json.beginObject();
    json.member("display", one.display);
    json.member("row", one.row);
    json.member("col", one.column);
    json.member("shown", one.shown);
    json.member("better", one.better);
    json.endObject();
  }
  json.endArray();
  json.endObject();
}

void writeFigures(JsonWriter& json, std::string_view name, const SecondFit& fit,
                  Figure CaseFigures::*figure) {
  json.key(name);
  json.beginArray();
  for (const CaseFigures& one : fit.byCase) json.value((one.*figure).value);
  json.endArray();
}

void writeInfluence(JsonWriter& json, const SecondFit& fit) {
  json.beginObject();
  writeFigures(json, "leverage", fit, &CaseFigures::leverage);
  writeFigures(json, "internal", fit, &CaseFigures::internal);
  writeFigures(json, "studentized", fit, &CaseFigures::studentized);
  writeFigures(json, "cooks", fit, &CaseFigures::cooks);
  writeFigures(json, "dffits", fit, &CaseFigures::dffits);
  json.endObject();
}

void writePrediction(JsonWriter& json, const PredictedCase& one) {
  const Prediction& prediction = one.prediction;
  json.beginObject();
  json.member("fit", prediction.fit);
  json.member("meanLower", prediction.meanLower);
  json.member("meanUpper", prediction.meanUpper);
  json.member("newLower", prediction.newLower);
  json.member("newUpper", prediction.newUpper);
  json.member("leverage", prediction.leverage);
  writeLabels(json, "outside", one.outside);
  json.member("extrapolates", one.extrapolates);
  json.endObject();
}

void writePredictions(JsonWriter& json, const std::vector<PredictedCase>& predictions) {
  json.beginArray();
  for (const PredictedCase& one : predictions) writePrediction(json, one);
  json.endArray();
}

// Only of data that are described.
void writeDescription(JsonWriter& json, const AnalysisState& state) {
  const int columns = state.iNumCols;
  bool isGiven = false;
  for (int column = 0; column <= columns; ++column)
    isGiven = isGiven || !givenLabel(state, column).empty();
  if (!isGiven) return;
  json.key("description");
  json.beginObject();
  json.member("data", givenLabel(state, 0));
  json.key("variables");
  json.beginArray();
  for (int column = 1; column <= columns; ++column) json.value(givenLabel(state, column));
  json.endArray();
  json.endObject();
}

// What came behind the displays later on.
void writeFindings(JsonWriter& json, const ReportDocument& document) {
  json.key("version");
  json.beginObject();
  json.member("program", programVersion());
  json.member("format", 2);
  json.endObject();
  json.key("cases");
  writeCases(json, *document.state);
  json.key("notes");
  json.beginArray();
  for (const Note& note : document.notes) writeNote(json, note);
  json.endArray();
  json.key("health");
  if (document.health)
    writeHealth(json, *document.health);
  else
    json.null();
  json.key("influence");
  if (document.fit)
    writeInfluence(json, *document.fit);
  else
    json.null();
  json.key("leavingOneOut");
  if (document.fit)
    json.value(leavingOneOut(heldData(*document.state), *document.fit));
  else
    json.null();
  if (document.hasNewCases) {
    json.key("predictions");
    if (document.fit)
      writePredictions(json, document.predictions);
    else
      json.null();
  }
  writeDescription(json, *document.state);
}

}  // namespace

void writeJsonReport(const ReportDocument& document, const ReportSink& sink) {
  JsonWriter json(sink);
  json.beginObject();
  writeMessages(json, document);
  for (const ReportedPart& shown : document.parts)
    if (const auto* equation = std::get_if<FittedEquation>(&shown.content))
      json.member("equation", equation->text);
  json.key("state");
  writeState(json, *document.state);
  json.key("displays");
  json.beginObject();
  for (const ReportedPart& shown : document.parts) {
    if (shown.part) json.key(shown.part->form);
    std::visit(ShownWriter{json}, shown.content);
  }
  json.endObject();
  writeFindings(json, document);
  json.endObject();
  json.finish();
}

}  // namespace tolmer
