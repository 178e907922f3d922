#include "platform/linux/sound/urgent_thread.h"

#include <pthread.h>
#include <sched.h>
#include <sys/resource.h>

namespace nerolith::sound {
namespace {

/// What sound servers give their own threads.
constexpr int kRoundRobinPriority = 5;
constexpr int kNiceLevel = -11;

}  // namespace

void makeThisThreadUrgent() {
  sched_param wish{};
  wish.sched_priority = kRoundRobinPriority;
  if (::pthread_setschedparam(::pthread_self(), SCHED_RR | SCHED_RESET_ON_FORK, &wish) == 0) return;
  // 0 is the calling thread: on Linux a nice level belongs to a thread.
  ::setpriority(PRIO_PROCESS, 0, kNiceLevel);
}

}  // namespace nerolith::sound
