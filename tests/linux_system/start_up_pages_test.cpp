#include "platform/linux/system/start_up_pages.h"

#include <gtest/gtest.h>

#include <fstream>
#include <stdexcept>
#include <string>

namespace nerolith::system {
namespace {

/// Resident bytes of this process that belong to files, in kB.
long residentFileKilobytes() {
  std::ifstream status("/proc/self/status");
  for (std::string line; std::getline(status, line);)
    if (line.rfind("RssFile:", 0) == 0) return std::stol(line.substr(8));
  throw std::runtime_error("no RssFile in /proc/self/status");
}

TEST(StartUpPages, GivenBackTheyAreResidentNoMore) {
  const long before = residentFileKilobytes();
  const std::size_t bytes = giveBackStartUpPages();
  EXPECT_GT(bytes, 1'000'000U);
  EXPECT_LT(residentFileKilobytes(), before);
}

TEST(StartUpPages, WhatIsUsedAgainComesBackUnharmed) {
  for (int i = 0; i < 3; ++i) {
    giveBackStartUpPages();
    // Throwing walks tables of constants, code, and relocated data of several libraries.
    EXPECT_THROW(std::stoi("no number"), std::invalid_argument);
  }
}

}  // namespace
}  // namespace nerolith::system
