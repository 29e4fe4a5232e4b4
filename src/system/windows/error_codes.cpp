#include "system/error_codes.h"

namespace tolmer::host {

const int staleFile = -1;
const int hostDown = -2;
const int noMedium = -3;

}  // namespace tolmer::host
