// What tells damage to a text file.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tolmer {

inline constexpr std::size_t checksumLength = 8;

// CRC-32 of the bytes as in ISO 3309, carriage returns left out (a transfer that changes line ends
// does no damage), as eight capital hexadecimal digits.
std::string checksumText(std::string_view bytes);

}  // namespace tolmer
