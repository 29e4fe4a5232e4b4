#include "notebook/picture_size.h"

#include <gtest/gtest.h>

#include "base/file_io.h"
#include "support/temp_folder.h"

namespace tolmer {
namespace {

TEST(PictureSize, isThatOfAPNGOrTheFirstTagOfADrawing) {
  const test::TempFolder folder;
  const std::string file = folder.file("picture");
  const struct {
    std::string bytes;
    float width, height;  // pixels; 0 where the file is no picture
  } cases[] = {
      {std::string("\x89PNG\r\n\x1A\n\0\0\0\x0DIHDR\0\0\1\x40\0\0\0\x20", 24), 320, 32},
      {"\x89PNG\r\n\x1A\n", 0, 0},
      {"<svg xmlns=\"x\" width=\"600\" height=\"215.5\" viewBox=\"0 0 1 1\">", 600, 215.5F},
      {"<?xml?><!-- width='1' -->\n<svg\n\tstroke-width='9' height='1in' width='2.54cm'/>", 96, 96},
      {"<svg width=\"100%\" height=\"100%\" viewBox=\"-5 -5,300, 150\">", 300, 150},
      {"<svg width=\"40em\" height=\"10\">", 0, 0},
      {"<svg width=\"40\" viewBox=\"0 0 10\">", 0, 0},
      {"<html width='1' height='1'>", 0, 0},
      {"", 0, 0},
  };
  for (const auto& [bytes, width, height] : cases) {
    ASSERT_FALSE(writeFileAtomically(file, bytes));
    const Size size = pictureSize(file);
    EXPECT_EQ(isPicture(file), width > 0) << bytes;
    EXPECT_FLOAT_EQ(size.width, pixels(width > 0 ? width : 320)) << bytes;
    EXPECT_FLOAT_EQ(size.height, pixels(width > 0 ? height : 200)) << bytes;
  }
  EXPECT_FALSE(isPicture(folder.file("none")));
}

}  // namespace
}  // namespace tolmer
