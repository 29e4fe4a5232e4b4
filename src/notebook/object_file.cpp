#include "notebook/object_file.h"

#include <map>
#include <optional>
#include <string_view>
#include <utility>

#include "base/file_io.h"
#include "notebook/book_check.h"

namespace tolmer {

// The order of the fields in a notebook object file, told once for its reader and its writer.
//
// `io` is called with each field in turn (a string, a 16-bit integer or a boolean). Besides:
//   io.table(rows, part, fields)  a count, then `fields(io, row)` for each row
//   io.count(field, bound, noun)  a count within a record, from 1 to `bound`
//   io.endRecord()                behind each record that stands in no table
// `book` and its rows are const for a writer.
namespace object_file_format {

void fields(auto& io, auto&... each) { (io(each), ...); }

void scenarioFields(auto& io, auto& scenario) {
  fields(io, scenario.tName, scenario.tDesc);
  for (int i = 1; i <= maxParameter; ++i) io(scenario.tParameter[i]);
}

void databaseFields(auto& io, auto& row) {
  fields(io, row.tName, row.tShortName, row.iLevel, row.tDesc, row.tDataFileName,
         row.tLabelFileName, row.tHeading, row.bExpanded[1], row.bExpanded[2]);
}

void outlineFields(auto& io, auto& outline) {
  io.count(outline.iNumOutlines, maxOutlineEntries, "outline");
  fields(io, outline.iUnused1, outline.iUnused2);
  for (int j = 1; j <= outline.iNumOutlines; ++j) {
    auto& entry = outline.uEntry[j];
    fields(io, entry.iControlIndex, entry.iSelectedItem, entry.iUnused, entry.iFirstDatabase,
           entry.iNumDatabases);
  }
}

void valueFields(auto& io, auto& row) {
  fields(io, row.tCaption, row.bIndent, row.iEmphasisStyle, row.iValue);
}

void pagesAndSections(auto& io, auto& book) {
  io.table(book.uSection, BookPart::section,
           [](auto& out, auto& row) { fields(out, row.tName, row.iFirstPage, row.iNumPages); });
  io.table(book.uPage, BookPart::page, [](auto& out, auto& row) {
    fields(out, row.iPageType, row.iFirstElement, row.iNumElements, row.iScenarioElement,
           row.iOutlineElement);
  });
}

void scenariosAndDatabases(auto& io, auto& book) {
  io.table(book.uScenario, BookPart::scenario,
           [](auto& out, auto& row) { scenarioFields(out, row); });
  scenarioFields(io, book.uDefaultScenario);
  io.endRecord();
  io.table(book.uDatabase, BookPart::database,
           [](auto& out, auto& row) { databaseFields(out, row); });
  for (std::size_t i = 1; i <= maxOutlineEntries; ++i) {
    auto& row = book.uDefaultDatabase[i];
    fields(io, row.tName, row.tShortName, row.tDesc, row.tDataFileName, row.tLabelFileName,
           row.tHeading);
    io.endRecord();
  }
}

void elements(auto& io, auto& book) {
  const auto itself = [](auto& out, auto& row) { out(row); };
  const auto value = [](auto& out, auto& row) { valueFields(out, row); };
  io.table(book.uText, BookPart::text,
           [](auto& out, auto& row) { fields(out, row.tText, row.bIndent, row.iEmphasisStyle); });
  io.table(book.tHeading, BookPart::heading, itself);
  io.table(book.uJump, BookPart::jump, [](auto& out, auto& row) {
    fields(out, row.tText, row.bIndent, row.iEmphasisStyle, row.iSection, row.iPage);
  });
  io.table(book.uScenarioElement, BookPart::scenarioElement, [](auto& out, auto& row) {
    fields(out, row.iNumScenarios, row.iFirstScenario, row.iSelected);
  });
  io.table(book.uOutline, BookPart::outline, [](auto& out, auto& row) { outlineFields(out, row); });
  io.table(book.tBitmap, BookPart::bitmap, itself);
  io.table(book.uCheck, BookPart::check, value);
  io.table(book.uVersion, BookPart::version, value);
  io.table(book.uPageElement, BookPart::pageElement,
           [](auto& out, auto& row) { fields(out, row.iKind, row.iIndex, row.iUnused); });
}

void wholeBook(auto& io, auto& book) {
  io(book.tTitle);
  io.endRecord();
  io(book.tChapter);
  io.endRecord();
  pagesAndSections(io, book);
  scenariosAndDatabases(io, book);
  elements(io, book);
}

}  // namespace object_file_format

namespace {

// Fills a book field by field. After the first error the fields keep what they hold and the tables
// stay short, so that the rest of the layout runs through without effect.
class BookReader {
 public:
  explicit BookReader(FieldReader& fields) : fields_(fields) {}

  void operator()(std::string& field) { take(field, &FieldReader::readText); }
  void operator()(Int16& field) { take(field, &FieldReader::readInteger); }
  void operator()(bool& field) { take(field, &FieldReader::readBoolean); }
  void endRecord() {}

  void count(Int16& field, int bound, const char* noun) { bounded(field, 1, bound, noun); }

  template <class Rows, class Fields>
  void table(Rows& rows, BookPart part, Fields recordFields) {
    Int16 count = 0;
    bounded(count, 0, Rows::bound, nounOf(part));
    rows.resize(count);
    for (int i = 1; i <= count && !error_; ++i) {
      starts_.emplace(std::pair(part, i), fields_.place());
      recordFields(*this, rows[i]);
    }
  }

  // The first error of reading, or of what was read.
  std::optional<Error> finish(const Book& book) const {
    if (error_) return error_;
    const auto faults = checkBook(book);
    if (faults.empty()) return std::nullopt;
    const BookFault& fault = faults.front();
    const auto start = starts_.find(std::pair(fault.part, fault.row));
    if (start == starts_.end()) return fields_.errorAt(fields_.place(), fault.text);
    return fields_.errorAt(start->second, std::string(nounOf(fault.part)) + " " +
                                              std::to_string(fault.row) + ": " + fault.text);
  }

 private:
  template <class Field>
  void take(Field& field, Result<Field> (FieldReader::*read)()) {
    if (error_) return;
    auto value = (fields_.*read)();
    if (value)
      field = std::move(*value);
    else
      error_ = value.error();
  }

  void bounded(Int16& field, int lowest, int highest, const char* noun) {
    const FieldPlace place = fields_.place();
    (*this)(field);
    if (error_ || (field >= lowest && field <= highest)) return;
    error_ = fields_.errorAt(place, std::to_string(field) + " " + noun + "s, from " +
                                        std::to_string(lowest) + " to " + std::to_string(highest) +
                                        " are possible");
    field = 0;
  }

  FieldReader& fields_;
  std::optional<Error> error_;
  std::map<std::pair<BookPart, int>, FieldPlace> starts_;  // where each record begins
};

class BookWriter {
 public:
  void operator()(const std::string& field) { append("\"" + field + "\""); }
  void operator()(const Int16& field) { append(std::to_string(field)); }
  void operator()(const bool& field) { append(field ? "#TRUE#" : "#FALSE#"); }
  void count(const Int16& field, int, const char*) { (*this)(field); }
  void endRecord() {
    text_ += "\r\n";
    atLineStart_ = true;
  }

  template <class Rows, class Fields>
  void table(const Rows& rows, BookPart, Fields recordFields) {
    append(std::to_string(rows.count()));
    endRecord();
    for (int i = 1; i <= rows.count(); ++i) {
      recordFields(*this, rows[i]);
      endRecord();
    }
  }

  std::string text() && { return std::move(text_); }

 private:
  void append(std::string_view field) {
    if (!atLineStart_) text_ += ',';
    text_ += field;
    atLineStart_ = false;
  }

  std::string text_;
  bool atLineStart_ = true;
};

constexpr std::string_view checkMark = "crc ";

// The last line, where it is a checksum; empty in a file that has none, or none whole.
std::string_view checkLine(std::string_view text) {
  while (text.ends_with('\n') || text.ends_with('\r')) text.remove_suffix(1);
  const std::string_view line = text.substr(text.find_last_of("\r\n") + 1);
  const bool isCheck = line.starts_with(checkMark) &&
                       line.size() == checkMark.size() + checksumLength &&
                       line.size() < text.size();
  return isCheck ? line : std::string_view();
}

bool isDamaged(std::string_view text) {
  const std::string_view line = checkLine(text);
  if (line.empty()) return false;
  const auto content = text.substr(0, static_cast<std::size_t>(line.data() - text.data()));
  return line.substr(checkMark.size()) != checksumText(content);
}

}  // namespace

Result<Book> readBook(FieldReader& fields) {
  if (isDamaged(fields.text()))
    return fields.errorAt(fields.place(), "the checksum at the end of the file does not fit it");
  Book book;
  BookReader reader(fields);
  object_file_format::wholeBook(reader, book);
  if (auto error = reader.finish(book)) return *std::move(error);
  return book;
}

std::string objectFileText(const Book& book) {
  BookWriter writer;
  object_file_format::wholeBook(writer, book);
  const std::string text = std::move(writer).text();
  return text + std::string(checkMark) + checksumText(text) + "\r\n";
}

}  // namespace tolmer
