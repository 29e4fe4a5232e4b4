// Compiles the source of a notebook: nbocompile SOURCE OUTPUT --root FOLDER.
#include <cstdio>
#include <string>
#include <vector>

#include "bookcompiler/book_compiler.h"

int main(int argumentCount, char** arguments) {
  std::string report;
  const int status = tolmer::compileNotebook(
      std::vector<std::string>(arguments + 1, arguments + argumentCount), report);
  std::fputs(report.c_str(), stderr);
  return status;
}
