#include "shell/own_data.h"

#include <algorithm>

#include "base/data_limits.h"
#include "base/file_io.h"
#include "base/text_encoding.h"
#include "platform/desktop.h"
#include "textimport/typed_number.h"

namespace tolmer {

void OwnData::tellLostWork() {
  if (!aside_) return;
  const auto lost = aside_->lost();
  if (lost.empty()) return;
  const auto readable = std::ranges::find_if(
      lost, [](const VisitPlacePointer& work) { return static_cast<bool>(workIn(*work)); });
  const bool someCanBeRead = readable != lost.end();
  desktop_.doEvents();  // what stands behind the box is painted first
  desktop_.messageBox(
      {"Unsaved Data",
       "The program ended before the data in the Data Editor were saved (" +
           localTime((someCanBeRead ? *readable : lost.front())->written()) +
           (someCanBeRead ? "). Open the Data Editor from the Notebook to bring them back."
                          : "), and the copy that it kept of them cannot be read. Open the "
                            "Data Editor from the Notebook to keep or delete it."),
       MessageIcon::information});
}

namespace {

// Enough to show all numbers of the column whole, as far as that can be.
Int16 decimalsOf(const AnalysisState& state, int column) {
  std::size_t digits = 0;
  for (int i = 1; i <= state.iNumCases; ++i) {
    const std::string text = exactText(writtenValue(state, i, column));
    const auto point = text.find('.');
    if (point != text.npos && text.find('E') == text.npos)
      digits = std::max(digits, text.size() - point - 1);
  }
  return static_cast<Int16>(std::min<std::size_t>(digits, maxDecimals));
}

}  // namespace

SheetContent OwnData::sheetOf(const AnalysisState& state) {
  SheetContent content = newContent(editorObservations, editorVariables);
  const auto put = [&content](int row, int column, const std::string& text) {
    if (!text.empty()) content.cells(row, column) = {.kind = DataCell::Kind::text, .text = text};
  };
  content.title = "Copy of " + dataSetName(state);
  if (state.bInfoAvailable) content.source = onOneLine(state.tVarDesc[0]);
  if (state.bLabeledData) put(0, 0, state.tLabelColName);
  for (int col = 1; col <= state.iNumCols; ++col) {
    put(0, col, state.tVarName[static_cast<std::size_t>(col)]);
    if (state.bInfoAvailable)
      content.labels[static_cast<std::size_t>(col)] =
          onOneLine(state.tVarDesc[static_cast<std::size_t>(col)]);
    content.decimals[static_cast<std::size_t>(col)] = decimalsOf(state, col);
    for (int i = 1; i <= state.iNumCases; ++i)
      content.cells(i, col) = {.kind = DataCell::Kind::number,
                               .number = writtenValue(state, i, col)};
  }
  for (int i = 1; state.bLabeledData && i <= state.iNumCases; ++i)
    put(i, 0, state.tCaseLabel[static_cast<std::size_t>(i)]);
  return content;
}

void OwnData::setUp() {
  editor_ = std::make_unique<frmDataEditor>(desktop_, EditorPlaces{programFolder_, aside_});
  editor_->setChangeTitleEnabled(false);
  editor_->setNumberVariables(numberVariables);
  editor_->setMaxObservations(editorObservations);
  editor_->setMinObservations(leastObservations);
  editor_->setAllowNoData(true);
  editor_->setCopyChangedData(false);
  editor_->SetupEditor();
}

}  // namespace tolmer
