#include "data/show_data.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "course_folder.h"
#include "platform/headless/headless_desktop.h"
#include "platform/user_input.h"
#include "support/headless_user.h"
#include "support/script.h"

namespace tolmer {
namespace {

using test::dataSet;
using testing::HasSubstr;
using testing::StartsWith;

std::string rowOf(const Grid& grid, int row) {
  std::string texts;
  for (int col = 1; col <= grid.maxCols(); ++col) texts += "[" + grid.text(row, col) + "]";
  return texts;
}

class ShowData : public testing::Test {
 protected:
  std::unique_ptr<frmShowData> listOf(const WorkingCopy& copy) {
    auto list = std::make_unique<frmShowData>(desktop, copy);
    list->PositionControls();
    list->UpdateDisplay();
    return list;
  }
  HeadlessDesktop desktop;
};

TEST_F(ShowData, OnePictureServesAWholeColumn) {
  const WorkingCopy labelled = dataSet(4, 2, true);
  const auto list = listOf(labelled);
  EXPECT_EQ(rowOf(list->spdShowData, 1), "[Case][Town][Variable 1][Variable 2]");
  EXPECT_EQ(rowOf(list->spdShowData, 3), "[2][Town 2 ][1.50][2.50]");
  EXPECT_EQ(rowOf(list->spdShowData, 5), "[4][Town 4 ][2.00][3.00]");

  const WorkingCopy bare = dataSet(4, 1, false);
  EXPECT_EQ(rowOf(listOf(bare)->spdShowData, 2), "[1][1.25]");
  const WorkingCopy nothing = dataSet(3, 0, false);
  EXPECT_EQ(rowOf(listOf(nothing)->spdShowData, 4), "[3]");
}

TEST_F(ShowData, ASmallTableGetsASmallWindowAndALargeOneScrolls) {
  const WorkingCopy few = dataSet(4, 2, true);
  const auto small = listOf(few);
  const Size table = small->spdShowData.contentSize();
  EXPECT_LE(table.width, small->innerWidth());
  EXPECT_LE(small->innerHeight(), 200 * twipsPerPixel);
  EXPECT_EQ(small->spdShowData.scrollBars(), ScrollBars::none);
  EXPECT_EQ(small->spdShowData.place(), (Rect{0, 0, small->innerWidth(), small->innerHeight()}));

  const WorkingCopy many = dataSet(500, 50, true);
  const auto large = listOf(many);
  EXPECT_EQ(large->innerWidth(), desktop.screenSize().width * 0.8F);
  EXPECT_EQ(large->innerHeight(), desktop.screenSize().height * 0.8F);
  EXPECT_EQ(large->spdShowData.scrollBars(), ScrollBars::both);
  const TakenKey* copies = takenKey(*large, {.code = 'C', .control = true});
  ASSERT_TRUE(copies);
  raise(copies->work);
  EXPECT_THAT(desktop.clipboard().text, StartsWith("Case\tTown\tVariable 1\t"));
  EXPECT_THAT(desktop.clipboard().text, HasSubstr("\n500\tTown 500 \t126.00\t"));
}

TEST_F(ShowData, EscapeClosesIt) {
  const WorkingCopy copy = dataSet(4, 2, true);
  frmShowData list(desktop, copy);
  test::Script script(desktop);
  test::HeadlessUser user(desktop);
  script.window("frmShowData", [&] { user.key("frmShowData", {.code = keys::escape}); });
  list.showModal();
  EXPECT_FALSE(list.visible());
}

}  // namespace
}  // namespace tolmer
