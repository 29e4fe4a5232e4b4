// Whether everything that a book's numbers point to is there, so that whoever shows the book need
// not ask again.
#pragma once

#include <string>
#include <vector>

#include "notebook/book.h"

namespace tolmer {

struct BookFault {
  BookPart part;
  int row;  // 0 where a table as a whole is at fault
  std::string text;
};

// All faults, in the order of the tables; an empty list means that every page, element, scenario,
// database and jump target that the book names exists, and that each selection is one of its list.
std::vector<BookFault> checkBook(const Book& book);

}  // namespace tolmer
