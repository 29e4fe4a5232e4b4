// The reader's tokens, its end of file, and the dialogue with the user when a file fails.
#include "symbolfile/symbol_file.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>

#include "base/file_io.h"
#include "support/headless_user.h"
#include "support/layout_check.h"
#include "support/script.h"
#include "support/temp_folder.h"

namespace tolmer {
namespace {

// Files of which the next operations fail.
class FailingFiles : public HostFiles {
 public:
  std::vector<int> openErrors;  // taken from the back
  std::vector<int> readErrors;

  std::optional<FileFailure> open(int handle, const std::string& fileSpec,
                                  bool exclusive) override {
    if (const int error = take(openErrors)) return failureFromHost(error, fileSpec);
    return HostFiles::open(handle, fileSpec, exclusive);
  }
  std::optional<FileFailure> readByte(int handle, char& byte) override {
    if (const int error = take(readErrors)) return failureFromHost(error, "");
    return HostFiles::readByte(handle, byte);
  }

 private:
  static int take(std::vector<int>& errors) {
    if (errors.empty()) return 0;
    const int error = errors.back();
    errors.pop_back();
    return error;
  }
};

class SymbolFileTest : public testing::Test {
 protected:
  std::string write(const std::string& bytes) {
    const std::string name = folder.file("a.sym");
    EXPECT_FALSE(writeFileAtomically(name, bytes));
    return name;
  }
  void open(const std::string& bytes) {
    reader.setFileSpec(write(bytes));
    reader.OpenFile();
  }
  // All symbols until EndOfFile, each in brackets; "!" and the causes where the program ends.
  std::string symbols(SymbolFile& from) {
    std::string all;
    try {
      for (int i = 0; i < 20 && !(i > 0 && from.EndOfFile()); ++i) {
        from.ReadSymbol();
        all += "[" + from.Symbol() + "]";
      }
    } catch (const ProgramEnded&) {
      all += "!" + host.fileError().txtCauses.text();
    }
    return all;
  }
  frmFileError& window() { return host.fileError(); }
  std::string buttons() {
    std::string shown;
    for (const Button* button : {&window().cmdRetry, &window().cmdAbort, &window().cmdEndProgram})
      if (button->visible()) shown += button->name() + " ";
    return shown;
  }

  test::TempFolder folder;
  HeadlessDesktop desktop;
  test::HeadlessUser user{desktop};
  test::Script script{desktop};
  FailingFiles files;
  SymbolFileHost host{desktop, files};
  SymbolFile reader{host};
};

TEST_F(SymbolFileTest, cutsAFileIntoSymbols) {
  const std::pair<std::string, std::string> table[] = {
      {"ab{c} d\n", "[d]"},
      {"ab {c} d\n", "[ab][d]"},
      {"ab {c{d}e \" } f\n", "[ab][f]"},
      {"ab\tcd\n", "[abcd]"},
      {"\t\tab\t cd,ef\n", "[ab][cd][ef]"},
      {"\"a, b\" c\n", "[a, b][c]"},
      {"\"a\r\nb\tc\" d\n", "[a bc][d]"},
      {"\"\" d\n", "[][d]"},
      {"\"abc\"def\n", "[abc][def]"},
      {"ab", "[a]"},
      {"a b", "[a]"},          // the last byte alone makes the end come a symbol early
      {"\"abc\"", "[abc]"},    // a quote or brace on the last byte is harmless
      {"a {b}", "[a][]"},      //
      {"a ,", "[a]"},          //
      {"a ,\n", "[a][]"},      // a comma or comment behind the last symbol: one empty symbol
      {"a {xyz", "[a][]"},     // left open, and no message
      {"a \"xyz", "[a][xy]"},  //
      {"", "[]"},              //
      {"\xE9t\xE9 \n", "[\xE9t\xE9]"},
      {"a } b\n", "[a]!Unmatched } (close comment)"},
      {"\"a}b\" \n", "!Unmatched } (close comment)"},
      {"ab\"c \n", "!Can't use double quote in string"},
      {"\"a{b}c\" \n", "!Can't use double quote in string"},
  };
  for (const auto& [bytes, expected] : table) {
    SCOPED_TRACE(bytes);
    if (expected.find('!') != std::string::npos)
      script.window("frmFileError", [&] {
        EXPECT_EQ(buttons(), "");
        EXPECT_EQ(window().lblErrorDesc.caption(), "Error in internal format. ");
        user.close("frmFileError");
      });
    SymbolFile one(host);
    one.setFileSpec(write(bytes));
    one.OpenFile();
    EXPECT_EQ(symbols(one), expected);
    if (expected.find('!') == std::string::npos) continue;
    EXPECT_EQ(one.ErrorType(), 6);
    EXPECT_EQ(one.VBErrorCode(), 51);
  }
  script.finish();
}

TEST_F(SymbolFileTest, aRewoundFileIsStillAtItsEndByName) {
  open(" a b\n");
  reader.RewindFile();
  EXPECT_TRUE(reader.EndOfFile());
  EXPECT_TRUE(reader.FileIsOpen());
  EXPECT_EQ(reader.LastAction(), 1);
  std::string all;
  for (int i = 0; i < 3; ++i) {
    reader.ReadSymbol();
    all += "[" + reader.Symbol() + "]";
  }
  EXPECT_EQ(all, "[][a][b]");  // leading white space is not skipped now
  reader.CloseFile();
  EXPECT_EQ(reader.LastAction(), 2);
  EXPECT_FALSE(reader.FileIsOpen());
}

TEST_F(SymbolFileTest, whatIsLeftOpenIsToldWhereTheEndIsKnown) {
  SymbolFile first(host);
  first.setFileSpec(write("one two three\n"));
  first.OpenFile();  // takes handle 1, so that the other reader has handle 2
  for (const auto& [bytes, message] :
       {std::pair("{abc", "Unclosed comment"), std::pair("\"abc", "Unclosed quote")}) {
    script.window("frmFileError", [&] { user.close("frmFileError"); });
    SymbolFile second(host);
    second.setFileSpec(write(bytes));
    second.OpenFile();
    EXPECT_EQ(symbols(second), std::string("!") + message);
  }
  script.finish();
  EXPECT_EQ(symbols(first), "[one][two][three]");
}

TEST_F(SymbolFileTest, takesTheNumberAtTheFrontOfAToken) {
  open("1-2 5.5.5 +- . -.5 +7 +-7 --7 12. 0.1 \"\" \n");
  for (const double expected : {1.0, 5.5, 0.0, 0.0, -0.5, 7.0, 0.0, 0.0, 12.0, 0.1, 0.0}) {
    reader.ReadNumber();
    EXPECT_EQ(reader.Number(), expected);
    EXPECT_FALSE(reader.ErrorOccurred());
  }
  EXPECT_TRUE(reader.EndOfFile());
}

TEST_F(SymbolFileTest, aMalformedNumberOffersNoRetry) {
  open("4 1e5 x " + std::string(400, '9') + " y\n");
  reader.ReadNumber();
  reader.setAllowAbortOperation(true);
  script.window("frmFileError", [&] {
    EXPECT_EQ(buttons(), "cmdAbort cmdEndProgram ");
    EXPECT_EQ(window().lblErrorDesc.caption(), "Invalid data read from file. ");
    EXPECT_EQ(window().txtCauses.text().substr(0, 40), "You are trying the read the wrong file. ");
    user.close("frmFileError");
  });
  reader.ReadNumber();
  EXPECT_EQ(reader.UserErrorChoice(), 0);
  script.window("frmFileError", [&] { user.click("frmFileError", "cmdAbort"); });
  reader.ReadNumber();
  EXPECT_EQ(reader.UserErrorChoice(), 2);
  EXPECT_EQ(reader.ErrorType(), 3);
  EXPECT_EQ(reader.VBErrorCode(), 51);
  EXPECT_EQ(reader.Number(), 4);
  EXPECT_EQ(reader.LastAction(), 3);
  script.window("frmFileError", [&] { user.click("frmFileError", "cmdAbort"); });
  reader.ReadNumber();  // more than a double can hold
  script.window("frmFileError", [&] { user.click("frmFileError", "cmdAbort"); });
  reader.ReadNumber();
  EXPECT_FALSE(reader.EndOfFile());  // an aborted read does not look for the end
  script.finish();
}

TEST_F(SymbolFileTest, eachFailureOfTheHostHasItsClassAndTexts) {
  struct Row {
    int hostError;
    Int16 type, code;
    const char* description;
    const char* causes;  // the last words
  };
  const Row table[] = {
      {ENOENT, 1, 53, "File could not be found", "all else fails, try reinstalling Zelmar."},
      {ENOTDIR, 1, 76, "File could not be found", "all else fails, try reinstalling Zelmar."},
      {EACCES, 4, 70, "File access permission denied", "shutting down the other program."},
      {EIO, 5, 57, "Could not read data from file", "typed an invalid file specification. "},
      {ENODEV, 5, 68, "Could not read data from file", "typed an invalid file specification. "},
      {EMFILE, 99, EMFILE, "Unknown error",
       "The operating system reported an error. Error number: 24, Description: Too many open "
       "files"},
  };
  reader.setFileSpec(write("a\n"));
  reader.setAllowAbortOperation(true);
  reader.setAllowRetry(false);
  reader.setAllowEndProgram(false);
  for (const Row& row : table) {
    files.openErrors = {row.hostError};
    script.window("frmFileError", [&] {
      EXPECT_EQ(buttons(), "cmdAbort ");
      EXPECT_EQ(window().txtFileSpec.text(), reader.FileSpec());
      EXPECT_EQ(window().lblErrorDesc.caption(), row.description);
      EXPECT_TRUE(window().txtCauses.text().ends_with(row.causes)) << window().txtCauses.text();
      user.click("frmFileError", "cmdAbort");
    });
    reader.OpenFile();
    EXPECT_EQ(std::tuple(reader.ErrorType(), reader.VBErrorCode(), reader.UserErrorChoice()),
              std::tuple(row.type, row.code, Int16{2}));
    EXPECT_TRUE(reader.ErrorOccurred());
    EXPECT_FALSE(reader.FileIsOpen());
    EXPECT_EQ(reader.LastAction(), 0);
  }
  script.finish();
}

TEST_F(SymbolFileTest, realFoldersMissingFilesAndLocksFailAsTold) {
  reader.setAllowAbortOperation(true);
  const auto failureOf = [&](const std::string& name) {
    reader.setFileSpec(name);
    script.window("frmFileError", [&] { user.click("frmFileError", "cmdAbort"); });
    reader.OpenFile();
    return std::pair(reader.ErrorType(), reader.VBErrorCode());
  };
  EXPECT_EQ(failureOf(folder.file("none")), std::pair(Int16{1}, Int16{53}));
  EXPECT_EQ(failureOf(folder.file("none/a")), std::pair(Int16{1}, Int16{76}));
  EXPECT_EQ(failureOf(folder.path()), std::pair(Int16{5}, Int16{75}));
  if (std::filesystem::exists("/dev/null")) {
    EXPECT_EQ(failureOf("/dev/null"), std::pair(Int16{5}, Int16{68}));
  }

  HostFiles elsewhere;
  ASSERT_FALSE(elsewhere.open(1, write("a\n"), true));
  EXPECT_EQ(failureOf(folder.file("a.sym")), std::pair(Int16{4}, Int16{70}));
  ASSERT_FALSE(elsewhere.close(1));
  reader.OpenFile();
  EXPECT_TRUE(reader.FileIsOpen());
  EXPECT_EQ(reader.UserErrorChoice(), 2);  // the earlier one stays
  script.finish();
}

TEST_F(SymbolFileTest, aRetryRunsTheFailedStatementAgainAndStaysOnRecord) {
  files.openErrors = {EACCES, ENOENT};
  for (int i = 0; i < 2; ++i)
    script.window("frmFileError", [&] { user.click("frmFileError", "cmdRetry"); });
  open("ab cd\n");
  EXPECT_TRUE(reader.FileIsOpen());
  EXPECT_TRUE(reader.ErrorOccurred());
  EXPECT_EQ(reader.UserErrorChoice(), 1);
  EXPECT_EQ(reader.ErrorType(), 4);  // of the last failure
  files.readErrors = {EIO};
  script.window("frmFileError", [&] { user.click("frmFileError", "cmdRetry"); });
  reader.ReadSymbol();
  EXPECT_EQ(reader.Symbol(), "ab");
  EXPECT_EQ(desktop.beeps(), 3);
  script.finish();
}

TEST_F(SymbolFileTest, closedByItsFrameTheWindowMeansNeitherAndEndProgramNeverReturns) {
  reader.setFileSpec(folder.file("none"));
  script.window("frmFileError", [&] {
    EXPECT_EQ(buttons(), "cmdRetry cmdEndProgram ");
    user.close("frmFileError");
  });
  reader.OpenFile();
  EXPECT_TRUE(reader.ErrorOccurred());
  EXPECT_EQ(reader.UserErrorChoice(), 0);
  script.window("frmFileError", [&] { user.click("frmFileError", "cmdEndProgram"); });
  EXPECT_THROW(reader.OpenFile(), ProgramEnded);
  script.finish();
}

TEST_F(SymbolFileTest, anAbortedReadEndsTheTokenInsteadOfAskingForEver) {
  open("  ab cd\n");
  reader.setAllowAbortOperation(true);
  files.readErrors = {EIO};
  script.window("frmFileError", [&] { user.click("frmFileError", "cmdAbort"); });
  reader.ReadSymbol();
  EXPECT_EQ(reader.Symbol(), "");
  EXPECT_EQ(reader.UserErrorChoice(), 2);
  EXPECT_EQ(symbols(reader), "[ab][cd]");
  script.finish();
}

TEST_F(SymbolFileTest, theWindowShowsAllItsTexts) {
  EXPECT_EQ(window().left(), (desktop.screenSize().width - window().width()) / 2);
  EXPECT_EQ(window().cmdRetry.tip(), "Retry the file operation");
  EXPECT_EQ(window().cmdAbort.tip(), "Abort the file operation but continue the program");
  EXPECT_EQ(window().cmdEndProgram.tip(), "End the program now");
  reader.setFileSpec(folder.file("none"));
  reader.setAllowAbortOperation(true);
  script.window("frmFileError", [&] {
    EXPECT_EQ(test::layoutFaults(window()), "");
    EXPECT_TRUE(window().cmdRetry.hasFocus());
    EXPECT_TRUE(user.get<TextBox>("frmFileError", "txtCauses").readOnly());
    user.click("frmFileError", "cmdAbort");
  });
  reader.OpenFile();
  script.finish();
}

}  // namespace
}  // namespace tolmer
