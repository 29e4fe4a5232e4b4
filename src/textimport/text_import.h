// Text data from a file or the clipboard, or a table cut from another program's file, on its way
// into the sheet.
//
// Nothing is guessed silently: what is doubtful becomes a question with the place where it was
// seen, and what was taken for granted becomes a note. The dialog shows a preview, puts the user's
// answers into ImportAnswers, asks for the preview again (an answer may raise other questions), and
// in the end takes the whole table or nothing.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "base/error.h"
#include "foreign/cut_table.h"
#include "state/matrix.h"
#include "textimport/import_choice.h"
#include "textimport/named_table.h"
#include "textimport/text_table.h"

namespace tolmer {

enum class ImportDoubt {
  sheet,         // which one of a workbook
  separator,     // what divides the fields
  firstRow,      // one field less than all others: over which column it begins
  heading,       // is the first row names?
  headingPlace,  // names above a block that lands further down
  labels,        // words or days in a file's first column
  wordColumns,   // words in others
  codedColumns,  // numbers that the file calls by words
  shortRows,     // rows of different length
  decimalMark,
  blankGroups,  // 12 345
  percent,
  currency,
  brackets,  // (5)
  missing,   // NA and the like
  words,     // words among numbers
  dates,
  missingCodes,  // 9 for "no answer", where the file says so
  likelyCodes    // -99 among positive numbers, where nothing says so
};

struct ImportQuestion {
  ImportDoubt doubt;
  std::string text;  // names the first place
  std::vector<std::string> choices;
  std::optional<int> chosen;  // the user's answer, else what is set beforehand; none: must be asked
};

using ImportAnswers = std::map<ImportDoubt, int>;

// Columns by their names, for a caller that has no sheet to look at.
struct WantedColumns {
  std::vector<std::string> numbers;    // each must hold numbers
  bool others = false;                 // so must all other columns with any number
  std::string labels{};                // the column that names the cases; empty for none
  std::vector<std::string> dummies{};  // each becomes dummy variables
  std::map<std::string, std::string> references{};  // of some of these: the category without one
  // Likewise: all categories there are, where other data have told them.
  std::map<std::string, std::vector<Category>> categories{};
};

// What a caller knows beforehand, where else the table is looked at or somebody is asked.
struct ImportHints {
  std::optional<char> separator{};
  std::optional<char> decimalMark{};
  std::optional<int> headingRow{};  // line of a text or row of a sheet with the names; 0: none has
  std::vector<std::string> missing{};  // what stands for a missing value beside the usual marks
  std::optional<WantedColumns> wanted{};
  std::vector<std::string> notes{};  // told before what is found: sentences
};

// Where the table is to land, in a sheet with room for so many observations and variables. For a
// file the sheet is empty and everything else is found out; the clipboard's text lands at the
// cursor. Row 0 are the headings, column 0 the labels.
struct ImportTarget {
  TextOrigin origin = TextOrigin::file;
  int row = 1;
  int column = 1;
  int observations;
  int variables;
  ImportHints hints{};
};

// An exact number, the text of a label, or neither.
struct ImportedCell {
  std::optional<double> number{};
  std::string text{};
};

// A table as it lands: cells(0, 0) at firstRow, firstColumn of the sheet.
struct ImportedTable {
  std::vector<std::string> headings;  // of the table's columns; empty where there are none
  int firstRow = 1;                   // at least 1
  int firstColumn = 1;
  Matrix<ImportedCell> cells;               // texts in the sheet's column 0 only
  std::vector<ImportedVariable> variables;  // of the table's columns
  std::string title;                        // of a statistics file
  std::vector<std::string> choice;          // sentences: what was taken of a table and what not
  std::string sheet{};                      // that it is from, of a workbook with several
};

struct ImportPreview {
  std::vector<ImportQuestion> questions;
  std::vector<std::string> notes;  // what was read in a way that could be another
  std::vector<std::string> headings;
  int firstRow = 1;
  int firstColumn = 1;
  int rows = 0;
  // The first rows as they would land; fields whose reading is still open as they are written.
  std::vector<std::vector<std::string>> shown{};

  std::vector<ImportVariable> variables{};  // all there are, taken or not
  int cases = 0;                            // likewise
  int roomForCases = 0;
  int roomForVariables = 0;
  int taken = 0;             // variables that land, dummies among them and labels not
  std::string mustChoose{};  // a sentence: more than there is room for; empty where all fits

  // Nobody needs to be asked: all went without a doubt.
  bool isClear() const { return questions.empty() && mustChoose.empty(); }
  bool isAnswered() const;
};

// Reads the same file once more.
using ReadBook = std::function<Result<CutBook>(const CutRequest&)>;

// What is to be brought in: text, or a table that came cut.
struct ImportSource {
  std::shared_ptr<const std::string> text{};  // where there is no book
  std::shared_ptr<const CutBook> book{};
  // Of the file's cases the book has those that were chosen, out of so many that meet the choice.
  std::optional<int> casesMet{};
};

class ImportFindings;

class TextImport {
 public:
  static constexpr int shownRows = 8;

  // Refuses bytes that are no text. A "\r\n" or "\n" at the very end ends the last row.
  static Result<TextImport> read(std::string bytes, ImportTarget target);
  // Its fields are exact numbers or texts already; only texts are looked at for numbers.
  static TextImport of(CutBook book, ReadBook readBook, ImportTarget target);

  // Refuses a damaged table, with the line, and a choice that means nothing here.
  Result<ImportPreview> preview(const ImportAnswers& answers,
                                const ImportChoice& choice = {}) const;
  // All of it, or an error: an open question, or the first place of what was not to be brought in.
  // A table larger than its room is refused with both numbers.
  Result<ImportedTable> apply(const ImportAnswers& answers, const ImportChoice& choice = {}) const;
  // The same by the names of its columns, for a target that says which ones are wanted.
  Result<NamedTable> named(const ImportAnswers& answers, const ImportChoice& choice = {}) const;

 private:
  struct Look;

  TextImport(ImportSource source, ImportTarget target)
      : source_(std::move(source)), target_(target) {}
  const Look& look(const ImportAnswers& answers, const ImportChoice& choice) const;
  Result<ImportFindings> findings(const ImportAnswers& answers, const ImportChoice& choice) const;
  // With the sheet that the answers choose.
  Result<ImportSource> sourceFor(const ImportAnswers& answers) const;
  Result<ImportSource> withChosenCases(const ImportSource& source, const ImportFindings& found,
                                       const ImportChoice& choice) const;
  Result<std::vector<int>> numbersOfCases(const ImportFindings& found,
                                          const CutRequest& request) const;
  Result<std::shared_ptr<const CutBook>> readAgain(const CutRequest& request) const;

  ImportSource source_;
  ImportTarget target_;
  ReadBook readBook_;
  mutable std::map<std::string, std::shared_ptr<const CutBook>> readBefore_;  // by the requests
  // A table is mostly applied with the answers of the last preview.
  mutable std::shared_ptr<const Look> last_;
};

}  // namespace tolmer
