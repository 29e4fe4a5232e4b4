#include "editor/import_dialog.h"

#include <algorithm>
#include <array>
#include <utility>

#include "base/program_version.h"
#include "base/sentence_parts.h"
#include "editor/dialog_parts.h"
#include "editor/variable_choice.h"
#include "foreign/import_process.h"
#include "platform/grid/grid_fit.h"
#include "platform/text_metrics.h"
#include "system/host_path.h"

namespace tolmer {
namespace {

constexpr int kindsOfDoubt = static_cast<int>(ImportDoubt::likelyCodes) + 1;
int indexOf(ImportDoubt doubt) { return static_cast<int>(doubt) + 1; }
ImportDoubt doubtOf(int index) { return static_cast<ImportDoubt>(index - 1); }

int columnsOf(const ImportPreview& preview) {
  return static_cast<int>(preview.shown.empty() ? preview.headings.size()
                                                : preview.shown.front().size());
}

std::string captionOf(const ImportPreview& preview) {
  const auto shown = static_cast<int>(preview.shown.size());
  if (shown == preview.rows) return "As it would stand in the sheet:";
  return "The first " + std::to_string(shown) + " of " + counted(preview.rows, "row") +
         ", as they would stand in the sheet:";
}

std::string stateOf(const ImportPreview& preview) {
  const auto open = static_cast<int>(
      std::count_if(preview.questions.begin(), preview.questions.end(),
                    [](const ImportQuestion& question) { return !question.chosen; }));
  if (open > 0)
    return counted(static_cast<int>(open), "question") +
           (open == 1 ? " waits for an answer." : " wait for an answer.");
  if (!preview.mustChoose.empty()) return preview.mustChoose + " Press Variables to choose.";
  if (preview.rows == 0) return counted(columnsOf(preview), "name") + ", no data.";
  return counted(preview.rows, "row") + ", " + counted(columnsOf(preview), "column") + ".";
}

std::string notesOf(const ImportPreview& preview) {
  std::string text;
  for (const std::string& note : preview.notes) text += (text.empty() ? "" : "\n") + note;
  return text;
}

// The names, then the rows, as the editor shows them; column 0 numbers the cases.
class PreviewSheet {
 public:
  PreviewSheet(const ImportPreview& preview, const SheetContent& target)
      : preview_(preview),
        target_(target),
        sheet_(static_cast<int>(preview.shown.size()) + 1, static_cast<int>(columnsOf(preview))) {}

  Sheet build() {
    numberCases();
    for (int col = 1; col <= sheet_.cols(); ++col) {
      const auto field = static_cast<std::size_t>(col - 1);
      const int column = preview_.firstColumn + col - 1;
      const Align align = column == 0 ? Align::left : Align::right;
      put(1, col, nameOf(field, column), {.align = align, .heading = true, .back = yellow});
      for (std::size_t row = 0; row < preview_.shown.size(); ++row)
        put(static_cast<int>(row) + 2, col, preview_.shown[row][field],
            {.align = align, .back = colours::window, .fore = colours::windowText});
    }
    return std::move(sheet_);
  }

 private:
  static constexpr Colour yellow = Colour::rgb(255, 255, 128);

  void put(int row, int col, std::string text, const CellStyle& style) {
    sheet_.at(row, col).text = std::move(text);
    sheet_.at(row, col).style = style;
  }
  void numberCases() {
    const CellStyle face{.align = Align::right,
                         .heading = true,
                         .back = colours::buttonFace,
                         .fore = colours::buttonText};
    put(1, 0, "Obs", face);
    for (int row = 2; row <= sheet_.rows(); ++row)
      put(row, 0, std::to_string(preview_.firstRow + row - 2), face);
  }
  // A blank name leaves the one that stands.
  std::string nameOf(std::size_t field, int column) const {
    if (field < preview_.headings.size() && !preview_.headings[field].empty())
      return preview_.headings[field];
    return column <= target_.variables() ? target_.cells(0, column).text : std::string();
  }

  const ImportPreview& preview_;
  const SheetContent& target_;
  Sheet sheet_;
};

constexpr Twips firstWidth = pixels(780);
constexpr Twips answerWidth = pixels(270);
constexpr Twips lineOfText = pixels(20);
constexpr Twips leastGrid = pixels(106);  // names, two rows, a scroll bar
constexpr Twips usualGrid = pixels(232);
constexpr Twips gap = pixels(8);
constexpr Twips titleBar = pixels(40);  // of the window, on the screen

Twips textHeight(const Label& label, Twips width) {
  if (label.caption().empty()) return 0;
  return pixels(static_cast<float>(wrappedHeight(label.font(), label.caption(),
                                                 static_cast<double>(width / twipsPerPixel)))) +
         pixels(2);
}

std::nullopt_t refused(Desktop& desktop, const char* title, const Error& error) {
  desktop.messageBox({title, error.message(), MessageIcon::exclamation});
  return std::nullopt;
}

DataCell dataCell(ImportedCell imported) {
  if (imported.number) return {.kind = DataCell::Kind::number, .number = *imported.number};
  if (imported.text.empty()) return {};
  return {.kind = DataCell::Kind::text, .text = std::move(imported.text)};
}

std::vector<std::string> meaningsOf(const std::vector<ImportedVariable>& variables) {
  std::vector<std::string> meanings;
  for (const ImportedVariable& one : variables)
    meanings.push_back(meaningOf(one.label, one.valueLabels));
  return meanings;
}

std::vector<bool> dummiesOf(const std::vector<ImportedVariable>& variables) {
  std::vector<bool> dummies;
  for (const ImportedVariable& one : variables) dummies.push_back(one.isDummy);
  return dummies;
}

// Which part of its file the table is, to stand behind the file's name.
std::string partText(const ImportedTable& imported) {
  std::string text = imported.sheet.empty() ? std::string() : ", sheet " + imported.sheet;
  for (const std::string& sentence : imported.choice)
    text += (text.ends_with('.') ? " " : ". ") + sentence;
  return text;
}

LandingTable landing(ImportedTable imported) {
  Matrix<DataCell> cells(imported.cells.lastRow(), imported.cells.lastColumn());
  for (int row = 0; row <= cells.lastRow(); ++row)
    for (int column = 0; column <= cells.lastColumn(); ++column)
      cells(row, column) = dataCell(std::move(imported.cells(row, column)));
  return {{imported.firstRow, imported.firstColumn},
          {.cells = std::move(cells),
           .headings = std::move(imported.headings),
           .labels = meaningsOf(imported.variables),
           .dummies = dummiesOf(imported.variables),
           .title = std::move(imported.title),
           .source = partText(imported)}};
}

// "survey.xlsx, sheet Wave2", "survey.sav (SPSS)"
std::string sourceText(const std::string& name, const std::string& format,
                       const std::string& part) {
  constexpr std::array<std::pair<std::string_view, const char*>, 3> programs{
      {{"sav", " (SPSS)"}, {"dta", " (Stata)"}, {"gdt", " (gretl)"}}};
  std::string text = host::nameOf(host::pathOf(name).filename());
  for (const auto& [known, program] : programs)
    if (format == known) text += program;
  return text + part;
}

}  // namespace

frmTextImport::frmTextImport(Desktop& desktop, const TextImport& import, const SheetContent& sheet,
                             const std::string& source)
    : Window(desktop, "frmTextImport", WindowStyle::dialog, "Bring in Data - " + source),
      import_(import),
      source_(source),
      sheet_(sheet) {
  setSizable(true);
  loadQuestions();
  spdPreview.setAccessibleName("Preview");
  spdPreview.setSelectionMode(SelectionMode::none);
  spdPreview.showHeadings(false, true);
  lblNotes.setWordWrap(true);
  lblState.setWordWrap(true);
  Activate = [this] { Form_Activate(); };
  Resize = [this] { Form_Resize(); };
  cmdOK.Click = [this] { cmdOK_Click(); };
  cmdCancel.Click = [this] { hide(); };
  cmdVariables.Click = [this] { chooseVariables(); };
  refresh();
  centreOnScreen();
}

std::optional<ImportedTable> frmTextImport::ask() {
  table_.reset();
  const bool isOpen = std::any_of(questions_.begin(), questions_.end(),
                                  [](const ImportQuestion& question) { return !question.chosen; });
  if (mustChoose_ && !isOpen && !chooseVariables()) return std::nullopt;
  centreOnScreen();
  showModal();
  return std::move(table_);
}

// Each kind of doubt has its own place, so that an answer stays where it was given when others come
// up before it.
void frmTextImport::loadQuestions() {
  for (int i = 1; i <= kindsOfDoubt; ++i) {
    lblQuestion.load().setWordWrap(true);
    cmboAnswer.load().Click = [this, i] { cmboAnswer_Click(i); };
  }
}

void frmTextImport::Form_Activate() {
  wasShown_ = true;
  for (const ImportQuestion& question : questions_)
    if (!question.chosen) return cmboAnswer(indexOf(question.doubt)).setFocus();
  if (cmdOK.enabled()) return cmdOK.setFocus();
  if (mustChoose_) return cmdVariables.setFocus();
  cmdCancel.setFocus();
}

void frmTextImport::cmboAnswer_Click(int index) {
  if (showing_) return;
  const ImportQuestion* question = shownQuestion(doubtOf(index));
  const int chosen = cmboAnswer(index).listIndex();
  if (!question || chosen < 0) return;
  answered_.insert_or_assign(question->doubt, *question);
  answers_[question->doubt] = chosen;
  refresh();
}

void frmTextImport::cmdOK_Click() {
  auto table = import_.apply(answers_, choice_);
  if (!table) {
    desktop().messageBox({caption(), "Nothing was brought in. " + table.error().message(),
                          MessageIcon::exclamation, MessageButtons::ok});
    return;
  }
  table_ = std::move(*table);
  hide();
}

// Whether the user has chosen.
bool frmTextImport::chooseVariables() {
  ImportChoice ofAllCases = choice_;
  ofAllCases.cases.reset();
  const auto preview = import_.preview(answers_, ofAllCases);
  if (!preview) return false;
  const auto check = [this](const ImportChoice& choice) -> std::optional<Error> {
    const auto chosen = import_.preview(answers_, choice);
    if (!chosen) return chosen.error();
    return chosen->mustChoose.empty() ? std::nullopt : std::optional(Error{"", chosen->mustChoose});
  };
  auto chosen = frmVariableChoice(desktop(), *preview, choice_, source_, check).ask();
  if (!chosen) return false;
  choice_ = std::move(*chosen);
  refresh();
  if (wasShown_) Form_Activate();
  return true;
}

void frmTextImport::refresh() {
  auto preview = import_.preview(answers_, choice_);
  while (preview && dropStaleAnswers(*preview)) preview = import_.preview(answers_, choice_);
  if (preview)
    showPreview(*preview);
  else
    showRefusal(preview.error());
  growToContent();
}

// An answer is one to the question that was read. Another answer may have changed that question, or
// where it was seen.
bool frmTextImport::dropStaleAnswers(const ImportPreview& preview) {
  return std::erase_if(answers_, [&](const auto& answer) {
           const ImportQuestion& read = answered_.at(answer.first);
           return std::none_of(preview.questions.begin(), preview.questions.end(),
                               [&read](const ImportQuestion& now) {
                                 return now.doubt == read.doubt && now.text == read.text &&
                                        now.choices == read.choices;
                               });
         }) > 0;
}

void frmTextImport::showPreview(const ImportPreview& preview) {
  questions_ = preview.questions;
  showQuestions(preview);
  showRows(preview);
  lblPreview.setCaption(captionOf(preview));
  lblNotes.setCaption(notesOf(preview));
  lblState.setCaption(stateOf(preview));
  cmdOK.setEnabled(preview.isAnswered());
  mustChoose_ = !preview.mustChoose.empty();
}

// The questions stay: another answer may mend it.
void frmTextImport::showRefusal(const Error& error) {
  spdPreview.setSheet(Sheet(0, 0));
  lblPreview.setCaption("Nothing of it can stand in the sheet.");
  lblNotes.setCaption({});
  lblState.setCaption(error.message());
  cmdOK.setEnabled(false);
}

void frmTextImport::showQuestions(const ImportPreview& preview) {
  showing_ = true;
  for (int i = 1; i <= kindsOfDoubt; ++i) {
    const bool asked = shownQuestion(doubtOf(i)) != nullptr;
    lblQuestion(i).setVisible(asked);
    cmboAnswer(i).setVisible(asked);
  }
  for (const ImportQuestion& question : preview.questions) {
    ComboBox& box = cmboAnswer(indexOf(question.doubt));
    Label& label = lblQuestion(indexOf(question.doubt));
    label.setCaption(question.text);
    label.setFont({FontFamily::interface, 12, !question.chosen});
    if (box.items() != question.choices) {
      box.clear();
      for (const std::string& choice : question.choices) box.addItem(choice);
    }
    box.setListIndex(question.chosen.value_or(-1));
  }
  showing_ = false;
}

void frmTextImport::showRows(const ImportPreview& preview) {
  const RedrawLock lock(spdPreview);
  spdPreview.setSheet(PreviewSheet(preview, sheet_).build());
  spdPreview.freeze(1, preview.firstColumn == 0 ? 1 : 0);
  fitColumns();
}

void frmTextImport::fitColumns() {
  constexpr Twips least = pixels(64);
  constexpr Twips most = pixels(220);
  spdPreview.setColWidth(0, pixels(44));
  for (int col = 1; col <= spdPreview.maxCols(); ++col)
    spdPreview.setColWidth(col, std::clamp(spdPreview.widestText(col), least, most));
  for (int row = 1; row <= spdPreview.maxRows(); ++row) spdPreview.setRowHeight(row, pixels(20));
}

const ImportQuestion* frmTextImport::shownQuestion(ImportDoubt doubt) const {
  for (const ImportQuestion& question : questions_)
    if (question.doubt == doubt) return &question;
  return nullptr;
}

void frmTextImport::Form_Resize() {
  const Twips inside = std::max(innerWidth() - 2 * dialogMargin, pixels(400));
  const Twips others = heightOfAllButGrid();
  setLeastInner({pixels(400) + 2 * dialogMargin, others + leastGrid});
  const Twips gridHeight = std::max(innerHeight() - others, leastGrid);
  lblPreview.setPlace({dialogMargin, gap, inside, lineOfText});
  spdPreview.setPlace({dialogMargin, lblPreview.bottom(), inside, gridHeight});
  spdPreview.setScrollBars(neededScrollBars(spdPreview.contentSize(), {inside, gridHeight},
                                            desktop().scrollBarThickness()));
  Twips top = spdPreview.bottom() + gap;
  picQuestions.setPlace({dialogMargin, top, inside, picQuestions.height()});
  top = picQuestions.bottom();
  lblNotes.setPlace({dialogMargin, top, inside, lblNotes.height()});
  top = lblNotes.bottom() + gap;
  placeCommands({&cmdOK, &cmdCancel, &cmdVariables}, dialogMargin + inside, top);
  lblState.setPlace({dialogMargin, top + pixels(5), cmdOK.left() - gap - dialogMargin,
                     2 * lineOfText - pixels(5)});
}

// With the heights of questions and notes at the present width.
Twips frmTextImport::heightOfAllButGrid() {
  const Twips inside = std::max(innerWidth() - 2 * dialogMargin, pixels(400));
  picQuestions.setWidth(inside);
  picQuestions.setHeight(placeQuestions());
  picQuestions.setVisible(picQuestions.height() > 0);
  lblNotes.setVisible(!lblNotes.caption().empty());
  lblNotes.setHeight(textHeight(lblNotes, inside));
  return gap + lineOfText + gap + picQuestions.height() + lblNotes.height() + gap + 2 * lineOfText +
         gap;
}

// Question left, answer right; the height of them all.
Twips frmTextImport::placeQuestions() {
  constexpr Twips answerHeight = pixels(26);
  const Twips answerLeft = picQuestions.width() - answerWidth;
  const Twips questionWidth = answerLeft - gap;
  Twips top = 0;
  for (int i = lblQuestion.first(); i <= lblQuestion.last(); ++i) {
    if (!lblQuestion(i).visible()) continue;
    const Twips text = textHeight(lblQuestion(i), questionWidth);
    const Twips height = std::max(text, answerHeight);
    lblQuestion(i).setPlace({0, top + (height - text) / 2, questionWidth, text});
    cmboAnswer(i).setPlace(
        {answerLeft, top + (height - answerHeight) / 2, answerWidth, answerHeight});
    top += height + gap / 2;
  }
  return top > 0 ? top + gap / 2 : 0;
}

// A window that the user has made larger stays so; one too small for a new question grows, as far
// as the screen goes.
void frmTextImport::growToContent() {
  const bool isNew = !wasShown_;
  if (isNew) setPlace({0, 0, firstWidth, usualGrid});
  const Size screen = desktop().screenSize();
  const Twips grid = spdPreview.contentSize().height + desktop().scrollBarThickness();
  const Twips needed =
      heightOfAllButGrid() + (isNew ? std::clamp(grid, leastGrid, usualGrid) : leastGrid);
  const Twips wanted = std::min(needed, screen.height - titleBar);
  // The inside is laid out for the least that holds it, however small the window is.
  if (state() == WindowState::normal && height() < wanted) {
    const Twips highest = std::max(screen.height - titleBar - wanted, 0.0F);
    setPlace({left(), std::min(top(), highest), width(), wanted});
  }
  Form_Resize();
}

namespace {

// Asks what is doubtful in it, if anything is.
std::optional<LandingTable> tableFrom(Desktop& desktop, const TextImport& import,
                                      const SheetContent& into, const std::string& source) {
  const auto preview = import.preview({});
  if (!preview) return refused(desktop, "Text Data", preview.error());
  if (!preview->isClear() || !preview->notes.empty()) {
    auto asked = frmTextImport(desktop, import, into, source).ask();
    return asked ? std::optional(landing(std::move(*asked))) : std::nullopt;
  }
  auto table = import.apply({});
  if (!table) return refused(desktop, "Text Data", table.error());
  return landing(std::move(*table));
}

}  // namespace

std::optional<LandingTable> tableFromText(Desktop& desktop, std::string text,
                                          const ImportTarget& target, const SheetContent& into,
                                          const std::string& source) {
  const auto import = TextImport::read(std::move(text), target);
  const bool isFile = target.origin == TextOrigin::file;
  if (!import) return refused(desktop, isFile ? "Bad File" : "Paste", import.error());
  auto landed = tableFrom(desktop, *import, into, source);
  if (landed)
    landed->table.source =
        isFile ? sourceText(source, {}, landed->table.source) : "pasted on " + today();
  return landed;
}

std::optional<LandingTable> tableFromForeignFile(Desktop& desktop, const std::string& name,
                                                 const ImportTarget& target,
                                                 const SheetContent& into) {
  const auto readBook = [name](const CutRequest& request) { return importFile(name, request); };
  auto book = readBook({});
  if (!book) return refused(desktop, "Bad File", book.error());
  const std::string format = book->format;
  auto landed = tableFrom(desktop, TextImport::of(std::move(*book), readBook, target), into, name);
  if (landed) landed->table.source = sourceText(name, format, landed->table.source);
  return landed;
}

}  // namespace tolmer
