#include "base/paths.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "support/temp_folder.h"

namespace tolmer {
namespace {

namespace fs = std::filesystem;

TEST(Paths, BackslashIsAddedAndTakenOnce) {
  EXPECT_EQ(tAddBackSlash("C:\\zm"), "C:\\zm\\");
  EXPECT_EQ(tAddBackSlash("C:\\zm\\"), "C:\\zm\\");
  EXPECT_EQ(tAddBackSlash(""), "\\");
  EXPECT_EQ(tRemoveBackSlash("C:\\zm\\\\"), "C:\\zm\\");
  EXPECT_EQ(tRemoveBackSlash("C:\\zm"), "C:\\zm");
  EXPECT_EQ(tRemoveBackSlash(""), "");
}

TEST(Paths, ParentIsCutBehindTheLastSeparatorOrColon) {
  EXPECT_EQ(tParentFolder("C:\\zm\\tolmod"), "C:\\zm\\");
  EXPECT_EQ(tParentFolder("C:tolmod"), "C:");
  EXPECT_EQ(tParentFolder("tolmod"), "");
}

class HostPath : public testing::Test {
 protected:
  void SetUp() override {
    fs::create_directories(root_ / "Data" / "Own");
    std::ofstream(root_ / "Data" / "Own" / "Stack.CSV") << "x";
    std::ofstream(root_ / "Data" / "stack.csv") << "x";
    std::ofstream(root_ / "Data" / "STACK.csv") << "x";
  }
  std::string in(const std::string& tail) const { return coursePath(root_.string()) + tail; }

  test::TempFolder folder_;
  const fs::path root_ = folder_.path();
};

TEST_F(HostPath, TakesTheNameInOtherCaseWhereTheExactOneIsMissing) {
  EXPECT_EQ(hostPath(in("\\data\\OWN\\stack.csv")), root_ / "Data" / "Own" / "Stack.CSV");
  EXPECT_EQ(hostPath(in("\\Data\\stack.csv")), root_ / "Data" / "stack.csv");
  EXPECT_EQ(hostPath(in("\\Data\\Stack.csv")), root_ / "Data" / "STACK.csv")
      << "of two spellings the first in byte order";
}

TEST_F(HostPath, LeavesWhatDoesNotExistAsItStands) {
  EXPECT_EQ(hostPath(in("\\Data\\none.csv")), root_.string() + "/Data/none.csv");
  EXPECT_EQ(hostPath(""), "");
}

}  // namespace
}  // namespace tolmer
