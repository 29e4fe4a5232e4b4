// Several graphs as one picture.
#pragma once

#include <string>
#include <vector>

#include "platform/graph/picture.h"

namespace tolmer {

struct DescribedPicture {
  Picture picture;
  std::string title;
  std::string description;
};

// Two in a row, of equal size, from the upper left. Titles and descriptions follow one another.
DescribedPicture sideBySide(const std::vector<DescribedPicture>& parts);

}  // namespace tolmer
