#include "shell/models_window.h"

#include <algorithm>
#include <utility>

#include "base/sentence_parts.h"
#include "displaywindows/table_window.h"
#include "editor/dialog_parts.h"
#include "insight/insight_tables.h"
#include "platform/desktop.h"
#include "platform/grid/grid_copy.h"
#include "platform/grid/grid_fit.h"
#include "tables/html_writer.h"

namespace tolmer {
namespace {

constexpr Twips margin = pixels(12);
constexpr Twips gap = pixels(6);
constexpr Twips textHeight = pixels(20);
constexpr Twips fieldHeight = pixels(26);
constexpr Twips rowHeight = pixels(20);
constexpr Twips wordsHeight = pixels(84);
constexpr Twips choiceLabel = pixels(100);
constexpr Size least = {pixels(600), pixels(430)};
constexpr Size usual = {pixels(1200), pixels(620)};

// In rows of the least height; room that is left is spread over the columns.
void showTable(Grid& grid, const TableContent& table, Twips barThickness) {
  const RedrawLock lock(grid);
  grid.setSheet(gridSheet(table));
  grid.freeze(1, 1);
  for (int row = 1; row <= grid.maxRows(); ++row)
    grid.setRowHeight(row, std::max(grid.tallestText(row), rowHeight));
  for (int col = 1; col <= grid.maxCols(); ++col)
    grid.setColWidth(col, grid.widestText(col) + pixels(10));
  const Size content = grid.contentSize();
  grid.setScrollBars(neededScrollBars({content.width, content.height},
                                      {grid.width(), grid.height()}, barThickness));
}

std::string choiceText(const ModelHistory& models, int number) {
  const ModelRecord& record = *models.record(number);
  return std::to_string(number) + "  " + record.dataName + ": " + titleOf(record);
}

}  // namespace

frmModels::frmModels(Desktop& desktop, const AnalysisState& state)
    : Window(desktop, "frmModels", WindowStyle::dialog, "Compare Models"), state_(state) {
  setSizable(true);
  setLeastInner(least);
  spdModels.setAccessibleName("Fits of this run");
  spdModels.setSelectionMode(SelectionMode::rows);
  spdTerms.setAccessibleName("Coefficients of both models");
  txtWords.setAccessibleName("What the comparison says");
  txtWords.setMultiLine(true);
  txtWords.setReadOnly(true);
  lblFirst.setUsesMnemonic(true);
  lblSecond.setUsesMnemonic(true);
  cmdTakeUp.setTip("Makes the model marked in the list the present one");
  cmdCopy.setTip("Copies the comparison");
  cmdClose.setCancel(true);
  wire();
}

void frmModels::wire() {
  Resize = [this] {
    placeControls();
    showAll();
  };
  spdModels.SelectionChange = [this] {
    if (showing_) return;
    marked_ = models_.firstNumber() + spdModels.activeCell().row - 2;
    showWhyNot();
  };
  cmdTakeUp.Click = [this] {
    if (const ModelRecord* record = models_.record(marked_)) raise(takeUp, ModelRecord(*record));
  };
  cboFirst.Click = [this] {
    isFirstChosen_ = isFirstChosen_ || !showing_;
    choose(cboFirst, first_);
  };
  cboSecond.Click = [this] { choose(cboSecond, second_); };
  cmdCopy.Click = [this] { copy(); };
  cmdClose.Click = [this] { hide(); };
}

void frmModels::follow(const ModelRecord* present) {
  present_ = present ? models_.add(*present) : 0;
  if (present_ > 0 && present_ != lastPresent_) {
    if (!isFirstChosen_) first_ = lastPresent_;
    second_ = marked_ = lastPresent_ = present_;
  }
  if (!models_.record(first_)) first_ = models_.records().empty() ? 0 : models_.firstNumber();
  if (visible()) showAll();
}

void frmModels::choose(const ComboBox& box, int& number) {
  if (showing_ || box.listIndex() < 0) return;
  number = models_.firstNumber() + box.listIndex();
  showComparison();
}

void frmModels::open() {
  place();
  showAll();
  if (!focus()) spdModels.setFocus();
  show();
}

void frmModels::place() {
  if (isPlaced_) return;
  const Size screen = desktop().screenSize();
  const Twips width = std::max(std::min(screen.width - pixels(60), usual.width), least.width);
  const Twips height = std::max(std::min(screen.height - pixels(100), usual.height), least.height);
  setPlace({std::max((screen.width - width) / 2, 0.0F),
            std::max(screen.height - height - pixels(60), 0.0F), width, height});
  isPlaced_ = true;
  placeControls();
}

void frmModels::placeControls() {
  const Twips width = innerWidth();
  const Twips height = innerHeight();
  const Twips room = width - 2 * margin;
  const Twips commands = height - margin - commandHeight;
  const Twips words = commands - gap - wordsHeight;
  // What the other controls leave, to both tables.
  const Twips tables = words - margin - textHeight - commandHeight - 2 * fieldHeight - 7 * gap;
  lblModels.setPlace({margin, margin, room, textHeight});
  spdModels.setPlace({margin, lblModels.bottom() + gap, room, tables / 2});
  cmdTakeUp.setPlace({margin, spdModels.bottom() + gap, pixels(130), commandHeight});
  lblTakeUp.setPlace({cmdTakeUp.right() + gap, cmdTakeUp.top() + pixels(5),
                      width - margin - cmdTakeUp.right() - gap, textHeight});
  Twips top = cmdTakeUp.bottom() + gap;
  for (const auto& [label, box] : {std::pair{&lblFirst, &cboFirst}, {&lblSecond, &cboSecond}}) {
    label->setPlace({margin, top + pixels(4), choiceLabel, textHeight});
    box->setPlace({margin + choiceLabel, top, room - choiceLabel, fieldHeight});
    top = box->bottom() + gap;
  }
  spdTerms.setPlace({margin, top, room, words - gap - top});
  const Twips wordsTop = spdTerms.visible() ? words : top;  // no room is left empty
  txtWords.setPlace({margin, wordsTop, room, words + wordsHeight - wordsTop});
  Twips right = width - margin;
  for (Button* button : {&cmdClose, &cmdHelp, &cmdCopy}) {
    button->setPlace({right - pixels(88), commands, pixels(88), commandHeight});
    right = button->left() - pixels(8);
  }
}

void frmModels::showAll() {
  showing_ = true;
  showList();
  showChoices();
  showing_ = false;
  showComparison();
}

void frmModels::showList() {
  const int count = static_cast<int>(models_.records().size());
  const int lost = models_.firstNumber() - 1;
  std::string words = count == 0 ? "No fit has been completed yet." : "Completed fits of this run:";
  if (lost > 0)
    words = "The last " + std::to_string(count) + " completed fits of this run; " +
            counted(lost, "earlier one") + (lost == 1 ? " is" : " are") + " kept no more:";
  lblModels.setCaption(std::move(words));
  showTable(spdModels, modelsTable(models_, present_), desktop().scrollBarThickness());
  const int row = marked_ - lost + 1;
  if (models_.record(marked_)) spdModels.setActiveCell({row, 1});
  showWhyNot();
}

void frmModels::showChoices() {
  for (const auto& [box, number] : {std::pair{&cboFirst, first_}, {&cboSecond, second_}}) {
    box->clear();
    for (int i = models_.firstNumber(); i <= models_.lastNumber(); ++i)
      box->addItem(choiceText(models_, i));
    box->setListIndex(number - models_.firstNumber());
  }
}

void frmModels::showComparison() {
  const ModelRecord* first = models_.record(first_);
  const ModelRecord* second = models_.record(second_);
  const bool hasTwo = first && second && first != second;
  terms_ = hasTwo ? comparisonTable(compareModels(*first, *second)) : TableContent(1, 1);
  cmdCopy.setEnabled(hasTwo);
  spdTerms.setVisible(hasTwo);
  placeControls();
  showTable(spdTerms, terms_, desktop().scrollBarThickness());
  std::string words;
  for (const std::string& sentence : terms_.notes) words += (words.empty() ? "" : "\n") + sentence;
  txtWords.setText(hasTwo ? words
                          : "Fit another model of the same data, by Change Model on the control "
                            "panel: it is then held against this one.");
}

void frmModels::showWhyNot() {
  const ModelRecord* record = models_.record(marked_);
  const std::string why = !record               ? "Mark a fit in the list."
                          : marked_ == present_ ? "This is the present model."
                                                : whyNotOfPresentData(*record, state_);
  cmdTakeUp.setEnabled(why.empty());
  lblTakeUp.setCaption(why);
  lblTakeUp.setTip(why);
}

void frmModels::copy() {
  TableContent table = terms_;
  table.notes.insert(table.notes.begin(), {"First: " + choiceText(models_, first_) + ".",
                                           "Second: " + choiceText(models_, second_) + "."});
  const Sheet page = gridSheet(terms_);
  std::string text = copyText(page, page.body());
  for (const std::string& note : table.notes) text += note + "\n";
  desktop().setClipboard({.text = std::move(text), .html = copiedTableHtml(table)});
}

}  // namespace tolmer
