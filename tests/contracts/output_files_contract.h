// What files that are written piece by piece promise, whatever the machine.
//
// A backend for the suite is a default-constructible struct with
//   platform::OutputFiles& output();
//   std::string path(const std::string& relative);  // below a fresh, empty folder; "" itself
//   void addFile(const std::string& relative, const std::string& contents);
//   void addFolder(const std::string& relative);
//   void protect(const std::string& relative);           // makes a file read-only
//   std::string contents(const std::string& relative);
//   std::vector<std::string> names();                    // what the folder holds, sorted
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/failure.h"
#include "platform/output_file.h"

namespace nerolith::contracts {

inline std::span<const std::byte> asBytes(const std::string& text) {
  return std::as_bytes(std::span(text));
}

template <typename Backend>
class OutputFilesContract : public ::testing::Test {
 protected:
  using Failure = platform::Failure;
  using List = std::vector<std::string>;

  platform::OutputFiles& output() { return backend.output(); }
  std::string path(const std::string& relative) { return backend.path(relative); }
  /// The words of a call that fails; empty: it did not.
  template <typename Call>
  std::string words(Call call) {
    try {
      call();
      return {};
    } catch (const Failure& failure) {
      return failure.what();
    }
  }

  Backend backend;
};

TYPED_TEST_SUITE_P(OutputFilesContract);

TYPED_TEST_P(OutputFilesContract, ANewFileIsEmptyAndGrowsPieceByPiece) {
  const auto file = this->output().create(this->path("a.wav"));
  EXPECT_EQ(file->size(), 0);
  file->append(asBytes("one"));
  file->append(asBytes(""));
  file->append(asBytes(std::string("\0two", 4)));
  EXPECT_EQ(file->size(), 7);
  file->close();
  EXPECT_EQ(this->backend.contents("a.wav"), std::string("one\0two", 7));
}

TYPED_TEST_P(OutputFilesContract, AFileOfThatNameIsDeletedFirst) {
  this->backend.addFile("a.wav", "a longer text than the new one");
  const auto file = this->output().create(this->path("a.wav"));
  file->append(asBytes("new"));
  file->close();
  EXPECT_EQ(this->backend.contents("a.wav"), "new");
}

TYPED_TEST_P(OutputFilesContract, BytesThatAreThereCanBeOverwritten) {
  const auto file = this->output().create(this->path("a.wav"));
  file->append(asBytes("RIFF....WAVE"));
  file->writeAt(4, asBytes("1234"));
  file->writeAt(0, asBytes("r"));
  file->append(asBytes("!"));
  file->close();
  EXPECT_EQ(this->backend.contents("a.wav"), "rIFF1234WAVE!");
}

TYPED_TEST_P(OutputFilesContract, NothingIsWrittenBeyondTheEnd) {
  const auto file = this->output().create(this->path("a.wav"));
  file->append(asBytes("1234"));
  EXPECT_NE(this->words([&] { file->writeAt(2, asBytes("abc")); }), "");
  EXPECT_NE(this->words([&] { file->writeAt(-1, asBytes("a")); }), "");
  EXPECT_NE(this->words([&] { file->writeAt(5, asBytes("a")); }), "");
  file->close();
  EXPECT_EQ(this->backend.contents("a.wav"), "1234");
}

TYPED_TEST_P(OutputFilesContract, AClosedFileTakesNoMoreAndMayBeClosedAgain) {
  const auto file = this->output().create(this->path("a.wav"));
  file->append(asBytes("1234"));
  file->close();
  EXPECT_NE(this->words([&] { file->append(asBytes("5")); }), "");
  EXPECT_NE(this->words([&] { file->writeAt(0, asBytes("5")); }), "");
  file->close();
  EXPECT_EQ(this->backend.contents("a.wav"), "1234");
}

TYPED_TEST_P(OutputFilesContract, DestroyingAFileClosesIt) {
  this->output().create(this->path("a.wav"))->append(asBytes("12"));
  EXPECT_EQ(this->backend.contents("a.wav"), "12");
  this->output().create(this->path("a.wav"));
  EXPECT_EQ(this->backend.contents("a.wav"), "");
}

TYPED_TEST_P(OutputFilesContract, APlaceThatCannotBeWrittenIsNamed) {
  this->backend.addFile("fixed.wav", "fixed");
  this->backend.protect("fixed.wav");
  this->backend.addFolder("folder");
  for (const char* relative : {"nowhere/a.wav", "fixed.wav", "folder"}) {
    const std::string path = this->path(relative);
    const auto said = this->words([&] { this->output().create(path); });
    EXPECT_EQ(said.find(path + ": "), 0u) << said;
    EXPECT_NE(this->words([&] { this->output().replace(path)->close(); }), "") << path;
  }
  EXPECT_EQ(this->backend.contents("fixed.wav"), "fixed");
}

TYPED_TEST_P(OutputFilesContract, AnExistingFileCanBePatched) {
  this->backend.addFile("a.wav", "RIFF0000WAVE");
  const auto file = this->output().reopen(this->path("a.wav"));
  EXPECT_EQ(file->size(), 12);
  file->writeAt(4, asBytes("5678"));
  file->close();
  EXPECT_EQ(this->backend.contents("a.wav"), "RIFF5678WAVE");
}

TYPED_TEST_P(OutputFilesContract, WhatIsNoWritableFileCannotBeReopened) {
  this->backend.addFile("fixed.wav", "fixed");
  this->backend.protect("fixed.wav");
  this->backend.addFolder("folder");
  for (const char* relative : {"missing.wav", "fixed.wav", "folder"})
    EXPECT_NE(this->words([&] { this->output().reopen(this->path(relative)); }), "") << relative;
  EXPECT_EQ(this->backend.names(), (typename TestFixture::List{"fixed.wav", "folder"}));
}

TYPED_TEST_P(OutputFilesContract, AFileBeingWrittenIsNobodyElses) {
  const auto file = this->output().create(this->path("a.wav"));
  file->append(asBytes("mine"));
  EXPECT_NE(this->words([&] { this->output().reopen(this->path("a.wav")); }), "");
  EXPECT_NE(this->words([&] { this->output().create(this->path("a.wav")); }), "");
  file->append(asBytes("!"));
  file->close();
  EXPECT_EQ(this->backend.contents("a.wav"), "mine!");
  EXPECT_EQ(this->words([&] { this->output().reopen(this->path("a.wav")); }), "");
}

TYPED_TEST_P(OutputFilesContract, AReplacementTakesItsPlaceWhenItIsClosed) {
  this->backend.addFile("a.wav", "old");
  const auto file = this->output().replace(this->path("a.wav"));
  file->append(asBytes("new.text"));
  file->writeAt(3, asBytes(" "));
  EXPECT_EQ(this->backend.contents("a.wav"), "old");
  file->close();
  EXPECT_EQ(this->backend.contents("a.wav"), "new text");
  EXPECT_EQ(this->backend.names(), typename TestFixture::List{"a.wav"});
}

TYPED_TEST_P(OutputFilesContract, AReplacementThatIsGivenUpLeavesNoTrace) {
  this->backend.addFile("a.wav", "old");
  this->output().replace(this->path("a.wav"))->append(asBytes("half of i"));
  this->output().replace(this->path("b.wav"))->append(asBytes("half of i"));
  EXPECT_EQ(this->backend.contents("a.wav"), "old");
  EXPECT_EQ(this->backend.names(), typename TestFixture::List{"a.wav"});
}

REGISTER_TYPED_TEST_SUITE_P(OutputFilesContract, ANewFileIsEmptyAndGrowsPieceByPiece,
                            AFileOfThatNameIsDeletedFirst, BytesThatAreThereCanBeOverwritten,
                            NothingIsWrittenBeyondTheEnd, AClosedFileTakesNoMoreAndMayBeClosedAgain,
                            DestroyingAFileClosesIt, APlaceThatCannotBeWrittenIsNamed,
                            AnExistingFileCanBePatched, WhatIsNoWritableFileCannotBeReopened,
                            AFileBeingWrittenIsNobodyElses, AReplacementTakesItsPlaceWhenItIsClosed,
                            AReplacementThatIsGivenUpLeavesNoTrace);

}  // namespace nerolith::contracts
