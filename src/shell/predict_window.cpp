#include "shell/predict_window.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "displaywindows/table_window.h"
#include "editor/dialog_parts.h"
#include "editor/import_dialog.h"
#include "platform/desktop.h"
#include "platform/grid/grid_copy.h"
#include "platform/text_metrics.h"
#include "tables/html_writer.h"

namespace tolmer {
namespace {

constexpr Twips margin = pixels(12);
constexpr Twips gap = pixels(6);
constexpr Twips textHeight = pixels(20);
constexpr Twips rowHeight = pixels(20);
constexpr Twips wordsHeight = pixels(96);
constexpr Twips nameWidth = pixels(110);
constexpr Twips leastColumn = pixels(70);
constexpr Size least = {pixels(640), pixels(340)};
constexpr Colour outsideGround = Colour::rgb(255, 222, 173);

Twips widthOf(const Label& label) {
  return pixels(static_cast<float>(std::ceil(textWidth(label.font(), label.caption()))) + 4);
}

// Else it would be asked whether they are to become the sheet's names.
bool beginsWithNames(const std::string& text, const ImportTarget& target) {
  const auto import = TextImport::read(text, target);
  const auto preview = import ? import->preview({}) : Result<ImportPreview>(import.error());
  return preview && std::ranges::any_of(preview->questions, [](const ImportQuestion& question) {
           return question.doubt == ImportDoubt::headingPlace;
         });
}

}  // namespace

frmPredict::frmPredict(Desktop& desktop, const AnalysisState& state)
    : Window(desktop, "frmPredict", WindowStyle::dialog, "Predict"), state_(state), cases_(state) {
  setSizable(true);
  setLeastInner(least);
  spdCases.setAccessibleName("New cases");
  txtWords.setAccessibleName("What the model says");
  txtWords.setMultiLine(true);
  txtWords.setReadOnly(true);
  lblCase.setUsesMnemonic(true);
  lblStatus.setVisible(false);
  nbrCase.setAccessibleName("Case number");
  cmdAdd.setTip("Puts the values of that case of the data behind the others");
  cmdCopy.setTip("Copies all cases with their predictions");
  cmdClose.setCancel(true);
  wire();
  wireGrid();
}

void frmPredict::wire() {
  Resize = [this] { placeControls(); };
  cmdAdd.Click = [this] { cmdAdd_Click(); };
  cmdCopy.Click = [this] {
    if (!entryIsTaken()) return;
    const TableContent table = cases_.table();
    const Sheet page = gridSheet(table);
    desktop().setClipboard({.text = copyText(page, page.body()), .html = copiedTableHtml(table)});
    say("All cases are on the clipboard.", false);
  };
  cmdClose.Click = [this] { hide(); };
  const auto giveUpEntry = [this] {
    spdCases.setFocus();
    spdCases.pressKey({.code = keys::escape});
  };
  takeKey({keys::escape}, giveUpEntry,
          [this] { return spdCases.editMode() && !spdCases.hasFocus(); });
  cases_.changed = [this](const SheetChange& change) { changed(change); };
}

void frmPredict::wireGrid() {
  spdCases.setFirstDataCell({2, 2});
  spdCases.setEditModeReplace(true);
  spdCases.AskContent = [this](CellPosition cell, std::string& text) {
    text = cases_.sheet().editText(cell.row - 1, cell.col - 1);
  };
  spdCases.EditDone = [this](CellPosition cell, const std::string& text, bool& bAccepted) {
    spdCases_EditDone(cell, text, bAccepted);
  };
  spdCases.EditGivenUp = [this] { say({}, false); };
  spdCases.EditChanged = [this] {
    const bool begins = spdCases.editMode() && !std::exchange(entryIsOpen_, true);
    entryIsOpen_ = spdCases.editMode();
    if (begins) say({}, false);
  };
  spdCases.SelectionChange = [this] { showWords(); };
  spdCases.Command = [this](GridCommand what) { command(what); };
}

void frmPredict::follow() {
  followFit(visible() ? examination() : nullptr);
  if (visible()) showAll();
}

void frmPredict::followFit(const Examination* known) {
  const bool wasShaped = std::exchange(isShaped_, false);
  const bool isNew = cases_.follow(known);
  isShaped_ = wasShaped && !isNew;
}

void frmPredict::open() {
  followFit(examination());
  showAll();
  place();
  if (!focus()) spdCases.setFocus();
  show();
}

// Over the lower part of the screen at first, as wide as its columns, then where the user left it.
void frmPredict::place() {
  if (isPlaced_) return;
  const Size screen = desktop().screenSize();
  const Twips wanted = spdCases.contentSize().width + desktop().scrollBarThickness() + 2 * margin;
  const Twips width =
      std::max(std::min(wanted + pixels(4), screen.width - pixels(40)), least.width);
  const Twips height = std::max(std::min(screen.height * 6 / 10, pixels(560)), least.height);
  setPlace({std::max((screen.width - width) / 2, 0.0F),
            std::max(screen.height - height - pixels(60), 0.0F), width, height});
  isPlaced_ = true;
  placeControls();
}

void frmPredict::placeControls() {
  const Twips width = innerWidth();
  const Twips height = innerHeight();
  const Twips room = width - 2 * margin;
  const Twips commands = height - margin - commandHeight;
  const Twips limits = commands - gap - textHeight;
  const Twips words = limits - gap - wordsHeight;
  lblModel.setPlace({margin, margin, room, textHeight});
  spdCases.setPlace({margin, lblModel.bottom() + gap, room, words - gap - lblModel.bottom() - gap});
  txtWords.setPlace({margin, words, room, wordsHeight});
  for (Label* label : {&lblLimits, &lblStatus}) label->setPlace({margin, limits, room, textHeight});
  lblCase.setPlace({margin, commands + pixels(5), widthOf(lblCase), textHeight});
  nbrCase.setPlace({lblCase.right() + gap, commands, pixels(70), commandHeight});
  cmdAdd.setPlace({nbrCase.right() + gap, commands, pixels(70), commandHeight});
  Twips right = width - margin;
  for (Button* button : {&cmdClose, &cmdHelp, &cmdCopy}) {
    button->setPlace({right - pixels(88), commands, pixels(88), commandHeight});
    right = button->left() - pixels(8);
  }
  showBars();
}

// --- the cases on the screen

// Other predictors: other columns, nothing of the earlier ones.
void frmPredict::shape() {
  spdCases.cancelEdit();
  const RedrawLock lock(spdCases);
  spdCases.setSheet(Sheet(mostNewCases + 1, 1 + cases_.predictors() + NewCasesSheet::figures));
  for (int row = 1; row <= spdCases.maxRows(); ++row) {
    spdCases.setRowHeight(row, rowHeight);
    spdCases.setText(row, 0, row == 1 ? std::string("Case") : std::to_string(row - 1));
  }
  spdCases.setColWidth(0, pixels(44));
  spdCases.showHeadings(false, true);
  styleColumns();
  spdCases.freeze(1, 1);
  shownRows_ = 0;
  isShaped_ = true;
  spdCases.setActiveCell({2, 2});
}

void frmPredict::styleColumns() {
  const int last = spdCases.maxCols();
  const int entered = cases_.predictors() + 1;
  const Align right = Align::right;
  spdCases.setStyle({2, 1, spdCases.maxRows(), 1}, {.type = CellType::text});
  spdCases.setStyle({2, 2, spdCases.maxRows(), entered}, {.type = CellType::text, .align = right});
  spdCases.setStyle({2, entered + 1, spdCases.maxRows(), last},
                    {.align = right, .back = colours::buttonFace, .fore = colours::buttonText});
  spdCases.setStyle(
      {1, 1, 1, last},
      {.align = right, .heading = true, .back = colours::buttonFace, .fore = colours::buttonText});
  CellStyle names = spdCases.sheet().at(1, 1).style;
  names.align = Align::left;
  spdCases.setStyle({1, 1, 1, 1}, names);
}

// A bar below only where some columns are out of sight.
void frmPredict::showBars() {
  const Twips needed = spdCases.contentSize().width + desktop().scrollBarThickness();
  spdCases.setScrollBars(needed > spdCases.width() ? ScrollBars::both : ScrollBars::vertical);
}

void frmPredict::fitColumns() {
  for (int col = 1; col <= spdCases.maxCols(); ++col)
    spdCases.setColWidth(col, std::max({spdCases.colWidth(col), spdCases.widestText(col),
                                        col == 1 ? nameWidth : leastColumn}));
  showBars();
}

void frmPredict::showAll() {
  lblModel.setCaption(!cases_.isKnown() ? "The model is being fitted."
                      : cases_.hasFit() ? "New values of the predictors of " + cases_.model() + ":"
                                        : "There is no valid fit of " + cases_.model() +
                                              ": nothing can be predicted by it.");
  lblModel.setTip(lblModel.caption());
  const bool hasRows = cases_.predictors() > 0;
  for (Control* control : std::initializer_list<Control*>{&spdCases, &cmdCopy})
    control->setEnabled(hasRows);
  for (Control* control : std::initializer_list<Control*>{&nbrCase, &cmdAdd})
    control->setEnabled(hasRows && cases_.hasFit());
  nbrCase.setRange(1, std::max<int>(state_.iNumCases, 1));
  if (nbrCase.value() < 1 || nbrCase.value() > state_.iNumCases) nbrCase.setValue(1);
  if (!isShaped_ && hasRows) shape();
  if (hasRows) {
    const RedrawLock lock(spdCases);
    const int last = std::max(shownRows_, cases_.sheet().lastUsedRow());
    for (int row = 0; row <= last; ++row) showRow(row);
    shownRows_ = cases_.sheet().lastUsedRow();
    fitColumns();
  }
  showWords();
}

// Predictors outside their range in the data are marked, as is the word that the case lies outside.
void frmPredict::showRow(int row) {
  const int predictors = cases_.predictors();
  const PredictedCase* one = row > 0 ? cases_.prediction(row) : nullptr;
  for (int c = 0; c <= predictors + NewCasesSheet::figures; ++c) {
    const CellPosition cell{row + 1, c + 1};
    spdCases.setText(
        cell.row, cell.col,
        c <= predictors ? cases_.shownText(row, c) : cases_.figure(row, c - predictors));
    const bool isLast = c == predictors + NewCasesSheet::figures;
    if (row == 0 || c == 0 || (c > predictors && !isLast)) continue;
    const bool isOutside =
        one && (isLast ? !one->words.empty()
                       : std::ranges::find(one->outside, cases_.heading(c)) != one->outside.end());
    CellStyle style = spdCases.sheet().at(cell.row, cell.col).style;
    style.back = isOutside ? outsideGround : isLast ? colours::buttonFace : colours::white;
    style.fore = isOutside || !isLast ? colours::black : colours::buttonText;
    spdCases.setStyle({cell.row, cell.col, cell.row, cell.col}, style);
  }
}

// Of the case with the cursor its prediction, then what is to be known of all of them. Below
// all cases it is the last: Return at the end of one leads on to an empty row.
void frmPredict::showWords() {
  const int last = cases_.predictors() > 0 ? cases_.sheet().lastUsedRow() : 0;
  std::string words = cases_.sentence(std::min(spdCases.activeCell().row - 1, last));
  for (const std::string& line : cases_.remarks()) words += (words.empty() ? "" : "\n") + line;
  txtWords.setText(words);
}

void frmPredict::changed(const SheetChange&) {
  cases_.predict();
  if (visible() && isShaped_) showAll();
}

// In place of the line on the limits, as long as there is something to say.
void frmPredict::say(std::string text, bool isRefusal) {
  lblStatus.setVisible(!text.empty());
  lblLimits.setVisible(text.empty());
  lblStatus.setForeColour(isRefusal ? refusalText : colours::buttonText);
  lblStatus.setCaption(std::move(text));
  if (isRefusal) desktop().beep();
}

// --- what the user does

// First of all that needs the open entry in its cell; one that is refused stays open with its text.
bool frmPredict::entryIsTaken() {
  if (spdCases.commitEdit()) return true;
  spdCases.setFocus();
  return false;
}

void frmPredict::spdCases_EditDone(CellPosition cell, const std::string& text, bool& bAccepted) {
  const EntryOutcome outcome = cases_.sheet().enter(cell.row - 1, cell.col - 1, text);
  bAccepted = outcome.accepted;
  say(outcome.accepted ? outcome.taken : outcome.reason, !outcome.accepted);
}

CellRange frmPredict::selected() const {
  const auto& blocks = spdCases.selection().blocks();
  const CellPosition at = spdCases.activeCell();
  const CellBlock block =
      blocks.empty() ? CellBlock{at.row, at.col, at.row, at.col} : blocks.back();
  return {{std::max(block.row, 2) - 1, std::max(block.col, 1) - 1},
          {std::max(block.row2, 2) - 1, block.col2 - 1}};
}

void frmPredict::command(GridCommand what) {
  if (!entryIsTaken()) return;
  say({}, false);
  CellRange cells = selected();
  if (what == GridCommand::paste) return paste();
  if (what == GridCommand::undo) return static_cast<void>(cases_.sheet().undo());
  if (what == GridCommand::redo) return static_cast<void>(cases_.sheet().redo());
  if (what != GridCommand::erase) copySelected();
  if (what == GridCommand::copy) return;
  cells.last.column = std::min(cells.last.column, cases_.predictors());
  if (cells.first.column <= cells.last.column) cases_.sheet().clear(cells);
}

// Numbers in all their digits.
void frmPredict::copySelected() {
  const CellRange cells = selected();
  Sheet page(cells.last.row - cells.first.row + 1, cells.last.column - cells.first.column + 1);
  for (int row = 1; row <= page.rows(); ++row)
    for (int col = 1; col <= page.cols(); ++col) {
      const CellAddress from{cells.first.row + row - 1, cells.first.column + col - 1};
      Cell& cell = page.at(row, col);
      cell = spdCases.sheet().at(from.row + 1, from.column + 1);
      if (from.column >= 1 && from.column <= cases_.predictors())
        cell.text = cases_.exactText(from.row, from.column);
    }
  desktop().setClipboard(
      {.text = copyText(page, page.body()), .html = copyHtml(page, page.body())});
}

void frmPredict::paste() {
  const std::string text = desktop().pasted().text;
  if (text.empty()) return;
  const CellAddress at = selected().first;
  if (at.column > cases_.predictors())
    return say("Paste into the columns of the predictors.", true);
  // As if it landed on top of an empty sheet: names are those of predictors wherever it goes.
  ImportTarget target{TextOrigin::clipboard, 1, at.column, mostNewCases - at.row + 1,
                      editorVariables};
  if (beginsWithNames(text, target)) target.row = 0;
  const auto landing =
      tableFromText(desktop(), text, target, cases_.sheet().content(), "the clipboard");
  if (!landing) return;
  const CellAddress first{landing->first.row + at.row - 1, landing->first.column};
  const auto row = cases_.paste(first, landing->table);
  if (!row) return say(row.error().message(), true);
  spdCases.setActiveCell({*row + 1, 2});
}

void frmPredict::cmdAdd_Click() {
  if (!entryIsTaken()) return;
  const auto row = cases_.addCase(nbrCase.value());
  if (!row) return say(row.error().message(), true);
  spdCases.setActiveCell({*row + 1, 2});
}

}  // namespace tolmer
