#pragma once

#include "notebook/book.h"

namespace tolmer::test {

// A book with every table at its bound: 8 sections of 3 or 4 pages, 15 elements on each page, all
// kinds in use, every scenario and database in a list.
Book fullBook();

}  // namespace tolmer::test
