#pragma once

#include <string>

namespace tolmer {

// How to bring data from another program into the data editor: index 0 from a text file, 1 from a
// spreadsheet's file. Lines end in a line feed, paragraphs are an empty line apart.
std::string instructions(int index);

}  // namespace tolmer
