// The letter widths of the fonts in use, as tools/font_advances.py found them in the font files.
#pragma once

#include <array>
#include <cstdint>

#include "platform/look.h"

namespace tolmer {

// The code points of the tables, without a gap in the order of the advances.
struct CodePointRange {
  char32_t first;
  char32_t last;
};
inline constexpr std::array<CodePointRange, 9> advanceRanges{{{0x20, 0x7E},
                                                              {0xA0, 0x17F},
                                                              {0x370, 0x3FF},
                                                              {0x2010, 0x2026},
                                                              {0x2190, 0x2193},
                                                              {0x2211, 0x2212},
                                                              {0x221A, 0x221A},
                                                              {0x2248, 0x2248},
                                                              {0x2260, 0x2265}}};
constexpr int advanceCount() {
  int count = 0;
  for (const CodePointRange& range : advanceRanges)
    count += static_cast<int>(range.last - range.first) + 1;
  return count;
}

// All in font units; advance 0 stands for a letter that the font lacks.
struct FontAdvances {
  int unitsPerEm;
  int ascent;   // above the base line
  int descent;  // below it, positive
  int lineGap;
  std::array<std::uint16_t, advanceCount()> advances;
};

const FontAdvances& fontAdvances(FontFamily family, bool bold);

}  // namespace tolmer
