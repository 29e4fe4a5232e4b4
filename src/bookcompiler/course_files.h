// Whether the files that a notebook names exist and hold what it says of them.
#pragma once

#include <optional>
#include <string>

#include "bookcompiler/scenario_text.h"
#include "bookcompiler/source_lines.h"
#include "fieldfile/file_stamp.h"

namespace tolmer {

struct CourseFolders {
  std::string root;     // of data files: the folder above the program's, host spelling
  std::string program;  // of pictures
};

struct FoundDataSet {
  Int16 cases = 0;
  Int16 columns = 0;
  FileStamp dataStamp;
  std::optional<FileStamp> infoStamp;  // where there is an information file
};

// Reads the data set as the program will: names, labels where there are some, a number in every
// cell, and nothing behind the last case; and the information file's lines, one for the data set
// and one for each column. Counts cases and columns; those that were said must be these. Fields may
// be divided as in the data editor, by commas, semicolons, tabs or blanks, and decimals by either
// mark. nullopt after a complaint.
std::optional<FoundDataSet> checkDataSet(const DataSetClaim& claim, const CourseFolders& folders,
                                         Complaints& complaints);

// Complains unless the file exists; `path` is a course path below the root.
void checkCourseFile(int line, const std::string& path, const CourseFolders& folders,
                     Complaints& complaints);

// The same for a picture, a PNG or SVG in the program's folder or below it.
void checkPicture(int line, const std::string& name, const CourseFolders& folders,
                  Complaints& complaints);

}  // namespace tolmer
