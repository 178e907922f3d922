#include "platform/linux/system/instance_socket.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <future>
#include <vector>

#include "linux_system/scratch_folder.h"
#include "platform/linux/system/instance_name.h"

namespace nerolith::system {
namespace {

using platform::StartRequest;
using namespace std::chrono_literals;

/// A run of the program: its event loop is `attend`.
class Process {
 public:
  explicit Process(const std::string& folder, std::chrono::milliseconds patience = 5s,
                   const std::string& name = "on-:0")
      : instance({folder, name, patience}, [this](int descriptor, std::function<void()> readable) {
          descriptor_ = descriptor;
          readable_ = std::move(readable);
        }) {}

  void listen() {
    instance.listen([this](const StartRequest& later) { heard.push_back(later); });
  }
  /// Until a request was heard, or none came for so long.
  void attend(std::chrono::milliseconds longest = 5s) {
    pollfd watched{descriptor_, POLLIN, 0};
    while (heard.empty() && poll(&watched, 1, static_cast<int>(longest.count())) > 0) readable_();
  }

  std::vector<StartRequest> heard;
  InstanceSocket instance;

 private:
  int descriptor_ = -1;
  std::function<void()> readable_;
};

class InstanceSocketTest : public testing::Test {
 protected:
  std::future<bool> claimElsewhere(StartRequest request, std::chrono::milliseconds patience = 5s) {
    return std::async(std::launch::async, [this, request = std::move(request), patience] {
      Process later(folder(), patience);
      return later.instance.claim(request);
    });
  }
  std::string folder() const { return scratch.path(); }

  ScratchFolder scratch;
};

TEST_F(InstanceSocketTest, TheFirstRunIsThePlayer) {
  Process first(folder());
  EXPECT_TRUE(first.instance.claim({"/home", ""}));
}

TEST_F(InstanceSocketTest, ALaterRunHandsOverItsFolderAndCommandLine) {
  Process first(folder());
  ASSERT_TRUE(first.instance.claim({"/", ""}));
  first.listen();
  const StartRequest request{"/home/anna/M\xFCsik", "a \"b\"\n c.mp3,3"};
  auto later = claimElsewhere(request);
  first.attend();
  EXPECT_FALSE(later.get());
  EXPECT_EQ(first.heard, std::vector{request});
}

TEST_F(InstanceSocketTest, WhatCameBeforeTheFirstListensIsNotLost) {
  Process first(folder());
  ASSERT_TRUE(first.instance.claim({"/", ""}));
  auto later = claimElsewhere({"/home", "x.mp3"});
  EXPECT_EQ(later.wait_for(100ms), std::future_status::timeout);
  first.listen();
  first.attend();
  EXPECT_FALSE(later.get());
  EXPECT_EQ(first.heard.size(), 1U);
}

TEST_F(InstanceSocketTest, TheNextRunAfterTheFirstEndedIsTheFirst) {
  {
    Process first(folder());
    ASSERT_TRUE(first.instance.claim({"/", ""}));
  }
  Process next(folder());
  EXPECT_TRUE(next.instance.claim({"/", ""}));
}

TEST_F(InstanceSocketTest, WhatAKilledRunLeavesBehindBlocksNobody) {
  const pid_t child = fork();
  if (child == 0) {
    Process killed(folder());
    _exit(killed.instance.claim({"/", ""}) ? 0 : 1);  // destroys nothing
  }
  int status = 0;
  ASSERT_EQ(waitpid(child, &status, 0), child);
  ASSERT_EQ(status, 0);
  ASSERT_TRUE(std::filesystem::exists(folder() + "/on-:0.socket"));
  Process first(folder());
  ASSERT_TRUE(first.instance.claim({"/", ""}));
  first.listen();
  auto later = claimElsewhere({"/", "x"});
  first.attend();
  EXPECT_FALSE(later.get());
}

TEST_F(InstanceSocketTest, ARunThatIsEndingIsWaitedForAndSucceeded) {
  auto ending = std::make_unique<Process>(folder());
  ASSERT_TRUE(ending->instance.claim({"/", ""}));
  auto later = claimElsewhere({"/", "x"});
  EXPECT_EQ(later.wait_for(100ms), std::future_status::timeout);
  ending.reset();
  EXPECT_TRUE(later.get());
}

TEST_F(InstanceSocketTest, ARunThatHangsDoesNotStandInTheWayAndDoesNotDoItLater) {
  Process hanging(folder());
  ASSERT_TRUE(hanging.instance.claim({"/", ""}));
  EXPECT_TRUE(claimElsewhere({"/", "x"}, 200ms).get());
  hanging.listen();
  hanging.attend(50ms);
  EXPECT_TRUE(hanging.heard.empty());
}

TEST_F(InstanceSocketTest, RunsOnOtherDesktopsAreOthers) {
  Process here(folder());
  Process there(folder(), 5s, "on-:1");
  EXPECT_TRUE(here.instance.claim({"/", ""}));
  EXPECT_TRUE(there.instance.claim({"/", ""}));
}

TEST_F(InstanceSocketTest, WithoutAFolderEachRunIsTheFirst) {
  Process one("");
  Process other(folder() + "/missing");
  EXPECT_TRUE(one.instance.claim({"/", ""}));
  EXPECT_TRUE(other.instance.claim({"/", ""}));
  one.listen();
}

TEST_F(InstanceSocketTest, AFolderWithALongPathServes) {
  const std::string deep = folder() + "/" + std::string(120, 'x');
  std::filesystem::create_directory(deep);
  Process first(deep);
  ASSERT_TRUE(first.instance.claim({"/", ""}));
  first.listen();
  auto later = std::async(std::launch::async, [&] {
    Process run(deep);
    return run.instance.claim({"/", "x"});
  });
  first.attend();
  EXPECT_FALSE(later.get());
}

TEST(InstanceName, IsOneForEachDesktop) {
  EXPECT_EQ(instanceName("", ":0"), instanceName("", ":0.1"));
  EXPECT_NE(instanceName("", ":0"), instanceName("", ":1"));
  EXPECT_NE(instanceName("wayland-0", ":0"), instanceName("", ":0"));
  EXPECT_EQ(instanceName("wayland-0", ":0"), instanceName("wayland-0", ":1"));
  EXPECT_EQ(instanceName("", "host.name:10.0"), "on-host.name:10");
}

TEST(InstanceName, IsAFileName) {
  EXPECT_EQ(instanceName("/run/user/1000/wayland-0", ""), "on-_run_user_1000_wayland-0");
  EXPECT_EQ(instanceName("", ""), "on-");
}

}  // namespace
}  // namespace nerolith::system
