#!/usr/bin/env python3
"""Write src/platform/font_advances.cpp: the widths of the letters of the four fonts in use.

Usage: tools/font_advances.py > src/platform/font_advances.cpp

The fonts are found by fontconfig (packages fonts-noto-core and fonts-liberation). Read are the
tables head, hhea, hmtx and cmap (subtable format 4) of the OpenType specification 1.9. A letter
that a font lacks gets the advance 0, which stands for "as wide as an x".
"""
import struct
import subprocess

FONTS = [("notoSans", "Noto Sans:regular"), ("notoSansBold", "Noto Sans:bold"),
         ("liberationSerif", "Liberation Serif:regular"),
         ("liberationSerifBold", "Liberation Serif:bold")]
# Latin, Greek, dashes and quotation marks, and the signs of formulas: first and last code point.
RANGES = [(0x20, 0x7E), (0xA0, 0x17F), (0x370, 0x3FF), (0x2010, 0x2026), (0x2190, 0x2193),
          (0x2211, 0x2212), (0x221A, 0x221A), (0x2248, 0x2248), (0x2260, 0x2265)]


def tables(font):
    count = struct.unpack_from(">H", font, 4)[0]
    for i in range(count):
        tag, _, offset, length = struct.unpack_from(">4sLLL", font, 12 + 16 * i)
        yield tag.decode(), font[offset:offset + length]


def glyph_finder(cmap):
    for i in range(struct.unpack_from(">H", cmap, 2)[0]):
        at = struct.unpack_from(">HHL", cmap, 4 + 8 * i)[2]
        if struct.unpack_from(">H", cmap, at)[0] == 4:
            return lambda code: glyph_of(cmap, at, code)
    raise SystemExit("no cmap subtable of format 4")


def glyph_of(cmap, at, code):
    segments = struct.unpack_from(">H", cmap, at + 6)[0] // 2
    ends, starts = at + 14, at + 16 + 2 * segments
    deltas, offsets = starts + 2 * segments, starts + 4 * segments
    read = lambda where: struct.unpack_from(">H", cmap, where)[0]
    for i in range(segments):
        if code > read(ends + 2 * i):
            continue
        start, offset = read(starts + 2 * i), read(offsets + 2 * i)
        if code < start:
            return 0
        glyph = code
        if offset:
            glyph = read(offsets + 2 * i + offset + 2 * (code - start))
            if glyph == 0:
                return 0
        return (glyph + read(deltas + 2 * i)) % 65536
    return 0


def font_table(name, pattern):
    path = subprocess.check_output(["fc-match", "-f", "%{file}", pattern], text=True)
    with open(path, "rb") as file:
        font = dict(tables(file.read()))
    ascent, descent, gap = struct.unpack_from(">hhh", font["hhea"], 4)
    metrics = struct.unpack_from(">H", font["hhea"], 34)[0]
    glyph = glyph_finder(font["cmap"])

    def advance(code):
        found = glyph(code)
        return struct.unpack_from(">H", font["hmtx"], 4 * min(found, metrics - 1))[0] if found else 0

    units = struct.unpack_from(">H", font["head"], 18)[0]
    advances = [advance(code) for first, last in RANGES for code in range(first, last + 1)]
    print(f"constexpr FontAdvances {name}{{{units}, {ascent}, {-descent}, {gap}, {{")
    print(",\n".join(", ".join(map(str, advances[i:i + 18])) for i in range(0, len(advances), 18)))
    print("}};\n")


print("""// Made by tools/font_advances.py from Noto Sans and Liberation Serif.
#include "platform/font_advances.h"

namespace tolmer {
namespace {

// clang-format off""")
for name, pattern in FONTS:
    font_table(name, pattern)
print("""// clang-format on
}  // namespace

const FontAdvances& fontAdvances(FontFamily family, bool bold) {
  if (family == FontFamily::serif) return bold ? liberationSerifBold : liberationSerif;
  return bold ? notoSansBold : notoSans;
}

}  // namespace tolmer""")
