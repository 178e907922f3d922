#include "platform/linux/sound/urgent_thread.h"

#include <sched.h>
#include <sys/resource.h>

namespace nerolith::sound {
namespace {

/// What sound servers give their own threads.
constexpr int kRoundRobinPriority = 5;
constexpr int kNiceLevel = -11;

}  // namespace

// 0 is the calling thread throughout: on Linux class and nice level belong to a thread.
void makeThisThreadUrgent() {
  sched_param wish{};
  wish.sched_priority = kRoundRobinPriority;
  if (::sched_setscheduler(0, SCHED_RR | SCHED_RESET_ON_FORK, &wish) == 0) return;
  wish.sched_priority = 0;
  ::sched_setscheduler(0, SCHED_OTHER | SCHED_RESET_ON_FORK, &wish);
  ::setpriority(PRIO_PROCESS, 0, kNiceLevel);
}

}  // namespace nerolith::sound
