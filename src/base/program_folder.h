// Where the program finds its course.
#pragma once

#include <string>

namespace tolmer {

// The folder with the compiled notebook: that of the running program in a build tree, and
// ../share/tolmer/tolmod beside an installed one. Host spelling, no final separator.
std::string programFolder();

}  // namespace tolmer
