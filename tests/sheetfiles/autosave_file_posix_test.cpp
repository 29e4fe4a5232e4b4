// Work written aside: when, for whom, and who finds it.
#include <gtest/gtest.h>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "sheetfiles/autosave.h"
#include "sheetfiles/autosave_folder.h"
#include "support/faults.h"
#include "support/killed_program.h"
#include "support/temp_folder.h"

namespace tolmer {
namespace {

namespace fs = std::filesystem;

class AutosaveTest : public testing::Test {
 protected:
  SheetContent sheet(const std::string& title) {
    SheetContent content(editorObservations, editorVariables);
    content.title = title;
    return content;
  }
  std::optional<Error> poll(Autosave& autosave, const std::string& title) {
    return autosave.poll([&] { return sheet(title); }, "/home/ann/a.zmm");
  }
  void writeAside(Autosave& autosave, const std::string& title) {
    autosave.changed();
    now += Autosave::interval;
    EXPECT_FALSE(poll(autosave, title));
  }
  std::string titlesFound() {
    std::string titles;
    for (const VisitPlacePointer& work : places.lost()) {
      const auto content = workIn(*work);
      titles += content ? content->sheet.title + " of " + content->from + ";" : "damaged;";
    }
    return titles;
  }
  std::ptrdiff_t files() { return std::distance(fs::directory_iterator(folder), {}); }

  test::TempFolder temp;
  std::string folder = temp.file("state/tolmer");
  VisitFolder places{folder};
  std::int64_t now = 1000;
  Autosave::Clock clock = [this] { return now; };
};

TEST_F(AutosaveTest, writesWhatChangedEveryFewSecondsAndNothingElse) {
  Autosave autosave(&places, clock);
  int written = 0;
  const auto content = [&] {
    ++written;
    return sheet("x");
  };
  autosave.poll(content, "");
  EXPECT_FALSE(fs::exists(folder));
  for (int second = 0; second < 60; ++second, now += 1000) {
    if (second < 30) autosave.changed();
    autosave.poll(content, "");
  }
  EXPECT_EQ(written, 8);  // at 3, 7, .. 31 seconds
  autosave.clean();
  EXPECT_EQ(files(), 1);  // the lock
}

TEST_F(AutosaveTest, workIsFoundOnlyWhenItsProgramIsGone) {
  EXPECT_EQ(titlesFound(), "");
  {
    Autosave running(&places, clock);
    writeAside(running, "mine");
    EXPECT_EQ(titlesFound(), "");  // another program's, and it still runs
  }
  EXPECT_EQ(titlesFound(), "mine of /home/ann/a.zmm;");
  EXPECT_EQ(titlesFound(), "mine of /home/ann/a.zmm;");  // looking does not take it away
  const auto held = places.lost();
  EXPECT_EQ(titlesFound(), "");  // one finder at a time
}

TEST_F(AutosaveTest, adoptedWorkIsNeverWithoutACopy) {
  {
    Autosave crashed(&places, clock);
    writeAside(crashed, "old");
  }
  {
    Autosave next(&places, clock);
    next.adopt(std::move(places.lost().front()));
    EXPECT_EQ(titlesFound(), "");
  }  // crashed as well
  EXPECT_EQ(titlesFound(), "old of /home/ann/a.zmm;");
  {
    Autosave third(&places, clock);
    third.adopt(std::move(places.lost().front()));
    writeAside(third, "new");
    third.clean();
  }
  EXPECT_EQ(files(), 0);
}

TEST_F(AutosaveTest, aFailureIsToldOnceAndTriedAgain) {
  fs::create_directories(temp.file("state"));
  std::FILE* inTheWay = std::fopen(folder.c_str(), "w");
  ASSERT_TRUE(inTheWay);
  std::fclose(inTheWay);
  Autosave autosave(&places, clock);
  autosave.changed();
  now += Autosave::interval;
  EXPECT_TRUE(poll(autosave, "x"));
  now += Autosave::interval;
  EXPECT_FALSE(poll(autosave, "x"));
  fs::remove(folder);
  now += Autosave::interval;
  EXPECT_FALSE(poll(autosave, "x"));
  EXPECT_EQ(files(), 2);
}

TEST_F(AutosaveTest, aFileSystemWithoutLocksHasTheOwnersNames) {
  const test::FailingCall locks(test::Call::flock, ENOLCK);
  {
    Autosave running(&places, clock);
    writeAside(running, "mine");
    EXPECT_EQ(files(), 2);
    EXPECT_EQ(titlesFound(), "");  // its program still runs
  }
  EXPECT_EQ(titlesFound(), "mine of /home/ann/a.zmm;");
  places.lost().front()->remove();
  std::optional<Autosave> killed;
  test::killWhileWorking(
      [&] {
        if (!killed) killed.emplace(&places, clock);
        writeAside(*killed, "killed");
      },
      0);
  EXPECT_EQ(titlesFound(), "killed of /home/ann/a.zmm;");
  // A program of another machine may still run, but not if it was quiet for so long.
  fs::path file;  // but not what the kill left of a writing
  for (const auto& entry : fs::directory_iterator(folder))
    if (entry.path().extension() == ".lock") file = entry.path();
  std::ofstream(file) << "elsewhere 0 1 2";
  EXPECT_EQ(titlesFound(), "");
  const auto before = fs::last_write_time(file) - std::chrono::hours(25);
  for (const char* ending : {".lock", ".zmm"})
    fs::last_write_time(file.replace_extension(ending), before);
  EXPECT_EQ(titlesFound(), "killed of /home/ann/a.zmm;");
  fs::remove_all(folder);
  const test::FullDisk full(0);
  Autosave unsigned_(&places, clock);
  unsigned_.changed();
  now += Autosave::interval;
  EXPECT_TRUE(poll(unsigned_, "x"));
  EXPECT_EQ(files(), 0);
}

TEST_F(AutosaveTest, aLockFileThatSomebodyClearedAwayHidesNoWork) {
  const auto clear = [&] {
    for (const auto& entry : fs::directory_iterator(folder))
      if (entry.path().extension() == ".lock") fs::remove(entry.path());
  };
  {
    Autosave running(&places, clock);
    writeAside(running, "one");
    clear();
    writeAside(running, "two");
    EXPECT_EQ(titlesFound(), "");  // it still runs
    clear();
  }
  EXPECT_EQ(titlesFound(), "two of /home/ann/a.zmm;");
  Autosave running(&places, clock);
  running.adopt(std::move(places.lost().front()));
  clear();
  running.clean();
  EXPECT_EQ(titlesFound(), "");
  writeAside(running, "three");
  fs::remove_all(folder);
  writeAside(running, "four");
  EXPECT_EQ(files(), 2);
}

TEST_F(AutosaveTest, theFolderIsTheUsersOwn) {
  ::setenv("XDG_STATE_HOME", "/state", 1);
  EXPECT_EQ(autosaveFolder(), "/state/tolmer");
  ::setenv("XDG_STATE_HOME", "relative", 1);
  ::setenv("HOME", "/home/ann", 1);
  EXPECT_EQ(autosaveFolder(), "/home/ann/.local/state/tolmer");
}

}  // namespace
}  // namespace tolmer
