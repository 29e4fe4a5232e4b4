#include "data/data_file.h"

#include <optional>
#include <string>
#include <utility>

#include "base/error.h"
#include "fieldfile/field_reader.h"

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
  for (int j = 1; j <= copy.miNumCols; ++j)
    if (auto error = take(reader.readSingle(), copy.osData(iCase, j))) return error;
  return std::nullopt;
}

std::optional<Error> readDataFile(WorkingCopy& copy) {
  auto reader = FieldReader::open(copy.mtDataFileName);
  if (!reader) return reader.error();
  if (auto error = readHeadings(*reader, copy)) return error;
  for (int i = 1; i <= copy.miNumCases; ++i)
    if (auto error = readRecord(*reader, copy, i)) return error;
  return std::nullopt;
}

std::optional<Error> readInfoFile(WorkingCopy& copy) {
  auto reader = FieldReader::open(copy.mtDataFileInfoName);
  if (!reader) return reader.error();
  for (int i = 0; i <= copy.miNumCols; ++i)
    if (auto error = take(reader->readLine(), copy.otVarInfo(i))) return error;
  return std::nullopt;
}

void reportProblem(const std::string& fileName, MessagePort& messages) {
  messages.messageBox({"Error", "Problem with file " + fileName + ". Check file and path.",
                       MessageIcon::exclamation, MessageButtons::ok});
}

}  // namespace

void ReadNewData(WorkingCopy& copy, MessagePort& messages) {
  setInterceptColumn(copy);
  if (readDataFile(copy)) reportProblem(copy.mtDataFileName, messages);
}

void ReadVarInfo(WorkingCopy& copy, MessagePort& messages) {
  if (readInfoFile(copy)) reportProblem(copy.mtDataFileInfoName, messages);
}

}  // namespace tolmer
