#include <gtest/gtest.h>

#include "contracts/notification_icon_contract.h"
#include "platform/simulated/simulated_machine.h"

namespace nerolith::contracts {
namespace {

struct SimulatedIconBackend {
  platform::NotificationIcon& icon() { return machine.icon; }
  platform::NotifyRecord record() {
    return {.size = 88,
            .window = &picture,
            .id = 100,
            .flags = 7,
            .callbackMessage = 512,
            .icon = &form};
  }
  void mouse(int message) { machine.icon.mouse(message); }
  void settle() {}

  platform::simulated::SimulatedMachine machine;
  controls::PictureBox picture;
  controls::Form form;
};
INSTANTIATE_TYPED_TEST_SUITE_P(Simulated, NotificationIconContract, SimulatedIconBackend);

}  // namespace
}  // namespace nerolith::contracts
