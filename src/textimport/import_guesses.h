// What one look over a foreign table finds; see text_import.h.
#pragma once

#include <algorithm>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "textimport/case_condition.h"
#include "textimport/number_shape.h"
#include "textimport/text_import.h"

namespace tolmer {

inline const std::string leaveCellsEmpty = "Leave those cells empty";

// In quotation marks, its beginning where it is long.
std::string quotation(std::string_view field);

// What saved sheets and R call their column of labels.
inline bool equalsLabel(std::string_view heading) {
  return heading == "Label" || heading == "label";
}

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

// A column as it lands, or one of the dummies that it becomes.
struct Landing {
  int column = 0;
  std::string name{};             // empty: the one that stands
  std::optional<Category> one{};  // of a dummy: what is 1 in it
  std::string reference{};        // and the category without one
};

// The table in the shape it will land in, all questions raised so far, and how they are answered.
class ImportFindings {
 public:
  static Result<ImportFindings> of(const ImportSource& source, const ImportTarget& target,
                                   const ImportAnswers& answers, const ImportChoice& choice);

  // The content of a cell of a data row; nullopt where it depends on an open question, and an error
  // where the answer was not to bring such a thing in.
  Result<std::optional<ImportedCell>> cell(int row, const Landing& landing) const;

  int firstDataRow() const { return (heading_ ? 1 : 0) + unitRows_; }
  int dataRows() const { return static_cast<int>(table_.rows.size()) - firstDataRow(); }
  int columns() const { return static_cast<int>(table_.columns()); }
  std::string_view field(int row, int column) const {
    return table_.field(static_cast<std::size_t>(row), static_cast<std::size_t>(column));
  }
  const std::vector<Landing>& landings() const { return landings_; }
  std::vector<std::string> headings() const;
  std::vector<ImportedVariable> described() const;
  std::string title() const { return book_ ? book_->table.title : std::string(); }
  const std::vector<ImportVariable>& variables() const { return variables_; }
  int cases() const { return cases_; }
  int roomForCases() const { return target_.observations - firstRow_ + 1; }
  int roomForVariables() const { return target_.variables - std::max(firstColumn_, 1) + 1; }
  int taken() const;
  const std::string& mustChoose() const { return mustChoose_; }
  const std::vector<std::string>& choiceTold() const { return choiceTold_; }

  // The chosen cases are not all in the book, which is to be read again.
  bool lacksCases() const { return lacksCases_; }
  // The book's rows above its first case.
  int rowsAbove() const { return static_cast<int>(book_->table.rows()) - rowsOfData_; }
  // The condition of the choice, on the columns by their places in the table.
  Result<CaseCondition> condition() const;
  int columnNumber(int column) const;
  // The columns that the target wants, each cell of theirs read.
  Result<NamedTable> namedTable() const;
  int firstRow() const { return firstRow_; }
  int firstColumn() const { return firstColumn_; }
  std::optional<Error> refusal() const;

  const std::vector<ImportQuestion>& questions() const { return questions_; }
  const std::vector<std::string>& notes() const { return notes_; }

 private:
  enum class Use {
    number,
    label,
    dummies,
    undecided,  // between dummies and nothing
    ifPlain,    // numbers where all of them are bare ones: nobody is asked about it
    none
  };

  ImportFindings(const ImportTarget& target, const ImportAnswers& answers,
                 const ImportChoice& choice)
      : target_(target), answers_(answers), choice_(choice) {}

  std::optional<Error> findTable(const ImportSource& source);
  std::optional<Error> findTextTable(const std::string& text);
  std::optional<Error> cutAboveHeading();
  void noteBook();
  void askSheet();
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
  bool isToBeChosenFrom() const;
  std::optional<Error> findRoom();
  void noteShortRows();
  void findShortRows();
  void findDecimalMark();
  void askDecimalMark(const Sighting& seen, std::optional<int> preset);
  void findSigns();
  void findLikelyCodes();
  bool isLikelyCode(int row, int column) const;
  void findMissingAndWords();
  void findCodes();
  void noteKinds();
  void findGapsOnTop();

  VariableKind kindOf(int column, int fromRow) const;

  // Of what divides the fields, in separator_guesses.cpp.
  std::optional<char> chooseSeparator(const std::string& text);
  std::optional<char> separatorOfClipboard(const std::string& text);
  std::optional<char> separatorOfFile(const std::string& text);
  std::optional<char> askSeparator(const std::vector<char>& candidates, std::optional<int> preset);

  // Of variables, in variable_guesses.cpp and dummy_variables.cpp.
  std::optional<Error> findVariables();
  std::optional<Error> findWantedDummies();
  std::optional<Error> takeKnownCategories(int column, const std::vector<Category>& known);
  bool isIn(const Category& category, int column, std::string_view text) const;
  std::optional<Error> nameColumn(int column, const std::string& name, NamedTable& table) const;
  void describeVariables();
  ImportVariable described(int column, std::string name) const;
  void countInAll(int column, int missing, ImportVariable& variable) const;
  std::vector<Category> categoriesOf(int column) const;
  bool canBeDummies(const ImportVariable& variable) const;
  std::string labelOf(int column, std::string_view value) const;
  void takeChosenUses();
  void findLabels();
  void findWordColumns();
  void askWordColumns(const std::vector<int>& columns);
  void tellUnfit(const std::vector<int>& columns);
  void findDates();
  void land();
  void landDummies(int column);
  void noteDummies(int column);
  void findCodedColumns();
  int columnsThatLand() const;
  bool areAllLabelled(int column) const;
  void tellUses();
  int dummiesOf(int column) const;
  std::string referenceOf(int column) const;
  std::string dummiesText(int column) const;
  bool isTaken(int column) const;
  ImportVariable& variable(int column) { return variables_[static_cast<std::size_t>(column)]; }
  const ImportVariable& variable(int column) const {
    return variables_[static_cast<std::size_t>(column)];
  }
  Use& use(int column) { return uses_[static_cast<std::size_t>(column)]; }
  Result<std::optional<ImportedCell>> dummyCell(int row, const Landing& landing) const;

  // Of cases, in case_guesses.cpp.
  std::optional<Error> chooseCases();
  Result<std::vector<int>> casesThatMeet() const;
  void keepCases(const std::vector<int>& rows);
  void tellCases(int met);
  void tellVariables();

  bool landsAs(Use use, int column) const { return uses_[static_cast<std::size_t>(column)] == use; }
  std::vector<std::string> columnNames() const;
  void findWanted();
  bool firstRowHasWantedNames() const;
  Use wantedUse(const std::string& name, int column) const;
  void leaveOutUnplain();
  bool isBareNumber(int row, int column) const;
  Result<std::vector<TextNumber>> numbersOf(const Landing& landing) const;
  struct FieldLook {
    NumberShape shape{};
    bool missing : 1 = false;
    bool isExact : 1 = false;      // see exact
    CutKind kind = CutKind::text;  // what a table that came cut says
  };
  FieldLook look(int row, int column) const {
    const TextTable::Row& at = rowOf(row);
    const auto place = static_cast<std::size_t>(column);
    return place < at.length ? looks_[at.begin + place] : FieldLook{};
  }
  const TextTable::Row& rowOf(int row) const { return table_.rows[static_cast<std::size_t>(row)]; }
  // The number of a table that came cut, the day of a date or the code of a missing value.
  std::optional<double> exact(int row, int column) const;
  void lookAtFields();
  void lookAtRow(int row);
  static FieldLook lookAtText(std::string_view text);
  FieldLook lookAtCutField(int row, int column) const;
  // Calls see(row, column, look) for the fields of data rows that are to be numbers.
  template <class See>
  void eachValue(See see) const {
    eachOf(Use::number, see);
  }
  // The same for those that become dummies.
  template <class See>
  void eachDummy(See see) const {
    eachOf(Use::dummies, see);
  }
  template <class See>
  void eachOf(Use use, See see) const {
    for (int row = firstDataRow(); row < static_cast<int>(table_.rows.size()); ++row)
      for (int column = 0; column < columns(); ++column)
        if (landsAs(use, column) && !field(row, column).empty())
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
  ImportChoice choice_;
  std::optional<int> casesMet_;          // the book has chosen cases
  std::shared_ptr<const CutBook> book_;  // null for text
  TextTable table_;
  std::vector<FieldLook> looks_;  // of all fields of the table
  bool namesAreShort_ = false;    // the first row is names, one less than columns
  bool heading_ = false;
  int unitRows_ = 0;
  std::vector<Use> uses_;                  // of the columns
  std::vector<ImportVariable> variables_;  // likewise
  std::vector<Landing> landings_;
  std::map<int, double> likelyCodes_;  // of columns
  int cases_ = 0;                      // in the file
  int rowsOfData_ = 0;                 // of them in the table before some were chosen
  std::vector<int> caseNumbers_;       // of the chosen ones, from 1; empty for all
  bool lacksCases_ = false;
  std::string mustChoose_;
  std::vector<std::string> choiceTold_;
  std::string shortRow_;  // the place of the first one
  int shortLine_ = 0;     // and its line
  std::optional<char> decimalMark_;
  int firstRow_ = 1;
  int firstColumn_ = 1;
  std::vector<ImportQuestion> questions_;
  std::vector<std::string> notes_;
};

}  // namespace tolmer
