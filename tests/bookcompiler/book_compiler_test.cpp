#include "bookcompiler/book_compiler.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "base/file_io.h"
#include "notebook/object_file.h"
#include "support/temp_folder.h"

namespace tolmer {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;
using testing::IsEmpty;

// A course in a folder of its own, and what the compiler says of sources in it.
class BookCompiler : public testing::Test {
 protected:
  void SetUp() override {
    fs::create_directories(folders.program + "/figures");
    fs::create_directories(folders.root + "/data");
    put("data/a.csv", "Y,X\n1,2\n3,4\n5,6\n");
    put("data/b.csv", "Town,Y,X\n\"A, north\",1,2\nB,3,4\n");
    put("data/a.inf", "Comment\nFirst\nSecond\n");
    put("tolmod/p.png",
        std::string_view("\x89PNG\r\n\x1A\n\0\0\0\x0DIHDR\0\0\0\x40\0\0\0\x20", 24));
    put("tolmod/x.png", "no picture at all, in spite of its name");
    put("tolmod/x.svg", "<svg width='100%' viewBox='0 0'>");
    put("tolmod/figures/p.svg",
        "<?xml version='1.0'?>\n<!-- drawn -->\n<svg\n height='90px' width='120'>");
  }

  void put(const std::string& name, std::string_view bytes) {
    ASSERT_FALSE(writeFileAtomically(folders.root + "/" + name, bytes));
  }

  // "line: reason" lines.
  std::string complaints(const std::string& source) {
    std::string all;
    for (const Complaint& complaint : compileBook(source, folders).complaints)
      all += std::to_string(complaint.line) + ": " + complaint.text + "\n";
    return all;
  }

  Book compiled(const std::string& source) {
    const auto result = compileBook(source, folders);
    EXPECT_FALSE(result.hasErrors) << result.complaints.front().text;
    FieldReader fields("x.nbo", result.objectText);
    const auto book = readBook(fields);
    EXPECT_TRUE(book) << book.error().message();
    return book ? *book : Book();
  }

  test::TempFolder folder;
  CourseFolders folders{folder.path(), folder.file("tolmod")};
};

const std::string parameters = "parameters: \\data\\a.csv, \\data\\a.inf, True, False, 3, 2, 1\n";
const std::string head = "title: T\nchapter: C\ndefault scenario: D\n" + parameters;  // 4 lines
const std::string minimal = head + "section: S\npage: plain\n";                       // 6 lines

TEST_F(BookCompiler, compilesEveryKindOfLine) {
  const Book book = compiled(
      "\xEF\xBB\xBF# a comment\n\ntitle: Title\nchapter: Ch. 17 Größen\ndefault scenario: "
      "Standard\n"
      "description: one\n  two\r\n\tthree \n |  four\n" +
      parameters +
      "section: First\npage: plain\nheading: H\ntext indent bold: Text: with, comma\nspace:\n"
      "jump bold 2.1: Go\njump 0.1: Stay\ncheck indent 2: Box\nversion 7: Number\npicture: "
      "figures\\p.svg\n"
      "section: Second\npage: scenario\nscenarios 1:\nscenario: A\ndescription: About A\n" +
      parameters + "scenario: B\nparameters: \\DATA\\B.CSV, , False, True, 2, 2, 0\n" +
      "page: database\noutline 2:\ngroup 1 open: G\ndescription: About G\ndatabase 2: D\n"
      "description: About D\nshort: d\ndata: \\data\\a.csv\nlabels: \\data\\a.inf\n"
      "column heading: Case\nentry 2: E\npage: 3\ndefault database: One\nshort: o\n");
  EXPECT_EQ(book.tTitle, "Title");
  EXPECT_EQ(book.tChapter, "Ch. 17 Größen");
  EXPECT_EQ(book.uDefaultScenario.tDesc, "one two three\nfour");
  EXPECT_EQ(book.uSection[2], (SectionRecord{"Second", 2, 3}));
  EXPECT_EQ(book.uPage[1], (PageRecord{PageType::plain, 1, 8, 0, 0}));
  EXPECT_EQ(book.uPage[2], (PageRecord{PageType::scenario, 9, 1, 1, 0}));
  EXPECT_EQ(book.uPage[3], (PageRecord{PageType::database, 10, 1, 0, 1}));
  EXPECT_EQ(book.uPage[4].iPageType, 3);
  EXPECT_EQ(book.uText[1], (TextElement{"Text: with, comma", true, EmphasisStyle::bold}));
  EXPECT_EQ(book.uJump[1], (JumpElement{"Go", false, EmphasisStyle::bold, 2, 1}));
  EXPECT_EQ(book.uJump[2], (JumpElement{"Stay", false, EmphasisStyle::plain, 0, 1}));
  EXPECT_EQ(book.uCheck[1], (ValueElement{"Box", true, 0, 2}));
  EXPECT_EQ(book.uVersion[1], (ValueElement{"Number", false, 0, 7}));
  EXPECT_EQ(book.uPageElement[3], (PageElement{ElementKind::space, 0, 0}));
  EXPECT_EQ(book.uPageElement[8], (PageElement{ElementKind::bitmap, 1, 0}));
  EXPECT_EQ(book.uScenarioElement[1], (ScenarioElement{2, 1, 1}));
  EXPECT_EQ(book.uScenario[1].tDesc, "About A");
  EXPECT_EQ(book.uScenario[2].tParameter[1], "\\DATA\\B.CSV");
  EXPECT_EQ(book.uScenario[2].tParameter[7], "0");
  const OutlineEntry entry{0, 0, 0, 1, 3};
  EXPECT_EQ(book.uOutline[1], (OutlineElement{2, 0, 0, {OutlineEntry{}, entry, entry}}));
  EXPECT_EQ(book.uDatabase[1].tDataFileName, "group");
  EXPECT_EQ(book.uDatabase[1].bExpanded, (std::array<bool, 3>{false, true, true}));
  EXPECT_EQ(book.uDatabase[2],
            (Database{"D", "d", 2, "About D", "\\data\\a.csv", "\\data\\a.inf", "Case", {}}));
  EXPECT_EQ(book.uDatabase[3].tDataFileName, "Group") << "opens nothing, but is no heading";
  EXPECT_EQ(book.uDefaultDatabase[1].tShortName, "o");
  EXPECT_EQ(book.uDefaultDatabase[2], Database{});
}

TEST_F(BookCompiler, namesLineAndReasonOfEachFault) {
  const std::string scenarioPage = head + "section: S\npage: scenario\nscenarios 0:\nscenario: A\n";
  const std::string databasePage = head + "section: S\npage: database\noutline:\n";
  const struct {
    std::string source;
    const char* complaint;
  } cases[] = {
      {"", "1: the book has no title\n1: the book has no chapter\n1: the book has no default"},
      {head, "1: section: the book has no section"},
      {head + "section: S\n", "5: section: it has no page"},
      {head + "page: plain\n", "5: a page stands in no section"},
      {head + "text: x\n", "5: this stands on no page"},
      {minimal + "txet: x\n", "7: unknown keyword \"txet\""},
      {minimal + "no keyword\n", "7: a keyword and a colon were expected"},
      {"  goes on\n" + minimal, "1: this line goes on with a text, but there is none"},
      {minimal + "text: a \"b\"\n", "7: a double quote cannot be written"},
      {minimal + "text: a\n b \"c\"\n", "8: a double quote cannot be written"},
      {minimal + "heading: a\n | b\n", "8: only a text and a description may have lines"},
      {minimal + "text: a\x01\n", "7: a control character"},
      {minimal + "text: caf\xE9\n", "7: this line is not UTF-8"},
      {minimal + "text:\n", "7: a text is missing behind \"text:\""},
      {minimal + "space: x\n", "7: no text can stand behind \"space:\""},
      {minimal + "text italic: x\n", "7: \"italic\" has no meaning behind \"text\""},
      {minimal + "text 5: x\n", "7: \"5\" has no meaning"},
      {minimal + "heading bold: x\n", "7: \"bold\" has no meaning"},
      {minimal + "version 40000: x\n", "7: \"40000\" has no meaning"},
      {minimal + "check 3: x\n", "7: check element: its value 3 is not 0, 1 or 2"},
      {minimal + "jump: x\n", "7: a jump names section and page"},
      {minimal + "jump 1.2: x\n", "7: jump element: there is no page 2 of section 1"},
      {minimal + "jump 0.2: x\n", "7: jump element: there is no page 2 of section 1"},
      {minimal + "jump 2.1: x\n", "7: jump element: there is no page 1 of section 2"},
      {minimal + "picture: q.png\n", "7: there is no file q.png"},
      {minimal + "picture: x.png\n", "7: x.png is no PNG picture and no SVG"},
      {minimal + "picture: x.svg\n", "7: x.svg is no PNG picture and no SVG"},
      {minimal + "entry 1: E\n", "7: \"entry:\" stands in no outline"},
      {head + "description: x\ndescription: y\n", "6: a second \"description:\""},
      {minimal + "title: again\n", "7: a second \"title:\""},
      {minimal + "page: seven\n", "7: a page is plain, picture, scenario, database or a number"},
      {minimal + "page: scenario\n", "7: a scenario page needs a list of scenarios"},
      {minimal + "page: 8\n", "7: a database page needs an outline"},
      {minimal + "scenarios 0:\nscenario: A\n" + parameters, "7: a list of scenarios belongs on"},
      {minimal + "scenario: A\n" + parameters, "7: a scenario stands in no list"},
      {minimal + parameters, "7: \"parameters:\" belongs to a scenario"},
      {minimal + "description: x\n", "7: \"description:\" belongs to a scenario or database"},
      {minimal + "short: x\n", "7: \"short:\" belongs to a database"},
      {scenarioPage, "8: the scenario has no \"parameters:\" line"},
      {scenarioPage + parameters + parameters, "10: a second \"parameters:\""},
      {scenarioPage + parameters + "scenarios 0:\nscenario: B\n" + parameters,
       "10: a page has one list of scenarios"},
      {head + "section: S\npage: scenario\nscenarios 1:\nscenario: A\n" + parameters,
       "7: scenario element: selection 1 is not within 0 to 0"},
      {head + "section: S\npage: scenario\nscenarios 0:\n",
       "7: scenario element: it lists 0 scenarios"},
      {databasePage, "7: outline element: its list is empty"},
      {databasePage + "group 1: G\ndata: \\data\\a.csv\n", "9: a group or an entry has no files"},
      {databasePage + "entry 1: E\nlabels: \\data\\a.inf\n", "9: a group or an entry has no files"},
      {databasePage + "database 1: D\ndata: \\data\\none.csv\n", "9: there is no file"},
      {databasePage + "database 1: D\ndata: data\\a.csv\n", "9: a path must begin with a"},
      {databasePage + "database -1: D\n", "8: database: its level is below 0"},
      {head + "section: S\npage: database\noutline 3:\ndatabase 1: D\n",
       "7: outline element: it has 3 outlines"},
      {head +
           [] {
             std::string nine;
             for (int i = 0; i < 9; ++i) nine += "section: S\npage: plain\n";
             return nine;
           }(),
       "21: this would be section 9, a book has at most 8"},
      {minimal + "default database: A\ndefault database: B\ndefault database: C\n",
       "9: a book has at most 2 default databases"},
  };
  for (const auto& one : cases) EXPECT_THAT(complaints(one.source), HasSubstr(one.complaint));
}

TEST_F(BookCompiler, aFifthScenarioOfAPageIsRefused) {
  std::string source = head + "section: S\npage: scenario\nscenarios 3:\n";
  for (int i = 0; i < 4; ++i) source += "scenario: A\n" + parameters;
  EXPECT_THAT(complaints(source), IsEmpty());
  EXPECT_EQ(complaints(source + "scenario: B\n" + parameters),
            "16: a page lists at most 4 scenarios\n");
}

TEST_F(BookCompiler, checksTheSevenParametersAndReadsTheDataSetsAsTheProgramWill) {
  put("data/bad.csv", "Y,X\n1,2\n3,x\n5,6\n");
  put("data/gap.csv", "Town,Y,X\nA,1,2\nB,3,\nC,5,6\n");
  put("data/odd.csv", "Y,X\n1,2\n3\n5,6\n");
  put("data/unsure.csv", "Y;X\n1,234;2\n3,456;4\n");
  put("data/short.inf", "Comment\nFirst\n");
  const auto with = [this](const std::string& values) {
    return complaints("title: T\nchapter: C\ndefault scenario: D\nparameters: " + values +
                      "\nsection: S\npage: plain\n");
  };
  const std::string files = "\\data\\a.csv, \\data\\a.inf, ";
  EXPECT_THAT(with(files + "True, False, 3, 2, 2"), IsEmpty());
  EXPECT_THAT(with("\\data\\b.csv, none, False, True, 2, 2, 1"), IsEmpty());
  const struct {
    std::string values;
    const char* complaint;
  } cases[] = {
      {files + "True, False, 3, 2", "4: a scenario has 7 parameters, here are 6"},
      {files + "True, False, 3, 2, 1, x", "4: a scenario has 7 parameters, here are 8"},
      {files + "yes, False, 3, 2, 1", "parameter 3, is there an information file, must be"},
      {files + "True, 0, 3, 2, 1", "parameter 4, are there labels, must be True or False"},
      {files + "True, False, 0, 2, 1", "parameter 5, the number of cases, must be a whole"},
      {files + "True, False, 40000, 2, 1", "from 1 to 32767, not \"40000\""},
      {files + "True, False, 3, x, 1", "parameter 6, the number of columns"},
      {files + "True, False, 3, 2, 0", "parameter 7, the dependent column, must be a whole"},
      {files + "True, False, 3, 2, 3", "from 1 to 2, not \"3\""},
      {"data\\a.csv, \\data\\a.inf, True, False, 3, 2, 1", "parameter 1, the data file, must"},
      {"\\data\\a.csv, a.inf, True, False, 3, 2, 1", "parameter 2, the information file, must"},
      {"\\data\\c.csv, , False, False, 3, 2, 1", "4: \\data\\c.csv: cannot be opened"},
      {"\\data\\a.csv, , False, False, 4, 2, 1",
       "4: the parameters say 4 cases, \\data\\a.csv has 3"},
      {"\\data\\a.csv, , False, False, 2, 2, 1", "the parameters say 2 cases, \\data\\a.csv has 3"},
      {"\\data\\a.csv, , False, False, 3, 3, 1",
       "the parameters say 3 columns of numbers, \\data\\a.csv has 2"},
      {"\\data\\a.csv, , False, False, 6, 1, 1",
       "the parameters say 1 columns of numbers, \\data\\a.csv has 2"},
      {"\\data\\b.csv, , False, False, 2, 3, 1", "\\data\\b.csv:2: field 4: a number was"},
      {"\\data\\b.csv, , False, False, 2, 2, 1", "say 2 columns of numbers, \\data\\b.csv has 3"},
      {"\\data\\a.csv, , False, False, , , 3", "the dependent column is 3, \\data\\a.csv has 2"},
      {"\\data\\..\\..\\a.csv, , False, False, , , 1", "must not lead out of the course"},
      {"\\data\\gap.csv, , False, True, 3, 2, 1",
       "4: \\data\\gap.csv:3: column 3 (X): the cell is empty"},
      {"\\data\\gap.csv, , False, True, , , 1", "gap.csv:3: column 3 (X): the cell is empty"},
      {"\\data\\odd.csv, , False, False, , , 1", "\\data\\odd.csv:3: 1 fields, other lines have 2"},
      {"\\data\\unsure.csv, , False, False, , , 1", "commas may divide decimals or thousands"},
      {"\\data\\bad.csv, , False, False, 3, 2, 1", "\\data\\bad.csv:3: field 6: a number was"},
      {"\\data\\a.csv, \\data\\short.inf, True, False, 3, 2, 1", "4: \\data\\short.inf:3: field 3"},
  };
  for (const auto& one : cases) EXPECT_THAT(with(one.values), HasSubstr(one.complaint));
}

// What is written for the program: the counted sizes, and how to know and read the file again.
TEST_F(BookCompiler, countsTheDataAndReadsTheMarksOfTheEditor) {
  const struct {
    const char* bytes;
    const char* marks;
  } cases[] = {{"Town,Y,X\nA,1,2.5\nB,3,4\n", "comma point"},
               {"Town;Y;X\nKöln;1,5;2\nBonn;3,25;4\n\n", "semicolon comma"},
               {"Town;Y;X\nA;1.5;2\nB;3;4\n", "semicolon point"},
               {"Town\tY\tX\nA b\t1,5\t2\nB\t3\t4\n", "tab comma"},
               {"Town Y   X\nA   1.5 2\n\"B\" 3   4\n", "blank point"}};
  for (const auto& [bytes, marks] : cases) {
    SCOPED_TRACE(bytes);
    put("data/c.csv", bytes);
    const Book book = compiled(
        "title: T\nchapter: C\ndefault scenario: D\nparameters: \\data\\c.csv, \\data\\a.inf, "
        "True, "
        "True, , , 1\nsection: S\npage: plain\n");
    const auto& parameter = book.uDefaultScenario.tParameter;
    EXPECT_EQ(parameter[5], "2");
    EXPECT_EQ(parameter[6], "2");
    EXPECT_EQ(parameter[8], "crc " + checksumText(bytes) + " " + marks);
    EXPECT_THAT(parameter[9], HasSubstr(" comma point"));
  }
}

TEST_F(BookCompiler, aPathNeverLeadsOutOfItsFolder) {
  const std::string outline = head + "section: S\npage: database\noutline:\ndatabase 1: D\n";
  for (const std::string& source :
       {minimal + "picture: ..\\tolmod\\p.png\n", minimal + "picture: ../tolmod/p.png\n",
        outline + "data: \\tolmod\\..\\data\\a.csv\n", outline + "labels: \\..\\a.inf\n"})
    EXPECT_THAT(complaints(source), HasSubstr("must not lead out of its folder")) << source;
}

TEST_F(BookCompiler, onlyExamplesNeedADependentColumn) {
  const std::string list =
      "page: scenario\nscenarios 0:\nscenario: A\n"
      "parameters: \\data\\a.csv, , False, False, 3, 2, 0\n";
  const std::string two = minimal + "section: Two\npage: picture\n";
  const std::string overview = "page: picture\n";
  EXPECT_THAT(complaints(two + "section: Examples\n" + overview + list),
              HasSubstr("14: parameter 7"));
  EXPECT_THAT(
      complaints(two + "section: Examples\n" + overview + "section: Databases\n" + overview + list),
      IsEmpty());
}

TEST_F(BookCompiler, warnsOfWhatDoesNotFitOnItsPage) {
  std::string lines = minimal;
  for (int i = 0; i < 17; ++i) lines += "text: One line of text.\n";
  EXPECT_THAT(complaints(lines), IsEmpty());
  for (int i = 0; i < 4; ++i) lines += "text: One line of text.\n";
  const auto result = compileBook(lines, folders);
  EXPECT_FALSE(result.hasErrors);
  ASSERT_EQ(result.complaints.size(), 1U);
  EXPECT_TRUE(result.complaints[0].isWarning);
  EXPECT_EQ(result.complaints[0].line, 6) << "where the page begins";
  EXPECT_THAT(result.complaints[0].text, HasSubstr("pixels too low"));

  std::string longName;
  for (int i = 0; i < 40; ++i) longName += "long ";
  EXPECT_THAT(complaints(minimal + "check 0: " + longName + "\n"), HasSubstr("is too long"));
  std::string list = head + "section: S\npage: scenario\nscenarios:\n";
  for (int i = 0; i < 4; ++i) list += "scenario: " + longName + "\n" + parameters;
  EXPECT_THAT(complaints(list), HasSubstr("6: the scenario's name"));
}

TEST_F(BookCompiler, warnsOfWhatAStudentWouldStumbleOver) {
  const std::string more = "much more than there is room for, ";
  const std::string tooLong = more + more + more + more;
  const std::string list = "scenarios 0:\nscenario: A\n" + parameters;
  const std::string three =
      minimal + "section: Two\npage: picture\nsection: Three\npage: picture\n";
  const std::string database = "page: database\noutline:\ndatabase 1: D\ndescription: ";
  const char* const opensNothing = "OK opens no data on this page";
  const struct {
    std::string source;
    std::string warning;  // empty for none
  } cases[] = {
      {minimal + "version 100: x\n", "7: a version is a number from 0 to 99, not 100\n"},
      {minimal + "version -1: x\nversion 99: y\n", "7: a version is a number"},
      {"\ntitle: " + tooLong + minimal.substr(minimal.find('\n')), "2: the title is too long"},
      {"title: T\nchapter: " + tooLong + minimal.substr(minimal.find("\ndef")),
       "2: the chapter is"},
      {head + "section: " + tooLong + "\npage: plain\n", "5: there is no room for all tabs"},
      {three + database + tooLong + tooLong + tooLong + tooLong + "\n",
       "11: the description of \"D\""},
      {three + "page: scenario\n" + list, ""},
      {minimal + "page: scenario\n" + list, ""},
      {three + "page: plain\n", std::string("11: ") + opensNothing},
      {three + database + "short\n", std::string("11: ") + opensNothing},
      {three + "page: database\noutline:\ngroup 1: G\nentry 2: E\n", ""},
      {three + "page: picture\npicture: p.png\n", std::string("11: ") + opensNothing},
      {minimal + "section: Two\npage: scenario\n" + list, std::string("8: ") + opensNothing},
  };
  for (const auto& [source, warning] : cases) {
    EXPECT_FALSE(compileBook(source, folders).hasErrors) << warning;
    EXPECT_THAT(complaints(source),
                warning.empty() ? testing::Matcher<std::string>(IsEmpty()) : HasSubstr(warning));
  }
}

TEST_F(BookCompiler, isAProgramWithThreeExitStatuses) {
  put("s.txt", minimal);
  put("bad.txt", minimal + "foo: x\n");
  const std::string source = folders.root + "/s.txt", bad = folders.root + "/bad.txt";
  const std::string output = folders.program + "/tolmod.nbo";
  std::string report;
  for (const auto& arguments :
       std::vector<std::vector<std::string>>{{},
                                             {source, output},
                                             {source, "--root", folders.root},
                                             {source, output, "--root"},
                                             {source, output, "x", "--root", folders.root},
                                             {source, output, "--roof", folders.root}})
    EXPECT_EQ(compileNotebook(arguments, report), 2);
  EXPECT_THAT(report, HasSubstr("usage: nbocompile SOURCE OUTPUT --root FOLDER\n"));

  EXPECT_EQ(compileNotebook({"--help"}, report), 0);
  report.clear();
  EXPECT_EQ(compileNotebook({"--root", folders.root, source, output}, report), 0);
  EXPECT_EQ(report, "");
  const std::string before = *readWholeFile(output);
  EXPECT_EQ(compileNotebook({bad, output, "--root", folders.root}, report), 1);
  EXPECT_EQ(report, bad + ":7: unknown keyword \"foo\"\n");
  EXPECT_EQ(*readWholeFile(output), before) << "a refused source leaves the old book";
  report.clear();
  put("e\x1b[2J.txt", minimal + "f\xC2\x9boo: x\n");
  EXPECT_EQ(
      compileNotebook({folders.root + "/e\x1b[2J.txt", output, "--root", folders.root}, report), 1);
  EXPECT_EQ(report, folders.root + "/e?[2J.txt:7: unknown keyword \"f?oo\"\n");
  EXPECT_EQ(compileNotebook({folders.root + "/none", output, "--root", folders.root}, report), 1);
  EXPECT_EQ(compileNotebook({source, folders.root + "/none/x", "--root", folders.root}, report), 1);
}

}  // namespace
}  // namespace tolmer
