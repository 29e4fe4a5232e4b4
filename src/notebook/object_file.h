// The notebook object file: a flat sequence of delimited fields (fieldfile/field_reader.h) whose
// order is told in object_file.cpp.
#pragma once

#include <string>

#include "base/error.h"
#include "fieldfile/field_reader.h"
#include "notebook/book.h"

namespace tolmer {

// Reads one book. The error names file, line and field of the first field that is missing, of the
// wrong kind, a count above its table's bound, or a number that points to nothing (checkBook).
// What follows the last field is not looked at, but for a checksum as objectFileText writes it: a
// file that it does not fit is damaged. A file without one is read all the same.
Result<Book> readBook(FieldReader& fields);

// The text of an object file, one record a line, and behind the last one, where readers of the
// format have stopped, "crc " and the checksum of all before it. Strings must hold no double quote:
// the format has no way to say one.
std::string objectFileText(const Book& book);

}  // namespace tolmer
