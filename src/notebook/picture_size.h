// How large a picture file wants to be shown.
#pragma once

#include <string>

#include "platform/geometry.h"

namespace tolmer {

// Of a PNG its own pixels, from the header chunk (PNG specification, 11.2.2); anything else, and a
// file that cannot be read, counts as 320 x 200. Twips, never empty.
Size pictureSize(const std::string& hostFile);

// Does the file begin as a PNG does, up to its size?
bool isPng(const std::string& hostFile);

}  // namespace tolmer
