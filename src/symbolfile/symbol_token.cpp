// How the bytes of a file become tokens.
#include "platform/desktop.h"
#include "symbolfile/symbol_file.h"

namespace tolmer {

struct SymbolFile::Token {
  std::string text;
  int depth = 0;  // of comments
  bool inComment = false;
  bool inQuote = false;
  bool done = false;

  void addQuoted(char ch) {
    if (ch != '\r' && ch != '\n')
      text += ch;
    else if (!text.ends_with(' '))
      text += ' ';
  }

  void addBare(char ch) {
    if (IsWhiteSpace(ch))
      done = true;
    else
      text += ch;
  }
};

bool SymbolFile::IsWhiteSpace(char ch) {
  return ch == '\r' || ch == '\n' || ch == '\t' || ch == ' ' || ch == ',';
}

std::string SymbolFile::ReadChar() {
  bool atEnd = false;
  char byte = 0;
  const bool read = guarded([&]() -> std::optional<FileFailure> {
    atEnd = host_.files().atEnd(miFile);
    return atEnd ? std::nullopt : host_.files().readByte(miFile, byte);
  });
  if (read && atEnd) mbEndOfFile = true;
  if (read && !atEnd) return std::string(1, byte);
  inputStopped_ = true;
  return {};
}

// The buffer holds one character always, so that nothing reads as a blank.
char SymbolFile::nextByte() {
  const std::string byte = ReadChar();
  return byte.empty() ? ' ' : byte.front();
}

std::string SymbolFile::ReadToken() {
  for (;;) {
    Token token;
    if (fillToken(token)) return finishToken(token);
  }
}

// False when a comment ended: what came before it is thrown away, and reading starts anew.
//
// The end is looked for on handle 1, before the last byte read is looked at. A reader with another
// handle goes on to its own end, or the user's Abort, so that it cannot run for ever.
bool SymbolFile::fillToken(Token& token) {
  inputStopped_ = false;
  char ch = nextByte();
  while (IsWhiteSpace(ch) && !mbEndOfFile && !inputStopped_) ch = nextByte();
  while (!token.done && !inputStopped_ && !host_.files().atEnd(1)) {
    if (ch == '{') {
      token.inComment = true;
      ++token.depth;
    } else if (ch == '}') {
      --token.depth;
      if (token.depth < 0) ReportFormatError("Unmatched } (close comment)");
      if (token.depth == 0) return false;
    } else if (ch == '\t' || token.inComment) {
      // Tabs vanish at any place.
    } else if (ch == '"') {
      if (!token.inQuote && !token.text.empty())
        ReportFormatError("Can't use double quote in string");
      token.done = token.inQuote;
      token.inQuote = true;
    } else if (token.inQuote) {
      token.addQuoted(ch);
    } else {
      token.addBare(ch);
    }
    if (!token.done) ch = nextByte();
  }
  return true;
}

std::string SymbolFile::finishToken(Token& token) {
  if (token.inComment && mbEndOfFile) ReportFormatError("Unclosed comment");
  if (token.inQuote && mbEndOfFile) ReportFormatError("Unclosed quote");
  return std::move(token.text);
}

}  // namespace tolmer
