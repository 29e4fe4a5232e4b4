// A small book with every kind of page and element, all its references right.
#pragma once

#include <vector>

#include "notebook/book.h"

namespace tolmer::test {

// Section 1 "Start": page 1 a heading, a text, a jump to 2.1. Section 2 "More": page 1 (type 7)
// three scenarios, the second selected; page 2 (type 8) two outlines of a group, two databases and
// a second, closed group with one more; page 3 (type 5) two pictures, two checks, two versions and
// a jump to page 1 of its own section.
Book sampleBook();

// Adds a page of these elements behind the others.
void addPage(Book& book, PageRecord page, const std::vector<PageElement>& elements);

}  // namespace tolmer::test
