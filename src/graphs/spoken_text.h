// Pieces of the sentences by which a graph tells its content to those who cannot see it.
#pragma once

#include <string>

namespace tolmer {

// Four significant digits.
std::string spokenNumber(float sValue);

// "1 case", "2 cases".
std::string spokenCount(int iCount, const std::string& thing);

}  // namespace tolmer
