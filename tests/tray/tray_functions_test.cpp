#include "tray/tray_functions.h"

#include <gtest/gtest.h>

#include "platform/simulated/simulated_machine.h"

namespace nerolith::tray {
namespace {

using platform::NotifyRecord;
using platform::simulated::SimulatedMachine;

struct TrayFunctions : testing::Test {
  const NotifyRecord& told() const { return machine.icon.lastRecord(); }

  SimulatedMachine machine;
  controls::PictureBox picture, other;
  controls::Form form;
  Tray_Functions functions{machine.icon};
};

TEST_F(TrayFunctions, AddFillsEveryFieldOfTheRecord) {
  functions.add(picture, "Nerolith", form);
  EXPECT_EQ(told().size, 88U);
  EXPECT_EQ(told().window, &picture);
  EXPECT_EQ(told().id, 100U);
  EXPECT_EQ(told().flags, 7U);
  EXPECT_EQ(told().callbackMessage, 512U);
  EXPECT_EQ(told().icon, &form);
  EXPECT_EQ(std::string(told().tip.begin(), told().tip.end()),
            std::string("Nerolith") + std::string(56, '\0'));
  EXPECT_EQ(machine.trace(), "tray.add Nerolith");
}

TEST_F(TrayFunctions, DeleteFillsSizeIdMessageAndWindow) {
  functions.remove(picture);
  EXPECT_EQ(told().size, 88U);
  EXPECT_EQ(told().id, 100U);
  EXPECT_EQ(told().callbackMessage, 512U);
  EXPECT_EQ(told().window, &picture);
  EXPECT_EQ(told().flags, 0U);
  EXPECT_EQ(told().icon, nullptr);
  EXPECT_EQ(told().tip[0], '\0');
  EXPECT_EQ(machine.trace(), "tray.delete");
}

TEST_F(TrayFunctions, BothUseTheOneRecord) {
  functions.add(picture, "Nerolith", form);
  functions.remove(other);
  EXPECT_EQ(told().window, &other);
  EXPECT_EQ(told().flags, 7U);  // left as it was
  EXPECT_EQ(told().icon, &form);
  EXPECT_STREQ(told().tip.data(), "Nerolith");
}

TEST_F(TrayFunctions, ATipFillsItsFieldUpToTheZero) {
  functions.add(picture, std::string(63, 'x'), form);
  EXPECT_EQ(std::string(told().tip.data()), std::string(63, 'x'));
  functions.add(picture, std::string(64, 'y'), form);
  EXPECT_EQ(std::string(told().tip.data()), std::string(63, 'y'));
  EXPECT_EQ(told().tip[63], '\0');
}

TEST_F(TrayFunctions, AShorterTipLeavesNothingOfTheOneBefore) {
  functions.add(picture, "a long tip", form);
  functions.add(picture, "x", form);
  EXPECT_EQ(std::string(told().tip.begin(), told().tip.end()), "x" + std::string(63, '\0'));
}

TEST_F(TrayFunctions, AddingWhatIsThereIsIgnored) {
  functions.add(picture, "Nerolith", form);
  EXPECT_NO_THROW(functions.add(picture, "Nerolith", form));
  EXPECT_TRUE(machine.icon.shown());
}

TEST_F(TrayFunctions, FailuresAreIgnored) {
  machine.failDoorCall(1);
  EXPECT_NO_THROW(functions.add(picture, "Nerolith", form));
  machine.failDoorCall(1);
  EXPECT_NO_THROW(functions.remove(picture));
  EXPECT_EQ(machine.trace(), "tray.add Nerolith failed | tray.delete failed");
}

}  // namespace
}  // namespace nerolith::tray
