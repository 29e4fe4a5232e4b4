#include "figures/course_figures.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>

#include "base/file_io.h"
#include "support/table_of.h"
#include "support/temp_folder.h"
#include "support/tree.h"

namespace tolmer {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

const std::string dataFolder = TOLMER_SOURCE_DIR "/course/data/";

class CourseFigures : public testing::Test {
 protected:
  // Makes the figures of a list of one line; the message of what is wrong with it, or nothing.
  std::string make(const std::string& line) {
    const std::string list = folder_.file("figures.txt");
    std::ofstream(list) << "# file | data set | ...\n\n" << line << '\n';
    const auto figures = courseFigures(list);
    if (!figures) return figures.error().message();
    const auto error = writeFigures(*figures, dataFolder, folder_.path() + "/");
    return error ? error->message() : std::string();
  }

  std::string made(const std::string& name) {
    const auto content = readWholeFile(folder_.file(name));
    return content ? *content : std::string();
  }

  test::TempFolder folder_;
};

TEST_F(CourseFigures, AreDrawnWithTheAxesAndOptionsOfTheirLine) {
  EXPECT_EQ(make("a.svg | hills | Time | Climb | frmScatterPlot2 Climb:Time | 360x230"), "");
  EXPECT_THAT(made("a.svg"),
              AllOf(HasSubstr(R"(width="360" height="230")"), HasSubstr(">Climb<"),
                    HasSubstr(">Time<"), HasSubstr(">Correlation = 0.8052"), HasSubstr("#d91e18")));
  EXPECT_EQ(make("b.svg | hills | Time | all | frmScatterPlot1 Climb:Time no-line no-correlation | "
                 "360x230"),
            "");
  EXPECT_THAT(made("b.svg"), AllOf(Not(HasSubstr(">Correlation")), Not(HasSubstr("#d91e18"))));
  EXPECT_EQ(make("c.svg | hills | Time | all | frmScatterPlot3 Entry:Residuals | 360x230"), "");
  EXPECT_THAT(made("c.svg"), HasSubstr(">Order of Entry<"));
  EXPECT_EQ(make("d.adoc | hills | Time | Distance, no intercept | frmEstCoef | -"), "");
  EXPECT_THAT(made("d.adoc"), AllOf(HasSubstr("\nDistance\n"), Not(HasSubstr("Intercept"))));
}

TEST_F(CourseFigures, StandBesideOneAnotherWithoutLosingAnything) {
  const std::string graph = " | hills | Time | Climb | frmScatterPlot1 Climb:Time | 360x230\n";
  EXPECT_EQ(make("a.svg" + graph + "b.svg" + graph + "both.svg | beside | - | - | a.svg b.svg | -"),
            "");
  const auto count = [this](const std::string& name) {
    const std::string svg = made(name);
    return std::count(svg.begin(), svg.end(), '<');
  };
  EXPECT_THAT(made("both.svg"), HasSubstr(R"(width="730" height="230")"));
  constexpr int frame = 7;  // of all: svg, title and desc with their ends, and the ground
  EXPECT_EQ(count("both.svg") - frame, 2 * (count("a.svg") - frame));
  EXPECT_THAT(make("both.svg | beside | - | - | none.svg | -"),
              HasSubstr("figures.txt:3: no graph"));
}

TEST_F(CourseFigures, AreRefusedWithTheirLine) {
  const std::string hills = "| hills | Time | all | ";
  EXPECT_THAT(make("a.svg " + hills + "frmResidHist"), HasSubstr("figures.txt:3: there are 5"));
  EXPECT_THAT(make("a.svg " + hills + "frmNone | 360x230"),
              HasSubstr("figures.txt:3: there is no"));
  EXPECT_THAT(make("a.svg " + hills + "frmResidHist | 360"), HasSubstr("figures.txt:3: \"360\""));
  EXPECT_THAT(make("a.svg " + hills + "frmResidHist no-lines | 360x230"),
              HasSubstr("figures.txt:3: \"no-lines\""));
  EXPECT_THAT(make("a.svg " + hills + "frmScatterPlot1 Time:None | 360x230"),
              AllOf(HasSubstr("figures.txt:3: "), HasSubstr("None")));
  EXPECT_THAT(make("a.svg " + hills + "frmANOVA | -"), HasSubstr("only graphs are .svg"));
  EXPECT_THAT(make("a.adoc " + hills + "frmResidHist | 360x230"), HasSubstr("ends in .svg"));
  EXPECT_THAT(make("a.svg | hills | Tyme | all | frmResidHist | 360x230"),
              AllOf(HasSubstr("figures.txt:3: "), HasSubstr("\"Tyme\"")));
  EXPECT_THAT(make("a.svg | none | Time | all | frmResidHist | 360x230"), HasSubstr("none.csv"));
}

// What is built from the figures must not be built anew without need.
TEST_F(CourseFigures, KeepTheirTimeWhereTheyStayAsTheyAre) {
  const std::string line = "a.svg | hills | Time | all | frmResidHist | 360x230";
  ASSERT_EQ(make(line), "");
  const auto longAgo = std::filesystem::file_time_type::min() + std::chrono::hours(24 * 365 * 200);
  std::filesystem::last_write_time(folder_.file("a.svg"), longAgo);
  ASSERT_EQ(make(line), "");
  EXPECT_EQ(std::filesystem::last_write_time(folder_.file("a.svg")), longAgo);
  ASSERT_EQ(make("a.svg | hills | Time | all | frmResidHist | 360x240"), "");
  EXPECT_NE(std::filesystem::last_write_time(folder_.file("a.svg")), longAgo);
}

TEST(FigureTables, EscapeBarsAndTintMarks) {
  const std::string text =
      figureTable(test::tableOf({{test::head("A|B"), test::head("P", Align::centre)},
                                 {test::head("{x}"), test::figure("0.001", CellMark::pBelow01)},
                                 {test::frame, test::frame},
                                 {test::key("p < .01", CellMark::pBelow01), test::frame}}));
  EXPECT_THAT(text, AllOf(HasSubstr("A\\|B"), HasSubstr("\\{x}"), HasSubstr("cols=\"<,>\""),
                          HasSubstr("#A9EEF4}0.001\n"), HasSubstr("#A9EEF4}p < .01\n")));
  // No colour may run on into the next table.
  EXPECT_THAT(text.substr(text.find("p < .01")), HasSubstr("cellbgcolor!}"));
}

}  // namespace
}  // namespace tolmer
