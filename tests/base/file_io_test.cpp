#include "base/file_io.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>

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
  test::TempFolder temporary;
  const fs::path folder = temporary.path();
};

TEST_F(FileIo, whatIsWrittenIsReadAndNothingElseIsLeft) {
  const std::string name = folder / "a.txt";
  const std::string bytes("one\r\n\0two", 9);
  EXPECT_FALSE(writeFileAtomically(name, "old"));
  EXPECT_FALSE(writeFileAtomically(name, bytes));
  EXPECT_EQ(*readWholeFile(name), bytes);
  EXPECT_EQ(entries(), 1u);
}

TEST_F(FileIo, replacingAFileKeepsItsMode) {
  const std::string name = folder / "a.txt";
  ASSERT_FALSE(writeFileAtomically(name, "old"));
  ::chmod(name.c_str(), 0640);
  ASSERT_FALSE(writeFileAtomically(name, "new"));
  struct stat now {};
  ASSERT_EQ(::stat(name.c_str(), &now), 0);
  EXPECT_EQ(now.st_mode & 0777, 0640u);
}

TEST_F(FileIo, aFailedWriteNamesTheFileAndLeavesTheOldOneWhole) {
  const std::string target = folder / "sub";
  fs::create_directory(target);  // a folder cannot be replaced by a file
  const auto error = writeFileAtomically(target, "new");
  ASSERT_TRUE(error);
  EXPECT_EQ(error->where, target);
  EXPECT_TRUE(fs::is_directory(target));
  EXPECT_EQ(entries(), 1u);
  EXPECT_TRUE(writeFileAtomically(folder / "none" / "a.txt", "new"));
}

TEST_F(FileIo, aFailedReadNamesTheFileAndTheReason) {
  const auto missing = readWholeFile(folder / "none");
  ASSERT_FALSE(missing);
  EXPECT_EQ(missing.error().message(),
            (folder / "none").string() + ": cannot be opened: No such file or directory");
  EXPECT_FALSE(readWholeFile(folder));
  EXPECT_EQ(readWholeFile("/dev/zero").error().text, "is larger than 64 MB");
}

}  // namespace
}  // namespace tolmer
