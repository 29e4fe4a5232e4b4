// Whether the files that a notebook names exist and hold what it says of them.
#pragma once

#include <string>

#include "bookcompiler/complaints.h"
#include "bookcompiler/scenario_text.h"

namespace tolmer {

struct CourseFolders {
  std::string root;     // of data files: the folder above the program's, host spelling
  std::string program;  // of pictures
};

// Reads the data set as the program will: names, labels where there are some, as many cases and
// columns as were said and nothing behind them; and the information file's lines, one for the
// data set and one for each column.
void checkDataSet(const DataSetClaim& claim, const CourseFolders& folders, Complaints& complaints);

// Complains unless the file exists; `path` is a course path below the root.
void checkCourseFile(int line, const std::string& path, const CourseFolders& folders,
                     Complaints& complaints);

// The same for a picture, a PNG or SVG in the program's folder or below it.
void checkPicture(int line, const std::string& name, const CourseFolders& folders,
                  Complaints& complaints);

}  // namespace tolmer
