#include "data/data_file.h"

#include <string>
#include <utility>

#include "fieldfile/file_stamp.h"

namespace tolmer {
namespace {

// Moves what was read into its place, or returns the error that stands there instead.
template <class Value, class Place>
std::optional<Error> take(Result<Value> read, Place&& place) {
  if (!read) return read.error();
  place = std::move(*read);
  return std::nullopt;
}

std::optional<Error> readHeadings(FieldReader& reader, WorkingCopy& copy) {
  if (copy.mbLabeledData)
    if (auto error = take(reader.readText(), copy.mtLabelColName)) return error;
  for (int j = 1; j <= copy.miNumCols; ++j)
    if (auto error = take(reader.readText(), copy.otColName(j))) return error;
  return std::nullopt;
}

std::optional<Error> readRecord(FieldReader& reader, WorkingCopy& copy, int iCase) {
  if (copy.mbLabeledData)
    if (auto error = take(reader.readText(), copy.otCaseLabel(iCase))) return error;
  for (int j = 1; j <= copy.miNumCols; ++j) {
    TextNumber number;
    if (auto error = take(reader.readNumber(), number)) return error;
    copy.osData(iCase, j) = number.held;
    copy.origin.written(iCase, j) = number.written;
  }
  return std::nullopt;
}

void reportProblem(const std::string& fileName, const Error& error, MessagePort& messages) {
  const std::string reason = error.text == changedFile ? " " + error.text : "";
  messages.messageBox({"Error", "Problem with file " + fileName + ". Check file and path." + reason,
                       MessageIcon::exclamation, MessageButtons::ok});
}

using ReadFields = std::optional<Error> (*)(FieldReader&, WorkingCopy&);

// The error that was reported.
std::optional<Error> readFile(const std::string& fileName, const std::optional<FileStamp>& stamp,
                              ReadFields read, WorkingCopy& copy, MessagePort& messages) {
  auto reader = openStamped(fileName, stamp);
  auto error = reader ? read(*reader, copy) : reader.error();
  if (error) reportProblem(fileName, *error, messages);
  return error;
}

// Zeros in the place of data that are known to be others would be analysed as data.
void dropData(WorkingCopy& copy) {
  copy.miNumCases = 0;
  copy.miNumCols = 0;
  clearModel(copy);
  copy.mbInfoAvailable = false;
  DimensionModelDesignerArrays(copy);
}

}  // namespace

std::optional<Error> readDataFields(FieldReader& reader, WorkingCopy& copy) {
  if (auto error = readHeadings(reader, copy)) return error;
  copy.origin.written.resize(copy.miNumCases, copy.miNumCols);
  for (int i = 1; i <= copy.miNumCases; ++i)
    if (auto error = readRecord(reader, copy, i)) return error;
  return std::nullopt;
}

std::optional<Error> readInfoLines(FieldReader& reader, WorkingCopy& copy) {
  for (int i = 0; i <= copy.miNumCols; ++i)
    if (auto error = take(reader.readLine(), copy.otVarInfo(i))) return error;
  return std::nullopt;
}

void ReadNewData(WorkingCopy& copy, MessagePort& messages) {
  setInterceptColumn(copy);
  const auto error = readFile(copy.mtDataFileName, copy.dataStamp, readDataFields, copy, messages);
  if (error && error->text == changedFile) dropData(copy);
}

void ReadVarInfo(WorkingCopy& copy, MessagePort& messages) {
  if (copy.mtDataFileInfoName == noDataFile) return;
  readFile(copy.mtDataFileInfoName, copy.infoStamp, readInfoLines, copy, messages);
}

}  // namespace tolmer
