#include "system/error_codes.h"

#include <cerrno>

namespace tolmer::host {

const int staleFile = ESTALE;
const int hostDown = EHOSTDOWN;
const int noMedium = ENOMEDIUM;

}  // namespace tolmer::host
