// The editor's program is killed while a student types and saves: what lies on the disk is whole,
// and the work comes back but for its last seconds.
#include <gtest/gtest.h>
#include <sys/mman.h>

#include <atomic>
#include <filesystem>
#include <random>

#include "editor/data_editor.h"
#include "platform/headless/headless_desktop.h"
#include "sheetfiles/autosave_folder.h"
#include "support/killed_program.h"
#include "support/temp_folder.h"

namespace tolmer::test {
namespace {

constexpr int kills = 200;
constexpr int saveEvery = 7;
constexpr int secondsLost = 3;  // written aside at most every three, and looked at every second

constexpr unsigned longestDelay = 1000;  // in microseconds: within the next second or two

// Seen by the test and the program it kills. A number is entered each second.
struct Progress {
  std::atomic<int> entered;
  std::atomic<int> saved;
};

class Typist {
 public:
  Typist(const std::string& folder, VisitPlaces& aside, Progress& progress)
      : editor_(desktop_, {folder, &aside}), progress_(progress) {
    desktop_.onSaveFile = [folder](const FileQuestion&) { return folder + "/mine.zmm"; };
    editor_.SetupEditor();
    editor_.show();
  }
  void oneSecond() {
    const int number = progress_.entered + 1;
    editor_.spdData.enter({2, 2}, std::to_string(number));
    desktop_.advance(1000);
    progress_.entered = number;
    if (number % saveEvery != 0) return;
    editor_.cmdSave.click();
    progress_.saved = number;
  }

 private:
  HeadlessDesktop desktop_;
  frmDataEditor editor_;
  Progress& progress_;
};

int numberIn(const SheetContent& content) { return static_cast<int>(content.cells(1, 1).number); }

TEST(KilledEditor, LosesSecondsAndNeverAFile) {
  const TempFolder folder;
  VisitFolder aside(folder.file("aside"));
  void* const shared =
      ::mmap(nullptr, sizeof(Progress), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
  ASSERT_NE(shared, MAP_FAILED);
  auto& progress = *new (shared) Progress{};
  std::mt19937 random(1);
  int broughtBack = 0;
  for (int kill = 0; kill < kills; ++kill) {
    progress.entered = 0;
    progress.saved = 0;
    std::filesystem::remove(folder.file("mine.zmm"));
    std::optional<Typist> typist;  // of the child
    killWhileWorking(
        [&] {
          if (!typist) typist.emplace(folder.path(), aside, progress);
          typist->oneSecond();
        },
        std::uniform_int_distribution<unsigned>(0, longestDelay)(random),
        std::uniform_int_distribution<int>(0, 2 * saveEvery)(random));
    int onDisk = 0;
    if (std::filesystem::exists(folder.file("mine.zmm"))) {
      const auto file = loadEditorFile(folder.file("mine.zmm"));
      ASSERT_TRUE(file) << kill << ": " << file.error().message();
      onDisk = numberIn(*file);
      EXPECT_TRUE(onDisk == progress.saved || onDisk == progress.saved + saveEvery) << kill;
    } else {
      EXPECT_EQ(progress.saved, 0) << kill;
    }
    int back = onDisk;
    for (const VisitPlacePointer& lost : aside.lost()) {
      const auto work = workIn(*lost);
      ASSERT_TRUE(work) << kill << ": " << work.error().message();
      back = std::max(back, numberIn(work->sheet));
      lost->remove();
      ++broughtBack;
    }
    EXPECT_GE(back, progress.entered - secondsLost) << kill;
  }
  EXPECT_GT(broughtBack, kills / 4);
  ::munmap(shared, sizeof(Progress));
}

}  // namespace
}  // namespace tolmer::test
