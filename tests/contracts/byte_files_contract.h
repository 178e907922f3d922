// What every door to files of bytes promises, whatever the machine.
//
// A backend for the suite is a default-constructible struct with
//   platform::ByteFiles& bytes();
//   std::string path(std::string relative);  // below a fresh, empty folder
//   void addFile(std::string relative, std::string contents);
//   void addFolder(std::string relative);
//   void protect(std::string relative);      // makes a file read-only
//   std::vector<std::string> names();        // of all that lies in the fresh folder, hidden too
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/byte_files.h"
#include "platform/failure.h"

namespace nerolith::contracts {

template <typename Backend>
class ByteFilesContract : public ::testing::Test {
 protected:
  platform::ByteFiles& bytes() { return backend.bytes(); }
  std::string path(const std::string& relative) { return backend.path(relative); }
  std::string contents(const std::string& relative) {
    return platform::readWhole(backend.bytes(), backend.path(relative));
  }

  /// Every byte there is, line ends of all kinds among them.
  static std::string allBytes() {
    std::string bytes = "line\r\nline\nline\rline";
    for (int i = 0; i < 256; ++i) bytes += static_cast<char>(i);
    return bytes;
  }

  Backend backend;
};

TYPED_TEST_SUITE_P(ByteFilesContract);

TYPED_TEST_P(ByteFilesContract, AnEmptyFileHasNoBlocks) {
  this->backend.addFile("empty", "");
  int blocks = 0;
  this->bytes().read(this->path("empty"), [&](std::string_view) { ++blocks; });
  EXPECT_EQ(blocks, 0);
}

TYPED_TEST_P(ByteFilesContract, EveryByteIsReadAsItIs) {
  this->backend.addFile("list.m3u", this->allBytes());
  EXPECT_EQ(this->contents("list.m3u"), this->allBytes());
}

TYPED_TEST_P(ByteFilesContract, ALongFileIsReadWholeAndInOrder) {
  std::string long_;
  for (int i = 0; long_.size() < 3'000'000; ++i) long_ += std::to_string(i) + ' ';
  this->backend.addFile("long", long_);
  EXPECT_TRUE(this->contents("long") == long_);
}

TYPED_TEST_P(ByteFilesContract, TheEndIsReadWithoutTheRest) {
  this->backend.addFile("song.m3u", "abcdef");
  EXPECT_EQ(this->bytes().readEnd(this->path("song.m3u"), 2), "ef");
  EXPECT_EQ(this->bytes().readEnd(this->path("song.m3u"), 100), "abcdef");
  this->backend.addFile("empty", "");
  EXPECT_EQ(this->bytes().readEnd(this->path("empty"), 2), "");
}

TYPED_TEST_P(ByteFilesContract, WhatTheReaderThrowsPassesThrough) {
  this->backend.addFile("list.m3u", "abc");
  EXPECT_THROW(this->bytes().read(this->path("list.m3u"), [](std::string_view) { throw 7; }), int);
  EXPECT_EQ(this->contents("list.m3u"), "abc");
}

TYPED_TEST_P(ByteFilesContract, AMissingFileFailsAndIsNamed) {
  try {
    (void)this->contents("gone");
    FAIL() << "no failure";
  } catch (const platform::Failure& failure) {
    EXPECT_NE(std::string(failure.what()).find(this->path("gone")), std::string::npos);
  }
  EXPECT_THROW(this->bytes().readEnd(this->path("gone"), 1), platform::Failure);
  EXPECT_THROW(this->bytes().append(this->path("gone"), "x"), platform::Failure);
  EXPECT_TRUE(this->backend.names().empty());
}

TYPED_TEST_P(ByteFilesContract, AFolderIsNoFile) {
  this->backend.addFolder("folder");
  EXPECT_THROW(this->contents("folder"), platform::Failure);
  EXPECT_THROW(this->bytes().create(this->path("folder")), platform::Failure);
  EXPECT_THROW(this->bytes().replace(this->path("folder"), "x"), platform::Failure);
  EXPECT_THROW(this->bytes().append(this->path("folder"), "x"), platform::Failure);
  EXPECT_EQ(this->backend.names(), std::vector<std::string>{"folder"});
}

TYPED_TEST_P(ByteFilesContract, AnEmptyPathFails) {
  EXPECT_THROW(platform::readWhole(this->bytes(), ""), platform::Failure);
  EXPECT_THROW(this->bytes().create(""), platform::Failure);
  EXPECT_THROW(this->bytes().replace("", "x"), platform::Failure);
  EXPECT_THROW(this->bytes().append("", "x"), platform::Failure);
}

TYPED_TEST_P(ByteFilesContract, CreatingLeavesAFileThatIsThere) {
  this->bytes().create(this->path("new.m3u"));
  EXPECT_EQ(this->contents("new.m3u"), "");
  this->backend.addFile("old.m3u", "a\r\n");
  this->bytes().create(this->path("old.m3u"));
  EXPECT_EQ(this->contents("old.m3u"), "a\r\n");
}

TYPED_TEST_P(ByteFilesContract, ReplacingPutsBytesInPlaceOfTheOldOnes) {
  this->backend.addFile("list.m3u", "a much longer file than the new one\r\n");
  this->bytes().replace(this->path("list.m3u"), this->allBytes());
  EXPECT_EQ(this->contents("list.m3u"), this->allBytes());
  this->bytes().replace(this->path("list.m3u"), "");
  EXPECT_EQ(this->contents("list.m3u"), "");
  EXPECT_EQ(this->backend.names(), std::vector<std::string>{"list.m3u"});
}

TYPED_TEST_P(ByteFilesContract, ReplacingMakesAFileThatIsNotThere) {
  this->bytes().replace(this->path("new.m3u"), "a\r\n");
  EXPECT_EQ(this->contents("new.m3u"), "a\r\n");
  EXPECT_EQ(this->backend.names(), std::vector<std::string>{"new.m3u"});
}

TYPED_TEST_P(ByteFilesContract, LongFilesAreReplacedToo) {
  std::string bytes;
  bytes.resize(20'000'003, 'x');
  this->bytes().replace(this->path("long"), bytes);
  EXPECT_TRUE(this->contents("long") == bytes);
}

TYPED_TEST_P(ByteFilesContract, NoFolderIsMadeOnTheWay) {
  EXPECT_THROW(this->bytes().create(this->path("none/a.m3u")), platform::Failure);
  EXPECT_THROW(this->bytes().replace(this->path("none/a.m3u"), "x"), platform::Failure);
  EXPECT_TRUE(this->backend.names().empty());
}

TYPED_TEST_P(ByteFilesContract, AReadOnlyFileStaysAsItIs) {
  this->backend.addFile("kept.m3u", "old");
  this->backend.protect("kept.m3u");
  EXPECT_THROW(this->bytes().replace(this->path("kept.m3u"), "new"), platform::Failure);
  EXPECT_THROW(this->bytes().append(this->path("kept.m3u"), "new"), platform::Failure);
  EXPECT_EQ(this->contents("kept.m3u"), "old");
  EXPECT_EQ(this->backend.names(), std::vector<std::string>{"kept.m3u"});
}

TYPED_TEST_P(ByteFilesContract, AppendingAddsAtTheEnd) {
  this->backend.addFile("list.m3u", "a\r\n");
  this->bytes().append(this->path("list.m3u"), this->allBytes());
  this->bytes().append(this->path("list.m3u"), "");
  this->bytes().append(this->path("list.m3u"), "z");
  EXPECT_EQ(this->contents("list.m3u"), "a\r\n" + this->allBytes() + "z");
}

TYPED_TEST_P(ByteFilesContract, NamesBeyondAsciiAreTaken) {
  const std::string name = "\xE2\x98\x83 Th\xC3\xA9 ; #1 %.m3u";
  this->bytes().create(this->path(name));
  this->bytes().append(this->path(name), "a");
  this->bytes().replace(this->path(name), this->contents(name) + "b");
  EXPECT_EQ(this->contents(name), "ab");
  EXPECT_EQ(this->backend.names(), std::vector<std::string>{name});
}

TYPED_TEST_P(ByteFilesContract, KnowsHowLongAFileIs) {
  this->backend.addFile("a.wav", std::string(70000, 'x'));
  this->backend.addFile("empty.wav", "");
  EXPECT_EQ(this->bytes().size(this->path("a.wav")), 70000u);
  EXPECT_EQ(this->bytes().size(this->path("empty.wav")), 0u);
  EXPECT_THROW(this->bytes().size(this->path("missing.wav")), platform::Failure);
}

TYPED_TEST_P(ByteFilesContract, KnowsAFileFromItsLikes) {
  this->backend.addFile("a.wav", "same");
  this->backend.addFile("b.wav", "same");
  EXPECT_TRUE(this->bytes().same(this->path("a.wav"), this->path("a.wav")));
  EXPECT_FALSE(this->bytes().same(this->path("a.wav"), this->path("b.wav")));
  EXPECT_FALSE(this->bytes().same(this->path("a.wav"), this->path("missing.wav")));
  EXPECT_FALSE(this->bytes().same(this->path("missing.wav"), this->path("missing.wav")));
}

REGISTER_TYPED_TEST_SUITE_P(ByteFilesContract, KnowsHowLongAFileIs, KnowsAFileFromItsLikes,
                            AnEmptyFileHasNoBlocks, EveryByteIsReadAsItIs,
                            ALongFileIsReadWholeAndInOrder, TheEndIsReadWithoutTheRest,
                            WhatTheReaderThrowsPassesThrough, AMissingFileFailsAndIsNamed,
                            AFolderIsNoFile, AnEmptyPathFails, CreatingLeavesAFileThatIsThere,
                            ReplacingPutsBytesInPlaceOfTheOldOnes,
                            ReplacingMakesAFileThatIsNotThere, LongFilesAreReplacedToo,
                            NoFolderIsMadeOnTheWay, AReadOnlyFileStaysAsItIs, AppendingAddsAtTheEnd,
                            NamesBeyondAsciiAreTaken);

}  // namespace nerolith::contracts
