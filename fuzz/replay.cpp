// Every file of a fuzz target's corpus, once.
#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>

#include "base/file_io.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

TEST(Corpus, isReadWithoutAFault) {
  int files = 0;
  for (const auto& entry : std::filesystem::directory_iterator(TOLMER_CORPUS)) {
    const auto bytes = tolmer::readWholeFile(entry.path().string());
    ASSERT_TRUE(bytes) << entry.path();
    SCOPED_TRACE(entry.path());
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes->data()), bytes->size());
    ++files;
  }
  EXPECT_GT(files, 0);
}
