#include "base/file_io.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>

#include "support/faults.h"
#include "support/killed_program.h"
#include "support/temp_folder.h"

namespace tolmer {
namespace {

namespace fs = std::filesystem;

class FileIo : public testing::Test {
 protected:
  std::size_t entries() const {
    return static_cast<std::size_t>(
        std::distance(fs::directory_iterator(folder), fs::directory_iterator()));
  }
  struct stat about(const std::string& name) {
    struct stat now {};
    EXPECT_EQ(::stat(name.c_str(), &now), 0) << name;
    return now;
  }
  test::TempFolder temporary;
  const fs::path folder = temporary.path();
};

TEST_F(FileIo, replacingAFileKeepsItsModeAndItsOtherNames) {
  const std::string name = folder / "a.txt";
  ASSERT_FALSE(writeFileAtomically(name, "old"));
  ::chmod(name.c_str(), 0640);
  ASSERT_FALSE(writeFileAtomically(name, "new"));
  EXPECT_EQ(about(name).st_mode & 0777, 0640u);
  fs::create_hard_link(name, folder / "b.txt");
  for (const std::string bytes : {"much longer", "", "short"}) {
    ASSERT_FALSE(writeFileAtomically(name, bytes));
    EXPECT_EQ(*readWholeFile(folder / "b.txt"), bytes);
  }
  EXPECT_EQ(entries(), 2u);
}

TEST_F(FileIo, replacingAFileKeepsItsOwner) {
  if (::geteuid() != 0) GTEST_SKIP() << "only root can give files away";
  const std::string name = folder / "a.txt";
  ASSERT_FALSE(writeFileAtomically(name, "old"));
  ASSERT_EQ(::chown(name.c_str(), 65533, 65534), 0);
  ASSERT_FALSE(writeFileAtomically(name, "new"));
  const auto before = about(name);
  EXPECT_EQ(before.st_uid, 65533u);
  EXPECT_EQ(before.st_gid, 65534u);
  const test::FailingCall notAllowed(test::Call::fchown, EPERM);  // as for others than root
  ASSERT_FALSE(writeFileAtomically(name, "newer"));
  EXPECT_EQ(about(name).st_ino, before.st_ino);
  EXPECT_EQ(*readWholeFile(name), "newer");
  EXPECT_EQ(entries(), 1u);
}

TEST_F(FileIo, linksAreFollowedAndOnlyFilesWritten) {
  fs::create_directory(folder / "sub");
  fs::create_symlink("sub/later.txt", folder / "a.txt");
  fs::create_symlink("a.txt", folder / "b.txt");
  ASSERT_FALSE(writeFileAtomically(folder / "b.txt", "new"));  // the file was not there
  EXPECT_EQ(*readWholeFile(folder / "sub/later.txt"), "new");
  EXPECT_TRUE(fs::is_symlink(folder / "a.txt") && fs::is_symlink(folder / "b.txt"));
  fs::create_symlink("circle", folder / "circle");
  ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
  EXPECT_TRUE(writeFileAtomically(folder / "circle", "new"));
  EXPECT_TRUE(writeFileAtomically(folder / "pipe", "new"));
  EXPECT_TRUE(fs::is_symlink(folder / "circle") && fs::is_fifo(folder / "pipe"));
}

// A file of its own is replaced, one with two names written in place.
TEST_F(FileIo, aFullDiskOrAFailingFlushLeavesTheOldFileWhole) {
  const std::string name = folder / "a.txt";
  for (const bool linked : {false, true}) {
    ASSERT_FALSE(writeFileAtomically(name, "old"));
    if (linked) fs::create_hard_link(name, folder / "b.txt");
    const std::string bytes(5000, 'x');
    {
      const test::FullDisk full(4096);
      EXPECT_TRUE(writeFileAtomically(name, bytes));
    }
    const test::FailingCall flush(test::Call::fsync, EIO);
    EXPECT_TRUE(writeFileAtomically(name, bytes));
    EXPECT_EQ(*readWholeFile(name), "old");
    EXPECT_EQ(entries(), linked ? 2u : 1u);
  }
  // After those of the copy and of its folder: the old file is written, who knows how far.
  const test::FailingCall last(test::Call::fsync, EIO, 2);
  const auto error = writeFileAtomically(name, "new");
  ASSERT_TRUE(error);
  EXPECT_EQ(*readWholeFile(error->text.substr(error->text.find("in /") + 3)), "new");
}

TEST_F(FileIo, aKillLeavesTheFileOrItsCopyWhole) {
  const std::string name = folder / "a.txt";
  const auto isWhole = [](const std::string& file) {
    const auto bytes = readWholeFile(file);
    return bytes && bytes->size() >= 300000 &&
           bytes->find_first_not_of(bytes->front()) == std::string::npos;
  };
  ASSERT_FALSE(writeFileAtomically(name, std::string(300000, 'a')));
  fs::create_hard_link(name, folder / "b.txt");
  char letter = 'b';  // the child's
  for (int kill = 0; kill < 50; ++kill) {
    test::killWhileWorking(
        [&] {
          ASSERT_FALSE(writeFileAtomically(name, std::string(300000 + (letter & 1), letter)));
          letter = letter == 'z' ? 'a' : static_cast<char>(letter + 1);
        },
        static_cast<unsigned>(40 * kill));
    bool whole = isWhole(name);
    for (const auto& entry : fs::directory_iterator(folder))
      if (entry.path().filename().string().starts_with("a.saving-")) {
        whole = whole || isWhole(entry.path());
        fs::remove(entry.path());
      }
    EXPECT_TRUE(whole) << kill;
  }
}

TEST_F(FileIo, whatKilledSavesLeftGoesAfterADay) {
  const auto now = fs::file_time_type::clock::now();
  for (const char* name : {".tolmer-old123", ".tolmer-new123", ".tolmer-notes.txt"}) {
    ASSERT_FALSE(writeFileAtomically(folder / name, ""));
    if (!std::string_view(name).ends_with("new123"))
      fs::last_write_time(folder / name, now - std::chrono::hours(25));
  }
  ASSERT_FALSE(writeFileAtomically(folder / "a.txt", ""));
  EXPECT_EQ(entries(), 3u);
  EXPECT_FALSE(fs::exists(folder / ".tolmer-old123"));
}

TEST_F(FileIo, aFailedReadNamesTheFileAndTheReason) {
  const auto missing = readWholeFile(folder / "none");
  ASSERT_FALSE(missing);
  EXPECT_EQ(missing.error().message(),
            (folder / "none").string() + ": cannot be opened: No such file or directory");
  EXPECT_EQ(readWholeFile(folder).error().text, "is a folder, not a file");
}

// Whoever opened a pipe without a writer would wait for ever.
TEST_F(FileIo, onlyRegularFilesOfTheRightSizeAreRead) {
  const std::string pipe = folder / "pipe", link = folder / "link", large = folder / "large";
  ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
  fs::create_symlink(pipe, link);
  for (const std::string& name : {pipe, link, std::string("/dev/zero")})
    EXPECT_EQ(readWholeFile(name).error().text, "is a pipe or a device, not a file") << name;
  ASSERT_FALSE(writeFileAtomically(large, std::string((1 << 20) + 1, 'x')));
  EXPECT_EQ(readWholeFile(large, 1 << 20).error().text, "is larger than 1 MB");
  fs::remove(link);
  fs::create_symlink(large, link);
  EXPECT_EQ(readWholeFile(link)->size(), (1U << 20) + 1);
  fs::create_symlink(folder / "loop", folder / "loop");
  EXPECT_FALSE(isRegularFile(folder / "loop"));
  EXPECT_GT(readWholeFile("/proc/self/status")->size(), 0U) << "the system says its size is 0";
}

}  // namespace
}  // namespace tolmer
