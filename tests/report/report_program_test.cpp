#include "report/report_program.h"

#include "base/text_encoding.h"
#include "notebook/object_file.h"
#include "report_fixture.h"

namespace tolmer {
namespace {

using test::Json;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::StartsWith;

using ReportProgram = test::ReportFixture;

TEST_F(ReportProgram, ModelWithoutAnIntercept) {
  const Json document = json({table, "--y", "Rent", "--x", "Size", "--no-intercept"});
  EXPECT_EQ(document["state"]["iNumTerms"].text, "1");
  EXPECT_EQ(document["state"]["bUseIntercept"].text, "false");
  EXPECT_EQ(document["displays"]["frmANOVA"]["cells"][5][1].text, "NA");
}

TEST_F(ReportProgram, MessagesOfTheRunComeInOrderAndDoNotEndIt) {
  const std::string twins = write("twins.csv", "Y,A,B\n1,1,1\n3,2,2\n2,3,3\n5,4,4\n4,5,5\n");
  const Json document = json({twins, "--y", "Y"});
  ASSERT_EQ(document["messages"].items.size(), 4U);  // two auxiliary fits, the model, the classes
  EXPECT_THAT(document["messages"][3]["text"].text, StartsWith("Warning: "));
  const Json& message = document["messages"][2];
  EXPECT_THAT(message["text"].text, StartsWith("Singular variance-covariance matrix"));
  EXPECT_EQ(message["icon"].text, "critical");
  EXPECT_EQ(message["buttons"].text, "ok");
  EXPECT_EQ(message["answer"].text, "ok");
  EXPECT_EQ(document["state"]["bSingular"].text, "true");
  EXPECT_THAT(report({twins, "--y", "Y"}).output, HasSubstr("(no valid fit)"));

  const std::string few = write("few.csv", "Y,A,B\n1,1,7\n3,2,2\n2,3,9\n");
  EXPECT_EQ(json({few, "--y", "Y"})["messages"].items.back()["text"].text,
            "Too few cases for this model.");
}

TEST_F(ReportProgram, FaultsGoToStandardErrorWithTheirStatus) {
  const std::string bad = write("bad.csv", "Y,A\n1,2\n3,4x\n");
  struct Case {
    std::vector<std::string> words;
    int status;
    std::string text;
  };
  for (const Case& test :
       {Case{{"--nonsense"}, 2, "there is no option --nonsense"},
        Case{{table}, 2, "--y is missing; the variables are Rent, Size, Age"},
        Case{{table, "--y", "Height"}, 2, "the variables are Rent, Size, Age"},
        Case{{table, "--y", "Rent", "--labels", "Road"}, 2, "the columns are Street, Rent"},
        Case{{bad, "--y", "Y"}, 1, "first \"4x\" (line 3, column 2). Say it with --words empty."},
        Case{{(folder / "none.csv").string(), "--y", "Y"}, 1, "none.csv: cannot be opened"},
        Case{{"--default"}, 1, "tolmod.nbo"}}) {
    const ReportOutcome outcome = report(test.words);
    EXPECT_EQ(outcome.status, test.status) << outcome.errors;
    EXPECT_THAT(outcome.errors, HasSubstr(test.text));
    EXPECT_THAT(outcome.errors, StartsWith("tolreport: "));
    EXPECT_THAT(outcome.output, IsEmpty());
  }
  const ReportOutcome help = report({"--help"});
  EXPECT_EQ(help.status, 0);
  EXPECT_THAT(help.output, StartsWith("Usage: tolreport FILE"));
}

// More than a report shows is refused before it costs memory.
TEST_F(ReportProgram, LimitsAreToldWhereTheyArePassed) {
  std::string names = "x0", numbers = "1";
  for (int i = 1; i < 502; ++i) {
    names += ",x" + std::to_string(i);
    numbers += ",1";
  }
  const std::string wide = write("wide.csv", names + "\n" + numbers + "\n" + numbers + "\n");
  const ReportOutcome outcome = report({wide, "--y", "x0"});
  EXPECT_EQ(outcome.status, 2);
  EXPECT_THAT(outcome.errors, HasSubstr("501 independent variables, a report has at most 500"));
  std::string cells = names + "\n";
  for (int row = 0; row < 3985; ++row) cells += numbers + "\n";
  EXPECT_THAT(report({write("cells.csv", cells), "--y", "x0"}).errors,
              HasSubstr("2000470 cells, there is room for 2000000; choose with"));
  EXPECT_THAT(report({write("row.csv", std::string(40000, ',')), "--y", "x0"}).errors,
              HasSubstr("row.csv, line 1: more than 32768 fields"));
}

TEST_F(ReportProgram, NothingOfAFileActsOnTheTerminal) {
  const auto isQuiet = [](std::string text) {
    std::erase(text, '\n');
    return text == onOneLine(text);
  };
  const std::string nasty = write("n\x1b[2J\xC2\x9b.csv",
                                  "T,Y\x1b]0;x\x07,A\xC2\x90\xC2\x9f,B\x7f\n\"a\r\x9b\xC3\",1,2,4\n"
                                  "b\t\x1b[1m,3,1,3\nc,4,4,2\nd,2,3,7\ne,5,6,1\n");
  const std::string page = output({nasty, "--y", "Y ]0;x", "--labels", "T"}, "text");
  EXPECT_TRUE(isQuiet(page));
  EXPECT_THAT(page, HasSubstr("Y ]0;x"));
  EXPECT_TRUE(isQuiet(report({nasty, "--y", "Y\x1b"}).errors));
  EXPECT_TRUE(isQuiet(report({"none\x1b[2J\x9b"}).errors));
  EXPECT_TRUE(isQuiet(report({"--no\x1bsuch"}).errors));
}

// A course with examples on two pages of its third section, the second one with a wrong path.
class ReportOnCourse : public ReportProgram {
 protected:
  ReportOnCourse() {
    write("data/flats.csv", flats);
    Book book;
    book.tTitle = "Title";
    book.tChapter = "Ch. 17 Title";
    book.uSection.add({"Start", 1, 1});
    book.uSection.add({"Concepts", 2, 1});
    book.uSection.add({"Examples", 3, 3});
    book.uDefaultScenario = scenario("\\data\\flats.csv", "2");
    book.uScenario.add(scenario("\\data\\flats.csv", "3"));
    book.uScenario.add(scenario("\\data\\lost.csv", "1"));
    book.uScenario.add(scenario("\\data\\flats.csv", "1"));
    book.uScenarioElement.add({2, 1, 0});
    book.uScenarioElement.add({1, 3, 0});
    for (int plain = 0; plain < 3; ++plain) book.uPage.add({PageType::plain, 1, 0, 0, 0});
    book.uPageElement.add({ElementKind::scenario, 1, 0});
    book.uPageElement.add({ElementKind::scenario, 2, 0});
    book.uPage.add({PageType::scenario, 1, 1, 1, 0});
    book.uPage.add({PageType::scenario, 2, 1, 2, 0});
    write("tolmod/tolmod.nbo", objectFileText(book));
  }
  static Scenario scenario(const char* file, const char* dependent) {
    Scenario made;
    made.tName = "Flats";
    const char* parameters[] = {file, "", "False", "True", "10", "3", dependent};
    for (std::size_t i = 0; i < 7; ++i) made.tParameter[i + 1] = parameters[i];
    return made;
  }
};

TEST_F(ReportOnCourse, DefaultAndNumberedExamples) {
  EXPECT_THAT(json({"--default"})["equation"].text, StartsWith("Size = "));
  EXPECT_THAT(json({"--example", "1"})["equation"].text, StartsWith("Age = "));
  EXPECT_THAT(json({"--example", "3"})["equation"].text, StartsWith("Rent = "));
  const Json other = json({"--example", "3", "--y", "Age", "--x", "Rent", "--no-intercept"});
  EXPECT_EQ(other["state"]["iNumTerms"].text, "1");
  EXPECT_THAT(report({"--example", "4"}).errors,
              HasSubstr("there is no example 4; the course has 3"));
}

TEST_F(ReportOnCourse, MissingDataFileIsAFaultOfTheData) {
  const ReportOutcome outcome = report({"--example", "2"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_THAT(outcome.errors, HasSubstr("lost.csv. Check file and path."));
}

TEST_F(ReportProgram, ListsWhatAStatisticsFileHasToChooseFrom) {
  const std::string file = TOLMER_SOURCE_DIR "/fuzz/corpus/foreign_file/haven.sav";
  const std::string text = report({file, "--list"}).output;
  EXPECT_THAT(text, HasSubstr("haven.sav: 5 variables, 3 cases\n"));
  EXPECT_THAT(text,
              HasSubstr("kind   codes         2          2  Kind of house (1 = new, 2 = old"));
  const Json list = json({file, "--list"});
  EXPECT_EQ(list["cases"].text, "3");
  EXPECT_EQ(list["variables"][3]["kind"].text, "dates");
  EXPECT_EQ(list["variables"][4]["categories"][0]["name"].text, "new");
}

TEST_F(ReportProgram, SaysWhyAListCannotBeMade) {
  EXPECT_THAT(report({write("years.csv", "2019,2020\n5,6\n7,8\n"), "--list"}).errors,
              HasSubstr("--separator comma"));
  EXPECT_THAT(report({"--example", "1", "--list"}).errors, HasSubstr("goes with a file"));
}

}  // namespace
}  // namespace tolmer
