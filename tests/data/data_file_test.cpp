#include "data/data_file.h"

#include "base/file_io.h"
#include "course_folder.h"
#include "platform/headless/headless_desktop.h"

namespace tolmer {
namespace {

using test::CourseFolder;
using ::testing::ElementsAre;

class DataFile : public testing::Test {
 protected:
  WorkingCopy sized(Int16 cases, Int16 cols, bool labeled) const {
    WorkingCopy copy;
    copy.miNumCases = cases;
    copy.miNumCols = cols;
    copy.mbLabeledData = labeled;
    DimensionModelDesignerArrays(copy);
    return copy;
  }
  WorkingCopy readData(std::string_view bytes, Int16 cases, Int16 cols, bool labeled) {
    WorkingCopy copy = sized(cases, cols, labeled);
    copy.mtDataFileName = folder.write("set.csv", bytes);
    ReadNewData(copy, desktop);
    return copy;
  }
  WorkingCopy readInfo(std::string_view bytes, Int16 cols) {
    WorkingCopy copy = sized(1, cols, false);
    copy.mtDataFileInfoName = folder.write("set.inf", bytes);
    ReadVarInfo(copy, desktop);
    return copy;
  }
  // One box that names the file, and nothing else.
  void expectProblemWith(const std::string& name) {
    ASSERT_EQ(desktop.boxes().size(), 1U);
    const MessageBox& box = desktop.boxes()[0].box;
    EXPECT_EQ(box.title, "Error");
    EXPECT_EQ(box.text, "Problem with file " + folder.file(name) + ". Check file and path.");
    EXPECT_EQ(box.icon, MessageIcon::exclamation);
    EXPECT_EQ(box.buttons, MessageButtons::ok);
  }

  CourseFolder folder;
  HeadlessDesktop desktop;
};

TEST_F(DataFile, LabelledSetWithQuotesAndWindowsLineEnds) {
  const auto copy = readData(
      "\"Town, county\",Rent,\"Room size\"\r\n\"Aarau, AG\",1.5,-2\r\nBern (old town),+3e2,\r\n", 2,
      2, true);
  EXPECT_TRUE(desktop.boxes().empty());
  EXPECT_EQ(copy.mtLabelColName, "Town, county");
  EXPECT_THAT(copy.otColName.values(), ElementsAre("Intercept", "Rent", "Room size"));
  EXPECT_THAT(copy.otCaseLabel.values(), ElementsAre("", "Aarau, AG", "Bern (old town)"));
  EXPECT_EQ(copy.osData(1, 1), 1.5F);
  EXPECT_EQ(copy.osData(1, 2), -2.0F);
  EXPECT_EQ(copy.osData(2, 1), 300.0F);
  EXPECT_EQ(copy.osData(2, 2), 0.0F);  // an empty field
  EXPECT_EQ(copy.osData(2, 0), 1.0F);  // the intercept's column
  EXPECT_EQ(copy.osData(0, 0), 0.0F);  // row 0 is never filled
}

TEST_F(DataFile, FieldsAreCountedWhateverTheLines) {
  const auto split = readData("A\nB\n1,2 3\n4 and more that is not read", 2, 2, false);
  EXPECT_TRUE(desktop.boxes().empty());
  EXPECT_EQ(split.osData(1, 2), 2.0F);
  EXPECT_EQ(split.osData(2, 2), 4.0F);
  EXPECT_THAT(split.otCaseLabel.values(), ElementsAre("", "", ""));
}

// Cut within its last number a file still reads; the notebook's stamp knows.
TEST_F(DataFile, NothingIsReadOfAFileThatIsNotTheOneOfTheStamp) {
  const std::string whole = "A;B\n1,5;2\n3;45\n";
  WorkingCopy copy = sized(2, 2, false);
  copy.dataStamp = stampFromText("crc " + checksumText(whole) + " semicolon comma");
  ASSERT_TRUE(copy.dataStamp);
  copy.mtDataFileName = folder.write("set.csv", whole);
  ReadNewData(copy, desktop);
  EXPECT_TRUE(desktop.boxes().empty());
  EXPECT_EQ(copy.osData(1, 1), 1.5F);
  EXPECT_EQ(copy.osData(2, 2), 45.0F);

  WorkingCopy cut = sized(2, 2, false);
  cut.dataStamp = copy.dataStamp;
  cut.mtDataFileName = folder.write("set.csv", whole.substr(0, whole.size() - 2));
  ReadNewData(cut, desktop);
  ASSERT_EQ(desktop.boxes().size(), 1U);
  EXPECT_EQ(desktop.boxes()[0].box.text, "Problem with file " + folder.file("set.csv") +
                                             ". Check file and path. " + changedFile);
  EXPECT_EQ(cut.miNumCases, 0) << "zeros would be analysed as data";
  EXPECT_EQ(cut.miNumCols, 0);
}

TEST_F(DataFile, FaultInTheMiddleKeepsWhatWasReadBefore) {
  const auto copy = readData("A,B\n1,2\n3,x\n5,6\n", 3, 2, false);
  expectProblemWith("set.csv");
  EXPECT_EQ(copy.osData(2, 1), 3.0F);
  EXPECT_EQ(copy.osData(2, 2), 0.0F);
  EXPECT_EQ(copy.osData(3, 1), 0.0F);
}

TEST_F(DataFile, InformationIsTakenLineByLineAsItStands) {
  const auto copy = readInfo(" Rents, 1990\n\"net\" rent, in francs\r\n\nnot read\n", 2);
  EXPECT_TRUE(desktop.boxes().empty());
  EXPECT_THAT(copy.otVarInfo.values(), ElementsAre(" Rents, 1990", "\"net\" rent, in francs", ""));
}

}  // namespace
}  // namespace tolmer
