// What one look over a foreign table finds; see text_import.h.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "textimport/number_shape.h"
#include "textimport/text_import.h"

namespace tolmer {

inline const std::string leaveCellsEmpty = "Leave those cells empty";

// In quotation marks, its beginning where it is long.
std::string quotation(const std::string& field);

// How often something was seen, and where first (row and column of the table).
struct Sighting {
  int count = 0;
  int row = 0;
  int column = 0;

  void add(int atRow, int atColumn) {
    if (count++ == 0) {
      row = atRow;
      column = atColumn;
    }
  }
};

// The table in the shape it will land in, all questions raised so far, and how they are answered.
class ImportFindings {
 public:
  static Result<ImportFindings> of(const ImportSource& source, const ImportTarget& target,
                                   const ImportAnswers& answers);

  // The content of a cell of a data row; nullopt where it depends on an open question, and an error
  // where the answer was not to bring such a thing in.
  Result<std::optional<ImportedCell>> cell(int row, int column) const;

  int firstDataRow() const { return (heading_ ? 1 : 0) + unitRows_; }
  int dataRows() const { return static_cast<int>(table_.rows.size()) - firstDataRow(); }
  int columns() const { return static_cast<int>(table_.columns()); }
  const std::string& field(int row, int column) const {
    return table_.rows[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)];
  }
  std::vector<std::string> headings() const;
  // The columns that the target wants, each cell of theirs read.
  Result<NamedTable> namedTable() const;
  int firstRow() const { return firstRow_; }
  int firstColumn() const { return firstColumn_; }
  std::optional<Error> refusal() const;

  const std::vector<ImportQuestion>& questions() const { return questions_; }
  const std::vector<std::string>& notes() const { return notes_; }

 private:
  enum class ColumnKind { empty, numbers, words };
  enum class Use {
    number,
    label,
    ifPlain,  // numbers where all of them are bare ones: nobody is asked about it
    none
  };

  ImportFindings(const ImportTarget& target, const ImportAnswers& answers)
      : target_(target), answers_(answers) {}

  std::optional<Error> findTable(const ImportSource& source);
  std::optional<Error> findTextTable(const std::string& text);
  std::optional<Error> cutAboveHeading();
  void noteBook();
  void askSheet();
  std::optional<char> chooseSeparator(const std::string& text);
  std::optional<char> separatorOfClipboard(const std::string& text);
  std::optional<char> separatorOfFile(const std::string& text);
  std::optional<char> askSeparator(const std::vector<char>& candidates, std::optional<int> preset);
  bool firstRowIsShortOfAName() const;
  bool firstColumnNamesCases() const;
  void findFirstRow();
  bool cornerIsBlank() const;
  std::string firstName() const;
  void findHeading();
  std::optional<bool> headingByLook() const;
  bool firstRowIsYears() const;
  void findUnits();
  void findLanding();
  std::optional<Error> findRoom() const;
  void findShortRows();
  void findDecimalMark();
  void askDecimalMark(const Sighting& seen, std::optional<int> preset);
  void findSigns();
  void findMissingAndWords();
  void findCodesAndDates();
  void noteKinds();
  void findGapsOnTop();

  ColumnKind kindOf(int column, int fromRow) const;
  bool landsAs(Use use, int column) const { return uses_[static_cast<std::size_t>(column)] == use; }
  std::vector<std::string> columnNames() const;
  void findWanted();
  bool firstRowHasWantedNames() const;
  Use wantedUse(const std::string& name, int column) const;
  void leaveOutUnplain();
  bool isBareNumber(int row, int column) const;
  Result<std::vector<TextNumber>> numbersOf(int column) const;
  struct FieldLook {
    NumberShape shape{};
    bool missing = false;
    CutKind kind = CutKind::text;   // what a table that came cut says
    std::optional<double> exact{};  // its number, the day of a date or the code of a missing value
  };
  const FieldLook& look(int row, int column) const { return looks_(row, column); }
  void lookAtFields();
  void lookAtRow(int row);
  FieldLook lookAtCutField(int row, int column) const;
  // Calls see(row, column, look) for the fields of data rows that are to be numbers.
  template <class See>
  void eachValue(See see) const {
    for (int row = firstDataRow(); row < static_cast<int>(table_.rows.size()); ++row)
      for (int column = 0; column < columns(); ++column)
        if (landsAs(Use::number, column) && !field(row, column).empty())
          see(row, column, look(row, column));
  }
  std::string place(int row, int column) const;
  std::string nameOfRow(int row) const;
  std::string seenAt(const Sighting& sighting) const;
  // Raises a question; the answer, or else what is set beforehand.
  std::optional<int> ask(ImportDoubt doubt, std::string text, std::vector<std::string> choices,
                         std::optional<int> preset);
  std::optional<int> answerTo(ImportDoubt doubt) const;
  Result<std::optional<ImportedCell>> emptied(ImportDoubt doubt, int emptyChoice, int row,
                                              int column, std::string_view what) const;
  Result<std::optional<ImportedCell>> numberCell(int row, int column,
                                                 const NumberShape& shape) const;

  ImportTarget target_;
  ImportAnswers answers_;
  std::shared_ptr<const CutBook> book_;  // null for text
  TextTable table_;
  Matrix<FieldLook> looks_;     // of all fields of the table
  bool namesAreShort_ = false;  // the first row is names, one less than columns
  bool heading_ = false;
  int unitRows_ = 0;
  std::vector<Use> uses_;  // of the columns
  std::optional<char> decimalMark_;
  int firstRow_ = 1;
  int firstColumn_ = 1;
  std::vector<ImportQuestion> questions_;
  std::vector<std::string> notes_;
};

}  // namespace tolmer
