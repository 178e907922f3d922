#include "platform/windows/wic_picture_loader.h"

#include <gtest/gtest.h>

#include "platform/failure.h"
#include "platform/windows/com_apartment.h"
#include "windows_system/scratch_folder.h"

namespace nerolith::windows {
namespace {

/// A bitmap file of one colour but for its first pixel, which is red.
std::string bitmap(int width, int height) {
  const int row = (3 * width + 3) / 4 * 4;
  std::string bytes = "BM";
  const auto number = [&bytes](int value, int size) {
    for (int i = 0; i < size; ++i) bytes += static_cast<char>(value >> 8 * i & 0xFF);
  };
  for (const int value : {54 + row * height, 0, 54, 40, width, -height}) number(value, 4);
  number(1, 2);
  number(24, 2);
  for (const int value : {0, row * height, 0, 0, 0, 0}) number(value, 4);
  const std::string pixel{char(0x30), char(0x20), char(0x10)};
  for (int y = 0; y < height; ++y) {
    std::string line;
    for (int x = 0; x < width; ++x) line += pixel;
    line.resize(static_cast<std::size_t>(row));
    bytes += line;
  }
  bytes.replace(54, 3, std::string{char(0), char(0), char(0xFF)});
  return bytes;
}

class WicPictureLoaderTest : public ::testing::Test {
 protected:
  controls::Picture load(const std::string& name) { return loader.load(scratch.path(name)); }

  ComApartment apartment;
  ScratchFolder scratch;
  WicPictureLoader loader;
};

TEST_F(WicPictureLoaderTest, PixelsComeInRowsFromTheTopLeft) {
  scratch.addFile("small.bmp", bitmap(3, 2));
  const controls::Picture picture = load("small.bmp");
  ASSERT_EQ(picture.width, 3);
  ASSERT_EQ(picture.height, 2);
  EXPECT_EQ(picture.pixels[0], 0xFFFF0000u);
  for (std::size_t i = 1; i < 6; ++i) EXPECT_EQ(picture.pixels[i], 0xFF102030u) << i;
}

TEST_F(WicPictureLoaderTest, ReadsTheSkinThatComesWithThePlayer) {
  const controls::Picture picture =
      loader.load(std::string("Z:") + NEROLITH_SOURCE_DIR + "/assets/skin.jpg");
  EXPECT_GT(picture.width, 100);
  EXPECT_GT(picture.height, 100);
  EXPECT_EQ(picture.pixels.size(),
            static_cast<std::size_t>(picture.width) * static_cast<std::size_t>(picture.height));
  for (const std::uint32_t pixel : picture.pixels) ASSERT_EQ(pixel >> 24, 0xFFu);
}

TEST_F(WicPictureLoaderTest, APictureLargerThanAnyScreenIsReadReduced) {
  scratch.addFile("wide.bmp", bitmap(7680, 20));
  const controls::Picture picture = load("wide.bmp");
  EXPECT_EQ(picture.width, 3840);
  EXPECT_EQ(picture.height, 10);
  EXPECT_EQ(picture.pixels.back(), 0xFF102030u);
}

TEST_F(WicPictureLoaderTest, WhatIsNoPictureIsAFailureThatNamesIt) {
  scratch.addFile("text.jpg", "This is no picture.");
  scratch.addFile("empty.jpg");
  scratch.addFile("cut.bmp", bitmap(30, 20).substr(0, 20));
  for (const char* name : {"missing.jpg", "text.jpg", "empty.jpg", "cut.bmp", ""}) try {
      load(name);
      ADD_FAILURE() << name;
    } catch (const platform::Failure& failure) {
      EXPECT_NE(std::string(failure.what()).find(scratch.path(name)), std::string::npos);
    }
}

}  // namespace
}  // namespace nerolith::windows
