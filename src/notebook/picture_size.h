// How large a picture file wants to be shown.
#pragma once

#include <string>

#include "platform/geometry.h"

namespace tolmer {

// Of a PNG its own pixels, from the header chunk (PNG standard, 11.2.2); of an SVG drawing the
// width and height of its first tag, or its view box (SVG 1.1, 5.1.2 and 7.7), at 96 pixels to the
// inch. Anything else, and a file that cannot be read, counts as 320 x 200. Twips, never empty.
Size pictureSize(const std::string& hostFile);

// Is the file a PNG or an SVG that tells its size?
bool isPicture(const std::string& hostFile);

}  // namespace tolmer
