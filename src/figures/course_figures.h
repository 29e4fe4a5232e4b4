// The list of the course's figures, and the files made from it.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "base/error.h"
#include "figures/course_model.h"
#include "figures/drawn_display.h"

namespace tolmer {

struct CourseFigure {
  std::string file;   // "stakloss-histogram.svg"; a table's ends in ".html"
  std::string where;  // in the list, for errors
  CourseModel model;
  DisplayChoice display;
  DisplaySize size;
};

// Six fields a line: file, data set, y, x, display with its options, size ("640x400"; "-" for a
// table).
Result<std::vector<CourseFigure>> courseFigures(const std::string& listFile);

// A graph as SVG, a table or a text as markup. The error names the figure's line in the list.
Result<std::string> figureContent(const CourseFigure& figure, AnalysedModel& model);

// Writes all of them into the folder. A file that would stay as it is keeps its time, so that what
// is built from the figures is built anew only when one of them has changed.
std::optional<Error> writeFigures(const std::vector<CourseFigure>& figures,
                                  const std::string& dataFolder, const std::string& folder);

}  // namespace tolmer
