// Errors of files that not every system has; there, numbers that no error has.
#pragma once

namespace tolmer::host {

extern const int staleFile;  // on a network share that has gone away
extern const int hostDown;
extern const int noMedium;

}  // namespace tolmer::host
