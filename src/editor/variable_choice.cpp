#include "editor/variable_choice.h"

#include <algorithm>
#include <array>
#include <utility>

#include "base/sentence_parts.h"
#include "editor/dialog_parts.h"
#include "formula/sheet_names.h"
#include "platform/grid/grid_fit.h"

namespace tolmer {
namespace {

constexpr long helpOnImport = 111;

constexpr Twips firstWidth = pixels(820);
constexpr Twips firstHeight = pixels(600);
constexpr Twips leastWidth = pixels(640);
constexpr Twips leastGrid = pixels(84);
constexpr Twips gap = pixels(8);
constexpr Twips line = pixels(20);
constexpr Twips fieldHeight = pixels(26);
constexpr Twips casesHeight = pixels(112);
constexpr Twips titleBar = pixels(40);  // of the window, on the screen
constexpr Colour tickedBack = Colour::rgb(226, 240, 255);
constexpr Colour headingBack = Colour::rgb(255, 255, 128);

enum Column { take = 1, name, label, kind, values, different, comesAs };
constexpr int columnCount = comesAs;
constexpr int firstRow = 2;  // below the headings

std::string textOf(int different) {
  return different >= mostDifferent ? "more than " + std::to_string(mostDifferent - 1)
                                    : std::to_string(different);
}

bool holds(const std::string& text, const std::string& sought) {
  return foldedName(text).find(sought) != std::string::npos;
}

}  // namespace

frmVariableChoice::frmVariableChoice(Desktop& desktop, const ImportPreview& preview,
                                     const ImportChoice& choice, const std::string& source,
                                     CheckChoice check)
    : Window(desktop, "frmVariableChoice", WindowStyle::dialog, "Choose Variables - " + source),
      variables_(preview.variables),
      cases_(preview.cases),
      roomForCases_(preview.roomForCases),
      roomForVariables_(preview.roomForVariables),
      check_(std::move(check)) {
  setSizable(true);
  lblSize.setCaption("There are " + counted(static_cast<int>(variables_.size()), "variable") +
                     " and " + counted(cases_, "case") + "; the sheet has room for " +
                     std::to_string(roomForVariables_) + " and " + std::to_string(roomForCases_) +
                     ".");
  loadChoice(choice);
  wire();
  listVariables();
  const Size screen = this->desktop().screenSize();
  setPlace(
      {0, 0, std::min(firstWidth, screen.width), std::min(firstHeight, screen.height - titleBar)});
  Form_Resize();
  centreOnScreen();
}

std::optional<ImportChoice> frmVariableChoice::ask() {
  chosen_.reset();
  showModal();
  return std::move(chosen_);
}

// Where there are more than fit, nobody but the user knows which are wanted.
void frmVariableChoice::loadChoice(const ImportChoice& choice) {
  const bool fit = static_cast<int>(variables_.size()) <= roomForVariables_;
  for (const ImportVariable& variable : variables_)
    if (choice.columns ? choice.columns->contains(variable.column)
                       : fit && variable.use != ColumnUse::leftOut)
      ticked_.insert(variable.column);
  uses_ = choice.uses;
  references_ = choice.references;
  loadCases(choice);
}

void frmVariableChoice::loadCases(const ImportChoice& choice) {
  const CaseChoice cases = choice.cases.value_or(CaseChoice{});
  optFirst.setCaption(cases_ <= roomForCases_ ? "All &" + std::to_string(cases_)
                                              : "The first &" + std::to_string(roomForCases_));
  constexpr int mostEvery = 99999;
  numEvery.setRange(2, mostEvery);
  const int needed = (cases_ + roomForCases_ - 1) / std::max(roomForCases_, 1);
  numEvery.setValue(cases.way == CaseChoice::Way::every ? cases.every : std::max(needed, 2));
  txtWhere.setText(cases.condition);
  OptionButton* const options[] = {&optFirst, &optEvery, &optWhere};
  options[static_cast<std::size_t>(cases.way)]->setValue(true);
}

void frmVariableChoice::wire() {
  spdVariables.setAccessibleName("Variables");
  spdVariables.setSelectionMode(SelectionMode::rows);
  spdVariables.takeKey({keys::space}, [this] { toggleMarked(); });
  spdVariables.SelectionChange = [this] { showCurrent(); };
  spdVariables.Click = [this](CellPosition at) {
    if (at.col == take && at.row >= firstRow) toggleMarked();
  };
  spdVariables.DblClick = [this](CellPosition at) {
    if (at.col != take && at.row >= firstRow) toggleMarked();
  };
  numEvery.setAccessibleName("One in every so many cases");
  txtWhere.setAccessibleName("Condition on the cases");
  for (Label* text : {&lblFind, &lblUse, &lblReference}) text->setUsesMnemonic(true);
  for (Label* text : {&lblSize, &lblValues, &lblState}) text->setWordWrap(true);
  txtFind.Changed = [this] { listVariables(); };
  numEvery.Changed = [this] { optEvery.setValue(true); };
  txtWhere.Changed = [this] { optWhere.setValue(true); };
  optFirst.Click = [this] { showState(); };
  optEvery.Click = [this] {
    showState();
    numEvery.setFocus();
  };
  optWhere.Click = [this] {
    showState();
    txtWhere.setFocus();
  };
  cmdAll.Click = [this] { tickShown(true); };
  cmdNone.Click = [this] { tickShown(false); };
  cmboUse.Click = [this] { cmboUse_Click(); };
  cmboReference.Click = [this] { cmboReference_Click(); };
  Activate = [this] { spdVariables.setFocus(); };
  Resize = [this] { Form_Resize(); };
  cmdOK.Click = [this] { cmdOK_Click(); };
  cmdCancel.Click = [this] { hide(); };
  const auto help = [this] { showEditorHelp(desktop(), helpOnImport); };
  cmdHelp.Click = help;
  takeKey({keys::f1}, help);
}

ColumnUse frmVariableChoice::useOf(const ImportVariable& variable) const {
  const auto chosen = uses_.find(variable.column);
  if (chosen != uses_.end()) return chosen->second;
  if (variable.use == ColumnUse::labels) return variable.use;
  if (variable.kind != VariableKind::words) return ColumnUse::numbers;
  return variable.categories.empty() ? ColumnUse::leftOut : ColumnUse::dummies;
}

std::string frmVariableChoice::referenceOf(const ImportVariable& variable) const {
  const auto chosen = references_.find(variable.column);
  return chosen == references_.end() ? variable.reference : chosen->second;
}

int frmVariableChoice::columnsOf(const ImportVariable& variable) const {
  const ColumnUse use = useOf(variable);
  if (use == ColumnUse::dummies) return static_cast<int>(variable.categories.size()) - 1;
  return use == ColumnUse::numbers ? 1 : 0;
}

std::string frmVariableChoice::useText(const ImportVariable& variable) const {
  switch (useOf(variable)) {
    case ColumnUse::numbers:
      return variable.kind == VariableKind::dates ? "numbers of days" : "numbers";
    case ColumnUse::dummies:
      return columnsOf(variable) == 1 ? "1 and 0" : counted(columnsOf(variable), "dummy variable");
    case ColumnUse::labels:
      return "labels of the cases";
    case ColumnUse::leftOut:
      break;
  }
  return variable.kind == VariableKind::words && variable.categories.empty()
             ? (variable.different < 2 ? "nothing: one word alone" : "nothing: too many words")
             : "nothing";
}

int frmVariableChoice::columnsTaken() const {
  int taken = 0;
  for (const ImportVariable& variable : variables_)
    if (ticked_.contains(variable.column)) taken += columnsOf(variable);
  return taken;
}

const ImportVariable* frmVariableChoice::current() const {
  const int row = spdVariables.activeCell().row - firstRow;
  if (row < 0 || row >= static_cast<int>(shown_.size())) return nullptr;
  return &variables_[shown_[static_cast<std::size_t>(row)]];
}

// Those whose name or label has the text that is looked for.
void frmVariableChoice::listVariables() {
  const std::string sought = foldedName(txtFind.text());
  shown_.clear();
  for (std::size_t i = 0; i < variables_.size(); ++i)
    if (holds(variables_[i].name, sought) || holds(variables_[i].label, sought))
      shown_.push_back(i);
  {
    const RedrawLock lock(spdVariables);
    Sheet sheet(static_cast<int>(shown_.size()) + 1, columnCount);
    constexpr std::array headings = {"Take",   "Name",      "Label",   "Kind",
                                     "Values", "Different", "Comes as"};
    for (int col = 1; col <= columnCount; ++col) {
      sheet.at(1, col).text = headings[static_cast<std::size_t>(col) - 1];
      sheet.at(1, col).style = {.heading = true, .back = headingBack};
    }
    spdVariables.setSheet(std::move(sheet));
    spdVariables.freeze(1, 0);
    for (int row = 1; row <= spdVariables.maxRows(); ++row)
      spdVariables.setRowHeight(row, pixels(20));
    showTicks();
  }
  spdVariables.setActiveCell({std::min(firstRow, spdVariables.maxRows()), take});
  Form_Resize();
  showCurrent();
  showState();
}

void frmVariableChoice::showVariable(int row) {
  const ImportVariable& variable = variables_[shown_[static_cast<std::size_t>(row - firstRow)]];
  const bool isTicked = ticked_.contains(variable.column);
  const std::array<std::string, columnCount> texts = {isTicked ? "Yes" : "",
                                                      variable.name,
                                                      variable.label,
                                                      kindWord(variable),
                                                      std::to_string(variable.values),
                                                      textOf(variable.different),
                                                      useText(variable)};
  for (int col = 1; col <= columnCount; ++col) {
    const bool isCount = col == values || col == different;
    spdVariables.setStyle({row, col, row, col}, {.align = isCount ? Align::right : Align::left,
                                                 .back = isTicked ? tickedBack : colours::window,
                                                 .fore = colours::windowText});
    spdVariables.setText(row, col, texts[static_cast<std::size_t>(col) - 1]);
  }
}

void frmVariableChoice::showTicks() {
  const RedrawLock lock(spdVariables);
  for (int row = firstRow; row <= spdVariables.maxRows(); ++row) showVariable(row);
}

void frmVariableChoice::tick(const std::vector<std::size_t>& variables, bool on) {
  for (const std::size_t at : variables)
    on ? static_cast<void>(ticked_.insert(variables_[at].column))
       : static_cast<void>(ticked_.erase(variables_[at].column));
  showTicks();
  showState();
}

void frmVariableChoice::tickShown(bool on) { tick(shown_, on); }

void frmVariableChoice::toggleMarked() {
  std::vector<std::size_t> marked;
  bool allTicked = true;
  for (int row = firstRow; row <= spdVariables.maxRows(); ++row) {
    if (!spdVariables.selection().covers({row, take})) continue;
    marked.push_back(shown_[static_cast<std::size_t>(row - firstRow)]);
    allTicked = allTicked && ticked_.contains(variables_[marked.back()].column);
  }
  tick(marked, !allTicked);
}

// What becomes of the variable where the cursor stands, and what its values are.
void frmVariableChoice::showCurrent() {
  const ImportVariable* variable = current();
  showing_ = true;
  cmboUse.clear();
  cmboReference.clear();
  std::string text;
  if (variable) {
    for (const ColumnUse use : variable->uses)
      cmboUse.addItem(use == ColumnUse::dummies               ? "Dummy variables"
                      : use == ColumnUse::labels              ? "Labels of the cases"
                      : use == ColumnUse::leftOut             ? "Nothing"
                      : variable->kind == VariableKind::dates ? "Days since 1899-12-30"
                                                              : "Numbers");
    const auto at = std::find(variable->uses.begin(), variable->uses.end(), useOf(*variable));
    cmboUse.setListIndex(
        at == variable->uses.end() ? -1 : static_cast<int>(at - variable->uses.begin()));
    const std::string reference = referenceOf(*variable);
    for (const Category& category : variable->categories) {
      text += (text.empty() ? variable->name + ": " : ", ") +
              (category.name == category.value ? "" : category.value + " = ") + category.name;
      cmboReference.addItem(category.name);
      if (category.value == reference)
        cmboReference.setListIndex(static_cast<int>(cmboReference.items().size()) - 1);
    }
  }
  const bool dummies = variable && useOf(*variable) == ColumnUse::dummies;
  cmboUse.setEnabled(variable != nullptr && !variable->uses.empty());
  cmboReference.setEnabled(dummies);
  lblReference.setEnabled(dummies);
  lblValues.setCaption(text);
  showing_ = false;
}

void frmVariableChoice::cmboUse_Click() {
  const ImportVariable* variable = current();
  if (showing_ || !variable || cmboUse.listIndex() < 0) return;
  const ColumnUse use = variable->uses[static_cast<std::size_t>(cmboUse.listIndex())];
  // The cases have one label each.
  if (use == ColumnUse::labels)
    for (const ImportVariable& other : variables_)
      if (&other != variable && useOf(other) == ColumnUse::labels)
        uses_[other.column] = other.kind == VariableKind::words && !other.categories.empty()
                                  ? ColumnUse::dummies
                              : other.kind == VariableKind::words ? ColumnUse::leftOut
                                                                  : ColumnUse::numbers;
  uses_[variable->column] = use;
  ticked_.insert(variable->column);
  showTicks();
  showState();
  cmboReference.setEnabled(use == ColumnUse::dummies);
  lblReference.setEnabled(use == ColumnUse::dummies);
}

void frmVariableChoice::cmboReference_Click() {
  const ImportVariable* variable = current();
  if (showing_ || !variable || cmboReference.listIndex() < 0) return;
  references_[variable->column] =
      variable->categories[static_cast<std::size_t>(cmboReference.listIndex())].value;
}

void frmVariableChoice::showState() {
  const int taken = columnsTaken();
  const bool fits = taken <= roomForVariables_;
  const auto ticked = static_cast<int>(ticked_.size());
  lblState.setForeColour(fits ? colours::buttonText : refusalText);
  lblState.setCaption(
      ticked == 0 ? "Tick the variables that you want: by Space, or by a click under Take."
                  : std::to_string(ticked) + " of " +
                        counted(static_cast<int>(variables_.size()), "variable") + " ticked; " +
                        (ticked == 1 ? "it takes " : "they take ") + counted(taken, "column") +
                        ", there is room for " + std::to_string(roomForVariables_) + ".");
  cmdOK.setEnabled(ticked > 0 && fits);
}

void frmVariableChoice::refuse(const std::string& text) {
  lblState.setForeColour(refusalText);
  lblState.setCaption(text);
}

ImportChoice frmVariableChoice::choice() const {
  ImportChoice choice{.columns = ticked_, .uses = uses_, .references = references_};
  CaseChoice cases;
  if (optEvery.value()) cases = {.way = CaseChoice::Way::every, .every = numEvery.value()};
  if (optWhere.value()) cases = {.way = CaseChoice::Way::where, .condition = txtWhere.text()};
  if (!optFirst.value() || cases_ > roomForCases_) choice.cases = cases;
  return choice;
}

void frmVariableChoice::cmdOK_Click() {
  ImportChoice choice = this->choice();
  desktop().setBusyPointer(true);
  const auto fault = check_(choice);
  desktop().setBusyPointer(false);
  if (fault) {
    refuse(fault->message());
    if (optWhere.value()) txtWhere.setFocus();
    return;
  }
  chosen_ = std::move(choice);
  hide();
}

void frmVariableChoice::Form_Resize() {
  if (innerWidth() <= 0) return;
  const Twips inside = std::max(innerWidth(), leastWidth) - 2 * dialogMargin;
  lblSize.setPlace({dialogMargin, gap, inside, line});
  Twips top = lblSize.bottom() + gap;
  lblFind.setPlace({dialogMargin, top + pixels(4), pixels(44), line});
  txtFind.setPlace({lblFind.right(), top, pixels(220), fieldHeight});
  cmdAll.setPlace({txtFind.right() + 2 * gap, top, pixels(88), fieldHeight});
  cmdNone.setPlace({cmdAll.right() + gap, top, pixels(88), fieldHeight});
  top = txtFind.bottom() + gap;
  const Twips below = 2 * gap + 2 * line + fieldHeight + gap + casesHeight + gap + 2 * line + gap;
  setLeastInner({leastWidth, top + leastGrid + below});
  const Twips gridHeight = std::max(innerHeight() - top - below, leastGrid);
  spdVariables.setPlace({dialogMargin, top, inside, gridHeight});
  const Twips bar = desktop().scrollBarThickness();
  constexpr std::array<float, columnCount> widths = {44, 130, 0, 66, 60, 92, 184};
  Twips others = bar;
  for (const float width : widths) others += pixels(width + 1);
  for (int col = 1; col <= columnCount; ++col)
    spdVariables.setColWidth(col, col == label ? std::max(inside - others - pixels(4), pixels(80))
                                               : pixels(widths[static_cast<std::size_t>(col) - 1]));
  spdVariables.setScrollBars(
      neededScrollBars(spdVariables.contentSize(), {inside, gridHeight}, bar));
  top = spdVariables.bottom() + gap;
  lblValues.setPlace({dialogMargin, top, inside, 2 * line});
  top = lblValues.bottom();
  lblUse.setPlace({dialogMargin, top + pixels(4), pixels(74), line});
  cmboUse.setPlace({lblUse.right(), top, pixels(220), fieldHeight});
  lblReference.setPlace({cmboUse.right() + 2 * gap, top + pixels(4), pixels(76), line});
  cmboReference.setPlace({lblReference.right(), top, pixels(200), fieldHeight});
  top = cmboUse.bottom() + gap;
  placeCases(top, inside);
  top = fraCases.bottom() + gap;
  placeCommands({&cmdOK, &cmdCancel, &cmdHelp}, dialogMargin + inside, top);
  lblState.setPlace({dialogMargin, top + pixels(2), cmdOK.left() - gap - dialogMargin, 2 * line});
}

void frmVariableChoice::placeCases(Twips top, Twips width) {
  constexpr Twips underTitle = pixels(22);
  constexpr Twips optionWidth = pixels(108);
  fraCases.setPlace({dialogMargin, top, width, casesHeight});
  const Twips inset = pixels(12);
  optFirst.setPlace({inset, underTitle, width - 2 * inset, fieldHeight});
  optEvery.setPlace({inset, optFirst.bottom(), optionWidth, fieldHeight});
  numEvery.setPlace({optEvery.right(), optEvery.top(), pixels(80), fieldHeight});
  optWhere.setPlace({inset, optEvery.bottom() + pixels(2), optionWidth, fieldHeight});
  const Twips example = pixels(240);
  txtWhere.setPlace(
      {optWhere.right(), optWhere.top(), width - inset - optWhere.right() - example, fieldHeight});
  lblExample.setPlace({txtWhere.right() + gap, optWhere.top() + pixels(4), example - gap, line});
}

}  // namespace tolmer
