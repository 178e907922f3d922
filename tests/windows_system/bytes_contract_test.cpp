#include <gtest/gtest.h>

#include <algorithm>

#include "contracts/byte_files_contract.h"
#include "contracts/text_encoding_contract.h"
#include "platform/windows/windows_byte_files.h"
#include "platform/windows/windows_text_encoding.h"
#include "windows_system/scratch_folder.h"

namespace nerolith::contracts {
namespace {

struct WindowsBytesBackend {
  platform::ByteFiles& bytes() { return system; }
  std::string path(const std::string& relative) { return scratch.path(relative); }
  void addFile(const std::string& relative, const std::string& contents) {
    scratch.addFile(relative, contents);
  }
  void addFolder(const std::string& relative) { scratch.addFolder(relative); }
  void protect(const std::string& relative) {
    scratch.addAttributes(relative, FILE_ATTRIBUTE_READONLY);
  }
  std::vector<std::string> names() { return scratch.names(); }

  windows::ScratchFolder scratch;
  windows::WindowsFileSystem files;
  windows::WindowsByteFiles system{files};
};
INSTANTIATE_TYPED_TEST_SUITE_P(Windows, ByteFilesContract, WindowsBytesBackend);

/// The code pages of different corners of the world; 932 has two bytes for many characters.
template <unsigned kCodePage>
struct CodePageBackend {
  platform::TextEncoding& encoding() { return system; }
  windows::WindowsTextEncoding system{kCodePage};
};
struct OwnCodePageBackend {
  platform::TextEncoding& encoding() { return system; }
  windows::WindowsTextEncoding system;
};
using Encodings = ::testing::Types<OwnCodePageBackend, CodePageBackend<1250>, CodePageBackend<1251>,
                                   CodePageBackend<1252>, CodePageBackend<932>,
                                   CodePageBackend<936>, CodePageBackend<65001>>;
INSTANTIATE_TYPED_TEST_SUITE_P(Windows, TextEncodingContract, Encodings);

TEST(WindowsTextEncoding, WritesInTheCodePageWhatItHolds) {
  const windows::WindowsTextEncoding western(1252);
  EXPECT_EQ(western.bytesOf("C:\\Caf\xC3\xA9.mp3"), "C:\\Caf\xE9.mp3");
  EXPECT_EQ(western.textOf("C:\\Caf\xE9.mp3"), "C:\\Caf\xC3\xA9.mp3");
  EXPECT_EQ(western.bytesOf("\xE2\x82\xAC"), "\x80");
  EXPECT_EQ(western.textOf("\x80"), "\xE2\x82\xAC");
}

TEST(WindowsTextEncoding, WritesAsUtf8WhatTheCodePageLacks) {
  const windows::WindowsTextEncoding western(1252);
  EXPECT_EQ(western.bytesOf("\xE2\x98\x83 \xC3\xA9.mp3"), "\xE2\x98\x83 \xC3\xA9.mp3");
  // Letters that merely look alike are no substitute.
  EXPECT_EQ(western.bytesOf("\xC4\x80.mp3"), "\xC4\x80.mp3");
}

TEST(WindowsTextEncoding, WritesAsUtf8WhatWouldReadAsIt) {
  const windows::WindowsTextEncoding western(1252);
  const std::string text = "\xC3\x83\xC2\xA9.mp3";  // whose bytes in 1252 are C3 A9
  EXPECT_EQ(western.bytesOf(text), text);
  EXPECT_EQ(western.textOf(western.bytesOf(text)), text);
}

}  // namespace
}  // namespace nerolith::contracts
