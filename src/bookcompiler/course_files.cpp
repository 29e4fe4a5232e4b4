#include "bookcompiler/course_files.h"

#include <filesystem>
#include <optional>

#include "base/file_io.h"
#include "base/paths.h"
#include "fieldfile/field_reader.h"
#include "fieldfile/number_text.h"
#include "notebook/picture_size.h"

namespace tolmer {
namespace {

Result<FieldReader> openBelow(const std::string& root, const std::string& path) {
  auto bytes = readWholeFile(hostPath(root + path));
  if (!bytes) return Error{path, bytes.error().text};
  return FieldReader(path, std::move(*bytes));
}

// A number where a name must stand shows that the stated columns or labels are wrong.
std::optional<Error> checkNames(FieldReader& fields, const DataSetClaim& claim) {
  const int names = claim.columns + (claim.labeled ? 1 : 0);
  for (int i = 1; i <= names; ++i) {
    const FieldPlace place = fields.place();
    const auto name = fields.readText();
    if (!name) return name.error();
    if (name->empty() || singleFromText(*name))
      return fields.errorAt(place, "the name of a column was expected, not \"" + *name + "\"");
  }
  return std::nullopt;
}

std::optional<Error> checkCases(FieldReader& fields, const DataSetClaim& claim) {
  for (int i = 1; i <= claim.cases; ++i) {
    if (claim.labeled)
      if (const auto label = fields.readText(); !label) return label.error();
    for (int j = 1; j <= claim.columns; ++j)
      if (const auto value = fields.readSingle(); !value) return value.error();
  }
  if (fields.onlyBlanksLeft()) return std::nullopt;
  return fields.errorAt(fields.place(), "the file goes on behind the " +
                                            std::to_string(claim.cases) + " cases of " +
                                            std::to_string(claim.columns) + " columns");
}

std::optional<Error> checkDataFile(const std::string& root, const DataSetClaim& claim) {
  auto fields = openBelow(root, claim.dataFile);
  if (!fields) return fields.error();
  auto error = checkNames(*fields, claim);
  return error ? error : checkCases(*fields, claim);
}

std::optional<Error> checkInfoFile(const std::string& root, const DataSetClaim& claim) {
  auto lines = openBelow(root, claim.infoFile);
  if (!lines) return lines.error();
  for (int i = 0; i <= claim.columns; ++i)
    if (const auto line = lines->readLine(); !line) return line.error();
  return std::nullopt;
}

bool checkExists(int line, const std::string& hostFile, const std::string& name,
                 Complaints& complaints) {
  std::error_code failed;
  const bool exists = std::filesystem::is_regular_file(hostFile, failed);
  if (!exists) complaints.error(line, "there is no file " + name);
  return exists;
}

}  // namespace

void checkDataSet(const DataSetClaim& claim, const CourseFolders& folders, Complaints& complaints) {
  if (const auto error = checkDataFile(folders.root, claim))
    complaints.error(claim.line, error->message());
  if (claim.infoFile.empty()) return;
  if (const auto error = checkInfoFile(folders.root, claim))
    complaints.error(claim.line, error->message());
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
