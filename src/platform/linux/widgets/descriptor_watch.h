// Descriptors of the system, heard in the program's event loop.
#pragma once

#include <QSocketNotifier>
#include <functional>
#include <memory>
#include <vector>

namespace nerolith::widgets {

/// Needs a running QtApplication, on its thread. The descriptors outlive it, or are heard no more.
class DescriptorWatch {
 public:
  /// Calls `readable` whenever `descriptor` can be read.
  void add(int descriptor, std::function<void()> readable);

 private:
  std::vector<std::unique_ptr<QSocketNotifier>> notifiers_;
};

}  // namespace nerolith::widgets
