#include <gtest/gtest.h>

#include "endtoend/stage.h"

namespace nerolith::endtoend {
namespace {

TEST(OddNames, ArePlayed) {
  Stage stage;
  const std::string long255 = std::string(251, 'n') + ".wav";
  stage.prepare({"1 it's \"quoted\".wav", "2 new\nline.wav", "3 \xff\xfe bytes.wav",
                 "4 a,comma.wav", "5 na\xc3\xafve \xe2\x99\xab.wav", long255},
                2);
  stage.open({.mode = 2, .mixLead = 1, .fadeLength = 0.5});
  pauseFor(1);
  EXPECT_TRUE(stage.recording->waitForSilence(1.0, 15));
  EXPECT_EQ(timesHeard(stage.recording->sound(), stage.songs), std::vector<int>(6, 1));
  EXPECT_EQ(stage.close(), 0);
}

}  // namespace
}  // namespace nerolith::endtoend
