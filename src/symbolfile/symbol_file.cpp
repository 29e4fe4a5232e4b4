// How the bytes of a file become tokens.

#include "symbolfile/symbol_file.h"

#include <charconv>
#include <optional>
#include <system_error>
#include <utility>

#include "platform/desktop.h"

namespace tolmer {
namespace {

constexpr Int16 internalError = 51;

bool hasOnlyNumberCharacters(std::string_view token) {
  return token.find_first_not_of("0123456789+.-") == std::string_view::npos;
}

// The longest numeric prefix, 0 where there is none; nullopt where no double can hold it.
std::optional<double> leadingNumber(std::string_view token) {
  if (token.starts_with('+')) {
    token.remove_prefix(1);
    if (token.starts_with('-')) return 0;
  }
  double number = 0;
  const auto end = token.data() + token.size();
  const auto read = std::from_chars(token.data(), end, number, std::chars_format::fixed);
  if (read.ec == std::errc::result_out_of_range) return std::nullopt;
  return number;
}

}  // namespace

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

SymbolFile::~SymbolFile() {
  if (mbFileIsOpen) host_.files().close(miFile);
}

void SymbolFile::ClearError() {
  mbErrorOccurred = false;
  miErrorType = 0;
}

void SymbolFile::OpenFile() {
  ClearError();
  const int handle = host_.files().freeHandle();
  if (!guarded([&] { return host_.files().open(handle, mtFileSpec, mbExclusive); })) return;
  miFile = handle;
  miLastAction = 1;
  mbFileIsOpen = true;
}

void SymbolFile::CloseFile() {
  ClearError();
  if (!guarded([&] { return host_.files().close(miFile); })) return;
  miLastAction = 2;
  mbEndOfFile = true;
  mbFileIsOpen = false;
}

void SymbolFile::RewindFile() {
  ClearError();
  if (mbFileIsOpen) CloseFile();
  OpenFile();
}

void SymbolFile::ReadSymbol() {
  ClearError();
  mtSymbol = ReadToken();
  miLastAction = 4;
  testForEnd();
}

void SymbolFile::ReadNumber() {
  ClearError();
  const std::string token = ReadToken();
  const auto number =
      hasOnlyNumberCharacters(token) ? leadingNumber(token) : std::optional<double>();
  if (number) {
    mdNumber = *number;
    miLastAction = 3;
  } else {
    refuseNumber();
    if (host_.fileError().mbAbort) return;
  }
  testForEnd();
}

void SymbolFile::testForEnd() {
  if (OnlyWhiteSpaceLeft()) mbEndOfFile = true;
}

void SymbolFile::refuseNumber() {
  const FileFailure failure{FailureClass::badNumber, internalError, ""};
  reportError(failure.kind, failure.code, failureCauses(failure));
  SetErrorButtons();
  host_.fileError().cmdRetry.setVisible(false);
  host_.fileError().showModal();
  if (host_.fileError().mbAbort) miUserErrorChoice = choseAbort;
}

bool SymbolFile::OnlyWhiteSpaceLeft() {
  FileLayer& files = host_.files();
  const long before = files.position(miFile);
  char byte = ' ';
  while (!files.atEnd(miFile) && (byte == '\t' || byte == '\n' || byte == '\r' || byte == ' '))
    if (files.readByte(miFile, byte)) break;
  const bool onlyWhiteSpace = files.atEnd(miFile);
  files.seek(miFile, before);
  return onlyWhiteSpace;
}

bool SymbolFile::guarded(const Statement& statement) {
  while (const auto failure = statement()) {
    reportError(failure->kind, failure->code, failureCauses(*failure));
    SetErrorButtons();
    frmFileError& window = host_.fileError();
    window.showModal();
    if (!window.mbRetry) {
      if (window.mbAbort) miUserErrorChoice = choseAbort;
      return false;
    }
    miUserErrorChoice = choseRetry;
  }
  return true;
}

void SymbolFile::reportError(FailureClass kind, Int16 code, const std::string& causes) {
  mbErrorOccurred = true;
  miErrorType = static_cast<Int16>(kind);
  miVBErrorCode = code;
  frmFileError& window = host_.fileError();
  window.txtFileSpec.setText(mtFileSpec);
  window.lblErrorDesc.setCaption(std::string(failureDescription(kind)));
  window.txtCauses.setText(causes);
}

void SymbolFile::SetErrorButtons() {
  frmFileError& window = host_.fileError();
  window.cmdRetry.setVisible(mbAllowRetry);
  window.cmdAbort.setVisible(mbAllowAbortOperation);
  window.cmdEndProgram.setVisible(mbAllowEndProgram);
}

void SymbolFile::ReportFormatError(const std::string& tMessage) {
  reportError(FailureClass::format, internalError, tMessage);
  frmFileError& window = host_.fileError();
  window.cmdRetry.setVisible(false);
  window.cmdAbort.setVisible(false);
  window.cmdEndProgram.setVisible(false);
  window.showModal();
  host_.desktop().endProgram(1);
  throw ProgramEnded{1};  // not reached: GCC forgets that a virtual function does not return
}

}  // namespace tolmer
