// Printing, by a module that is loaded when somebody wants to print: the printing system of the
// desktop takes time and memory that no other use of the program needs.
#pragma once

#include <functional>

#include "platform/paper/printed_pages.h"
#include "platform/qt/mirror.h"

namespace tolmer {

struct PrintingDoor {
  Mirror& mirror;
  // The user wants a PDF in place of paper.
  std::function<void(const PrintedPages& pages, const std::string& path)> save;
  std::function<void(const std::string& reason)> tellFailure;
};

// Asks for the printer above the top window and prints. Throws what the gate has kept.
void askAndPrint(const PrintingDoor& door, const PrintedPages& pages);

}  // namespace tolmer
