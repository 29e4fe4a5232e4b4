// Puts a book together from the entries of its source, in one pass.
#pragma once

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "bookcompiler/scenario_text.h"
#include "bookcompiler/source_lines.h"
#include "notebook/book.h"

namespace tolmer {

// A file that the book names and that must exist.
struct FileClaim {
  int line = 0;
  std::string name;
};

// The data file name of a row to read: nothing can be opened from it, as from a group, but because
// only groupMark itself makes a heading, it stands in the outline as a database does.
inline constexpr const char* entryMark = "Group";

// A book and where in the source its rows stand.
struct SourcedBook {
  Book book;
  std::map<std::pair<BookPart, int>, int> lines;
  std::vector<DataSetClaim> dataSets;
  std::vector<FileClaim> courseFiles;
  std::vector<FileClaim> pictures;
  int titleLine = 1;
  int chapterLine = 1;
};

// Sections with a meaning to the program: what their scenarios need.
inline constexpr int examplesSection = 3;  // a dependent column

// Complains of everything that is wrong within the source itself, references between its parts
// included (checkBook); what is refused is left out, and the rest goes on.
SourcedBook buildBook(const std::vector<SourceEntry>& entries, Complaints& complaints);

}  // namespace tolmer
