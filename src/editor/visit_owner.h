// Who owns a visit's files where the file system has no locks, as in some home folders on a
// network: the lock file then names the program that made it.
#pragma once

#include <ctime>
#include <string>

namespace tolmer {

// This program: machine, its start, process and the process's start, divided by blanks.
std::string ownerName();

// Whether the owner named so still runs. Of a program on another machine nothing can be known: it
// counts as running until its work has been quiet for a day. An empty name is nobody.
bool ownerRuns(const std::string& name, std::time_t lastSign);

}  // namespace tolmer
