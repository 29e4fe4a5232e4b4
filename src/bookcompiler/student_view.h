// What a student would stumble over in a book that is right in itself.
#pragma once

#include "bookcompiler/course_files.h"
#include "bookcompiler/source_keywords.h"
#include "bookcompiler/source_lines.h"

namespace tolmer {

// Warns of what does not fit its place, of pages whose OK opens nothing, and of version numbers
// that the student could not type. The book must have passed checkBook.
void warnForStudents(const SourcedBook& sourced, const CourseFolders& folders,
                     Complaints& complaints);

}  // namespace tolmer
