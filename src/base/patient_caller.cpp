#include "base/patient_caller.h"

#include <cerrno>
#include <condition_variable>
#include <mutex>
#include <system_error>

#include "base/failure.h"

namespace nerolith::base {

/// Where the two threads meet; lives as long as the longer of them.
struct PatientCaller::Desk {
  std::mutex mutex;
  std::condition_variable wake;
  std::function<void()> job;
  bool closed = false;

  void serve() {
    std::unique_lock lock(mutex);
    for (;;) {
      wake.wait(lock, [this] { return job || closed; });
      if (closed) return;
      const std::function<void()> current = std::exchange(job, nullptr);
      lock.unlock();
      current();
      lock.lock();
    }
  }

  void close() {
    const std::lock_guard lock(mutex);
    closed = true;
    wake.notify_one();
  }
};

PatientCaller::~PatientCaller() {
  if (!desk_) return;
  desk_->close();
  thread_.join();
}

void PatientCaller::submit(std::function<void()> job) {
  if (!desk_) {
    desk_ = std::make_shared<Desk>();
    try {
      thread_ = std::thread([desk = desk_] { desk->serve(); });
    } catch (const std::system_error& error) {
      desk_.reset();
      throw Failure("The system has no thread to spare.", error.code().value());
    }
  }
  const std::lock_guard lock(desk_->mutex);
  desk_->job = std::move(job);
  desk_->wake.notify_one();
}

void PatientCaller::giveUp(const std::string& what) {
  desk_->close();
  desk_.reset();
  thread_.detach();
  throw Failure(what + ": the disk or network share does not answer", ETIMEDOUT);
}

}  // namespace nerolith::base
