#pragma once

#include "platform/desktop.h"

namespace tolmer {

// Every form at once; another program takes the one it understands. A picture is there as SVG and
// as a bitmap of twice its size.
void putOnClipboard(const ClipboardContent& content);
// Text, HTML and cells.
ClipboardContent fromClipboard();

}  // namespace tolmer
