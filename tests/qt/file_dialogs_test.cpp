#include <gtest/gtest.h>

#include <fstream>

#include "support/headless_user.h"
#include "support/qt_user.h"
#include "support/temp_folder.h"

namespace tolmer::test {
namespace {

// The same questions on the desktop of either kind.
template <class SomeDesktop>
class FileDialogs : public testing::Test {
 protected:
  FileDialogs() { std::ofstream(folder.file("there.zmd")) << "x"; }
  TempFolder folder;
  SomeDesktop desktop;
  FileQuestion question{.title = "Save Data",
                        .kinds = {{"Data", {"zmd"}}, {"Text", {"csv", "txt"}}, {"All", {}}},
                        .folder = folder.path()};
};
using Desktops = testing::Types<HeadlessDesktop, ScriptedQtDesktop>;
TYPED_TEST_SUITE(FileDialogs, Desktops);

TYPED_TEST(FileDialogs, GiveAFileWithItsKindOrNothing) {
  auto& desktop = this->desktop;
  desktop.onSaveFile = [&](const FileQuestion&) { return this->folder.file("new"); };
  auto chosen = desktop.saveFileDialog(this->question);
  ASSERT_TRUE(chosen);
  EXPECT_EQ(chosen->path, this->folder.file("new.zmd"));
  EXPECT_EQ(chosen->kind, 0U);
  desktop.onSaveFile = [&](const FileQuestion&) { return this->folder.file("new.TXT"); };
  chosen = desktop.saveFileDialog(this->question);
  ASSERT_TRUE(chosen);
  EXPECT_EQ(chosen->path, this->folder.file("new.TXT"));
  EXPECT_EQ(chosen->kind, 1U);
  desktop.onOpenFile = [&](const FileQuestion&) { return this->folder.file("there.zmd"); };
  chosen = desktop.openFileDialog(this->question);
  ASSERT_TRUE(chosen);
  EXPECT_EQ(chosen->path, this->folder.file("there.zmd"));
  desktop.onOpenFile = [](const FileQuestion&) { return std::nullopt; };
  EXPECT_FALSE(desktop.openFileDialog(this->question));
}

}  // namespace
}  // namespace tolmer::test
