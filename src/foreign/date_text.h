// A date as the sheet and the report take it.
#pragma once

#include <string>

namespace tolmer {

// "2024-03-05", or "2024-03-05 14:30:00" where it has a time, of days since 1899-12-30. What no
// calendar reaches stays the number.
std::string dateText(double days);

}  // namespace tolmer
