// Source in, object file out.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "bookcompiler/course_files.h"
#include "bookcompiler/source_lines.h"

namespace tolmer {

struct CompiledBook {
  std::string objectText;             // empty where there are errors
  std::vector<Complaint> complaints;  // in the order of the lines
  bool hasErrors = false;
};

// Compiles the bytes of a source and checks it against the course's files.
CompiledBook compileBook(std::string_view source, const CourseFolders& folders);

// The program: nbocompile SOURCE OUTPUT --root FOLDER. Complaints go to `report` as
// "SOURCE:line: reason", one a line. Returns the exit status: 0, 1 where the book was refused or a
// file failed, 2 where the arguments make no sense. The output is written only where all is right.
int compileNotebook(const std::vector<std::string>& arguments, std::string& report);

}  // namespace tolmer
