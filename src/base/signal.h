// A list of listeners that is called in order of subscription, on the user-interface thread.
#pragma once

#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace nerolith::base {

/// Ends a subscription when it is destroyed. Outliving the signal is fine.
class Subscription {
 public:
  Subscription() = default;
  explicit Subscription(std::shared_ptr<bool> alive) : alive_(std::move(alive)) {}
  Subscription(Subscription&&) = default;
  Subscription& operator=(Subscription&& other) noexcept {
    end();
    alive_ = std::move(other.alive_);
    return *this;
  }
  ~Subscription() { end(); }

  void end() {
    if (alive_) *alive_ = false;
    alive_.reset();
  }

 private:
  std::shared_ptr<bool> alive_;
};

/// Listeners may subscribe and unsubscribe while the signal is being raised; one that was added
/// during a raise is first called at the next. A listener's exception passes to the raiser.
template <typename... Args>
class Signal {
 public:
  using Listener = std::function<void(Args...)>;

  Signal() = default;
  Signal(const Signal&) = delete;
  Signal& operator=(const Signal&) = delete;

  [[nodiscard]] Subscription subscribe(Listener listener) {
    auto alive = std::make_shared<bool>(true);
    listeners_.push_back({alive, std::make_shared<Listener>(std::move(listener))});
    return Subscription(alive);
  }

  void raise(Args... args) {
    const Raise raise(*this);
    const std::size_t count = listeners_.size();
    for (std::size_t i = 0; i < count; ++i) {
      const Entry entry = listeners_[i];
      if (*entry.alive) (*entry.listener)(args...);
    }
  }

  bool hasListeners() const { return !listeners_.empty(); }

 private:
  struct Entry {
    std::shared_ptr<bool> alive;
    std::shared_ptr<Listener> listener;
  };

  /// Ended listeners are dropped when the outermost raise is over, so that a nested one never
  /// moves the entries that an outer one walks.
  struct Raise {
    explicit Raise(Signal& signal) : signal(signal) { ++signal.depth_; }
    ~Raise() {
      if (--signal.depth_ == 0)
        std::erase_if(signal.listeners_, [](const Entry& entry) { return !*entry.alive; });
    }
    Signal& signal;
  };

  std::vector<Entry> listeners_;
  int depth_ = 0;
};

}  // namespace nerolith::base
