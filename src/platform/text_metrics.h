// Widths and heights of texts, from tables of the fonts' own advances: layout decides alike with
// and without a screen. Real text is never wider (kerning only brings letters closer).
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/look.h"

namespace tolmer {

// All lengths are logical pixels. Text is UTF-8; a character outside the tables counts as an "x".
double textWidth(const Font& font, std::string_view text);

// From one base line to the next.
double lineHeight(const Font& font);

// The lines into which a text falls at that width: words stay whole unless one alone is wider;
// line feeds in the text end a line.
std::vector<std::string> wrapText(const Font& font, std::string_view text, double width);

// Height of the text wrapped to that width.
double wrappedHeight(const Font& font, std::string_view text, double width);

// The text without its "&" marks ("&&" is one "&").
std::string withoutMnemonic(std::string_view caption);
// The letter behind its "&", as a key code; 0 where none is marked.
int mnemonicOf(std::string_view caption);

}  // namespace tolmer
