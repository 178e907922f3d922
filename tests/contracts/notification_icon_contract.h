// What every notification area must do with the player's icon.
#pragma once

#include <gtest/gtest.h>

#include <vector>

#include "platform/notification_icon.h"

namespace nerolith::contracts {

/// A rig has `icon()`, the door; `record()`, a filled record whose picture box can be reached;
/// `mouse(message)`, what the area does when the mouse is over the icon; `settle()`, which lets
/// what is under way arrive.
template <class Rig>
class NotificationIconContract : public testing::Test {
 protected:
  bool add() { return rig.icon().notify(platform::NotifyMessage::Add, rig.record()); }
  bool remove() { return rig.icon().notify(platform::NotifyMessage::Delete, rig.record()); }
  bool shown() {
    rig.settle();
    return rig.icon().shown();
  }

  Rig rig;
};

TYPED_TEST_SUITE_P(NotificationIconContract);

TYPED_TEST_P(NotificationIconContract, IsShownFromAddingToDeleting) {
  EXPECT_FALSE(this->shown());
  EXPECT_TRUE(this->add());
  EXPECT_TRUE(this->shown());
  EXPECT_TRUE(this->remove());
  EXPECT_FALSE(this->shown());
}

TYPED_TEST_P(NotificationIconContract, AddingItOnceMoreIsIgnored) {
  EXPECT_TRUE(this->add());
  EXPECT_FALSE(this->add());
  EXPECT_TRUE(this->shown());
  EXPECT_TRUE(this->remove());
  EXPECT_FALSE(this->shown());
}

TYPED_TEST_P(NotificationIconContract, DeletingWhatIsNotThereIsIgnored) {
  EXPECT_FALSE(this->remove());
  EXPECT_TRUE(this->add());
  EXPECT_TRUE(this->remove());
  EXPECT_FALSE(this->remove());
}

TYPED_TEST_P(NotificationIconContract, CanBeAddedAgain) {
  this->add();
  this->remove();
  EXPECT_TRUE(this->add());
  EXPECT_TRUE(this->shown());
  this->remove();
}

TYPED_TEST_P(NotificationIconContract, TheMouseReachesThePictureBoxAsFifteenTimesItsMessage) {
  std::vector<float> heard;
  const auto hearing = this->rig.record().window->mouseMove.subscribe(
      [&](float across, float) { heard.push_back(across); });
  this->add();
  for (const int message : {513, 514, 515, 516}) {
    this->rig.mouse(message);
    this->rig.settle();
  }
  EXPECT_EQ(heard, (std::vector<float>{7695, 7710, 7725, 7740}));
  this->remove();
}

TYPED_TEST_P(NotificationIconContract, TellsWhenItComesAndGoes) {
  std::vector<bool> states;
  const auto hearing =
      this->rig.icon().shownChanged.subscribe([&] { states.push_back(this->rig.icon().shown()); });
  this->add();
  this->rig.settle();
  ASSERT_FALSE(states.empty());
  EXPECT_TRUE(states.back());
  this->remove();
  this->rig.settle();
  EXPECT_FALSE(states.back());
}

REGISTER_TYPED_TEST_SUITE_P(NotificationIconContract, IsShownFromAddingToDeleting,
                            AddingItOnceMoreIsIgnored, DeletingWhatIsNotThereIsIgnored,
                            CanBeAddedAgain, TheMouseReachesThePictureBoxAsFifteenTimesItsMessage,
                            TellsWhenItComesAndGoes);

}  // namespace nerolith::contracts
