// The data editor's sheet as a document: entries, blocks, rows, formats, undo.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "sheet/sheet_content.h"
#include "sheet/sheet_edit.h"
#include "sheet/sheet_fill.h"
#include "sheet/sheet_find.h"
#include "sheet/sheet_paste.h"
#include "sheet/sheet_rows.h"

namespace tolmer {

struct EntryOutcome {
  bool accepted = true;
  std::string reason{};  // why not; a sentence. The old value stays
  std::string taken{};   // what was read otherwise than it is written; a sentence
};

// Row 0 holds the headings, rows 1..observations() the cases; column 0 the labels, columns
// 1..variables() the values. Cells outside are a fault of the caller; blocks are cut to the sheet.
//
// Every change is undone and redone as the user made it, at one stroke and without limit until
// startVisit(); after undoing all of them the sheet is the same to the last bit. Formulas are
// calculated at once, as far as they depend on the change. What clears, pastes, formats, sorts,
// puts in or takes out marks the data as changed even where every cell stays as it was.
class DataSheet {
 public:
  // A new data set. Random formulas take their seeds from firstSeed on.
  explicit DataSheet(int observations = editorObservations, int variables = editorVariables,
                     std::uint32_t firstSeed = 1);
  DataSheet(const DataSheet&) = delete;
  DataSheet& operator=(const DataSheet&) = delete;

  // --- content
  int observations() const { return content().observations(); }
  int variables() const { return content().variables(); }
  const SheetContent& content() const { return state_.content; }
  const DataCell& cell(int row, int col) const { return content().cells(row, col); }
  const std::string& heading(int iVar) const { return cell(0, iVar).text; }
  // The headings, as formulas know them.
  const SheetNames& names() const { return formulas_.names(); }
  // Nothing in empty cells, labels, headings, and where a formula has an error.
  std::optional<double> value(int row, int col) const;
  // With the column's decimals; the error of a formula.
  std::string shownText(int row, int col) const;
  // What is put into the open cell: all digits of a number, the formula.
  std::string editText(int row, int col) const;
  // The last row and column with content, headings not counted; 0 where there is none.
  int lastUsedRow() const { return tolmer::lastUsedRow(content()); }
  int lastUsedColumn() const;

  // --- cells
  EntryOutcome enter(int row, int col, std::string_view typed);
  void clear(std::span<const CellRange> blocks);
  void clear(const CellRange& block) { clear({&block, 1}); }
  CopiedBlock copy(const CellRange& block) const;
  // Of several blocks those side by side or one below the other become one; its formulas become
  // their results, since they stand no longer as they stood. Nothing where the blocks have neither
  // all their rows nor all their columns in common.
  std::optional<CopiedBlock> copy(std::span<const CellRange> blocks) const;
  CopiedBlock cut(const CellRange& block);
  // See sheet_paste.h.
  PasteOutcome paste(const CellRange& target, const PasteTable& table);
  // See sheet_fill.h.
  FillOutcome fill(const CellRange& from, const CellRange& to);
  // See sheet_find.h. All of them are replaced at one stroke.
  ReplaceOutcome replace(const FindWords& words, const std::string& by,
                         std::span<const CellAddress> cells);
  // Columns up to the last used one without a name get one. No change of the data by the user.
  void nameBlankHeadings();

  // --- rows, see sheet_rows.h
  int insertRows(int first, int last);
  void deleteRows(int first, int last);
  // The rows of all blocks.
  void deleteRows(std::span<const CellRange> blocks);
  // Formulas that sort() would make values of.
  int orderDependentFormulas() const;
  void sort(int keyColumn, bool ascending);

  // --- format and title
  Int16 decimals(int col) const { return content().decimals[col]; }
  Int16 miStdDecDigits() const { return state_.miStdDecDigits; }
  void setDecimals(int col, Int16 digits);
  // digits[1..variables]; element 0 is not looked at.
  void setAllDecimals(std::span<const Int16> digits);
  // All columns, or only those that have the standard's digits, which then changes.
  void setStandardDecimals(Int16 digits, bool allColumns);
  const std::string& title() const { return content().title; }
  // Titles set one after another, as letters are typed, are undone together.
  void setTitle(std::string title);
  // What a variable means, in a line; of columns 1..variables().
  const std::string& label(int col) const { return content().labels[col]; }
  void setLabel(int col, std::string label);

  // --- the whole
  // A new data set of that size. Nothing of the old one comes back.
  void startOver(int observations, int variables);
  // New: no file, nothing changed. Can be undone like everything else.
  void clearAll();
  // Open: blank headings get their names. A content of another size is cut or filled up.
  void replaceWith(const SheetContent& content, std::string fileName);
  // A copy of data of that name, nothing of it changed yet and in no need of a file.
  void takeOver(const SheetContent& content, std::string name);
  // What the values have become since then; nothing for data that were never taken over.
  std::optional<DataCopy> dataCopy() const;
  const std::string& mtFileName() const { return state_.mtFileName; }
  // After saving; with the name it was saved under.
  void markSaved(std::string fileName);
  // Unsaved changes. Undoing back to what was saved takes them away, except those that were only
  // marked.
  bool changeMade() const { return touched_ || !journal_.atKept(); }
  void markChanged();
  // Whether something in the sheet is in no file and was not thrown away in words. It outlives
  // restoreVisitStart(), and marks alone are nothing to lose.
  bool unsaved() const { return neverSaved_ || !journal_.atKept(); }
  // The whole content is in no file of the user's.
  void markNeverSaved();

  // --- undo
  // What was undone or redone, until the next change; null where there is nothing.
  const SheetJournal::Action* undo();
  const SheetJournal::Action* redo();
  // For the menu, "Paste"; empty where there is nothing to undo.
  std::string_view undoName() const { return journal_.undoName(); }
  std::string_view redoName() const { return journal_.redoName(); }

  // --- a visit of the editor
  // Nothing to undo; keeps the state for restoreVisitStart().
  void startVisit();
  // Back to the start of the visit: cells, decimals, standard, title and file name. Nothing to
  // undo, nothing changed.
  void restoreVisitStart();

  // --- for one who shows the sheet: called after each change, with what it touched.
  std::function<void(const SheetChange&)> Changed;

 private:
  SheetEdit beginEdit(std::string_view name);
  enum class WithoutSteps { isNothing, marks };
  void commit(SheetEdit& edit, WithoutSteps emptyEdit = WithoutSteps::isNothing);
  void follow(SheetChange change);
  void replaceAll(std::string_view name, SheetContent content, std::string fileName,
                  std::shared_ptr<const TakenData> takenFrom = nullptr);
  CellRange clipped(const CellRange& block) const;
  template <class Step>
  const SheetJournal::Action* step(Step undoOrRedo);
  CopiedBlock copyOf(std::vector<int> rows, std::vector<int> columns) const;

  SheetState state_;
  SheetFormulas formulas_{state_.content};
  SheetJournal journal_;
  SeedSource seeds_;
  bool touched_ = false;     // marked as changed without a change
  bool neverSaved_ = false;  // what the journal keeps is in no file
  SheetState visitStart_;
  bool visitStartUnsaved_ = false;
};

}  // namespace tolmer
