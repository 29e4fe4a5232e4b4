// The list of the course's figures, and the files made from it.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "base/error.h"
#include "figures/course_model.h"
#include "tables/table_content.h"

namespace tolmer {

struct CourseFigure {
  std::string file;   // "stakloss-histogram.svg"; a table's ends in ".adoc"
  std::string where;  // in the list, for errors
  CourseModel model;
  DisplayChoice display;
  ViewSize size{960, 500};
  std::vector<std::string> beside;  // graphs made before it, which it sets side by side
};

// Six fields a line: file, data set, y, x, display with its options, size ("640x400"; "-" for a
// table). Where the data set is "beside", the display's field names the graphs to be set together.
Result<std::vector<CourseFigure>> courseFigures(const std::string& listFile);

// Writes all of them into the folder. A file that would stay as it is keeps its time, so that what
// is built from the figures is built anew only when one of them has changed.
std::optional<Error> writeFigures(const std::vector<CourseFigure>& figures,
                                  const std::string& dataFolder, const std::string& folder);

// A table of AsciiDoc: the rows of the display, its first as header, its key last. The signs that
// AsciiDoc reads as marks within a word are not expected in the texts, bars and braces are escaped.
std::string figureTable(const TableContent& table);

}  // namespace tolmer
