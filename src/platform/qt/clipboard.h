#pragma once

#include <string>

#include "platform/desktop.h"

namespace tolmer {

// Every form at once; another program takes the one it understands. A picture is there as SVG and
// as a bitmap of twice its size.
void putOnClipboard(const ClipboardContent& content);
std::string textOnClipboard();
// In the program's own form; empty where there are none.
std::string cellsOnClipboard();

}  // namespace tolmer
