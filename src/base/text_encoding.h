// Text inside the program is UTF-8; files may be older than that.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tolmer {

// True for well-formed UTF-8 as The Unicode Standard defines it (chapter 3, table 3-7): no overlong
// forms, no surrogates, nothing above U+10FFFF.
bool isUtf8(std::string_view bytes);

// A character of Unicode behind the text; what is none is U+FFFD.
void appendCodePoint(std::string& text, char32_t code);

// How many bytes of ASCII that shows, tabs and line ends a text begins with; most texts have no
// others.
std::size_t plainLength(std::string_view text);

// Every byte as the character that Windows-1252 gives it. The five bytes without a character
// (0x81, 0x8D, 0x8F, 0x90, 0x9D) become the C1 control codes of the same number.
std::string utf8FromWindows1252(std::string_view bytes);

// Two bytes to a unit, the lower one first or last; half a pair becomes U+FFFD, a last odd byte is
// dropped.
std::string utf8FromUtf16(std::string_view bytes, bool lowByteFirst);

// The content of a text file: without a leading byte-order mark, taken as UTF-16 where the mark
// says so, else as UTF-8 where it is valid UTF-8 and as Windows-1252 where it is not.
std::string utf8FromFile(std::string bytes);

// Text that does nothing where it is shown but be read: control characters (C0 but for tab and
// line ends, DEL, C1) and bytes that are no UTF-8 become question marks.
std::string withoutControls(std::string text);

// The same on one line: tabs and line ends become a blank. For what goes to a terminal within a
// sentence: names, cells, file names.
std::string onOneLine(std::string text);

// The number of bytes that the first `characters` characters of `text` take, at most all of them.
std::size_t utf8Prefix(std::string_view text, std::size_t characters);

}  // namespace tolmer
