// Asks the disk, but not for ever: a dead network share must not take the player with it.
#pragma once

#include <chrono>
#include <functional>
#include <future>
#include <memory>
#include <string>
#include <thread>
#include <utility>

namespace nerolith::base {

/// Runs calls on a thread of its own, one at a time, and waits for each. A call that does not come
/// back in time is left behind with its thread, which ends by itself when the system lets it go.
/// So calls own everything they touch. Used from one thread.
class PatientCaller {
 public:
  explicit PatientCaller(std::chrono::milliseconds patience = std::chrono::seconds(5))
      : patience_(patience) {}
  ~PatientCaller();
  PatientCaller(const PatientCaller&) = delete;
  PatientCaller& operator=(const PatientCaller&) = delete;

  /// The call's result, or its exception; fails naming `what` when the patience is over.
  template <typename Call>
  auto wait(const std::string& what, Call call) -> decltype(call()) {
    using Task = std::packaged_task<decltype(call())()>;
    auto task = std::make_shared<Task>(std::move(call));
    auto result = task->get_future();
    submit([task] { (*task)(); });
    if (result.wait_for(patience_) != std::future_status::ready) giveUp(what);
    return result.get();
  }

 private:
  struct Desk;

  void submit(std::function<void()> job);
  [[noreturn]] void giveUp(const std::string& what);

  std::chrono::milliseconds patience_;
  std::shared_ptr<Desk> desk_;
  std::thread thread_;
};

}  // namespace nerolith::base
