// What a new data set of the editor holds: the names of its columns, their decimals, its title.
#pragma once

#include <string>

#include "sheet/sheet_content.h"

namespace tolmer {

inline constexpr Int16 standardDecimals = 3;
inline constexpr const char* newTitle = "User Supplied Data";
// With four variables the third is meant for one of two values: whole numbers, its own name.
inline constexpr int binaryVariable = 3;

// Of a new sheet or of a file; iVar 0 is the label column.
std::string defaultHeading(int iVar, int variables);

// Of a column that is left with data and without a name. Not the same: a single variable is "Var1"
// here and "X" above, the fourth of four "Var4" and "Var3".
std::string exitHeading(int iVar, int variables);

// Headings, decimals and title of a new data set, all else empty.
SheetContent newContent(int observations, int variables);

}  // namespace tolmer
