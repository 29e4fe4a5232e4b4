// A text file cut into symbols and numbers.
//
// White space is carriage return, line feed, tab, blank and the comma. Comments stand in braces and
// nest; a text in double quotes is one symbol. Files are read byte by byte as single-byte text.
// The rules have corners that course files rely on: a tab within a token vanishes, a comment that
// touches the end of a token throws the token away, braces count inside quotes too, and the last
// byte of a file without white space behind it is lost.
//
// Nothing is thrown for a failure: the user is asked in frmFileError, and the caller looks at
// ErrorOccurred, ErrorType and UserErrorChoice after each call. A fault of the file's own format
// ends the program behind the window.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "state/analysis_state.h"
#include "symbolfile/file_error.h"
#include "symbolfile/file_layer.h"

namespace tolmer {

// What all readers of a program share: its files and the one window, made on first use.
class SymbolFileHost {
 public:
  SymbolFileHost(Desktop& desktop, FileLayer& files) : desktop_(desktop), files_(files) {}

  Desktop& desktop() { return desktop_; }
  FileLayer& files() { return files_; }
  frmFileError& fileError() {
    if (!window_) window_ = std::make_unique<frmFileError>(desktop_);
    return *window_;
  }

 private:
  Desktop& desktop_;
  FileLayer& files_;
  std::unique_ptr<frmFileError> window_;
};

class SymbolFile {
 public:
  // UserErrorChoice; 0 where none was made.
  static constexpr Int16 choseRetry = 1;
  static constexpr Int16 choseAbort = 2;

  explicit SymbolFile(SymbolFileHost& host) : host_(host) {}
  ~SymbolFile();
  SymbolFile(const SymbolFile&) = delete;
  SymbolFile& operator=(const SymbolFile&) = delete;

  void CloseFile();
  // No further symbol is to be had. Once a file was closed it stays True, through a later OpenFile
  // as well.
  bool EndOfFile() const { return mbEndOfFile; }
  bool FileIsOpen() const { return mbFileIsOpen; }
  // Since the last operation began; a retry that then succeeded leaves it True.
  bool ErrorOccurred() const { return mbErrorOccurred; }
  // A FailureClass as its number.
  Int16 ErrorType() const { return miErrorType; }
  void setExclusive(bool bNewExclusive) { mbExclusive = bNewExclusive; }
  void setAllowRetry(bool bNewAllowRetry) { mbAllowRetry = bNewAllowRetry; }
  void setAllowAbortOperation(bool bNewAllow) { mbAllowAbortOperation = bNewAllow; }
  void setAllowEndProgram(bool bNewAllowEndProgram) { mbAllowEndProgram = bNewAllowEndProgram; }
  bool Exclusive() const { return mbExclusive; }
  bool AllowRetry() const { return mbAllowRetry; }
  bool AllowAbortOperation() const { return mbAllowAbortOperation; }
  // Tabs, blanks and line ends count, commas and comments do not; a last byte that is no white
  // space is overlooked.
  bool OnlyWhiteSpaceLeft();
  // The next token must consist of digits, signs and points; its longest numeric prefix counts.
  void ReadNumber();
  void ReadSymbol();
  bool AllowEndProgram() const { return mbAllowEndProgram; }
  void setFileSpec(std::string tNewFileSpec) { mtFileSpec = std::move(tNewFileSpec); }
  const std::string& FileSpec() const { return mtFileSpec; }
  // 0 nothing yet, 1 file opened, 2 file closed, 3 number read, 4 symbol read.
  Int16 LastAction() const { return miLastAction; }
  double Number() const { return mdNumber; }
  void OpenFile();
  void RewindFile();
  const std::string& Symbol() const { return mtSymbol; }
  // Kept until the next choice.
  Int16 UserErrorChoice() const { return miUserErrorChoice; }
  Int16 VBErrorCode() const { return miVBErrorCode; }

 private:
  struct Token;
  using Statement = std::function<std::optional<FileFailure>()>;

  void ClearError();
  std::string ReadToken();
  bool fillToken(Token& token);
  std::string finishToken(Token& token);
  void SetErrorButtons();
  [[noreturn]] void ReportFormatError(const std::string& tMessage);
  std::string ReadChar();
  static bool IsWhiteSpace(char ch);

  // Runs a statement until it succeeds or the user gives it up; whether it succeeded.
  bool guarded(const Statement& statement);
  void reportError(FailureClass kind, Int16 code, const std::string& causes);
  void refuseNumber();
  char nextByte();
  void testForEnd();

  SymbolFileHost& host_;
  std::string mtFileSpec;
  bool mbExclusive = false;
  bool mbFileIsOpen = false;
  bool mbEndOfFile = false;
  Int16 miLastAction = 0;
  double mdNumber = 0;
  std::string mtSymbol;
  bool mbErrorOccurred = false;
  Int16 miUserErrorChoice = 0;
  Int16 miErrorType = 0;
  Int16 miVBErrorCode = 0;
  bool mbAllowRetry = true;
  bool mbAllowAbortOperation = false;
  bool mbAllowEndProgram = true;
  int miFile = 0;              // the handle; 0 before the first OpenFile
  bool inputStopped_ = false;  // within a token: the end was met, or a read was given up
};

}  // namespace tolmer
