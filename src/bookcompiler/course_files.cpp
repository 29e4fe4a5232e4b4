#include "bookcompiler/course_files.h"

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

#include "base/file_io.h"
#include "base/paths.h"
#include "fieldfile/field_reader.h"
#include "notebook/picture_size.h"
#include "textimport/number_shape.h"
#include "textimport/text_table.h"

namespace tolmer {
namespace {

Result<std::string> bytesBelow(const std::string& root, const std::string& path) {
  auto bytes = readWholeFile(hostPath(root + path));
  if (!bytes) return Error{path, bytes.error().text};
  return bytes;
}

// A number where a name must stand shows that the stated columns or labels are wrong.
Result<std::vector<std::string>> readNames(FieldReader& fields, const DataSetClaim& claim) {
  std::vector<std::string> names;
  for (int i = claim.labeled ? 0 : 1; i <= claim.columns; ++i) {
    const FieldPlace place = fields.place();
    const auto name = fields.readText();
    if (!name) return name.error();
    if (name->empty() || singleFromText(*name))
      return fields.errorAt(place, "the name of a column was expected, not \"" + *name + "\"");
    if (i > 0) names.push_back(*name);
  }
  return names;
}

// The program would read an empty cell as 0.
Error emptyCell(const FieldReader& fields, const std::string& path, int column,
                const std::string& name) {
  return {path + ":" + std::to_string(fields.place().line),
          "column " + std::to_string(column) + " (" + name +
              "): the cell is empty; fill it in or leave the case out"};
}

// As the program does, with the stated numbers of cases and columns.
std::optional<Error> readDataSet(const std::string& bytes, FieldMarks marks,
                                 const DataSetClaim& claim) {
  FieldReader fields(claim.dataFile, bytes, marks);
  const auto names = readNames(fields, claim);
  if (!names) return names.error();
  for (int i = 1; i <= claim.cases; ++i) {
    if (claim.labeled)
      if (const auto label = fields.readText(); !label) return label.error();
    for (int j = 1; j <= claim.columns; ++j) {
      const int column = claim.labeled ? j + 1 : j;
      if (fields.nextIsEmpty())
        return emptyCell(fields, claim.dataFile, column, (*names)[static_cast<std::size_t>(j) - 1]);
      if (const auto value = fields.readSingle(); !value) return value.error();
    }
  }
  if (fields.onlyBlanksLeft()) return std::nullopt;
  return fields.errorAt(fields.place(), "the file goes on behind the " +
                                            std::to_string(claim.cases) + " cases of " +
                                            std::to_string(claim.columns) + " columns");
}

// Where several fit, commas are what the format of a course's data is made of.
char separatorOf(const std::string& text) {
  const std::vector<char> even = evenSeparators(text, TextOrigin::file);
  for (const char separator : {',', ';', '\t', ' '})
    if (std::find(even.begin(), even.end(), separator) != even.end()) return separator;
  return ',';
}

// nullopt: a comma is in all of them that could be either.
std::optional<char> decimalOf(const TextTable& table, bool labeled) {
  std::array<int, 6> seen{};
  for (std::size_t row = 1; row < table.rows.size(); ++row)
    for (std::size_t column = labeled ? 1 : 0; column < table.columns(); ++column)
      ++seen[static_cast<std::size_t>(numberShape(table.field(row, column)).marks)];
  const auto of = [&seen](NumberShape::Marks marks) {
    return seen[static_cast<std::size_t>(marks)];
  };
  if (of(NumberShape::Marks::point) > 0) return '.';
  if (of(NumberShape::Marks::comma) > 0) return ',';
  return of(NumberShape::Marks::eitherComma) > 0 ? std::nullopt : std::optional('.');
}

std::optional<Error> unevenness(const TextTable& table, const std::string& path) {
  if (table.titleLines > 0)
    return Error{path, "\"" + table.firstTitle + "\" stands above the line of names"};
  if (table.shortRows == 0) return std::nullopt;
  return Error{
      path + ":" + std::to_string(table.rows[static_cast<std::size_t>(table.firstShortRow)].line),
      std::to_string(table.shortLength) + " fields, other lines have " +
          std::to_string(table.columns())};
}

// Takes the counted number where none was stated.
std::optional<Error> settle(Int16& stated, std::size_t counted, const DataSetClaim& claim,
                            const char* what) {
  constexpr std::size_t most = 32767;
  if (counted == 0 || counted > most)
    return Error{claim.dataFile, "it has " + std::to_string(counted) + " " + what};
  if (stated == 0) stated = static_cast<Int16>(counted);
  if (static_cast<std::size_t>(stated) == counted) return std::nullopt;
  return Error{"", "the parameters say " + std::to_string(stated) + " " + what + ", " +
                       claim.dataFile + " has " + std::to_string(counted)};
}

// Marks and sizes of a table with a line for each case.
Result<FieldMarks> countLines(const std::string& bytes, DataSetClaim& claim) {
  const auto text = foreignText(bytes);
  if (!text) return Error{claim.dataFile, text.error().text};
  const char separator = separatorOf(*text);
  const auto table = textTable(*text, separator, TextOrigin::file);
  if (!table) return Error{claim.dataFile, table.error().message()};
  if (auto error = unevenness(*table, claim.dataFile)) return *error;
  const std::size_t labels = claim.labeled ? 1 : 0;
  const std::size_t columns = table->columns() > labels ? table->columns() - labels : 0;
  if (auto error = settle(claim.columns, columns, claim, "columns of numbers")) return *error;
  const std::size_t cases = table->rows.empty() ? 0 : table->rows.size() - 1;
  if (auto error = settle(claim.cases, cases, claim, "cases")) return *error;
  const auto decimal = separator == ',' ? std::optional('.') : decimalOf(*table, claim.labeled);
  if (decimal) return FieldMarks{separator, *decimal};
  return Error{claim.dataFile,
               "its commas may divide decimals or thousands; write a point for decimals"};
}

// A file that reads as stated is right, however it is cut into lines.
Result<FieldMarks> findMarks(const std::string& bytes, DataSetClaim& claim) {
  const bool isStated = claim.cases > 0 && claim.columns > 0;
  if (isStated && !readDataSet(bytes, {}, claim)) return FieldMarks{};
  const auto marks = countLines(bytes, claim);
  if (!marks) return marks;
  if (auto error = readDataSet(bytes, *marks, claim)) return *error;
  return marks;
}

std::optional<Error> checkInfoFile(const std::string& bytes, const DataSetClaim& claim) {
  FieldReader lines(claim.infoFile, bytes);
  for (int i = 0; i <= claim.columns; ++i)
    if (const auto line = lines.readLine(); !line) return line.error();
  return std::nullopt;
}

Result<FoundDataSet> readFiles(DataSetClaim claim, const std::string& root) {
  const auto data = bytesBelow(root, claim.dataFile);
  if (!data) return data.error();
  const auto marks = findMarks(*data, claim);
  if (!marks) return marks.error();
  if (claim.dependent > claim.columns)
    return Error{"", "the dependent column is " + std::to_string(claim.dependent) + ", " +
                         claim.dataFile + " has " + std::to_string(claim.columns)};
  FoundDataSet found{claim.cases, claim.columns, {checksumText(*data), *marks}, {}};
  if (claim.infoFile.empty()) return found;
  const auto info = bytesBelow(root, claim.infoFile);
  if (!info) return info.error();
  if (auto error = checkInfoFile(*info, claim)) return *error;
  found.infoStamp = FileStamp{checksumText(*info), {}};
  return found;
}

bool checkExists(int line, const std::string& hostFile, const std::string& name,
                 Complaints& complaints) {
  if (leavesItsFolder(name)) {
    complaints.error(line, name + " must not lead out of its folder by \"..\"");
    return false;
  }
  const bool exists = isRegularFile(hostFile);
  if (!exists) complaints.error(line, "there is no file " + name);
  return exists;
}

}  // namespace

std::optional<FoundDataSet> checkDataSet(const DataSetClaim& claim, const CourseFolders& folders,
                                         Complaints& complaints) {
  auto found = readFiles(claim, folders.root);
  if (found) return *std::move(found);
  complaints.error(claim.line, found.error().message());
  return std::nullopt;
}

void checkCourseFile(int line, const std::string& path, const CourseFolders& folders,
                     Complaints& complaints) {
  if (!path.starts_with('\\')) return complaints.error(line, "a path must begin with a backslash");
  checkExists(line, hostPath(folders.root + path), path, complaints);
}

void checkPicture(int line, const std::string& name, const CourseFolders& folders,
                  Complaints& complaints) {
  const std::string hostFile = hostPath(folders.program + "\\" + name);
  if (checkExists(line, hostFile, name, complaints) && !isPicture(hostFile))
    complaints.error(line, name + " is no PNG picture and no SVG drawing with a size");
}

}  // namespace tolmer
